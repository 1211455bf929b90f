// SPDX-License-Identifier: MIT
#pragma once

#include "edit/wanted_value.h"
#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::edit {

/// A text that a file has for a cell.
struct Wanted_Value {
    std::int32_t line = 0; ///< of the file, from 1
    Cell_Place place;
    std::string text;
    std::string problem; ///< why the line says nothing for a cell; else ""
};

/// A file of values as it was understood.
struct Value_File {
    std::string problem;   ///< why nothing of it was; else ""
    char separator = '\0'; ///< where its headings were found
    std::vector<Wanted_Value> values;
};

/// Reads a file that `exportedValues` made and that a spreadsheet may have rewritten: in UTF-8, with or
/// without its mark, or else in Windows-1252; its separator, ",", ";", tab or "|", is found by the headings.
/// The headings field, row, column and value have to be there, each once and in any order. A line with more
/// values than headings is a problem of its own: a value was cut in two.
[[nodiscard]] Value_File readValueFile(std::string_view bytes);

/// Reads lines `NAME = TEXT` or `FIELD,ROW,COLUMN = TEXT`. Empty lines, and those that begin with "#" or ";",
/// say nothing. A name that stands for no cell or for several is a problem of its line.
[[nodiscard]] Value_File readValueLines(const Declara_Zorvane& document, std::string_view bytes);

/// A value that isn't taken.
struct Left_Out {
    std::int32_t line = 0;
    std::string why;
};

/// What would become of a file's values. Every line is in one of the two lists.
struct Import_Check {
    std::vector<Taken_Value> taken;
    std::vector<Left_Out> leftOut;
    char decimalSign = '\0'; ///< the one that the numbers prove; 0 when none does
};

/// Judges all values of a file. The document stays as it is.
[[nodiscard]] Import_Check checkImport(const Declara_Zorvane& document,
                                       const std::vector<Wanted_Value>& values, const Reading_Style& style);

} // namespace zorvane::edit
