// SPDX-License-Identifier: MIT
#include "survey/desk/last_good.h"

#include "template/services/asker.h"

namespace zorvane::survey {

namespace {

const std::string findSection = "Find";
const std::string lastSettings = "LastSettings";

} // namespace

std::optional<Line_Settings> lastGoodLine(Settings_Store& store) {
    return parseLineSettings(store.GetSetting(applicationTitle, findSection, lastSettings, ""));
}

void keepLastGoodLine(Settings_Store& store, const Search_Report& report) {
    if (report.found.empty() || !report.linesCount) return;
    store.SaveSetting(applicationTitle, findSection, lastSettings,
                      formatLineSettings(report.found.front().line));
}

} // namespace zorvane::survey
