// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/cell_rec.h"

#include <string>
#include <string_view>

namespace zorvane {

/// How a typed text is judged.
enum class Commit_Path { Free_Text, Time, Number };

/// The path by the column's type and the cell's format. Both are compared in upper case, blanks included.
[[nodiscard]] Commit_Path commitPath(std::string_view columnType, std::string_view format);

/// Whether a cell keeps any text as it is written: a free text, or one that goes into registers of
/// characters.
[[nodiscard]] bool keepsAnyText(const Cell_Rec& definition, const Cell_Rec& cell);

/// What a typed text turns out to be on its path.
enum class Entry_Kind { Free_Text, Time, Bad_Time, Number, Not_Numeric, Ascii };

/// A typed text, an empty one replaced by "0:00" or "0" where its path has such a default.
struct Typed_Entry {
    Entry_Kind kind = Entry_Kind::Free_Text;
    std::string text;
};

/// Sorts a typed text by its cell and the definition of its column. A plain number in a time column goes on
/// as a number, unless the cell's format is TIME.
[[nodiscard]] Typed_Entry typedEntry(const Cell_Rec& definition, const Cell_Rec& cell, std::string_view text);

} // namespace zorvane
