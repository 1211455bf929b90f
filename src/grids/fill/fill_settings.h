// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"

#include <cstdint>

namespace zorvane {

/// Fills the lower grid with the table of field `Row`: offline from the document, online from the link's
/// register image. The grid is hidden meanwhile, and stays hidden when a failure ends the fill. `Primera`
/// makes no difference.
void PRO_Llena_Settings(const Grid_Context& grids, std::int16_t Row, bool Primera);

/// Whether the mouse is over the heading row of the lower grid.
void PRO_Mouse_En_Encabezado(const Grid_Context& grids, bool& Result);

/// The same for a place and the height of the heading row in twips; the edges belong to it.
[[nodiscard]] bool mouseOverHeading(const Mouse_Place& place, std::int32_t headingHeight) noexcept;

} // namespace zorvane
