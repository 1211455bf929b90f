// SPDX-License-Identifier: MIT
#include "reports/documents/rpt_print_kvrt.h"
#include "reports/testing/report_bench.h"
#include "values/testing/failure_number.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using doubles::design;
using doubles::failureNumber;
using doubles::giveMessages;
using doubles::Report_Bench;
using testing::ElementsAre;

struct Sub_Report : testing::Test, Report_Bench {
    rptPrintKVRT report{sources()};
    Printed_Report printed;

    void run(std::int16_t field) {
        report.Opcion = field;
        printed = report.runWithoutPages();
    }
    /// The bands are the head, the rows and the foot.
    [[nodiscard]] const Printed_Band& head() const { return printed.bands.front(); }
    [[nodiscard]] const Printed_Band& row(std::size_t number) const { return printed.bands.at(number); }
    [[nodiscard]] const Text_Style& look(const Printed_Text& text) const {
        return printed.styles[text.style];
    }
    [[nodiscard]] std::vector<std::string> texts(std::size_t number) const {
        std::vector<std::string> list;
        for (const Printed_Text& text : row(number).texts)
            list.push_back(text.text);
        return list;
    }
    Field_Rec& field() { return document.Fields(1); }
};

TEST_F(Sub_Report, PrintsHeadRowsAndFoot) {
    run(1);
    ASSERT_EQ(printed.bands.size(), 4U);
    EXPECT_EQ(texts(0), (std::vector<std::string>{"Description:", "Edits:", "Comments:", "", "", "Inputs",
                                                  "Name", "Level"}));
    EXPECT_THAT(texts(1), ElementsAre("low", "10"));
    EXPECT_THAT(texts(2), ElementsAre("high", "20"));
    EXPECT_EQ(head().height, 945);
    EXPECT_EQ(row(1).height, 288);
    EXPECT_EQ(printed.bands[3].height, 1020);
}

TEST_F(Sub_Report, HasItsDesignUntilItRuns) {
    EXPECT_EQ(report.Caption, "Printing Report...");
    EXPECT_EQ(report.PrintWidth, 10635);
    const auto designed = [this](const char* name) { return report.GroupHeader1.Controls(name).Caption; };
    EXPECT_EQ(designed("FldEdits"), "Yes");
    EXPECT_EQ(designed("Fldcomments"), "none comentaries");
    EXPECT_EQ(designed("FldDescription"), "Channel Setup");
    EXPECT_EQ(report.GroupHeader1.Controls("Edits").Font.Name, "Microsoft Sans Serif");
    EXPECT_EQ(report.GroupHeader1.Controls("Edits").Font.Size, 12);
}

TEST_F(Sub_Report, BindsItsFieldsByName) {
    run(1);
    EXPECT_EQ(report.Fields.Item("FldDescription").Value, "Inputs");
    EXPECT_EQ(report.Fields.Item("FldEdits").Value, "");
    EXPECT_EQ(report.Fields.Item("FldComments").Value, "");
    EXPECT_EQ(report.Fields.Item("ALF_1_Name").Value, "Name");
    EXPECT_EQ(report.Fields.Item("ALF_2_Level").Value, "Level");
    EXPECT_EQ(report.Fields.Item("Field2").Value, "20") << "of the last row";
}

TEST_F(Sub_Report, TheHeadMakesRoomForItsTexts) {
    report.FontSize = 10;
    report.Window.width = 9000;
    run(1);
    struct Place {
        double left;
        double width;
        bool operator==(const Place&) const = default;
    };
    std::vector<Place> places;
    for (const Printed_Text& text : head().texts)
        places.push_back({text.left, text.width});
    // Description:, Edits:, Comments:, FldEdits, Fldcomments, FldDescription, then the headings.
    EXPECT_EQ(places, (std::vector<Place>{{0, 1250},
                                          {0, 650},
                                          {1650, 950},
                                          {650, 1000},
                                          {2600, 9000},
                                          {1250, 9000},
                                          {0, 1100},
                                          {1100, 800}}));
    EXPECT_EQ(look(head().texts[0]).Font, (Report_Font{"Grid Font", 10, false}));
}

TEST_F(Sub_Report, WithoutChangeLocalColumnsKeepTheTemplatesWidths) {
    field().Cells(1, 1).Value = std::string(500, 'w');
    run(1);
    EXPECT_EQ(row(1).texts[0].width, 1100);
    EXPECT_EQ(row(1).texts[1].left, 1100);
    EXPECT_EQ(row(1).texts[0].text.size(), 500U); // the painter cuts it at the column's side
}

TEST_F(Sub_Report, WithChangeLocalAColumnGrowsPastTheRightMargin) {
    report.ChangeLocal = true;
    report.FontSize = 10;
    field().Cells(2, 1).Value = "  " + std::string(200, 'w') + " "; // measured without its blanks
    run(1);
    EXPECT_EQ(row(1).texts[0].width, 200 * 100 + 270);
    EXPECT_EQ(row(1).texts[1].left, 200 * 100 + 270);
    EXPECT_EQ(row(1).texts[1].width, 5 * 100 + 270); // "Level"
}

TEST_F(Sub_Report, AColumnTooWideForSixteenBitsIsAnOverflow) {
    report.ChangeLocal = true;
    report.FontSize = 10;
    field().Cells(1, 1).Value = std::string(325, 'w'); // 32500 and 270
    EXPECT_EQ(failureNumber([&] { run(1); }), 6);
}

TEST_F(Sub_Report, TheAlignmentRigthPrintsLeft) {
    design(field(), "Inputs",
           {{"a", 100, "RIGTH"}, {"b", 100, "right"}, {"c", 100, "Center"}, {"d", 100, "LEFT"}, {"e"}},
           {{"1", "2", "3", "4", "5"}});
    run(1);
    std::vector<int> alignments;
    for (const Printed_Text& text : row(1).texts)
        alignments.push_back(look(text).Alignment);
    EXPECT_THAT(alignments, ElementsAre(Align_Left, Align_Right, Align_Center, Align_Left, Align_Left));
}

TEST_F(Sub_Report, WithoutGridOnlyTheHeadingsHaveRules) {
    run(1);
    EXPECT_EQ(look(row(1).texts[0]).Border, Report_Border{});
    const Text_Style& heading = look(head().texts[6]);
    EXPECT_EQ(heading.Border.LeftStyle, Border_Solid);
    EXPECT_EQ(heading.Border.TopStyle, Border_Solid);
    EXPECT_EQ(heading.Border.BottomStyle, Border_Solid);
    EXPECT_EQ(heading.Border.RightStyle, Border_None);
    EXPECT_EQ(look(head().texts[7]).Border.RightStyle, Border_Solid); // the last column
    EXPECT_EQ(heading.BackColor, 0xC0C0C0U);
    EXPECT_EQ(heading.BackStyle, Back_Opaque);
    EXPECT_EQ(heading.Alignment, Align_Center);
}

TEST_F(Sub_Report, TheOnlyColumnHasRulesOnBothSides) {
    report.Grid = true;
    run(2);
    const Report_Border& border = look(row(1).texts[0]).Border;
    EXPECT_EQ(border.LeftStyle, Border_Dot);
    EXPECT_EQ(border.RightStyle, Border_Dot);
    EXPECT_EQ(border.BottomStyle, Border_Dot);
    EXPECT_EQ(border.TopStyle, Border_None);
    EXPECT_EQ(border.LeftColor, 0xD0D0D0U);
    const Report_Border& heading = look(head().texts[6]).Border;
    EXPECT_EQ(heading.LeftStyle, Border_Solid);
    EXPECT_EQ(heading.RightStyle, Border_Solid);
}

TEST_F(Sub_Report, ModifiableColumnsPrintInBlue) {
    run(1);
    EXPECT_EQ(look(row(1).texts[0]).ForeColor, 0U);
    EXPECT_EQ(look(row(1).texts[1]).ForeColor, 0xFF0000U);
}

TEST_F(Sub_Report, TheLastMatchingMessageIsPrinted) {
    field().Cells(1, 2).Value = "1";
    giveMessages(field().Cells(1, 2), {{1, "first"}, {2, "other"}, {1, "last"}});
    run(1);
    EXPECT_THAT(texts(1), ElementsAre("low", "last"));
}

TEST_F(Sub_Report, ACellWhoseMessagesDoNotAnswerShowsTheTextBefore) {
    design(field(), "Inputs", {{"a"}, {"b"}, {"c"}, {"d"}}, {{"one", "7", "", "word"}, {"", "", "", ""}});
    for (const std::int32_t column : {2, 3, 4})
        giveMessages(field().Cells(1, column), {{1, "On"}});
    giveMessages(field().Cells(2, 1), {{1, "On"}});
    run(1);
    EXPECT_THAT(texts(1), ElementsAre("one", "one", "one", "one")); // no match, empty, not a number
    EXPECT_THAT(texts(2), ElementsAre("", "", "", ""));             // each row begins again
}

TEST_F(Sub_Report, CodeZeroWithoutAnEntryOfItsOwnPrintsNothing) {
    field().Cells(1, 2).Value = "0";
    giveMessages(field().Cells(1, 2), {{1, "On"}});
    run(1);
    EXPECT_THAT(texts(1), ElementsAre("low", "")); // the list's empty entry 0 has the code 0
}

TEST_F(Sub_Report, ValuesPrintAsTheyAreStored) {
    field().Cells(1, 2).Format = "TIME";
    field().Cells(1, 2).Value = "90";
    run(1);
    EXPECT_THAT(texts(1), ElementsAre("low", "90"));
}

TEST_F(Sub_Report, WithoutAFieldItPrintsNothing) {
    run(0);
    EXPECT_TRUE(printed.bands.empty());
    run(-1);
    EXPECT_TRUE(printed.bands.empty());
}

TEST_F(Sub_Report, AFieldWithoutRowsPrintsItsHead) {
    document.Fields(1).Rows = 0;
    run(1);
    ASSERT_EQ(printed.bands.size(), 2U);
    EXPECT_EQ(head().role, Band_Role::Head);
    EXPECT_EQ(printed.bands[1].role, Band_Role::Foot);
}

TEST_F(Sub_Report, TwoColumnsMayHaveOneHeading) {
    design(field(), "Inputs", {{"same"}, {"same"}}, {{"1", "2"}});
    run(1);
    EXPECT_THAT(texts(1), ElementsAre("1", "2"));
    EXPECT_EQ(head().texts[6].text, "same");
    EXPECT_EQ(head().texts[7].text, "same");
}

TEST_F(Sub_Report, AListThatWasNeverFilledIsABadIndex) {
    field().Cells(1, 2).Has_Messages = true;
    EXPECT_EQ(failureNumber([&] { run(1); }), 9);
}

} // namespace
} // namespace zorvane
