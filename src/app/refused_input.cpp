// SPDX-License-Identifier: MIT
#include "app/refused_input.h"

#include "grids/rules/typed_entry.h"

#include <utility>

namespace zorvane::app {

namespace {

const std::string topic = "refused input";

} // namespace

bool takesBlock(const Grid_Context& grids, std::int32_t row, std::int32_t col) {
    bool takes = false;
    ignoringFailure([&] { takes = keepsAnyText(grids.definition(col), grids.cell(row, col)); });
    return takes;
}

void tellRefused(const Grid_Context& grids, std::int32_t row, std::int32_t col, const std::string& character,
                 std::vector<Bar_Button> buttons) {
    const VSFlexGrid& grid = grids.FLX_Settings;
    const std::string place =
        "Row " + std::to_string(row) + ", \"" + grid.TextMatrix(0, col) + "\": nothing was taken. ";
    const std::string why =
        character.empty()
            ? "The clipboard holds several cells or lines; this cell takes one value. Copy a single cell."
            : "A file can't hold the character " + character + "; it holds those of Windows-1252.";
    grids.comm.mainForm.messageBar().tell({topic, Bar_Kind::Note, place + why, std::move(buttons), true});
}

void withdrawRefused(const Grid_Context& grids) { grids.comm.mainForm.messageBar().withdraw(topic); }

} // namespace zorvane::app
