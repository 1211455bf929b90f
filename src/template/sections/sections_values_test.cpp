// SPDX-License-Identifier: MIT
#include "template/testing/interpreter_bench.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::documentText;
using doubles::fieldText;
using doubles::Interpreter_Bench;

/// A bench whose field 1 has 5 rows and 2 columns; (1,1) is a time, (2,1) a list, (3,1) plain.
struct Values : testing::Test {
    Values() {
        bench.makeField(1, "5,2");
        bench.line("FIELD_#_CONFIGURATION", 1, "ROWADDRESSFORMAT_1", "time");
        bench.line("FIELD_#_CONFIGURATION", 1, "ROWADDRESS_2", "100");
        bench.line("FIELD_#_MESSAGES", 1, "ADDRESS_100", "(0)Off,(1)On,(7)Slow");
    }

    bool row(std::string_view key, std::string_view value) {
        return bench.line("FIELD_#_DEFAULT", 1, key, value);
    }
    /// What a value stored in a row's first column reads as.
    std::string stored(std::int32_t number, std::string_view value) {
        EXPECT_TRUE(row("ROW_" + std::to_string(number), value));
        return bench.cell(1, number, 1).Value;
    }

    Interpreter_Bench bench;
};

TEST_F(Values, ARowsValuesStandAsTheyAre) {
    EXPECT_TRUE(row("ROW_3", " 10 , x y"));
    EXPECT_EQ(bench.cell(1, 3, 1).Value, " 10 ");
    EXPECT_EQ(bench.cell(1, 3, 2).Value, " x y");
}

TEST_F(Values, AShorterRowLeavesTheOthersAlone) {
    row("ROW_3", "1,2");
    row("ROW_3", "9");
    EXPECT_EQ(bench.cell(1, 3, 1).Value, "9");
    EXPECT_EQ(bench.cell(1, 3, 2).Value, "2");
    row("ROW_3", "");
    EXPECT_EQ(bench.cell(1, 3, 1).Value, "");
}

TEST_F(Values, MoreValuesThanColumnsRejectTheLineAfterThoseThatFit) {
    EXPECT_FALSE(row("ROW_3", "1,2,3,4"));
    EXPECT_EQ(bench.cell(1, 3, 1).Value, "1");
    EXPECT_EQ(bench.cell(1, 3, 2).Value, "2");
    EXPECT_FALSE(row("ROW_3", "1,2,")) << "an empty value is one too";
}

TEST_F(Values, ARowBeyondTheLastStoresNothingAndIsAccepted) {
    const std::string before = fieldText(bench.document, 1);
    EXPECT_TRUE(row("ROW_9", "1"));
    EXPECT_EQ(fieldText(bench.document, 1), before);
    EXPECT_FALSE(row("ROW_9", "1,2,3")) << "its values are counted all the same";
}

TEST_F(Values, AKeyWithoutANumberGoesToTheHeadings) {
    EXPECT_TRUE(row("ROW_", "Name"));
    EXPECT_EQ(bench.cell(1, 0, 1).Value, "Name");
    EXPECT_EQ(bench.failureOf("FIELD_#_DEFAULT", 1, "ROW_-1", "x"), 9);
}

TEST_F(Values, ARowOfAFieldWithoutASizeIsRejected) {
    EXPECT_FALSE(bench.line("FIELD_#_DEFAULT", 2, "ROW_1", "1"));
    EXPECT_EQ(bench.failureOf("FIELD_#_DEFAULT", 101, "ROW_1", "1"), 9);
}

TEST_F(Values, ATimeMayStandAsPlainSeconds) {
    EXPECT_EQ(stored(1, "90"), "1:30");
    EXPECT_EQ(stored(1, "5"), "0:05");
    EXPECT_EQ(stored(1, "3725"), "62:05");
    EXPECT_EQ(stored(1, " 61 "), "1:01");
    EXPECT_EQ(stored(1, "90.5"), "1:30") << "rounded, halves to even";
    EXPECT_EQ(stored(1, "1e2"), "1:40");
}

TEST_F(Values, ATimeWithAColonStandsAsItIs) {
    EXPECT_EQ(stored(1, "1:30"), "1:30");
    EXPECT_EQ(stored(1, " 1:3"), " 1:3");
    EXPECT_EQ(stored(1, "x:y"), "x:y");
}

TEST_F(Values, ATimeThatIsNoNumberIs0) {
    EXPECT_EQ(stored(1, "abc"), "0:00");
    EXPECT_EQ(stored(1, ""), "0:00");
    EXPECT_EQ(stored(1, "90s"), "0:00");
}

TEST_F(Values, NegativeSecondsHaveTheirSignInFrontOfTwoDigits) {
    EXPECT_EQ(stored(1, "-5"), "0:-05");
    EXPECT_EQ(stored(1, "-90"), "-1:-30");
}

TEST_F(Values, SecondsBeyond32BitsAreFailure6) {
    EXPECT_EQ(bench.failureOf("FIELD_#_DEFAULT", 1, "ROW_1", "99999999999"), 6);
}

TEST_F(Values, OnlyTheFormatTimeConvertsSeconds) {
    bench.cell(1, 3, 1).Format = "TIMESS";
    EXPECT_EQ(stored(3, "90"), "90");
    bench.cell(1, 3, 1).Format = "TIME ";
    EXPECT_EQ(stored(3, "90"), "90") << "the format isn't trimmed here";
}

TEST_F(Values, AListCellTakesATextOrItsCode) {
    EXPECT_EQ(stored(2, "On"), "1");
    EXPECT_EQ(stored(2, " slow "), "7");
    EXPECT_EQ(stored(2, "1"), "1");
    EXPECT_EQ(stored(2, "7.0"), "7");
}

TEST_F(Values, AListCellsUnknownTextOrCodeIs0) {
    EXPECT_EQ(stored(2, "5"), "0");
    EXPECT_EQ(stored(2, "Broken"), "0");
    EXPECT_EQ(stored(2, ""), "0");
}

TEST_F(Values, AListWinsOverTheFormatTime) {
    bench.cell(1, 2, 1).Format = "TIME";
    EXPECT_EQ(stored(2, "90"), "0");
}

// The upper grid's texts.

TEST_F(Values, TheUpperGridsTextsStandAsTheyAre) {
    EXPECT_TRUE(bench.line("CONFIGURATION_DEFAULT", "FIELD_2", ",Channel Setup, Yes "));
    EXPECT_EQ(fieldText(bench.document, 2), "Fields(2).Config_Values \"\" \"Channel Setup\" \" Yes \"\n");
}

TEST_F(Values, TheUpperGridEndsWithTheItemsOfTheLastLine) {
    bench.line("CONFIGURATION_DEFAULT", "FIELD_2", "a,b,c");
    bench.line("CONFIGURATION_DEFAULT", "FIELD_2", "d,e");
    EXPECT_EQ(fieldText(bench.document, 2), "Fields(2).Config_Values \"d\" \"e\"\n");
    bench.line("CONFIGURATION_DEFAULT", "field_2", "");
    EXPECT_EQ(fieldText(bench.document, 2), "Fields(2).Config_Values \"\"\n");
}

TEST_F(Values, TheUpperGridNeedsAFieldUpTo100) {
    EXPECT_EQ(bench.failureOf("CONFIGURATION_DEFAULT", 0, "FIELD_101", "x"), 9);
    EXPECT_EQ(bench.failureOf("CONFIGURATION_DEFAULT", 0, "FIELD_", "x"), 0);
    EXPECT_EQ(bench.document.Fields(0).Config_Values(1), "x");
}

// Colours.

TEST(Colors, EachKeySetsItsWordAsItStands) {
    Interpreter_Bench bench;
    bench.line("COLORS", "TXT_1_MODIFIABLEVALUES", "a");
    bench.line("COLORS", "TXT_2_EXCEPTIONCOMM", "b");
    bench.line("COLORS", "TXT_3_WRITTINGCOMM", " c ");
    bench.line("COLORS", "TXT_4_ERRORWRITTINGCOMM", "d");
    bench.line("COLORS", "txt_5_normal", "e");
    bench.line("COLORS", "BCKGRND_1_MODIFIABLEVALUES", "f");
    bench.line("COLORS", "BCKGRND_1_EXCEPTIONCOMM", "g");
    bench.line("COLORS", "BCKGRND_1_WRITTINGCOMM", "h");
    bench.line("COLORS", "BCKGRND_1_NORMAL", "");
    bench.line("COLORS", "BCKGRND_x_ERRORWRITTINGCOMM", "TEAL");
    EXPECT_EQ(documentText(bench.document), "Color_Txt_Modifiable \"a\"\n"
                                            "Color_Txt_Exception \"b\"\n"
                                            "Color_Txt_Writing \" c \"\n"
                                            "Color_Txt_Error \"d\"\n"
                                            "Color_Txt_Normal \"e\"\n"
                                            "Color_Back_Modifiable \"f\"\n"
                                            "Color_Back_Exception \"g\"\n"
                                            "Color_Back_Writing \"h\"\n"
                                            "Color_Back_Normal \"\"\n"
                                            "Color_Back_Error \"TEAL\"\n");
}

TEST(Colors, TheWellSpeltKeyIsNone) {
    Interpreter_Bench bench;
    EXPECT_TRUE(bench.line("COLORS", "TXT_1_WRITINGCOMM", "GREEN"));
    EXPECT_EQ(documentText(bench.document), "");
}

} // namespace
} // namespace zorvane
