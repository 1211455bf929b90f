// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/commission/only_argument.h"

#include <CLI/CLI.hpp>

namespace zorvane::ctl {

namespace {

std::string patternComplaint(const std::string& text) {
    return commission::parsePattern(text) ? "" : "\"" + text + "\" is not FIELD[,ROW[,COLUMN]], as in 3,1,2";
}

bool namesCells(const Declara_Zorvane& document, const commission::Cell_Pattern& pattern) {
    if (pattern.field > document.Field_Count || !document.Fields.dimensioned() ||
        pattern.field > document.Fields.upperBound())
        return false;
    const Cell_Table& cells = document.Fields(pattern.field).Cells;
    return cells.dimensioned() && pattern.row <= cells.rows() && pattern.column <= cells.columns();
}

} // namespace

void Only_Argument::add(CLI::App& arguments) {
    arguments.add_option("--only", patterns_, "Only this page, row or value; may be given several times")
        ->check(patternComplaint, "FIELD[,ROW[,COLUMN]]")
        ->expected(1)
        ->take_all();
}

commission::Chosen_Cells Only_Argument::cells() const {
    std::vector<commission::Cell_Pattern> patterns;
    for (const std::string& text : patterns_)
        if (const auto pattern = commission::parsePattern(text)) patterns.push_back(*pattern);
    return commission::Chosen_Cells(std::move(patterns));
}

std::string Only_Argument::fault(const Declara_Zorvane& document) const {
    for (const std::string& text : patterns_) {
        const auto pattern = commission::parsePattern(text);
        if (pattern && !namesCells(document, *pattern))
            return "--only " + text +
                   " names no cell: the template has no such field, row or column. Nothing was sent.";
    }
    return {};
}

} // namespace zorvane::ctl
