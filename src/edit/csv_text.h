// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::edit {

/// A record of a CSV text.
struct Csv_Record {
    std::int32_t line = 0; ///< where it begins, from 1
    std::vector<std::string> fields;
    bool unclosed = false; ///< a quote that is never closed took the rest of the text
};

/// Cuts a text into records by RFC 4180: fields between separators; quotes around a field keep separators and
/// line ends in it, two quotes stand for one. A line ends at CR LF, LF or CR; an empty line is a record of
/// one empty field. A quote that is never closed reaches to the text's end.
[[nodiscard]] std::vector<Csv_Record> csvRecords(std::string_view text, char separator);

/// A field as it is written: in quotes where it has to be.
[[nodiscard]] std::string csvField(std::string_view text, char separator);

/// A record as it is written, without a line end.
[[nodiscard]] std::string csvLine(const std::vector<std::string>& fields, char separator);

/// A text in front of which a spreadsheet would see a formula ("=", "+", "-", "@") gets an apostrophe in
/// front.
[[nodiscard]] std::string harmless(std::string_view text);

/// The same, also for a text that a spreadsheet may take for a number, a time or a date and rewrite:
/// "0012", "1e3", "2019-06".
[[nodiscard]] std::string guarded(std::string_view text);

/// A text without the apostrophe that `guarded` put there.
[[nodiscard]] std::string unguarded(std::string_view text);

/// A file's text as UTF-8, without a byte order mark.
struct Decoded_Text {
    std::string utf8;
    std::string problem; ///< why it couldn't be read; else ""
};

/// Text that is UTF-8 as a whole is taken for it, all else for Windows-1252. UTF-16, told by its mark, is a
/// problem.
[[nodiscard]] Decoded_Text asUtf8(std::string_view bytes);

} // namespace zorvane::edit
