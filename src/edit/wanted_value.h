// SPDX-License-Identifier: MIT
#pragma once

#include "cells/format/cell_limits.h"
#include "template/model/declara_zorvane.h"
#include "template/model/value_change.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zorvane::edit {

/// What a plain number means in a list cell.
enum class List_Numbers {
    Codes,  ///< the code of an entry, as in a file
    Entries ///< the entry's place counted from 0, as in the list of the window
};

/// How a text from elsewhere is understood.
struct Reading_Style {
    bool asTyped = false;   ///< numbers and times in the system's own writing only
    char decimalSign = '.'; ///< which of "." and "," the other numbers of the text prove; 0 when none does
    List_Numbers lists = List_Numbers::Codes;
};

/// A value that a cell takes.
struct Taken_Value {
    Cell_Place place;
    std::string value;            ///< the cell's new `Value`
    std::optional<Limits> limits; ///< of a number: those that its commit fills in
    bool changes = true;          ///< no: the cell has it already
};

/// Why a cell doesn't take a text, to be read after "row 12" or after a colon: "above its limit 1400".
struct Refusal {
    std::string why;
};

using Verdict = std::variant<Taken_Value, Refusal>;

/// Judges a text for a cell as a typed entry is judged: by its limits, its list, its register, its length.
/// Stricter than at the editor, since nobody looks at the single value: what a typed entry would be replaced
/// for (by a limit, by 0) is refused, and so is a text that no file holds. A text that says what the cell
/// holds already is taken in any cell. The document stays as it is.
[[nodiscard]] Verdict judged(const Declara_Zorvane& document, const Cell_Place& place, std::string_view text,
                             const Reading_Style& style);

/// Puts the values that change something into their cells, with the limits that a number fills in. How many
/// there were.
std::int32_t apply(Declara_Zorvane& document, const std::vector<Taken_Value>& values);

/// The same, with what became of each value.
[[nodiscard]] std::vector<Value_Change> applyNoting(Declara_Zorvane& document,
                                                    const std::vector<Taken_Value>& values);

/// A cell's value as people see it: of a list the text of its entry, or the code that no entry has.
[[nodiscard]] std::string valueText(const Cell_Rec& cell);

/// The texts of a cell's list, "Off, On"; of a long list the first ones and "...".
[[nodiscard]] std::string listedTexts(const Cell_Rec& cell);

/// Whether a cell's texts are read as numbers, or as times.
[[nodiscard]] bool holdsNumbers(const Cell_Rec& definition, const Cell_Rec& cell);

} // namespace zorvane::edit
