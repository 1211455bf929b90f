// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"

namespace zorvane {

/// Lays the upper grid out: size, headings, widths, heights, row numbers, and the name of each field in
/// column 1. A new layout also says that the link is off. A template without a second column is failure 9.
void PRO_Arma_Configuration(const Grid_Context& grids);

/// Writes the texts of the fields into the upper grid, and aligns its columns. An empty text writes nothing,
/// so the number and the name of the layout stay. A field with fewer texts than columns is failure 9.
void PRO_Llena_Configuration(const Grid_Context& grids);

/// Selects the first row from column 1 on, and shows its settings.
void PRO_Selecciona_Primera(const Grid_Context& grids);

} // namespace zorvane
