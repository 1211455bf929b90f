// SPDX-License-Identifier: MIT
#include "reports/documents/main_rep_kvrt.h"
#include "reports/testing/page_text.h"
#include "reports/testing/report_bench.h"
#include "values/testing/failure_number.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using doubles::failureNumber;
using doubles::pageText;
using doubles::Report_Bench;
using doubles::textsOf;
using testing::AllOf;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

using Lines = std::vector<std::string>;

struct MainReport : testing::Test, Report_Bench {
    MainRepKVRT report{sources(), clock, host};

    [[nodiscard]] const Page_Document& pages() const { return report.Pages.document; }
    void runField(std::int32_t field) {
        report.OnePage = true;
        report.Opcion = field;
        report.Run();
    }
    [[nodiscard]] std::string route() {
        runField(2);
        return textsOf(pages(), 0).back();
    }
};

TEST_F(MainReport, OneFieldOnItsPage) {
    report.FontSize = 10;
    runField(2);
    ASSERT_EQ(report.Pages.Count(), 1);
    EXPECT_EQ(pageText(pages(), 0), (Lines{
                                        // head of the field
                                        "box 1440,2185 1250x250 c0ffff",
                                        "text 1440,2185 1250x250 \"Description:\" 10",
                                        "box 1440,2415 650x250 c0ffff",
                                        "text 1440,2415 650x250 \"Edits:\" 10",
                                        "box 3090,2415 950x250 c0ffff",
                                        "text 3090,2415 950x250 \"Comments:\" 10",
                                        "text 2690,2185 10635x250 \"Outputs\" 10",
                                        "box 1440,2815 900x288 c0c0c0",
                                        "text 1440,2815 900x288 \"Name\" 10 center",
                                        "line 1440,2815 1440,3103",
                                        "line 2340,2815 2340,3103",
                                        "line 1440,2815 2340,2815",
                                        "line 1440,3103 2340,3103",
                                        // its row
                                        "text 1440,3120 900x288 \"all\" 10 center",
                                        // page header
                                        "text 8952,1440 1134x283 \"Page:  1 / \" 8.5 right",
                                        "text 10086,1440 425x283 \"1\" 8.5",
                                        "text 1440,1440 1276x283 \"Zorvane\" 8.5",
                                        "line 1440,1723 10531,1723",
                                        // page footer
                                        "text 8243,14040 2268x283 \"11/21/2026  9:05\" 8.5 right",
                                        "text 1440,14040 6520x283 \"/SITE/SITE7.ABC\" 8.5",
                                        "line 1440,14040 10531,14040",
                                    }));
}

TEST_F(MainReport, AllFieldsFollowEachOther) {
    report.HaveGrid = true;
    report.FontSize = 10;
    report.Run();
    ASSERT_EQ(report.Pages.Count(), 1);
    Lines lines = pageText(pages(), 0);
    const auto firstRow = std::find(lines.begin(), lines.end(), "text 1440,3120 1100x288 \"low\" 10");
    ASSERT_NE(firstRow, lines.end());
    EXPECT_THAT(
        Lines(firstRow, firstRow + 12),
        ElementsAre("text 1440,3120 1100x288 \"low\" 10",     //
                    "line 1440,3120 1440,3408 d0d0d0 dotted", //
                    "line 1440,3408 2540,3408 d0d0d0 dotted", "text 2540,3120 800x288 \"10\" 10 right ff0000",
                    "line 2540,3120 2540,3408 d0d0d0 dotted", "line 3340,3120 3340,3408 d0d0d0 dotted",
                    "line 2540,3408 3340,3408 d0d0d0 dotted",
                    "text 1440,3408 1100x288 \"high\" 10", //
                    "line 1440,3408 1440,3696 d0d0d0 dotted", "line 1440,3696 2540,3696 d0d0d0 dotted",
                    "text 2540,3408 800x288 \"20\" 10 right ff0000",
                    "line 2540,3408 2540,3696 d0d0d0 dotted"));
    // The second field begins below the first one's foot of 1020 twips.
    EXPECT_THAT(lines, Contains("text 2690,4726 10635x250 \"Outputs\" 10"));
    EXPECT_THAT(lines, Contains("text 1440,5661 900x288 \"all\" 10 center"));
    ASSERT_EQ(pages().contents.size(), 2U);
    EXPECT_EQ(pages().contents[0].title, "Inputs");
    EXPECT_EQ(pages().contents[1].title, "Outputs");
    EXPECT_EQ(pages().contents[1].page, 1);
}

TEST_F(MainReport, APathOfFiftyCharactersIsPrintedWhole) {
    document.File_Folder = "/" + std::string(39, 'f') + "/";
    document.File_Stem = "STEM5";
    document.File_Extension = "ABC";
    ASSERT_EQ((document.File_Folder + "STEM5.ABC").size(), 50U);
    EXPECT_EQ(route(), "/" + std::string(39, 'F') + "/STEM5.ABC");
}

TEST_F(MainReport, APathOfFiftyOneCharactersBecomesFiftyFourLong) {
    document.File_Folder = "/ab/" + std::string(37, 'f') + "/";
    document.File_Stem = "STEM5";
    document.File_Extension = "ABC";
    ASSERT_EQ((document.File_Folder + "STEM5.ABC").size(), 51U);
    EXPECT_EQ(route(), "/AB.../" + std::string(37, 'F') + "/STEM5.ABC");
    EXPECT_EQ(route().size(), 54U);
}

TEST_F(MainReport, TheRouteIsInUpperCaseWhateverTheFilesSpelling) {
    document.File_Folder = "/Pr\xFC"
                           "fung/";
    document.File_Stem = "site7";
    document.File_Extension = "abc";
    EXPECT_EQ(route(), "/PR\xDC"
                       "FUNG/SITE7.ABC");
}

TEST_F(MainReport, ADocumentOfOneFieldPrintsOnePass) {
    document.Field_Count = 1;
    report.Run();
    ASSERT_EQ(report.Pages.Count(), 1);
    EXPECT_EQ(pages().contents.size(), 1U);
    EXPECT_THAT(textsOf(pages(), 0), AllOf(Contains("Inputs"), Not(Contains("Outputs"))));
}

TEST_F(MainReport, ADocumentWithoutFieldsHasNoPages) {
    document.Field_Count = 0;
    report.Run();
    EXPECT_EQ(report.Pages.Count(), 0);
}

TEST_F(MainReport, NoRowSelectedPrintsAPageWithoutAField) {
    runField(0);
    ASSERT_EQ(report.Pages.Count(), 1);
    EXPECT_THAT(textsOf(pages(), 0),
                ElementsAre("Page:  1 / ", "1", "Zorvane", "11/21/2026  9:05", "/SITE/SITE7.ABC"));
}

TEST_F(MainReport, AFieldThatIsNotThereIsABadIndex) {
    EXPECT_EQ(failureNumber([&] { runField(3); }), 9);
    EXPECT_THAT(host.notes, ElementsAre("busy", "not busy"));
}

TEST_F(MainReport, EveryPageHasHeaderFooterAndTheHeadingsOfTheTable) {
    doubles::design(document.Fields(1), "Inputs", {{"Name", 1100}}, {});
    Field_Rec& field = document.Fields(1);
    field.Rows = 80;
    field.Cells.redim(80, 1);
    field.Cells(0, 1).Value = "Name";
    field.Cells(0, 1).Width = 1100;
    for (std::int32_t row = 1; row <= 80; ++row)
        field.Cells(row, 1).Value = "row " + std::to_string(row);
    runField(1);
    ASSERT_EQ(report.Pages.Count(), 3);
    const Lines first = textsOf(pages(), 0);
    const Lines second = textsOf(pages(), 1);
    const Lines third = textsOf(pages(), 2);
    EXPECT_EQ(first[4], "Name");
    EXPECT_EQ(first[5], "row 1");
    EXPECT_EQ(second[0], "Name");
    EXPECT_EQ(second[1], "row 38");
    EXPECT_EQ(third[0], "Name");
    EXPECT_EQ(third[1], "row 78");
    EXPECT_EQ(third[3], "row 80");
    for (std::size_t page = 0; page < 3; ++page)
        EXPECT_THAT(textsOf(pages(), page), AllOf(Contains("Page:  " + std::to_string(page + 1) + " / "),
                                                  Contains("3"), Contains("/SITE/SITE7.ABC")));
}

TEST_F(MainReport, ARunShowsTheBusyFormAndTellsOfItsEnd) {
    report.EndOfRun = [this] { host.notes.emplace_back("end of run"); };
    report.Run();
    EXPECT_THAT(host.notes, ElementsAre("busy", "not busy", "end of run", "pages: 1"));
    EXPECT_EQ(report.MousePointer, 0);
}

TEST_F(MainReport, TheHourglassShowsWhileItRuns) {
    struct Pointer_Host : doubles::Noting_Host {
        const MainRepKVRT* report = nullptr;
        std::vector<int> pointers;
        void showBusy() override { pointers.push_back(report->MousePointer); }
        [[nodiscard]] bool keepsRunning() override {
            pointers.push_back(report->MousePointer);
            return true;
        }
        void endBusy() override { pointers.push_back(report->MousePointer); }
    } own;
    MainRepKVRT watched(sources(), clock, own);
    own.report = &watched;
    watched.Run();
    ASSERT_GT(own.pointers.size(), 2U);
    EXPECT_EQ(own.pointers.back(), 0);
    own.pointers.pop_back();
    EXPECT_THAT(own.pointers, Each(11));
}

TEST_F(MainReport, EachSubreportIsMadeForItsField) {
    report.HaveGrid = true;
    report.FontSize = 9;
    report.PrintWidth = 9000;
    report.Window.height = 7380;
    report.Run();
    ASSERT_EQ(report.Detail.Controls.Count(), 2);
    Report_Control& second = report.Detail.Controls("SubDinamycRpt2");
    EXPECT_EQ(second.Tag, "SUBREPORT");
    EXPECT_TRUE(second.CanGrow);
    EXPECT_TRUE(second.CanShrink);
    EXPECT_EQ(second.Height, 7380);
    EXPECT_EQ(second.Width, 9000);
    const auto& object = dynamic_cast<rptPrintKVRT&>(*second.object);
    EXPECT_EQ(object.Opcion, 2);
    EXPECT_TRUE(object.Grid);
    EXPECT_EQ(object.PrintWidth, 9000);
    EXPECT_EQ(object.FontSize, 9);
    EXPECT_FALSE(object.ChangeLocal);
    EXPECT_FALSE(report.Detail.Controls("SubDinamycRpt1").Visible);
}

TEST_F(MainReport, TheToolBarHasFourTools) {
    ASSERT_EQ(report.Tools.Count(), 4U);
    const std::vector<std::pair<std::string, std::string>> expected = {{"&Setup...", "Page setup"},
                                                                       {"&Export...", "Export Report"},
                                                                       {"&Refresh", "Refresh Report"},
                                                                       {"Font Size...", "Font Size"}};
    for (std::size_t index = 1; index <= 4; ++index) {
        const Report_Tool& tool = report.Tools.Item(index);
        EXPECT_EQ(std::pair(tool.Caption, tool.Tooltip), expected[index - 1]);
        EXPECT_TRUE(tool.Visible && tool.Enabled);
        EXPECT_EQ(tool.picture, index == 1 ? 101 : 0);
    }
}

TEST_F(MainReport, TheToolsTipTellsWhatAClickDoes) {
    report.ConfigurePage = [this] { host.notes.emplace_back("page set-up"); };
    report.Refresh = [this] { host.notes.emplace_back("refresh"); };
    for (std::size_t index = 1; index <= 4; ++index)
        report.ActiveReport_ToolbarClick(report.Tools.Item(index));
    report.ActiveReport_ToolbarClick({"&Print", "Print", 0, true, true});
    EXPECT_THAT(host.notes, ElementsAre("page set-up", "export", "refresh", "font dialog"));
}

TEST_F(MainReport, ASizeChosenInThePreviewFitsItsColumnsToTheirTexts) {
    runField(2);
    host.notes.clear();
    report.FontSizeDialog_ChangeFont(12);
    EXPECT_EQ(report.FontSize, 12);
    EXPECT_THAT(host.notes, ElementsAre("font dialog dropped", "busy", "not busy", "pages: 1"));
    // "Name" is 480 twips wide at 12 points, and 270 are added.
    EXPECT_THAT(pageText(pages(), 0), Contains("text 1440,2815 750x288 \"Name\" 12 center"));
}

TEST_F(MainReport, ARestartGivesTheSamePages) {
    report.HaveGrid = true;
    report.Run();
    const Lines before = pageText(pages(), 0);
    report.Restart();
    EXPECT_EQ(pageText(pages(), 0), before);
}

TEST_F(MainReport, ItsEndStoresTheWindowAndMayDestroyIt) {
    auto own = std::make_unique<MainRepKVRT>(sources(), clock, host);
    own->UnloadMe = [&] {
        host.notes.emplace_back("unloaded");
        own.reset();
    };
    own->ActiveReport_Terminate();
    EXPECT_THAT(host.notes, ElementsAre("window stored", "unloaded"));
    EXPECT_EQ(own, nullptr);
}

TEST_F(MainReport, DesignedForLetterPaperWithAnInchAround) {
    EXPECT_EQ(report.PageSettings, Page_Settings{});
    EXPECT_EQ(report.PageSettings.PaperWidth, 12240);
    EXPECT_EQ(report.PageSettings.PaperHeight, 15840);
    EXPECT_EQ(report.PageSettings.LeftMargin, 1440);
    EXPECT_EQ(report.PrintWidth, 9135);
    EXPECT_EQ(report.Caption, "Preview Print Page");
}

} // namespace
} // namespace zorvane
