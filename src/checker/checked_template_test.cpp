// SPDX-License-Identifier: MIT
#include "checker/checked_template.h"

#include <gtest/gtest.h>

namespace zorvane::checker {
namespace {

TEST(CheckedTemplate, SortsLinesByTheirFirstCharacter) {
    const Checked_Template checked("ABC.ZTP", "; a=b\r\n[COLORS]\r\nKEY=1\n=1\n  \n [X]\nword");
    std::vector<Line_Kind> kinds;
    for (const Source_Line& line : checked.lines())
        kinds.push_back(line.kind);
    EXPECT_EQ(kinds,
              (std::vector<Line_Kind>{Line_Kind::Comment, Line_Kind::Header, Line_Kind::Key, Line_Kind::Stray,
                                      Line_Kind::Empty, Line_Kind::Stray, Line_Kind::Stray}));
    EXPECT_EQ(checked.lines()[1].text, "[COLORS]");
    EXPECT_EQ(checked.lastLine().number, 7);
}

TEST(CheckedTemplate, TakesSectionsAndKeysApartAsTheInterpreterDoes) {
    const Checked_Template checked("ABC.ZTP",
                                   "[Field_12_Columns]\ncol_3_Width= 5 ;x\ncol_3_height=5\n[X_1_Y]\nz=1");
    const Source_Line& line = checked.lines()[1];
    EXPECT_EQ(line.section, "FIELD_#_COLUMNS");
    EXPECT_EQ(line.sectionNumber, 12);
    EXPECT_EQ(line.key, "COL_#_WIDTH");
    EXPECT_EQ(line.keyNumber, 3);
    EXPECT_EQ(line.value, "5 ");
    EXPECT_TRUE(line.keyKnown);
    EXPECT_FALSE(checked.lines()[2].keyKnown);
    EXPECT_FALSE(checked.lines()[4].sectionKnown);
}

const char* const table = "[CONFIGURATION_FIELDS]\nFIELD_1_RC=2,2\n"
                          "[FIELD_1_CONFIGURATION]\nROWADDRESS_1=,100/HI\nROWADDRESSFORMAT_2=TIME\n"
                          "[FIELD_1_MESSAGES]\nADDRESS_100=(0)Off\n"
                          "[FIELD_1_DEFAULT]\nROW_1=Mode,Off\nROW_3=x\n";

TEST(CheckedTemplate, KnowsTheLinesOfEachCell) {
    const Checked_Template checked("ABC.ZTP", table);
    ASSERT_EQ(checked.cells().size(), 3U);
    const Checked_Cell& list = checked.cells()[1];
    EXPECT_EQ(list.place(), "field 1, row 1, column 2");
    EXPECT_EQ(list.address->number, 4);
    EXPECT_EQ(list.messages->number, 7);
    EXPECT_EQ(list.itemOf(*list.value), "Off");
    EXPECT_EQ(list.cell->Value, "0");
    EXPECT_EQ(list.format, nullptr);
    EXPECT_EQ(checked.cells()[2].place(), "field 1, row 2, column 1");
    EXPECT_EQ(checked.cells()[2].line().number, 5);
}

TEST(CheckedTemplate, AListIsOfTheCellsThatHaveItsRegisterByThen) {
    const Checked_Template checked("ABC.ZTP", std::string(table) +
                                                  "[FIELD_1_MESSAGES]\nADDRESS_101=(0)A\nADDRESS_100=(0)B\n"
                                                  "[FIELD_1_CONFIGURATION]\nROWADDRESS_2=101,100/LO\n"
                                                  "[FIELD_1_MESSAGES]\nADDRESS_101=(0)C\nADDRESS_100=(0)D\n");
    ASSERT_EQ(checked.cells().size(), 4U);
    EXPECT_EQ(checked.cells()[1].messages->number, 7) << "the first list";
    EXPECT_EQ(checked.cells()[2].messages->number, 17) << "no cell had register 101 before";
    EXPECT_EQ(checked.cells()[3].messages->number, 18);
}

TEST(CheckedTemplate, ASecondSizeForgetsTheCells) {
    const Checked_Template checked("ABC.ZTP",
                                   std::string(table) + "[CONFIGURATION_FIELDS]\nFIELD_1_RC=1,1\n");
    EXPECT_TRUE(checked.cells().empty());
}

TEST(CheckedTemplate, KeepsWhatStoppedTheReaderOnEachLine) {
    const Checked_Template checked(
        "ABC.ZTP", "[FIELD_1_COLUMNS]\nCOL_1_DESC=x\n[FIELD_99999999999_COLUMNS]\nCOL_1_DESC=x");
    EXPECT_EQ(checked.lines()[1].failure->number, 9);
    EXPECT_EQ(checked.lines()[2].failure->number, 6);
    EXPECT_FALSE(checked.lines()[3].failure) << "it belongs to no section";
}

TEST(CheckedTemplate, NumbersAreWrittenInDigits) {
    EXPECT_EQ(plainNumber("100"), 100);
    for (const char* text : {"", "0100", "-1", " 1", "1 ", "1e2", "99999999999"})
        EXPECT_EQ(plainNumber(text), std::nullopt) << text;
    EXPECT_EQ(plainSpan("100-107")->count(), 8);
    EXPECT_FALSE(plainSpan("100"));
    EXPECT_FALSE(plainSpan("100 - 107"));
    EXPECT_EQ(numberOf(" 1.5 "), 1.5);
    EXPECT_FALSE(numberOf("1e400"));
}

} // namespace
} // namespace zorvane::checker
