// SPDX-License-Identifier: MIT
#include "ctl/document/held_form.h"

namespace zorvane::ctl {

void Held_Progress::tell() const {
    if (changed) changed();
}

void Held_Progress::setLabel(const std::string& text) {
    label_ = text;
    tell();
}

void Held_Progress::setRange(std::int32_t maximum) {
    maximum_ = maximum;
    value_ = 0;
    tell();
}

void Held_Progress::setValue(std::int32_t value) {
    value_ = value;
    tell();
}

void Held_Progress::show() {
    state_ = Progress_State::Shown;
    tell();
}

void Held_Progress::unload() {
    state_ = Progress_State::Unloaded;
    tell();
}

void Held_Progress::Deshabilita_Cancelar() {
    state_ = Progress_State::Closing;
    value_ = 0;
    tell();
}

/// Whoever has called for a transfer from a terminal wants what it asks about.
int Held_Form::Msgb_Show(const std::string& /*prompt*/, int style, const std::string& /*title*/) {
    return (style & Msgb_YesNo) != 0 ? Msgb_Code_Yes : Msgb_Code_Ok;
}

void Held_Form::setPanel(Panel panel, const std::string& text) {
    panels_[panel] = text;
    if (panel == Panel::Message) messages_.push_back(text);
}

std::string Held_Form::panel(Panel panel) const {
    const auto found = panels_.find(panel);
    return found == panels_.end() ? std::string() : found->second;
}

bool Held_Form::menuEnabled(Menu_Entry entry) const {
    const auto found = menus_.find(entry);
    return found != menus_.end() && found->second;
}

} // namespace zorvane::ctl
