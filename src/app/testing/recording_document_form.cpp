// SPDX-License-Identifier: MIT
#include "app/testing/recording_document_form.h"

#include "values/numbers.h"

namespace zorvane::doubles {

namespace {

const char* nameOf(app::Form_Part part) {
    switch (part) {
    case app::Form_Part::Frame2:
        return "Frame2";
    case app::Form_Part::Frame3:
        return "Frame3";
    case app::Form_Part::PicLineHoriz:
        break;
    }
    return "PicLineHoriz";
}

std::string layoutOf(const VSFlexGrid& grid) {
    return numberText(grid.Rows()) + "x" + numberText(grid.Cols()) + " at row " + numberText(grid.Row());
}

} // namespace

int Recording_Document_Form::Msgb_Show(const std::string& prompt, int style, const std::string& title) {
    watch();
    return base.Msgb_Show(prompt, style, title);
}

void Recording_Document_Form::setPanel(Panel panel, const std::string& text) {
    watch();
    base.setPanel(panel, text);
}

void Recording_Document_Form::setMenuEnabled(Menu_Entry entry, bool enabled) {
    watch();
    base.setMenuEnabled(entry, enabled);
}

void Recording_Document_Form::setCaption(const std::string& text) {
    watch();
    base.setCaption(text);
}

void Recording_Document_Form::setFormEnabled(bool enabled) {
    watch();
    base.setFormEnabled(enabled);
}

void Recording_Document_Form::setTimerEnabled(Timer_Name timer, bool enabled) {
    watch();
    base.setTimerEnabled(timer, enabled);
}

void Recording_Document_Form::wait_ms(std::int32_t milliseconds) {
    watch();
    base.wait_ms(milliseconds);
}

void Recording_Document_Form::setPartVisible(app::Form_Part part, bool visible) {
    visible_[part] = visible;
    note(std::string(nameOf(part)) + (visible ? " shown" : " hidden"));
}

void Recording_Document_Form::setPartEnabled(app::Form_Part part, bool enabled) {
    note(std::string(nameOf(part)) + (enabled ? " enabled" : " disabled"));
}

void Recording_Document_Form::setMenuChecked(Menu_Entry entry, bool checked) {
    checked_[entry] = checked;
    note(std::string(entry == Menu_Entry::MNU_Grid ? "MNU_Grid" : "another entry") +
         (checked ? " ticked" : " not ticked"));
}

bool Recording_Document_Form::menuChecked(Menu_Entry entry) const {
    const auto found = checked_.find(entry);
    return found != checked_.end() && found->second;
}

void Recording_Document_Form::moveForm(const Twips_Rect& rectangle) {
    place = rectangle;
    note("form at " + numberText(place.top) + " " + numberText(place.left) + ", " + numberText(place.width) +
         " by " + numberText(place.height));
}

void Recording_Document_Form::restartPreviews(double fontSize) {
    note("previews restarted with " + numberText(fontSize));
    if (previewsFail) throw Run_Time_Failure(Failure::Subscript);
}

void Recording_Document_Form::endProgram() {
    ended = true;
    note("program ended");
}

bool Recording_Document_Form::visible(app::Form_Part part) const {
    const auto found = visible_.find(part);
    return found != visible_.end() && found->second;
}

void Recording_Document_Form::watch() {
    watch("FLX_Configuration", upper_, upperSeen_);
    watch("FLX_Settings", lower_, lowerSeen_);
}

void Recording_Document_Form::watch(const char* name, const VSFlexGrid& grid, Grid_Seen& seen) {
    if (grid.Visible() != seen.visible)
        journal_.add(std::string(name) + (grid.Visible() ? " shown" : " hidden"));
    if (layoutOf(grid) != seen.layout) journal_.add(name + (" " + layoutOf(grid)));
    seen = {layoutOf(grid), grid.Visible()};
}

void Recording_Document_Form::note(const std::string& line) {
    watch();
    journal_.add(line);
}

} // namespace zorvane::doubles
