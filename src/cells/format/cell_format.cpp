// SPDX-License-Identifier: MIT
#include "cells/format/cell_format.h"

#include "values/code_page.h"

#include <algorithm>
#include <array>

namespace zorvane {

namespace {

struct Format_Word {
    std::string_view word;
    Cell_Format format;
};

constexpr std::array<Format_Word, 8> formatWords = {{
    {"", Cell_Format::Plain},
    {"TIME", Cell_Format::Time},
    {"TIMEMM", Cell_Format::Minutes},
    {"TIMESS", Cell_Format::Seconds},
    {"NUMERIC_UNSIGNED", Cell_Format::Unsigned},
    {"NUMERIC", Cell_Format::Plain},
    {"ASCII", Cell_Format::Plain},
    {"NUMERIC_OR_ASCII", Cell_Format::Plain},
}};

struct Column_Word {
    std::string_view word;
    Column_Kind kind;
};

constexpr std::array<Column_Word, 5> columnWords = {{
    {"NUMERIC", Column_Kind::Number},
    {"NUMERIC_UNSIGNED", Column_Kind::Unsigned},
    {"ASCII", Column_Kind::Characters},
    {"NUMERIC_OR_ASCII", Column_Kind::Number_Or_Characters},
    {"TIME", Column_Kind::Time},
}};

} // namespace

Cell_Format cellFormat(std::string_view word, Word_Rule rule) {
    const std::string_view asked = rule == Word_Rule::Trimmed ? trimBlanks(word) : word;
    const auto* const found = std::find_if(formatWords.begin(), formatWords.end(), [&](const auto& each) {
        return rule == Word_Rule::Exact ? each.word == asked : isUpperCaseOf(each.word, asked);
    });
    return found == formatWords.end() ? Cell_Format::Unknown : found->format;
}

std::string_view wordOf(Cell_Format format) {
    const auto* const found = std::find_if(formatWords.begin(), formatWords.end(),
                                           [&](const auto& each) { return each.format == format; });
    return found == formatWords.end() ? std::string_view() : found->word;
}

Column_Kind columnKind(std::string_view type) {
    const auto* const found = std::find_if(columnWords.begin(), columnWords.end(),
                                           [&](const auto& each) { return isUpperCaseOf(each.word, type); });
    return found == columnWords.end() ? Column_Kind::Free_Text : found->kind;
}

} // namespace zorvane
