// SPDX-License-Identifier: MIT
#include "reports/documents/rpt_print_log.h"
#include "reports/testing/page_text.h"
#include "reports/testing/report_bench.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using doubles::pageText;
using doubles::Report_Bench;
using doubles::textsOf;
using testing::AllOf;
using testing::Contains;

using Lines = std::vector<std::string>;

struct Log_Report : testing::Test, Report_Bench {
    rptPrintLog report{metrics, clock};

    [[nodiscard]] const Page_Document& pages() const { return report.Pages.document; }
};

TEST_F(Log_Report, AShortLogOnItsPage) {
    report.RichText = {
        "Transfer Method: Upload to PC\r\n\r\nRetries: 3\r\n", {"MS Sans Serif", 10, false}, 0};
    report.LogFileName = "/site/site7.log";
    report.Run();
    ASSERT_EQ(report.Pages.Count(), 1);
    EXPECT_EQ(pageText(pages(), 0),
              (Lines{
                  "text 1440,1965 9071x240 \"Transfer Method: Upload to PC\" 10",
                  "text 1440,2445 9071x240 \"Retries: 3\" 10",
                  "text 8952,1440 1134x283 \"Page:  1 / \" 10 right",
                  "text 10086,1440 425x283 \"1\" 10",
                  "text 1440,1440 4677x283 \"Zorvane   log of communication error.\" 11.5",
                  "line 1440,1723 10511,1723",
                  "text 8243,14040 2268x283 \"11/21/2026  9:05\" 10 right",
                  "text 1440,14040 6520x283 \"/site/site7.log\" 10",
                  "line 1440,14040 10531,14040",
              }));
}

TEST_F(Log_Report, ALongLogGrowsOverPagesThatAllHaveHeaderAndFooter) {
    std::string log;
    for (int line = 1; line <= 200; ++line)
        log += "line " + std::to_string(line) + "\r\n";
    report.RichText = {log, {"MS Sans Serif", 10, false}, 0};
    report.LogFileName = "site7.log";
    report.Run();
    ASSERT_EQ(report.Pages.Count(), 4); // 50 lines a page
    EXPECT_EQ(textsOf(pages(), 1).front(), "line 51");
    for (std::size_t page = 0; page < 4; ++page)
        EXPECT_THAT(textsOf(pages(), page),
                    AllOf(Contains("Zorvane   log of communication error."), Contains("site7.log"),
                          Contains("Page:  " + std::to_string(page + 1) + " / "), Contains("4")));
}

TEST_F(Log_Report, ALongLineIsBrokenAtABlank) {
    report.RichText = {std::string(60, 'a') + " " + std::string(60, 'b'), {"MS Sans Serif", 10, false}, 0};
    report.Run();
    EXPECT_EQ(textsOf(pages(), 0)[0], std::string(60, 'a'));
    EXPECT_EQ(textsOf(pages(), 0)[1], std::string(60, 'b'));
}

TEST_F(Log_Report, ALongFileNameIsCutAndKeepsItsLetters) {
    report.RichText.text = "x";
    report.LogFileName = "/a/" + std::string(44, 'b') + ".log";
    ASSERT_EQ(report.LogFileName.size(), 51U);
    report.Run();
    EXPECT_THAT(textsOf(pages(), 0), Contains("/a/..." + std::string(44, 'b') + ".log"));
}

} // namespace
} // namespace zorvane
