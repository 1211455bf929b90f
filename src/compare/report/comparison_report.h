// SPDX-License-Identifier: MIT
#pragma once

#include "compare/row_list.h"
#include "reports/bands/sections_report.h"

#include <string>
#include <vector>

namespace zorvane::compare {

/// What a comparison on paper says beside its rows; all in the code page.
struct Comparison_Head {
    std::string document; ///< what the comparison is of
    std::string left;     ///< the sides, as people call them
    std::string right;
    std::string identity; ///< who was found at the other end; "" without a controller
    std::string filter;   ///< the words of the filter; "" for none
    std::string time;     ///< when it was made
};

/// The head, the counts of all rows, then the rows that are listed.
[[nodiscard]] std::vector<Table_Section> sectionsOf(const Row_List& rows, const Comparison_Head& head);

/// A comparison on A4 paper: the same rows as the list has now.
class Comparison_Report : public Sections_Report {
  public:
    Comparison_Report(const Text_Metrics& metrics, const Row_List& rows, const Comparison_Head& head);
};

} // namespace zorvane::compare
