// SPDX-License-Identifier: MIT
#include "reports/export/export_txt.h"
#include "reports/testing/report_bench.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using doubles::design;
using doubles::Report_Bench;

struct Export_Txt : testing::Test, Report_Bench {
    [[nodiscard]] std::string exported() {
        MainRepKVRT report(sources(), clock, host);
        return exportTxt(contentOf(report));
    }
};

TEST_F(Export_Txt, PutsTheColumnsUnderEachOther) {
    EXPECT_EQ(exported(), "Zorvane\r\n"
                          "\r\n"
                          "Description: Inputs\r\n"
                          "Edits:  Comments:\r\n"
                          "Name  Level\r\n"
                          "----  -----\r\n"
                          "low      10\r\n"
                          "high     20\r\n"
                          "\r\n"
                          "Description: Outputs\r\n"
                          "Edits:  Comments:\r\n"
                          "Name\r\n"
                          "----\r\n"
                          "all\r\n"
                          "\r\n"
                          "/SITE/SITE7.ABC  11/21/2026  9:05\r\n");
}

TEST_F(Export_Txt, APathThatHoldsALineEndBreaksNoLine) {
    document.File_Folder = "/site\n2/";
    EXPECT_THAT(exported(), testing::EndsWith("\r\n/SITE 2/SITE7.ABC  11/21/2026  9:05\r\n"));
}

TEST_F(Export_Txt, WritesEveryCharacterAndBreaksNoLine) {
    document.Field_Count = 1;
    design(document.Fields(1), "x", {{"a"}, {"b"}}, {{"\x80 \xE9, \"<{\\}>\"", "1"}, {"\x80", "two\nlines"}});
    EXPECT_THAT(exported(), testing::HasSubstr("a             b\r\n"
                                               "------------  ---------\r\n"
                                               "\xE2\x82\xAC \xC3\xA9, \"<{\\}>\"  1\r\n"
                                               "\xE2\x82\xAC             two lines\r\n"));
}

} // namespace
} // namespace zorvane
