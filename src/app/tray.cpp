// SPDX-License-Identifier: MIT
#include "app/tray.h"

#include "comm/main_form/monitor.h"
#include "values/run_time_failure.h"

#include <utility>

namespace zorvane::app {

namespace {

constexpr std::size_t longestTip = 63;

} // namespace

bool Tray::Tray_Icon_Add() {
    iconThere_ = icon_.add(form_.caption().substr(0, longestTip));
    if (!iconThere_)
        app_.mainForm.Msgb_Show("Unable to add icon to system tray!", Msgb_Critical, applicationTitle);
    return iconThere_;
}

void Tray::Tray_Icon_Remove() {
    iconThere_ = false;
    icon_.remove();
}

void Tray::MNU_Minimizetotray_Click() {
    if (In_Tray()) {
        Tray_Icon_Remove();
        form_.setEntryChecked(false);
        app_.link().RestoreMonitor();
    } else {
        form_.setEntryChecked(true);
        if (!Tray_Icon_Add()) return form_.setEntryChecked(false);
        app_.link().HideMonitor();
    }
    In_Tray() = !In_Tray();
}

void Tray::MNU_Tray_All_Click() {
    showForm();
    activateHiddenMonitor();
}

void Tray::MNU_Tray_Application_Window_Click() { showForm(); }

void Tray::MNU_Tray_Monitor_Window_Click() {
    if (app_.link().MonitorLoaded())
        activateHiddenMonitor();
    else
        showMonitorWindow(app_.grids.comm);
}

void Tray::Form_MouseMove(int x, int y) {
    if (std::exchange(handling_, true)) return;
    ignoringFailure([&] {
        if (x == static_cast<int>(Tray_Message::LeftDoubleClick)) leftDoubleClick();
        if (x == static_cast<int>(Tray_Message::RightButtonUp)) rightButtonUp(y);
    });
    handling_ = false;
}

void Tray::leftDoubleClick() {
    showForm();
    if (form_.minimized() && In_Tray()) activateHiddenMonitor();
    form_.activate();
}

void Tray::rightButtonUp(int y) {
    if (form_.minimized() || (monitorHidden() && In_Tray() && y == 0)) icon_.popUpMenu();
}

void Tray::formMinimized() {
    if (!In_Tray()) return;
    form_.hide();
    app_.link().MonitorMinimized();
}

void Tray::unload() {
    if (iconThere_) Tray_Icon_Remove();
}

void Tray::showForm() {
    if (form_.hidden()) form_.showNormal();
}

bool Tray::monitorHidden() const { return app_.link().MonitorLoaded() && !app_.link().MonitorVisible(); }

void Tray::activateHiddenMonitor() {
    if (monitorHidden()) app_.link().ActivateMonitor();
}

} // namespace zorvane::app
