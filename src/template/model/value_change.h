// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/cell_place.h"

#include <string>

namespace zorvane {

/// What a command did to the value of a cell.
struct Value_Change {
    Cell_Place place;
    std::string before;
    std::string after;
    bool operator==(const Value_Change&) const = default;
};

} // namespace zorvane
