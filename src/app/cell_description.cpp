// SPDX-License-Identifier: MIT
#include "app/cell_description.h"

#include "values/colours.h"

namespace zorvane::app {

namespace {

const std::string writeFailed = "Write failed";
const std::string linkLost = "Link lost";

bool coloured(const Memory_Grid::Colours& colours, const std::string& back, const std::string& fore) {
    return colours.back == colourOf(back) && colours.fore == colourOf(fore);
}

std::string describe(const Grid_Context& grids, std::int32_t row, std::int32_t col,
                     const Memory_Grid::Colours& colours) {
    const Declara_Zorvane& document = grids.comm.document;
    const Colour_Words& words = document.Colors;
    const Field_Rec& field = document.Fields(grids.fieldNumber());
    const Cell_Table& cells = field.Cells;
    if (row > cells.rows() || col + 1 > cells.columns()) return {};
    if (coloured(colours, words.Color_Back_Writing, words.Color_Txt_Writing)) return "Writing";
    if (coloured(colours, words.Color_Back_Error, words.Color_Txt_Error)) return writeFailed;
    if (grids.comm.form.Online && grids.FLX_Settings.TextMatrix(row, col) == "???") return linkLost;
    if (!cells(0, col + 1).Modifiable) return "Fixed";
    return document.Read_Only ? "Read only" : "Modifiable";
}

} // namespace

std::string cellDescription(const Grid_Context& grids, std::int32_t row, std::int32_t col,
                            const Memory_Grid::Colours& colours) {
    std::string description;
    ignoringFailure([&] { description = describe(grids, row, col, colours); });
    return description;
}

std::string cellToolTip(const Grid_Context& grids, std::int32_t row, std::int32_t col,
                        const Memory_Grid::Colours& colours) {
    const std::string description = cellDescription(grids, row, col, colours);
    return description == writeFailed || description == linkLost ? description : "";
}

} // namespace zorvane::app
