// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::edit {

/// What is looked for on all pages.
struct Find_Query {
    std::string text;         ///< in any letter case; "" stands for everything
    bool changedOnly = false; ///< only cells that were changed since the last save
    bool differsFromFactoryOnly = false;
};

/// What the filters of a query ask of a cell.
struct Cell_Marks {
    std::function<bool(const Cell_Place&)> isChanged;
    std::function<bool(const Cell_Place&)> differsFromFactory;
};

/// The cells that a query stands for, in the order of pages, rows and columns. A cell is found by its text,
/// by its register, "1004" or "1004/HI" or one of a range of characters, and, where it is the setting of its
/// row, by its name: page, row and heading. Texts that only name a row are never found themselves.
[[nodiscard]] std::vector<Cell_Place> foundCells(const Declara_Zorvane& document, const Find_Query& query,
                                                 const Cell_Marks& marks);

/// The found cell after a place, and the one before it; beyond the last one the first comes again. Nothing
/// when none was found.
[[nodiscard]] std::optional<Cell_Place> nextFound(const std::vector<Cell_Place>& found,
                                                  const Cell_Place& from);
[[nodiscard]] std::optional<Cell_Place> previousFound(const std::vector<Cell_Place>& found,
                                                      const Cell_Place& from);

/// The cells whose values differ from those of another document of the same template, such as the factory's.
[[nodiscard]] std::function<bool(const Cell_Place&)> differsFrom(const Declara_Zorvane& document,
                                                                 const Declara_Zorvane& other);

} // namespace zorvane::edit
