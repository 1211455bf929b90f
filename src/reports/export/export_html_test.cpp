// SPDX-License-Identifier: MIT
#include "reports/export/export_html.h"
#include "reports/testing/report_bench.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using doubles::design;
using doubles::Report_Bench;
using testing::HasSubstr;
using testing::Not;

struct Export_Html : testing::Test, Report_Bench {
    [[nodiscard]] std::string exported(bool grid = false, double size = 8.25) {
        MainRepKVRT report(sources(), clock, host);
        report.FontSize = size;
        report.HaveGrid = grid;
        return exportHtml(contentOf(report));
    }
};

TEST_F(Export_Html, WritesATableForEachField) {
    EXPECT_THAT(exported(),
                HasSubstr("<p class=\"line\"><span class=\"label\">Description:</span> Inputs</p>\n"
                          "<p class=\"line\"><span class=\"label\">Edits:</span>  "
                          "<span class=\"label\">Comments:</span> </p>\n"
                          "<table>\n"
                          "<tr><th>Name</th><th>Level</th></tr>\n"
                          "<tr><td>low</td>"
                          "<td style=\"text-align: right;color: #0000ff;\">10</td></tr>\n"
                          "<tr><td>high</td>"
                          "<td style=\"text-align: right;color: #0000ff;\">20</td></tr>\n"
                          "</table>\n"));
    EXPECT_THAT(exported(), HasSubstr("<footer><span class=\"date\">11/21/2026  9:05</span>/SITE/SITE7.ABC"));
}

TEST_F(Export_Html, HasRulesAroundTheCellsWithTheGridOnly) {
    EXPECT_THAT(exported(true), HasSubstr("<table class=\"ruled\">\n<tr><th>Name</th>"));
    EXPECT_THAT(exported(false), Not(HasSubstr("<table class=\"ruled\">")));
    EXPECT_THAT(exported(false), HasSubstr(".ruled td { border: 1px dotted #d0d0d0; }"));
}

TEST_F(Export_Html, HasTheReportsTextSize) {
    EXPECT_THAT(exported(false, 8.25), HasSubstr("body { font-family: sans-serif; font-size: 8.25pt; }"));
    EXPECT_THAT(exported(false, 12), HasSubstr("body { font-family: sans-serif; font-size: 12pt; }"));
}

TEST_F(Export_Html, AHeadingWithoutRowsHasNoRulesToAskFor) {
    design(document.Fields(1), "Empty", {{"Name"}}, {});
    EXPECT_THAT(exported(true), HasSubstr("<table>\n<tr><th>Name</th></tr>\n</table>"));
}

TEST_F(Export_Html, EscapesEveryText) {
    design(document.Fields(1), "<script>", {{"\"a\"&b"}}, {{"</td>\x80\xE9"}, {"bell\x07 \x81"}});
    const std::string html = exported();
    EXPECT_THAT(html, HasSubstr("&lt;script&gt;"));
    EXPECT_THAT(html, Not(HasSubstr("<script>")));
    EXPECT_THAT(html, HasSubstr("<th>&quot;a&quot;&amp;b</th>"));
    EXPECT_THAT(html, HasSubstr("<td>&lt;/td&gt;\xE2\x82\xAC\xC3\xA9</td>"));
    EXPECT_THAT(html, HasSubstr("<td>bell\xEF\xBF\xBD \xEF\xBF\xBD</td>"));
}

TEST_F(Export_Html, NeedsNoOtherFile) {
    const std::string html = exported();
    for (const char* reference : {"src=", "href=", "url(", "@import", "http:"})
        EXPECT_THAT(html, Not(HasSubstr(reference)));
}

} // namespace
} // namespace zorvane
