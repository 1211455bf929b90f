// SPDX-License-Identifier: MIT
#include "grids/commit/show_button.h"

#include "grids/fill/show_cell.h"

namespace zorvane {

Bar_Button showButton(const Grid_Context& grids, std::int32_t field, std::int32_t row, std::int32_t col) {
    return {"Show", [grids, document = Document_Mark(grids.comm.document), field, row, col] {
                const Grid_Context own = grids; // the line may go meanwhile
                if (document.holds()) showCell(own, Cell_Place{field, row, col + 1});
            }};
}

} // namespace zorvane
