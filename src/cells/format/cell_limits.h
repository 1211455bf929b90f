// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/cell_rec.h"

#include <string>
#include <string_view>

namespace zorvane {

/// The lowest and highest value that a cell accepts, as text.
struct Limits {
    std::string low;
    std::string high;

    bool operator==(const Limits&) const = default;
};

/// Whether a column's numbers are held against the limits of their cells at all.
[[nodiscard]] bool checksLimits(const Cell_Rec& definition);

/// The limits of a cell with its missing ones filled in, as far as its column's type and its format fill in
/// any. An unsigned cell also loses limits beyond 0 and 65535.
[[nodiscard]] Limits filledLimits(const Cell_Rec& definition, const Cell_Rec& cell);

/// Compared by value; a limit without a number counts as 0.
[[nodiscard]] bool withinLimits(std::string_view number, const Limits& limits);

/// The limits as messages name them: a missing one as the bound of a signed register.
[[nodiscard]] Limits namedLimits(const Limits& limits);

/// What the register of a cell can hold: -32768 to 32767, or 0 to 65535 for the format NUMERIC_UNSIGNED, in
/// exactly this spelling.
[[nodiscard]] Limits registerWidth(const Cell_Rec& cell);

/// No register holds a number too large for a double. REQUIRES: the text is numeric.
[[nodiscard]] bool fitsRegister(std::string_view number, const Limits& width);

} // namespace zorvane
