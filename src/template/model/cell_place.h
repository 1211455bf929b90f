// SPDX-License-Identifier: MIT
#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace zorvane {

/// A cell of the document, its field, row and column counted from 1.
struct Cell_Place {
    std::int32_t field = 0;
    std::int32_t row = 0;
    std::int32_t column = 0;
    auto operator<=>(const Cell_Place&) const = default; // NOLINT(modernize-use-nullptr): a false alarm
};

/// A text that a file has for a list cell, and that isn't in the list.
struct Unlisted_Text {
    Cell_Place place;
    std::string text;
    bool operator==(const Unlisted_Text&) const = default;
};

} // namespace zorvane
