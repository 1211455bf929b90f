// SPDX-License-Identifier: MIT
#include "reports/export/export_rtf.h"
#include "reports/testing/report_bench.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using doubles::design;
using doubles::Report_Bench;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

struct Export_Rtf : testing::Test, Report_Bench {
    [[nodiscard]] std::string exported() {
        MainRepKVRT report(sources(), clock, host);
        return exportRtf(contentOf(report));
    }
};

TEST_F(Export_Rtf, HasPaperHeaderAndFooter) {
    const std::string rtf = exported();
    EXPECT_THAT(rtf, StartsWith("{\\rtf1\\ansi\\ansicpg1252"));
    EXPECT_THAT(rtf, HasSubstr("\\paperw12240\\paperh15840\\margl1440\\margr1440\\margt1440\\margb1440\n"));
    EXPECT_THAT(rtf, HasSubstr("Zorvane\\tab Page:  \\chpgn  / {\\field{\\*\\fldinst {\\f0\\fs17 "
                               "NUMPAGES}}{\\fldrslt {\\f0\\fs17 1}}}\\par}\n"));
    EXPECT_THAT(rtf, HasSubstr(" /SITE/SITE7.ABC\\tab 11/21/2026  9:05\\par}\n"));
}

TEST_F(Export_Rtf, AMeasureThatNoPaperHasStaysWithinWhatReadersTake) {
    MainRepKVRT report(sources(), clock, host);
    report.PageSettings.PaperHeight = 1e30;
    report.PageSettings.LeftMargin = -1440;
    report.PageSettings.RightMargin = 99999;
    const std::string rtf = exportRtf(contentOf(report));
    EXPECT_THAT(rtf, HasSubstr("\\paperw12240\\paperh31680\\margl0\\margr31680\\margt1440\\margb1440\n"));
    EXPECT_THAT(rtf, HasSubstr("\\tqr\\tx0\\"));
}

TEST_F(Export_Rtf, APaperLyingAcrossIsSaidToBe) {
    MainRepKVRT report(sources(), clock, host);
    std::swap(report.PageSettings.PaperWidth, report.PageSettings.PaperHeight);
    EXPECT_THAT(
        exportRtf(contentOf(report)),
        HasSubstr("\\paperw15840\\paperh12240\\margl1440\\margr1440\\margt1440\\margb1440\\landscape\n"));
}

TEST_F(Export_Rtf, WritesATableWhoseHeadingsComeAgain) {
    document.Field_Count = 1;
    const std::string rtf = exported();
    EXPECT_THAT(rtf, HasSubstr("\\trowd\\trgaph60\\trkeep\\trhdr"));
    EXPECT_THAT(rtf, HasSubstr("\\trowd\\trgaph60\\trkeep\\cellx1100\\cellx1900\n"
                               "\\pard\\intbl\\ql {\\f1\\fs17 low}\\cell\n"
                               "\\pard\\intbl\\qr {\\f1\\fs17\\cf4 10}\\cell\n"
                               "\\row\n"));
}

TEST_F(Export_Rtf, EscapesEveryText) {
    design(document.Fields(1), "{x}", {{"a"}}, {{"back\\slash"}, {"\x80\xE9\x81"}, {"tab\there"}});
    const std::string rtf = exported();
    EXPECT_THAT(rtf, HasSubstr("\\{x\\}"));
    EXPECT_THAT(rtf, HasSubstr(" back\\\\slash}"));
    EXPECT_THAT(rtf, HasSubstr(" \\'80\\'e9\\u-3\\'3f}"));
    EXPECT_THAT(rtf, HasSubstr(" tab\\tab here}"));
}

TEST_F(Export_Rtf, WhatStandsForNoCharacterIsReplaced) {
    design(document.Fields(1), "x", {{"a"}}, {{std::string("nul\0, bell\x07", 11)}, {"\x7F\x9D\xFF"}});
    const std::string rtf = exported();
    EXPECT_THAT(rtf, HasSubstr(" nul\\u-3\\'3f, bell\\u-3\\'3f}"));
    EXPECT_THAT(rtf, HasSubstr(" \\u-3\\'3f\\u-3\\'3f\\'ff}"));
}

TEST_F(Export_Rtf, ANarrowColumnStillHasRoomForItsTextAndOneOfWidth0IsHidden) {
    design(document.Fields(1), "x", {{"a", 10}, {"hidden", 0}, {"b", 10}}, {{"1", "away", "2"}});
    EXPECT_THAT(exported(), HasSubstr("\\cellx360\\cellx720\n"));
    EXPECT_THAT(exported(), Not(HasSubstr("hidden")));
    EXPECT_THAT(exported(), Not(HasSubstr("away")));
}

} // namespace
} // namespace zorvane
