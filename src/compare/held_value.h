// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/register_image.h"
#include "template/model/cell_rec.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::compare {

/// What a cell's registers hold of it: one number for a whole register, a half, or the minutes or seconds of
/// one; a number for each register of a text.
using Held = std::vector<std::int32_t>;

/// The registers of a cell. Nothing for a cell without any, and for an address that no wire has.
[[nodiscard]] std::optional<Register_Range> registersOf(const Cell_Rec& definition, const Cell_Rec& cell);

/// What the controller would hold of a cell after a download of its text. Nothing for a cell without a
/// register, and for a text that doesn't fit its registers.
[[nodiscard]] std::optional<Held> heldOf(const Cell_Rec& definition, const Cell_Rec& cell);

/// What registers hold of a cell. REQUIRES: the cell has registers, and they were read.
[[nodiscard]] Held heldIn(const Cell_Rec& definition, const Cell_Rec& cell, const Register_Image& image);

/// Whether two hold the same. Characters that differ only in empty bytes, blanks or "-" at their end do.
[[nodiscard]] bool sameHeld(const Cell_Rec& definition, const Cell_Rec& cell, const Held& a, const Held& b);

/// Whether the cell's registers are characters.
[[nodiscard]] bool holdsCharacters(const Cell_Rec& definition, const Cell_Rec& cell);

/// Whether the cell's text is no value at all: a blank one of a number or a time. A list's is its code 0.
[[nodiscard]] bool isBlankValue(const Cell_Rec& definition, const Cell_Rec& cell);

/// What the lower grid shows of a cell of the document while the link is off.
[[nodiscard]] std::string shownText(const Cell_Rec& cell);

} // namespace zorvane::compare
