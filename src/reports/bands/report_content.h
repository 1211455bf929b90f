// SPDX-License-Identifier: MIT
#pragma once

#include "reports/bands/active_report.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace zorvane {

/// A text of a row, whole, with its room on paper in twips.
struct Content_Cell {
    std::string text;
    double left = 0;
    double width = 0;
    std::size_t style = 0; ///< in the content's style table
};

enum class Content_Kind {
    Line,    ///< labels and values beside each other
    Heading, ///< the headings of a table, each over its column
    Row,     ///< of a table
    Text,    ///< a line of running text, one cell
    Gap,     ///< room between two fields
};

struct Content_Row {
    Content_Kind kind = Content_Kind::Row;
    std::vector<Content_Cell> cells;
};

/// A report as rows of texts, for the formats that aren't painted. Texts are Windows-1252. What has a width
/// of 0 is hidden and isn't in it.
struct Report_Content {
    Style_Table styles;
    Page_Settings paper;
    std::string title; ///< left in the page header
    std::string route; ///< left in the page footer
    std::string date;  ///< right in the page footer
    std::vector<Content_Row> rows;
};

/// Runs the report and gives what it prints, whatever the paper's size.
[[nodiscard]] Report_Content contentOf(ActiveReport& report);

/// The same from what a run printed, without title, route and date.
[[nodiscard]] Report_Content contentOf(const Printed_Report& printed);

/// The rows of a table that begins at `first`: a heading and the rows after it, or rows alone. Empty when
/// another kind of row is there.
[[nodiscard]] std::span<const Content_Row> tableAt(const Report_Content& content, std::size_t first);

/// Walks the rows of a report: `onTable` gets the rows of each table, `onRow` every other row.
template <class On_Row, class On_Table>
void forEachPart(const Report_Content& content, On_Row&& onRow, On_Table&& onTable) {
    for (std::size_t row = 0; row < content.rows.size();) {
        const std::span<const Content_Row> table = tableAt(content, row);
        if (table.empty())
            onRow(content.rows[row++]);
        else
            onTable(table);
        row += table.size();
    }
}

} // namespace zorvane
