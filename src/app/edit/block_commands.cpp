// SPDX-License-Identifier: MIT
#include "app/edit/block_commands.h"

#include "app/edit/edit_state.h"
#include "app/edit/history_commands.h"
#include "grids/rules/value_findings.h"

#include <algorithm>

namespace zorvane::app {

namespace {

const std::string blockTopic = "pasted block";

/// "Regulation, row 12, Value: "1500" above its limit 1400".
std::string leftOutLine(const Declara_Zorvane& document, const edit::Block_Refusal& refusal) {
    const std::string where =
        hasCell(document, refusal.place)
            ? placeText(document, refusal.place)
            : "Row " + std::to_string(refusal.place.row) + ", column " + std::to_string(refusal.place.column);
    return where + ": \"" + refusal.text + "\" " + refusal.why;
}

Fit_Question questionOf(const App_Context& app, const std::string& title, const edit::Block_Check& check) {
    Fit_Question question{title, edit::summaryOf(app.document(), check), {}, check.taken.size()};
    for (const edit::Block_Refusal& refusal : check.refused)
        question.leftOut.push_back(leftOutLine(app.document(), refusal));
    return question;
}

/// Nothing can be pasted now: says why, and says nothing else.
bool refused(const App_Context& app) {
    const std::string why = whyNoEditing(app);
    Message_Bar& bar = app.mainForm.messageBar();
    if (why.empty()) return bar.withdraw(blockTopic), false;
    bar.tell({blockTopic, Bar_Kind::Note, "Nothing was pasted. " + why, {}});
    return true;
}

void take(const App_Context& app, const Fit_Question& question, const edit::Block_Check& check,
          const std::string& name, const Ask_Fit& ask) {
    const Document_Mark document(app.document());
    if (!check.allFit() && !ask(question)) return;
    // The question served events: nothing may have come between.
    if (!document.holds() || !whyNoEditing(app).empty()) return;
    takeValues(app, check.taken, name);
}

} // namespace

edit::Cell_Range selectedCells(const Grid_Context& grids) {
    const VSFlexGrid& grid = grids.FLX_Settings;
    const auto [top, bottom] = std::minmax({grid.Row(), std::max(grid.RowSel(), 1)});
    const auto [left, right] = std::minmax({grid.Col(), std::max(grid.ColSel(), 0)});
    return {grids.fieldNumber(), top, left + 1, bottom, right + 1};
}

void MNU_PasteBlock_Click(const App_Context& app, const std::string& clipboard, const Ask_Fit& ask) {
    if (refused(app)) return;
    const edit::Cell_Range selection = selectedCells(app.grids);
    if (selection.firstRow < 1 || selection.firstColumn < 1 || clipboard.empty()) return;
    const edit::Block_Check check = edit::checkBlock(app.document(), selection, edit::textRows(clipboard));
    take(app, questionOf(app, "Paste", check), check, edit::nameOf(check), ask);
}

} // namespace zorvane::app
