// SPDX-License-Identifier: MIT
#include "cells/cell_reading.h"
#include "comm/main_form/testing/comm_bench.h"
#include "comm/transfer/registers_to_cells.h"
#include "values/run_time_failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// One field of one row; column 1 is the cell at work.
struct RegistersToCells : ::testing::Test, doubles::Comm_Bench {
    RegistersToCells() : field(addField(1, 1)), cell(field.Cells(1, 1)), definition(field.Cells(0, 1)) {}

    /// The cell's `Value` after applying a register value (0 to 65535) at its address 100.
    std::string applied(std::int32_t registerValue) {
        link.image[100] = registerValue;
        if (cell.Address.empty()) cell.Address = "100";
        PRO_Aplica_Registros(comm, 1);
        return cell.Value;
    }

    std::string appliedWithBits(const std::string& bits, std::int32_t registerValue) {
        definition.Bits_Negative_Format = bits;
        return applied(registerValue);
    }

    std::string appliedAs(const std::string& format, std::int32_t registerValue) {
        cell.Format = format;
        return applied(registerValue);
    }

    Field_Rec& field;
    Cell_Rec& cell;
    Cell_Rec& definition;
};

TEST_F(RegistersToCells, PlainCellIsSigned16Bits) {
    EXPECT_EQ(applied(120), "120");
    EXPECT_EQ(applied(65535), "-1");
    EXPECT_EQ(applied(32768), "-32768");
}

TEST_F(RegistersToCells, EightBitFormatTurns133IntoMinus5) {
    EXPECT_EQ(appliedWithBits("8", 133), "-5");
    EXPECT_EQ(appliedWithBits("8", 5), "5");
}

TEST_F(RegistersToCells, SignAndMagnitudeKeepsWhatLiesAboveItsSignBit) {
    EXPECT_EQ(appliedWithBits("8", 65535), "129"); // -1 has the bit 128: (-1 - 128) * -1
    EXPECT_EQ(appliedWithBits("15", 16389), "-5");
    EXPECT_EQ(appliedWithBits("1", 1), "0");
}

TEST_F(RegistersToCells, FormatOfNoBitsReadsUnsigned) {
    EXPECT_EQ(appliedWithBits("0", 65535), "65535");
    EXPECT_EQ(appliedWithBits("0", 0), "0");
    EXPECT_EQ(appliedWithBits("0", 7), "7");
}

TEST_F(RegistersToCells, FormatOf16BitsReadsSigned) {
    EXPECT_EQ(appliedWithBits("16", 65535), "-1");
    EXPECT_EQ(appliedWithBits(" 32 ", 32768), "-32768");
}

TEST_F(RegistersToCells, FormatThatIsNoNumberLeavesTheCellsOwnRules) {
    cell.Format = "NUMERIC_UNSIGNED";
    EXPECT_EQ(appliedWithBits("eight", 65535), "65535");
    EXPECT_EQ(appliedWithBits("  ", 65535), "65535");
}

TEST_F(RegistersToCells, NegativeFormatComesBeforeTextListAndFormat) {
    cell.Is_Ascii_Range = true;
    cell.Address_End = "100";
    readMessages(cell, "(0)Off,(1)On");
    cell.Format = "TIME";
    EXPECT_EQ(appliedWithBits("16", 90), "90");
}

TEST_F(RegistersToCells, AsciiRangeComesBeforeListAndFormat) {
    cell.Address = "100";
    cell.Address_End = "102";
    cell.Is_Ascii_Range = true;
    readMessages(cell, "(0)Off");
    cell.Format = "TIME";
    link.image[101] = 0x4300;
    link.image[102] = 0;
    EXPECT_EQ(applied(0x4142), "ABC---");
}

TEST_F(RegistersToCells, ListCellKeepsTheCodeAndTheGridShowsItsText) {
    readMessages(cell, "(0)Off,(1)On");
    cell.Format = "TIME";
    EXPECT_EQ(applied(1), "1");
    EXPECT_EQ(mainForm.grid.text(1, 0), "On");
    EXPECT_EQ(applied(65535), "-1");
    EXPECT_EQ(mainForm.grid.text(1, 0), "");
}

TEST_F(RegistersToCells, ListCellOfAFieldThatIsNotShownLeavesTheGrid) {
    readMessages(cell, "(0)Off,(1)On");
    mainForm.grid.upperRow = 2;
    EXPECT_EQ(applied(1), "1");
    EXPECT_THAT(journal.beginningWith("FLX_Settings("), IsEmpty());
}

TEST_F(RegistersToCells, FormatsOfTime) {
    EXPECT_EQ(appliedAs("TIME", 3725), "62:05");
    EXPECT_EQ(appliedAs(" time ", 59), "0:59");
    EXPECT_EQ(appliedAs("TIMEMM", 3725), "62");
    EXPECT_EQ(appliedAs("TIMESS", 3725), "05");
    EXPECT_EQ(appliedAs("timess", 65531), "-05");
}

TEST_F(RegistersToCells, UnsignedFormatReadsTo65535) {
    EXPECT_EQ(appliedAs("NUMERIC_UNSIGNED", 65535), "65535");
    EXPECT_EQ(appliedAs("anything", 65535), "-1");
}

TEST_F(RegistersToCells, HalvesOfARegister) {
    cell.Address = "100/HI";
    EXPECT_EQ(applied(0x1234), "18");
    cell.Address = "100/LO";
    EXPECT_EQ(applied(0x1234), "52");
}

TEST_F(RegistersToCells, HighHalfIsCutTowardZeroAndThenMasked) {
    cell.Address = "100/HI";
    EXPECT_EQ(applied(0x8000), "128"); // -32768 \ 256 = -128, And 255 = 128
    EXPECT_EQ(applied(0xFF01), "0");   // -255 \ 256 = 0
    EXPECT_EQ(applied(0xFE01), "255"); // -511 \ 256 = -1
}

TEST_F(RegistersToCells, HalfOfAListCellKeepsTheCodeAndTheGridShowsItsText) {
    cell.Address = "100/HI";
    readMessages(cell, "(0)Off,(5)Auto");
    EXPECT_EQ(applied(0x0534), "5");
    EXPECT_EQ(mainForm.grid.text(1, 0), "Auto");
}

TEST_F(RegistersToCells, CellsWithoutARegisterKeepTheirValue) {
    for (const char* address : {"", "abc", "abc/HI", "100/hi", "100/HI "}) {
        cell.Address = address;
        cell.Value = "kept";
        PRO_Aplica_Registros(comm, 1);
        EXPECT_EQ(cell.Value, "kept") << address;
    }
}

TEST_F(RegistersToCells, HeadingsAndTheRowNumbersAreLeftAlone) {
    definition.Address = "100";
    definition.Value = "Heading";
    field.Cells(1, 0).Address = "100";
    field.Cells(1, 0).Value = "1.";
    cell.Address = "101";
    PRO_Aplica_Registros(comm, 1);
    EXPECT_EQ(definition.Value, "Heading");
    EXPECT_EQ(field.Cells(1, 0).Value, "1.");
}

TEST_F(RegistersToCells, GridIsNotRepaintedMeanwhile) {
    readMessages(cell, "(1)On");
    applied(1);
    EXPECT_THAT(journal.lines(), ElementsAre("FLX_Settings redraw off", "FLX_Settings(1,0) = \"On\"",
                                             "FLX_Settings redraw on"));
}

TEST_F(RegistersToCells, ListFlaggedWithoutAListIsFailure9AndTheGridPaintsAgain) {
    cell.Has_Messages = true;
    EXPECT_THROW(applied(1), Run_Time_Failure);
    EXPECT_THAT(journal.lines(), ElementsAre("FLX_Settings redraw off", "FLX_Settings redraw on"));
}

TEST_F(RegistersToCells, FieldWithoutATableHasNoCells) {
    document.Fields(2).Description = "empty";
    EXPECT_NO_THROW(PRO_Aplica_Registros(comm, 2));
}

TEST_F(RegistersToCells, FieldWithoutColumnsHasNoCells) {
    addField(2, 0);
    EXPECT_NO_THROW(PRO_Aplica_Registros(comm, 2));
}

TEST_F(RegistersToCells, AddressBeyond32BitsIsFailure6) {
    cell.Address = "10000000000";
    try {
        PRO_Aplica_Registros(comm, 1);
        FAIL();
    } catch (const Run_Time_Failure& failure) {
        EXPECT_EQ(failure.number(), 6);
    }
}

TEST_F(RegistersToCells, GoesColumnByColumnUntilAFailure) {
    Field_Rec& table = addField(2, 2);
    table.Cells(1, 1).Address = "100";
    table.Cells(2, 1).Address = "101";
    table.Cells(1, 2).Address = "10000000000";
    link.image = {{100, 1}, {101, 2}};
    EXPECT_THROW(PRO_Aplica_Registros(comm, 2), Run_Time_Failure);
    EXPECT_EQ(table.Cells(1, 1).Value, "1") << "what came before the failure stays";
    EXPECT_EQ(table.Cells(2, 1).Value, "2") << "the first column was done before the second began";
}

TEST_F(RegistersToCells, AsciiRangeBeyondTheAddressSpaceIsFailure6AndNoLongWait) {
    cell.Address = "1";
    cell.Address_End = "2000000000";
    cell.Is_Ascii_Range = true;
    EXPECT_THROW(PRO_Aplica_Registros(comm, 1), Run_Time_Failure);
}

TEST_F(RegistersToCells, AsciiRangeThatRunsBackwardsIsEmpty) {
    cell.Address_End = "99";
    cell.Is_Ascii_Range = true;
    cell.Value = "old";
    EXPECT_EQ(applied(0x4142), "");
}

TEST(LeeAscii, EmptyBytesShowAsDashes) {
    doubles::Comm_Bench bench;
    bench.link.image = {{1, 0x4142}, {2, 0x4100}, {3, 0}, {4, 0x0041}};
    std::string text = "before";
    PRO_Lee_Ascii(bench.comm.image(), 1, 4, text);
    EXPECT_EQ(text, "ABA----A");
}

} // namespace
} // namespace zorvane
