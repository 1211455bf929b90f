// SPDX-License-Identifier: MIT
#include "app/edit/history_commands.h"

#include "app/edit/changed_count.h"
#include "app/edit/edit_state.h"
#include "grids/fill/show_cell.h"
#include "grids/rules/value_findings.h"
#include "values/numbers.h"

#include <utility>

namespace zorvane::app {

namespace {

const std::string leftOutTopic = "cells that a step lost";

Step_Entry entry(const App_Context& app, const std::string& word, const std::optional<std::string>& name) {
    const std::string why = whyNoEditing(app);
    if (!why.empty()) return {word, false, why};
    if (!name)
        return {word, false, "There is nothing to " + (word == "Undo" ? std::string("undo.") : "redo.")};
    return {word + " " + *name, true, {}};
}

void tellLeftOut(const App_Context& app, const std::string& word, const edit::Step_Result& result) {
    Message_Bar& bar = app.mainForm.messageBar();
    if (result.leftOut.empty()) return bar.withdraw(leftOutTopic);
    const Cell_Place first = result.leftOut.front();
    const auto count = static_cast<std::int32_t>(result.leftOut.size());
    const std::string where = hasCell(app.document(), first) ? placeText(app.document(), first) : "";
    std::string text = word + " " + result.name + ": ";
    if (count == 1)
        text += (where.empty() ? "a cell" : where) + " got another value since, and keeps it.";
    else
        text += numberText(count) + " cells got other values since, and keep them" +
                (where.empty() ? "." : ". The first: " + where + ".");
    bar.tell({leftOutTopic, Bar_Kind::Note, std::move(text), {{"Show", [grids = app.grids, first] {
                                                                   showCell(grids, first);
                                                               }}}});
}

/// A step of one cell is shown; one of many leaves the user where he is.
void show(const App_Context& app, const std::string& word, const edit::Step_Result& result) {
    if (result.changed.size() == 1) showCell(app.grids, result.changed.front());
    showChangedValues(app, result.changed, result.asWritten);
    tellLeftOut(app, word, result);
    tellChangedCount(app);
}

} // namespace

Step_Entry undoEntry(const App_Context& app) {
    if (whyNoEditing(app).empty()) app.state.history.dropStale(app.document());
    return entry(app, "Undo", app.state.history.undoName());
}

Step_Entry redoEntry(const App_Context& app) {
    if (whyNoEditing(app).empty()) app.state.history.dropStale(app.document());
    return entry(app, "Redo", app.state.history.redoName());
}

void MNU_Undo_Click(const App_Context& app) {
    if (!whyNoEditing(app).empty()) return;
    if (const auto result = app.state.history.undo(app.document())) show(app, "Undo", *result);
}

void MNU_Redo_Click(const App_Context& app) {
    if (!whyNoEditing(app).empty()) return;
    if (const auto result = app.state.history.redo(app.document())) show(app, "Redo", *result);
}

void takeValues(const App_Context& app, const std::vector<edit::Taken_Value>& values,
                const std::string& name) {
    std::vector<Value_Change> changes = edit::applyNoting(app.document(), values);
    std::vector<Cell_Place> places;
    for (const Value_Change& change : changes)
        places.push_back(change.place);
    app.state.history.changed(name, std::move(changes));
    showChangedValues(app, places, false);
    tellChangedCount(app);
}

void noteUpload(const App_Context& app) {
    std::vector<Value_Change> changes = std::exchange(app.form().Last_Upload.changes, {});
    const std::string name = edit::stepName("upload", changes.size());
    app.state.history.changed(name, std::move(changes));
}

} // namespace zorvane::app
