// SPDX-License-Identifier: MIT
#include "template/testing/interpreter_bench.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::fieldText;
using doubles::Interpreter_Bench;

/// A bench whose field 1 has 3 rows and 3 columns.
struct Cells : testing::Test {
    Cells() { bench.makeField(1, "3,3"); }

    bool configure(std::string_view key, std::string_view value) {
        return bench.line("FIELD_#_CONFIGURATION", 1, key, value);
    }
    [[nodiscard]] int failureOf(std::string_view key, std::string_view value) {
        return bench.failureOf("FIELD_#_CONFIGURATION", 1, key, value);
    }
    bool messages(std::string_view key, std::string_view value) {
        return bench.line("FIELD_#_MESSAGES", 1, key, value);
    }
    [[nodiscard]] std::string text(std::int32_t row, std::int32_t column) const {
        return bench.cellTextOf(1, row, column);
    }

    Interpreter_Bench bench;
};

TEST_F(Cells, AddressesStandAsTheyAreAndMayBeEmpty) {
    configure("ROWADDRESS_1", "100,,102");
    EXPECT_EQ(text(1, 1), R"(Address "100")");
    EXPECT_EQ(text(1, 2), "") << "a cell without a register";
    EXPECT_EQ(text(1, 3), R"(Address "102")");
    configure("rowaddress_2", " 100/HI , 100/lo");
    EXPECT_EQ(text(2, 1), R"(Address " 100/HI ")");
    EXPECT_EQ(text(2, 2), R"(Address " 100/lo")");
}

TEST_F(Cells, NoLineIsRejected) {
    for (const char* key : {"ROWADDRESS_1", "ROWASCIIRANGE_1", "ROWADDRESSNUMERICMAXVALUE_1",
                            "ROWADDRESSFORMAT_1", "UNKNOWN_1"})
        EXPECT_TRUE(configure(key, "100,101")) << key;
    for (const char* key : {"ADDRESS_100", "ADDRESS_999", "UNKNOWN_1"})
        EXPECT_TRUE(messages(key, "(0)Off")) << key;
}

TEST_F(Cells, AShorterListLeavesTheOtherColumnsAlone) {
    configure("ROWADDRESS_1", "100,101,102");
    configure("ROWADDRESS_1", "200");
    EXPECT_EQ(fieldText(bench.document, 1), "Fields(1) Rows 3, Columns 3\n"
                                            "Fields(1).Cells(1,1) Address \"200\"\n"
                                            "Fields(1).Cells(1,2) Address \"101\"\n"
                                            "Fields(1).Cells(1,3) Address \"102\"\n");
}

TEST_F(Cells, AnEmptyListSetsColumn1) {
    configure("ROWADDRESS_1", "100,101");
    configure("ROWADDRESS_1", "");
    EXPECT_EQ(text(1, 1), "");
    EXPECT_EQ(text(1, 2), R"(Address "101")");
}

TEST_F(Cells, AnItemBeyondTheLastColumnIsFailure9AfterTheOthersAreStored) {
    EXPECT_EQ(failureOf("ROWADDRESS_1", "1,2,3,4"), 9);
    EXPECT_EQ(text(1, 3), R"(Address "3")");
    EXPECT_EQ(failureOf("ROWADDRESS_1", "1,2,3,"), 9) << "an empty item is one too";
}

TEST_F(Cells, ARowOrFieldThatIsntThereIsFailure9) {
    EXPECT_EQ(failureOf("ROWADDRESS_4", "1"), 9);
    EXPECT_EQ(failureOf("ROWADDRESS_-1", "1"), 9);
    EXPECT_EQ(bench.failureOf("FIELD_#_CONFIGURATION", 2, "ROWADDRESS_1", "1"), 9) << "no size yet";
    EXPECT_EQ(bench.failureOf("FIELD_#_CONFIGURATION", 101, "ROWADDRESS_1", "1"), 9);
}

TEST_F(Cells, AKeyWithoutANumberGoesToRow0) {
    configure("ROWADDRESS_", "7");
    EXPECT_EQ(text(0, 1), R"(Address "7")");
}

TEST_F(Cells, AnAsciiRangeHasTwoAddresses) {
    configure("ROWASCIIRANGE_1", "200-207, 210 - 212 ,1-2-3");
    EXPECT_EQ(text(1, 1), R"(Address "200", Address_End "207", Is_Ascii_Range)");
    EXPECT_EQ(text(1, 2), R"(Address " 210 ", Address_End " 212 ", Is_Ascii_Range)");
    EXPECT_EQ(text(1, 3), R"(Address "1", Address_End "2-3", Is_Ascii_Range)");
}

TEST_F(Cells, AnAsciiRangeWithoutADashChangesTheAddressAlone) {
    configure("ROWASCIIRANGE_1", "200");
    EXPECT_EQ(text(1, 1), R"(Address "200")");
    configure("ROWASCIIRANGE_1", "200-207");
    configure("ROWASCIIRANGE_1", "300");
    EXPECT_EQ(text(1, 1), R"(Address "300", Address_End "207", Is_Ascii_Range)")
        << "once a range, always one";
}

TEST_F(Cells, NumericLimitsAreKeptAsTheyStandOrTakeTheirDefaults) {
    configure("ROWADDRESSNUMERICMAXVALUE_1", "abc,, 12.5 ");
    configure("ROWADDRESSNUMERICMINVALUE_1", "12a,-5,1e2");
    EXPECT_EQ(text(1, 1), R"(Min_Value "-32768", Max_Value "32767")");
    EXPECT_EQ(text(1, 2), R"(Min_Value "-5", Max_Value "32767")");
    EXPECT_EQ(text(1, 3), R"(Min_Value "1e2", Max_Value " 12.5 ")");
}

TEST_F(Cells, ABlankLimitIsNoNumber) {
    configure("ROWADDRESSNUMERICMAXVALUE_1", "   ,1");
    EXPECT_EQ(text(1, 1), R"(Max_Value "32767")");
}

TEST_F(Cells, TimeLimitsAreSecondsOr0) {
    configure("ROWADDRESSTIMEMINVALUE_1", "1:30,90,x:1");
    configure("ROWADDRESSTIMEMAXVALUE_1", "10:05,,abc");
    EXPECT_EQ(text(1, 1), R"(Min_Value "90", Max_Value "605")");
    EXPECT_EQ(text(1, 2), R"(Min_Value "0", Max_Value "0")") << "a time needs a colon";
    EXPECT_EQ(text(1, 3), R"(Min_Value "0", Max_Value "0")") << "on the last item too";
}

TEST_F(Cells, ATimeLimitBeyond32BitsIsFailure6) {
    EXPECT_EQ(failureOf("ROWADDRESSTIMEMAXVALUE_1", "99999999:00"), 6);
}

TEST_F(Cells, FormatsAreTrimmedAndKeepTheirLetterCase) {
    configure("ROWADDRESSFORMAT_1", " Time , numeric_unsigned ,");
    EXPECT_EQ(text(1, 1), R"(Format "Time")");
    EXPECT_EQ(text(1, 2), R"(Format "numeric_unsigned")");
    EXPECT_EQ(text(1, 3), "");
}

// Lists.

TEST_F(Cells, EveryCellAtTheAddressGetsTheList) {
    configure("ROWADDRESS_1", "100,101,100/HI");
    configure("ROWADDRESS_2", "100/LO,100/lo,1000");
    configure("ROWADDRESS_3", " 100,100,100/HI/LO");
    EXPECT_TRUE(messages("ADDRESS_100", "(0)Off,(1)On"));
    const std::string list = R"(, Has_Messages, Messages 0="Off" 1="On")";
    EXPECT_EQ(fieldText(bench.document, 1), "Fields(1) Rows 3, Columns 3\n"
                                            "Fields(1).Cells(1,1) Address \"100\"" +
                                                list +
                                                "\n"
                                                "Fields(1).Cells(1,2) Address \"101\"\n"
                                                "Fields(1).Cells(1,3) Address \"100/HI\"" +
                                                list +
                                                "\n"
                                                "Fields(1).Cells(2,1) Address \"100/LO\"" +
                                                list +
                                                "\n"
                                                "Fields(1).Cells(2,2) Address \"100/lo\"\n"
                                                "Fields(1).Cells(2,3) Address \"1000\"\n"
                                                "Fields(1).Cells(3,1) Address \" 100\"\n"
                                                "Fields(1).Cells(3,2) Address \"100\"" +
                                                list +
                                                "\n"
                                                "Fields(1).Cells(3,3) Address \"100/HI/LO\"\n");
}

TEST_F(Cells, EachCellHasItsOwnCopyOfTheList) {
    configure("ROWADDRESS_1", "100,100");
    messages("ADDRESS_100", "(0)Off");
    bench.cell(1, 1, 1).Messages(1).Text = "changed";
    EXPECT_EQ(bench.cell(1, 1, 2).Messages(1).Text, "Off");
}

TEST_F(Cells, AListOnceGivenIsKept) {
    configure("ROWADDRESS_1", "100");
    messages("ADDRESS_100", "(0)Off");
    messages("ADDRESS_100", "(0)Closed");
    EXPECT_EQ(text(1, 1), R"(Address "100", Has_Messages, Messages 0="Off")");
    configure("ROWADDRESS_2", "100");
    messages("ADDRESS_100", "(0)Closed");
    EXPECT_EQ(text(2, 1), R"(Address "100", Has_Messages, Messages 0="Closed")")
        << "a later cell takes the later one";
}

TEST_F(Cells, ACellWhoseAddressChangedIsFoundUnderTheNewOne) {
    configure("ROWADDRESS_1", "100");
    messages("ADDRESS_1", "(0)Off");
    configure("ROWADDRESS_1", "200");
    messages("ADDRESS_100", "(0)Old");
    messages("ADDRESS_200", "(0)New");
    EXPECT_EQ(text(1, 1), R"(Address "200", Has_Messages, Messages 0="New")");
    bench.cell(1, 2, 1).Address = "300";
    messages("ADDRESS_300", "(0)Direct");
    EXPECT_EQ(text(2, 1), R"(Address "300", Has_Messages, Messages 0="Direct")");
}

TEST_F(Cells, AListForARepeatedSizeGoesToTheNewTable) {
    configure("ROWADDRESS_1", "100");
    messages("ADDRESS_100", "(0)Off");
    bench.makeField(1, "3,3");
    messages("ADDRESS_100", "(0)Off");
    EXPECT_EQ(text(1, 1), "");
    configure("ROWADDRESS_2", "100");
    messages("ADDRESS_100", "(0)On");
    EXPECT_EQ(text(2, 1), R"(Address "100", Has_Messages, Messages 0="On")");
}

TEST_F(Cells, AListForAnAddressThatNoCellHasIsDropped) {
    configure("ROWADDRESS_1", "100");
    EXPECT_TRUE(messages("ADDRESS_101", "(0)Off"));
    EXPECT_EQ(text(1, 1), R"(Address "100")");
}

TEST_F(Cells, ListsStayWithinTheirField) {
    bench.makeField(2, "1,1");
    bench.line("FIELD_#_CONFIGURATION", 2, "ROWADDRESS_1", "100");
    messages("ADDRESS_100", "(0)Off");
    EXPECT_EQ(bench.cellTextOf(2, 1, 1), R"(Address "100")");
}

TEST_F(Cells, TheAddressIsComparedAsTheTextOfTheKeysNumber) {
    configure("ROWADDRESS_1", "100,0100,12");
    messages("ADDRESS_0100", "(0)Off");
    EXPECT_EQ(text(1, 1), R"(Address "100", Has_Messages, Messages 0="Off")");
    EXPECT_EQ(text(1, 2), R"(Address "0100")");
    messages("ADDRESS_12.4", "(0)Off");
    EXPECT_EQ(text(1, 3), R"(Address "12", Has_Messages, Messages 0="Off")");
}

TEST_F(Cells, TheDefinitionRowAndColumn0TakePartInTheSearch) {
    bench.cell(1, 0, 1).Address = "100";
    bench.cell(1, 2, 0).Address = "100";
    messages("ADDRESS_100", "(0)Off");
    EXPECT_TRUE(bench.cell(1, 0, 1).Has_Messages);
    EXPECT_TRUE(bench.cell(1, 2, 0).Has_Messages);
}

TEST_F(Cells, ABrokenListItemFailsAtTheFirstCellAndLeavesTheOthers) {
    configure("ROWADDRESS_1", "100,100");
    EXPECT_EQ(bench.failureOf("FIELD_#_MESSAGES", 1, "ADDRESS_100", "(0)Off,)1(On"), 5);
    EXPECT_TRUE(bench.cell(1, 1, 1).Has_Messages);
    EXPECT_FALSE(bench.cell(1, 1, 2).Has_Messages);
}

TEST_F(Cells, TheSearchEndsAtTheRowsOfASizeThatWasRefusedHalfway) {
    configure("ROWADDRESS_1", "100");
    configure("ROWADDRESS_3", "100");
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_1_RC", "-1,1"), 9);
    EXPECT_TRUE(messages("ADDRESS_100", "(0)Off"));
    EXPECT_FALSE(bench.cell(1, 1, 1).Has_Messages) << "no rows left to search";
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_1_RC", "1,32768"), 6);
    EXPECT_TRUE(messages("ADDRESS_100", "(0)Off"));
    EXPECT_TRUE(bench.cell(1, 1, 1).Has_Messages);
    EXPECT_FALSE(bench.cell(1, 3, 1).Has_Messages) << "row 3 lies beyond the new size";
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_1_RC", "4,32768"), 6);
    EXPECT_EQ(bench.failureOf("FIELD_#_MESSAGES", 1, "ADDRESS_100", "(0)Off"), 9) << "the table has no row 4";
    EXPECT_TRUE(bench.cell(1, 3, 1).Has_Messages) << "but row 3 comes first";
}

TEST_F(Cells, ASizeWithoutRowsOrColumnsLeavesNothingToSearch) {
    configure("ROWADDRESS_1", "100");
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_1_RC", "3,-1"), 9);
    EXPECT_TRUE(messages("ADDRESS_100", "(0)Off"));
    EXPECT_FALSE(bench.cell(1, 1, 1).Has_Messages);
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_2_RC", "-1,3"), 9);
    EXPECT_TRUE(bench.line("FIELD_#_MESSAGES", 2, "ADDRESS_100", "(0)Off")) << "no table, and none is missed";
}

TEST_F(Cells, AListForAFieldThatIsntThereIsFailure9) {
    EXPECT_EQ(bench.failureOf("FIELD_#_MESSAGES", 101, "ADDRESS_1", "(0)Off"), 9);
    EXPECT_EQ(bench.failureOf("FIELD_#_MESSAGES", 2, "ADDRESS_1", "(0)Off"), 9) << "no size yet";
}

} // namespace
} // namespace zorvane
