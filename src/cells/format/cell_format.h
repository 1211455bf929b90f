// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>

namespace zorvane {

/// What a cell's `Format` makes of its register.
enum class Cell_Format : std::uint8_t {
    Plain,    ///< no word, or one that names an entry and no format: a signed number
    Unsigned, ///< NUMERIC_UNSIGNED: 0 to 65535
    Time,     ///< TIME: seconds, shown as minutes and seconds
    Minutes,  ///< TIMEMM: the whole minutes of a register of seconds
    Seconds,  ///< TIMESS: the rest of it
    Unknown   ///< any other word: a signed number, too, but no plain one to a column of times
};

/// How a path compares the word of a format. Which path does how is told by cell_paths.h.
enum class Word_Rule : std::uint8_t {
    Trimmed,    ///< in upper case, without the blanks at its ends
    Upper_Case, ///< in upper case; blanks count
    Exact       ///< letter by letter
};

/// The only place that knows the words.
[[nodiscard]] Cell_Format cellFormat(std::string_view word, Word_Rule rule);

/// The word of a format; empty for those that have none of their own.
[[nodiscard]] std::string_view wordOf(Cell_Format format);

/// Whether a cell shows one part of a register of seconds and another cell the other one.
[[nodiscard]] constexpr bool isTimePart(Cell_Format format) noexcept {
    return format == Cell_Format::Minutes || format == Cell_Format::Seconds;
}

/// What may be typed in a column.
enum class Column_Kind : std::uint8_t {
    Free_Text, ///< any word but those below
    Number,
    Unsigned,
    Characters,
    Number_Or_Characters,
    Time
};

/// By the column's type, in upper case; blanks count.
[[nodiscard]] Column_Kind columnKind(std::string_view type);

/// Whether a column's entries are numbers, unless the format of a cell says otherwise.
[[nodiscard]] constexpr bool takesNumbers(Column_Kind kind) noexcept {
    return kind != Column_Kind::Free_Text && kind != Column_Kind::Time;
}

} // namespace zorvane
