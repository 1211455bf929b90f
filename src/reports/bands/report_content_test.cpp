// SPDX-License-Identifier: MIT
#include "reports/bands/report_content.h"
#include "reports/documents/rpt_print_log.h"
#include "reports/testing/report_bench.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using doubles::Report_Bench;
using testing::ElementsAre;

/// The kind of a row and its texts: `Row low|10`.
std::vector<std::string> linesOf(const Report_Content& content) {
    const char* const names[] = {"Line", "Heading", "Row", "Text", "Gap"};
    std::vector<std::string> lines;
    for (const Content_Row& row : content.rows) {
        std::string line = names[static_cast<int>(row.kind)];
        for (const Content_Cell& cell : row.cells)
            line += (&cell == row.cells.data() ? " " : "|") + cell.text;
        lines.push_back(line);
    }
    return lines;
}

struct Content : testing::Test, Report_Bench {};

TEST_F(Content, OfAllFields) {
    MainRepKVRT report(sources(), clock, host);
    const Report_Content content = contentOf(report);
    EXPECT_EQ(content.title, "Zorvane");
    EXPECT_EQ(content.route, "/SITE/SITE7.ABC");
    EXPECT_EQ(content.date, "11/21/2026  9:05");
    EXPECT_THAT(linesOf(content),
                ElementsAre("Line Description:|Inputs", "Line Edits:||Comments:|", "Heading Name|Level",
                            "Row low|10", "Row high|20", "Gap", "Line Description:|Outputs",
                            "Line Edits:||Comments:|", "Heading Name", "Row all"));
}

TEST_F(Content, AColumnOfNegativeWidthKeepsItsPlaceInTheTable) {
    document.Field_Count = 1;
    document.Fields(1).Cells(0, 1).Width = -1;
    MainRepKVRT report(sources(), clock, host);
    EXPECT_THAT(linesOf(contentOf(report)), ElementsAre("Line Description:|Inputs", "Line Edits:||Comments:|",
                                                        "Heading Name|Level", "Row low|10", "Row high|20"));
}

TEST_F(Content, AColumnOfWidth0IsHiddenYetItsTextIsFetched) {
    document.Field_Count = 1;
    Field_Rec& field = document.Fields(1);
    field.Cells(0, 1).Width = 0;
    doubles::giveMessages(field.Cells(1, 2), {{77, "never"}}); // so it shows the text before: the hidden one
    MainRepKVRT report(sources(), clock, host);
    EXPECT_THAT(linesOf(contentOf(report)), ElementsAre("Line Description:|Inputs", "Line Edits:||Comments:|",
                                                        "Heading Level", "Row low", "Row 20"));
}

TEST_F(Content, OfALog) {
    rptPrintLog report(metrics, clock);
    report.RichText.text = "one\r\n\r\ntwo";
    EXPECT_THAT(linesOf(contentOf(report)), ElementsAre("Text one", "Text ", "Text two"));
}

TEST_F(Content, ATableIsItsHeadingAndTheRowsAfterIt) {
    MainRepKVRT report(sources(), clock, host);
    const Report_Content content = contentOf(report);
    EXPECT_EQ(tableAt(content, 0).size(), 0U);
    EXPECT_EQ(tableAt(content, 2).size(), 3U);
    EXPECT_EQ(tableAt(content, 3).size(), 2U);
    EXPECT_EQ(tableAt(content, content.rows.size()).size(), 0U);
}

} // namespace
} // namespace zorvane
