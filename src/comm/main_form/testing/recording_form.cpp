// SPDX-License-Identifier: MIT
#include "comm/main_form/testing/recording_form.h"

#include <stdexcept>

namespace zorvane::doubles {

namespace {

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

std::string text(std::int32_t value) { return std::to_string(value); }

const char* nameOf(Menu_Entry entry) {
    static const std::map<Menu_Entry, const char*> names{
        {Menu_Entry::MNU_Open, "MNU_Open"},
        {Menu_Entry::MNU_Close, "MNU_Close"},
        {Menu_Entry::MNU_Save, "MNU_Save"},
        {Menu_Entry::MNU_Saveas, "MNU_Saveas"},
        {Menu_Entry::MNU_Print, "MNU_Print"},
        {Menu_Entry::MNU_PrintPage, "MNU_PrintPage"},
        {Menu_Entry::MNU_PrintAll, "MNU_PrintAll"},
        {Menu_Entry::MNU_Grid, "MNU_Grid"},
        {Menu_Entry::MNU_Upload, "MNU_Upload"},
        {Menu_Entry::MNU_Download, "MNU_Download"},
        {Menu_Entry::MNU_Disconnect, "MNU_Disconnect"},
        {Menu_Entry::separador4, "separador4"},
    };
    return names.at(entry);
}

const char* nameOf(Timer_Name timer) {
    static const std::map<Timer_Name, const char*> names{
        {Timer_Name::TMR_Abre_ZTP, "TMR_Abre_ZTP"},
        {Timer_Name::TMR_Inicial_ZTP, "TMR_Inicial_ZTP"},
        {Timer_Name::TMR_Verifica_monitor, "TMR_Verifica_monitor"},
        {Timer_Name::TMR_Actualiza_valores, "TMR_Actualiza_valores"},
        {Timer_Name::TMR_Actualiza_online, "TMR_Actualiza_online"},
        {Timer_Name::TMR_TxRx, "TMR_TxRx"},
        {Timer_Name::TMR_Forza_analogas, "TMR_Forza_analogas"},
        {Timer_Name::TIM_Tamaño_normal, "TIM_Tamaño_normal"},
    };
    return names.at(timer);
}

} // namespace

void Recording_Progress::setLabel(const std::string& text) {
    label_ = text;
    journal_.add("Porcentaje label = " + quoted(text));
}

void Recording_Progress::setRange(std::int32_t maximum) {
    maximum_ = maximum;
    value_ = 0;
    journal_.add("Porcentaje 0 to " + text(maximum));
}

void Recording_Progress::setValue(std::int32_t value) {
    value_ = value;
    journal_.add("Porcentaje at " + text(value));
}

void Recording_Progress::show() {
    shown_ = true;
    journal_.add("Porcentaje shown");
}

void Recording_Progress::unload() {
    shown_ = false;
    journal_.add("Porcentaje unloaded");
}

void Recording_Progress::Deshabilita_Cancelar() {
    value_ = 0;
    journal_.add("Porcentaje closing");
}

void Recording_Grids::refillSettings(std::int32_t row) {
    journal_.add("FLX_Settings filled with " + doubles::text(row));
}

void Recording_Grids::setSettingsText(std::int32_t row, std::int32_t col, const std::string& text) {
    texts_[{row, col}] = text;
    journal_.add("FLX_Settings(" + doubles::text(row) + "," + doubles::text(col) + ") = " + quoted(text));
}

void Recording_Grids::setSettingsTabStop(bool on) {
    journal_.add(std::string("FLX_Settings tab stop ") + (on ? "on" : "off"));
}

void Recording_Grids::setSettingsRedraw(bool on) {
    journal_.add(std::string("FLX_Settings redraw ") + (on ? "on" : "off"));
}

std::string Recording_Grids::text(std::int32_t row, std::int32_t col) const {
    const auto found = texts_.find({row, col});
    return found == texts_.end() ? std::string() : found->second;
}

int Recording_Form::Msgb_Show(const std::string& prompt, int style, const std::string& title) {
    journal_.add("Msgb " + text(style) + " " + quoted(title) + ": " + quoted(prompt));
    if (duringMessage) duringMessage();
    if (answers.empty()) return Msgb_Code_Ok;
    const int answer = answers.front();
    answers.pop_front();
    return answer;
}

void Recording_Form::setPanel(Panel panel, const std::string& text) {
    panels_[panel] = text;
    journal_.add("panel " + std::to_string(static_cast<int>(panel)) + " = " + quoted(text));
}

std::string Recording_Form::panel(Panel panel) const {
    const auto found = panels_.find(panel);
    return found == panels_.end() ? std::string() : found->second;
}

void Recording_Form::setMenuEnabled(Menu_Entry entry, bool enabled) {
    menus_[entry] = enabled;
    journal_.add(std::string(nameOf(entry)) + (enabled ? " enabled" : " disabled"));
}

bool Recording_Form::menuEnabled(Menu_Entry entry) const {
    const auto found = menus_.find(entry);
    return found != menus_.end() && found->second;
}

void Recording_Form::setCaption(const std::string& text) {
    caption_ = text;
    journal_.add("caption = " + quoted(text));
}

void Recording_Form::setFormEnabled(bool enabled) {
    formEnabled_ = enabled;
    journal_.add(enabled ? "form enabled" : "form disabled");
}

void Recording_Form::setTimerEnabled(Timer_Name timer, bool enabled) {
    if (enabled)
        timers_.insert(timer);
    else
        timers_.erase(timer);
    journal_.add(std::string(nameOf(timer)) + (enabled ? " on" : " off"));
}

void Recording_Form::setLostComShown(bool shown) {
    journal_.add(shown ? "LostCom shown" : "LostCom unloaded");
}

void Recording_Form::showFrmStatus(bool isUpload) {
    journal_.add(isUpload ? "FrmStatus shown for the upload" : "FrmStatus shown for the download");
}

void Recording_Form::unloadFrmStatus() {
    journal_.add("FrmStatus unloaded");
    if (onUnloadFrmStatus) onUnloadFrmStatus();
}

void Recording_Form::wait_until(const std::function<bool()>& condition) {
    while (!condition())
        if (!advance || !advance()) throw std::logic_error("this wait never ends");
}

void Recording_Form::wait_ms(std::int32_t milliseconds) {
    journal_.add("wait " + text(milliseconds) + " ms");
    if (duringPause) duringPause(milliseconds);
}

} // namespace zorvane::doubles
