// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane {

/// A cell as people name it: "Regulation, row 3, Value".
[[nodiscard]] std::string placeText(const Declara_Zorvane& document, const Cell_Place& place);

/// Whether the document has that cell.
[[nodiscard]] bool hasCell(const Declara_Zorvane& document, const Cell_Place& place);

/// A value that its cell doesn't take.
struct Stray_Value {
    Cell_Place place;
    bool outside = false; ///< outside its limits; else in no list
    std::string text;     ///< the value, or what the file had in its place
};

/// The values that their cells don't take, in the order of the cells: numbers and times of modifiable columns
/// outside their limits, codes without an entry in the list of their cell, and what the file last read had of
/// unlisted texts. No value at all is none of them.
[[nodiscard]] std::vector<Stray_Value> strayValues(const Declara_Zorvane& document);

/// Whether a configuration file can't hold a text: its items end at a comma, its lines at a ";".
[[nodiscard]] bool noFileHolds(std::string_view text);

/// The cells with such texts, in order.
[[nodiscard]] std::vector<Cell_Place> cellsThatNoFileHolds(const Declara_Zorvane& document);

/// The first row that a configuration file tells of at that line, counted from 1, or after it, and that the
/// document has.
[[nodiscard]] std::optional<Cell_Place> rowFromLine(const Declara_Zorvane& document, std::string_view file,
                                                    std::int32_t line);

} // namespace zorvane
