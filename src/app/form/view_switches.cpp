// SPDX-License-Identifier: MIT
#include "app/form/view_switches.h"

#include "template/services/asker.h"
#include "values/numbers.h"

namespace zorvane::app {

namespace {

const std::string viewSection = "View";

} // namespace

bool viewSwitch(Settings_Store& settings, const std::string& name) {
    return Val(settings.GetSetting(applicationTitle, viewSection, name, "0")) != 0;
}

void storeViewSwitch(Settings_Store& settings, const std::string& name, bool on) {
    settings.SaveSetting(applicationTitle, viewSection, name, on ? "1" : "0");
}

} // namespace zorvane::app
