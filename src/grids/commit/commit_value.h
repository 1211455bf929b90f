// SPDX-License-Identifier: MIT
#pragma once

#include "cells/format/cell_limits.h"
#include "grids/fill/grid_context.h"
#include "grids/rules/typed_entry.h"

#include <cstdint>
#include <string>
#include <variant>

namespace zorvane {

// The ways out of a typed commit. What each one does:
//
//   way out          Value       grid       controller             document marked
//   Free_Text        the text    the text   nothing                yes
//   Time_Accepted    the time    the time   one register, online   no
//   Time_Bad         "0:00"      "0:00"     nothing                no
//   Time_Refused     stays       as typed   nothing                no
//   Number_Accepted  its value   as typed   one register, online   yes
//   Number_Refused   the upper limit, both  nothing                no
//   Number_Too_Wide  stays       as typed   nothing                no
//   Not_Numeric      "0"         "0"        nothing                no
//   Ascii_Text       the text    the text   a range, online        no
//
// "Marked" means the title's mark and the Save entry. That the paths differ in it is on purpose.

struct Free_Text {
    std::string text;
};
struct Time_Accepted {
    std::string time; ///< in the system's own form, `m:ss`
};
struct Time_Bad {};
struct Time_Refused {};
struct Number_Accepted {
    std::string text;              ///< as typed
    std::int32_t Raw_Negative = 0; ///< the register for a negative number in the column's own format
};
struct Number_Refused {
    Limits limits; ///< as the message names them; the upper one takes the place of what was typed
};
struct Number_Too_Wide {
    Limits width;
};
struct Not_Numeric {};
struct Ascii_Text {
    std::string text;
};

using Way_Out = std::variant<Free_Text, Time_Accepted, Time_Bad, Time_Refused, Number_Accepted,
                             Number_Refused, Number_Too_Wide, Not_Numeric, Ascii_Text>;

/// Decides what becomes of a typed entry. The missing limits of the cell have been filled in before. A time
/// or a number too large to hold, and a negative format too large for 16 bits, is failure 6.
[[nodiscard]] Way_Out wayOutOf(const Cell_Rec& definition, const Cell_Rec& cell, const Typed_Entry& entry);

/// Commits the text `s` left in a free-text cell of the lower grid. `Rejected` tells of a value beyond its
/// limits. A cell without limits keeps those that a number fills in for good. An accepted number whose cell
/// held no number before is failure 13.
void PRO_Escribe_Valor(const Grid_Context& grids, std::int32_t Row, std::int32_t Col, const std::string& s,
                       bool& Rejected);

} // namespace zorvane
