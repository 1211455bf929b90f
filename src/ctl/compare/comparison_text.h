// SPDX-License-Identifier: MIT
#pragma once

#include "compare/comparison.h"
#include "compare/filter.h"
#include "ctl/text/json_text.h"

#include <iosfwd>
#include <string>

namespace zorvane::ctl {

/// What of a comparison is listed. The counts are always of all rows.
struct Listed_Rows {
    compare::Filter filter;
    bool all = false; ///< also rows that are equal

    [[nodiscard]] bool has(const compare::Row& row) const;
};

/// The two sides, for people.
struct Side_Names {
    std::string left; ///< the system's text
    std::string right;
};

/// {"equal","differs","one_side","read_only","changing","not_read","left_out","rows"}.
[[nodiscard]] Json countsJson(const compare::Counts& counts);

/// {"field","row","column","page","name","heading","register","left","right","left_raw","right_raw","sign"}.
/// What a side doesn't have is null; the registers of a text are a list.
[[nodiscard]] Json rowJson(const compare::Row& row);

/// {"left","right","counts","rows"}.
[[nodiscard]] Json comparisonJson(const compare::Comparison& comparison, const Side_Names& names,
                                  const Listed_Rows& listed);

/// The same for people: a table, and a line of counts.
void printComparison(std::ostream& out, const compare::Comparison& comparison, const Side_Names& names,
                     const Listed_Rows& listed);

/// The exit of a comparison: 3 when something differs or only one side has it, else 7 when something wasn't
/// read, else 0.
[[nodiscard]] int comparisonExit(const compare::Counts& counts);

} // namespace zorvane::ctl
