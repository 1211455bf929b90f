// SPDX-License-Identifier: MIT
#include "comm/main_form/testing/comm_bench.h"
#include "comm/transfer/requests/ascii_block.h"
#include "values/run_time_failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct AsciiBlock : ::testing::Test, doubles::Comm_Bench {
    AsciiBlock() : cell(addField(1, 2).Cells(1, 2)) {
        cell.Address = "100";
        cell.Address_End = "103";
        cell.Is_Ascii_Range = true;
    }

    bool fails(const std::string& text) {
        bool failed = false;
        PRO_Escribe_Bloque_Ascii(comm, text, 1, 2, 1, "", failed);
        return failed;
    }

    Cell_Rec& cell;
};

TEST_F(AsciiBlock, ShortTextIsFilledWithBlanks) {
    EXPECT_FALSE(fails("ABC"));
    EXPECT_THAT(journal.lines(),
                ElementsAre("FLX_Settings tab stop off",
                            "link PresetMultipleRegisters 7 100 [16706 17184 8224 8224]", "wait 500 ms",
                            "panel 4 = \"Writing ascii block: 100-103 @ABC ...Completed\"",
                            "FLX_Settings tab stop on"));
}

TEST_F(AsciiBlock, LongTextIsCutAtTheEndOfTheRange) {
    cell.Address_End = "100";
    fails("ABCD\x80");
    EXPECT_THAT(journal.beginningWith("link"), ElementsAre("link PresetMultipleRegisters 7 100 [16706]"));
}

TEST_F(AsciiBlock, CharacterOf128OrMoreIsFailure6AndNothingGoesOut) {
    for (const char* text : {"\x80", "A\xE9"}) {
        journal.clear();
        try {
            fails(text);
            ADD_FAILURE();
        } catch (const Run_Time_Failure& failure) {
            EXPECT_EQ(failure.number(), 6);
        }
        EXPECT_THAT(journal.lines(), ElementsAre("FLX_Settings tab stop off", "FLX_Settings tab stop on"));
    }
}

TEST_F(AsciiBlock, FailedWriteSaysSo) {
    link.writes = {{{.good = false}, {.good = false}}};
    EXPECT_TRUE(fails("ABC"));
    EXPECT_EQ(mainForm.panel(Panel::Message), "Writing ascii block: 100-103 @ABC ...Failed");
}

TEST_F(AsciiBlock, WaitsForAnEarlierWriteFirst) {
    link.writes = {{{.before = [this] { journal.add("earlier write ends"); }}},
                   {{.before = [this] { journal.add("this write ends"); }}}};
    link.PresetSingleRegister(0, 1, 1);
    fails("A");
    EXPECT_THAT(journal.lines(),
                ElementsAre("link PresetSingleRegister 0 1 1", "FLX_Settings tab stop off",
                            "earlier write ends", "link PresetMultipleRegisters 7 100 [16672 8224 8224 8224]",
                            "this write ends", "wait 500 ms",
                            "panel 4 = \"Writing ascii block: 100-103 @A ...Completed\"",
                            "FLX_Settings tab stop on"));
}

TEST_F(AsciiBlock, AWriteWhoseDocumentIsGoneFailedAndSaysNothing) {
    link.writes = {{{.before = [this] { PRO_Limpia_Modelo(document); }}}};
    bool failed = false;
    PRO_Escribe_Bloque_Ascii(comm, "ABC", 1, 1, 1, "", failed);
    EXPECT_TRUE(failed);
    EXPECT_EQ(mainForm.panel(Panel::Message), "");
}

TEST_F(AsciiBlock, BoardFamilyWritesTheWholeAsciiBlock) {
    document.Controller_Model = "R7702-64";
    addDownloadBlock("90", "120", 0);
    addDownloadBlock("99", "101", 2);
    fails("ABCDEF");
    EXPECT_THAT(journal.beginningWith("link"),
                ElementsAre("link PresetMultipleRegisters 7 99 [16706 17220 17734]"));
    EXPECT_EQ(mainForm.panel(Panel::Message), "Writing ascii block: 99-101 @ABCDEF ...Completed");
}

TEST_F(AsciiBlock, BoardCellInNoAsciiBlockIsFailure13) {
    document.Controller_Model = "R7702-16";
    addDownloadBlock("200", "210", 2);
    try {
        fails("A");
        FAIL();
    } catch (const Run_Time_Failure& failure) {
        EXPECT_EQ(failure.number(), 13);
    }
    EXPECT_THAT(journal.beginningWith("link"), IsEmpty());
}

TEST_F(AsciiBlock, RangeWithoutARegisterIsFailure9) {
    cell.Address_End = "99";
    EXPECT_THROW(fails("A"), Run_Time_Failure);
}

TEST(FillTo16, AppendsBlanksOrLeavesALongerText) {
    std::string text = "ABC";
    std::string result;
    PRO_Rellena_16(text, result);
    EXPECT_EQ(result, "ABC             ");
    EXPECT_EQ(text, result);
    text = "ABCDEFGHIJKLMNOPQ";
    PRO_Rellena_16(text, result);
    EXPECT_EQ(result, "ABCDEFGHIJKLMNOPQ");
    EXPECT_EQ(filledTo16(""), std::string(16, ' '));
    EXPECT_EQ(filledTo16("ABCDEFGHIJKLMNO"), "ABCDEFGHIJKLMNO ");
    EXPECT_EQ(filledTo16("ABCDEFGHIJKLMNOP"), "ABCDEFGHIJKLMNOP");
}

} // namespace
} // namespace zorvane
