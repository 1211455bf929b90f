// SPDX-License-Identifier: MIT
#include "app/edit/changed_count.h"

#include "app/edit/edit_state.h"
#include "grids/fill/show_cell.h"
#include "values/numbers.h"

namespace zorvane::app {

namespace {

const std::string topic = "changed cells";
const std::string section = "View";
const std::string key = "ChangedCells";

/// Nothing when no value differs, or the marks are off.
std::optional<Bar_Line> countLine(const App_Context& app) {
    if (!marksChangedCells(app) || app.state.modelEmptied) return std::nullopt;
    const std::vector<Cell_Place> changed = app.state.changed.all(app.document());
    if (changed.empty()) return std::nullopt;
    const std::string from = app.document().No_Place ? " from what was opened." : " from the file.";
    const std::string text =
        (changed.size() == 1 ? std::string("1 value differs")
                             : numberText(static_cast<std::int32_t>(changed.size())) + " values differ") +
        from;
    return Bar_Line{topic, Bar_Kind::Note, text, {{"Show", [grids = app.grids, first = changed.front()] {
                                                       showCell(grids, first);
                                                   }}}};
}

} // namespace

bool marksChangedCells(const App_Context& app) {
    std::optional<bool>& marks = app.state.marksChanged;
    if (!marks) marks = app.settings.GetSetting(applicationTitle, section, key, "1") != "0";
    return *marks;
}

void MNU_MarkChanged_Click(const App_Context& app) {
    const bool marks = !marksChangedCells(app);
    app.settings.SaveSetting(applicationTitle, section, key, marks ? "1" : "0");
    app.state.marksChanged = marks;
    tellChangedCount(app);
}

bool isMarkedChanged(const App_Context& app, std::int32_t row, std::int32_t col) {
    if (!marksChangedCells(app) || app.state.modelEmptied || app.form().Online) return false;
    return app.state.changed.isChanged(app.document(), {app.grids.fieldNumber(), row, col + 1});
}

void tellChangedCount(const App_Context& app) {
    if (const auto line = countLine(app))
        app.mainForm.messageBar().tell(*line);
    else
        app.mainForm.messageBar().withdraw(topic);
}

void refreshChangedCount(const App_Context& app) {
    if (!app.mainForm.messageBar().holds(topic)) return;
    if (const auto line = countLine(app))
        app.mainForm.messageBar().amend(*line);
    else
        app.mainForm.messageBar().withdraw(topic);
}

} // namespace zorvane::app
