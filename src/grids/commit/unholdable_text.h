// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"
#include "template/model/cell_place.h"

#include <vector>

namespace zorvane {

/// The topic of the message bar's line about texts that a configuration file can't hold.
inline const std::string unholdableTopic = "a text that no file holds";

/// Tells the message bar of a cell whose new text a configuration file can't hold.
void tellCommittedText(const Grid_Context& grids, const Cell_Place& place);

/// Tells of all such texts of a document that was saved, or takes the line back when there are none.
void tellSavedTexts(const Grid_Context& grids);

/// Puts a blank in the place of each comma and ";" of these cells, which marks the document. Nothing happens
/// while it is read-only, or online, where a text is the controller's.
void replaceByBlanks(const Grid_Context& grids, const std::vector<Cell_Place>& places);

} // namespace zorvane
