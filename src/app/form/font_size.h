// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"
#include "values/font_sizes.h"

#include <cstdint>

namespace zorvane::app {

/// The stored index into the list, at most 6; 1 when none is stored or what is stored isn't a number.
void PRO_Indice_Font(const App_Context& app, std::int16_t& index);

/// Puts the stored font size in force, at start-up. An index before the list counts as its end.
void PRO_Carga_Font(const App_Context& app);

/// Puts `Font_Size` in force in both grids and the previews. The selected row of the upper grid moves on by
/// three rows, from the last one to the first. Without a document both boxes stay hidden. A failure of a
/// preview passes on at the end.
void PRO_Aplica_Font(const App_Context& app);

/// The font dialog was left with a size.
void FontSizeDialog_ChangeFont(const App_Context& app, double size);

/// Stores the dialog's choice, an index from 0 to 6, for the next start.
void storeFontIndex(const App_Context& app, std::int16_t index);

/// Makes a column as wide as its widest text, heading included, and a margin. A text too wide for 16 bits of
/// twips is failure 6, and the column stays as it is.
void PRO_Ajusta_Columna(const Text_Widths& widths, VSFlexGrid& grid, std::int32_t column, bool& ok);

} // namespace zorvane::app
