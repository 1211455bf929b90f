// SPDX-License-Identifier: MIT
#include "grids/terminal_grids.h"

#include "grids/fill/fill_settings.h"
#include "grids/flx_settings.h"
#include "values/numbers.h"

namespace zorvane {

namespace {

std::vector<std::string> rowTexts(const VSFlexGrid& grid, std::int32_t row) {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(grid.Cols()));
    for (std::int32_t c = 0; c < grid.Cols(); ++c)
        texts.push_back(grid.TextMatrix(row, c));
    return texts;
}

template <class Statement> std::optional<Run_Time_Failure> failureOf(Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return std::nullopt;
    } catch (const Run_Time_Failure& failure) {
        return failure;
    }
}

/// The refusal of the handlers that come before an edit.
std::optional<std::string> refusalOf(const Grid_Context& grids, std::int32_t row, std::int32_t col) {
    bool cancel = false;
    FLX_Settings_BeforeEdit(grids, row, col, cancel);
    if (cancel) return "read only";
    FLX_Settings_StartEdit(grids, row, col, cancel);
    if (cancel) return "not modifiable";
    return std::nullopt;
}

std::optional<std::string> edit(Terminal_Grids& grids, std::int32_t row, std::int32_t col,
                                const std::string& text) {
    const Grid_Context& context = grids.context();
    Memory_Grid& grid = grids.settings();
    grid.setRow(row);
    grid.setCol(col);
    if (auto refused = refusalOf(context, row, col)) return refused;
    if (context.cell(row, col).Has_Messages)
        grid.chooseEntry(text);
    else
        grid.setText(text);
    FLX_Settings_AfterEdit(context, row, col);
    return std::nullopt;
}

void describeCell(Entry_Outcome& outcome, Terminal_Grids& grids, std::int32_t row, std::int32_t col) {
    const Cell_Rec& cell = grids.context().cell(row, col);
    outcome.Value = cell.Value;
    outcome.Min_Value = cell.Min_Value;
    outcome.Max_Value = cell.Max_Value;
    outcome.grid = grids.settings().TextMatrix(row, col);
}

} // namespace

void Terminal_Grids::select(std::int32_t field) {
    if (field < 0 || field > highestField) throw Run_Time_Failure(Failure::Subscript);
    configuration_.setRows(highestField + 1);
    configuration_.setRow(field);
    ignoringFailure([&] { PRO_Llena_Settings(context_, toInteger(field), true); });
}

Settings_Table settingsTable(const Comm_Context& comm, std::int32_t field) {
    Terminal_Grids grids(comm);
    Settings_Table table;
    table.failure = failureOf([&] { PRO_Llena_Settings(grids.context(), toInteger(field), true); });
    const Memory_Grid& grid = grids.settings();
    if (grid.Rows() > 0) table.headings = rowTexts(grid, 0);
    for (std::int32_t r = 1; r < grid.Rows(); ++r)
        table.grid.push_back(rowTexts(grid, r));
    return table;
}

Entry_Outcome enterValue(const Comm_Context& comm, std::int32_t field, std::int32_t row, std::int32_t column,
                         const std::string& text) {
    Terminal_Grids grids(comm);
    Entry_Outcome outcome;
    outcome.failure = failureOf([&] {
        if (row < 1 || column < 1) throw Run_Time_Failure(Failure::Subscript);
        grids.select(field);
        outcome.refused = edit(grids, row, column - 1, text);
    });
    ignoringFailure([&] { describeCell(outcome, grids, row, column - 1); });
    return outcome;
}

} // namespace zorvane
