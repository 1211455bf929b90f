// SPDX-License-Identifier: MIT
#include "cells/cell_reading.h"
#include "comm/modbus_control/testing/journal.h"
#include "comm/modbus_control/testing/scripted_link.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

struct CellReading : ::testing::Test {
    CellReading() { cell.Address = "100"; }

    void holds(std::int32_t value) { link.image[100] = value; }
    [[nodiscard]] std::string transferred() const {
        const auto reading = readCell(definition, cell, Register_Image(link, 3));
        return reading ? reading->shown() + (reading->kept ? "" : ", not kept") : "nothing";
    }
    [[nodiscard]] std::string displayed() const {
        const auto reading = displayedCell(cell, Register_Image(link, 3));
        return reading ? reading->shown() + (reading->kept ? "" : ", not kept") : "nothing";
    }

    doubles::Journal journal;
    doubles::Scripted_Link link{journal};
    Cell_Rec definition;
    Cell_Rec cell;
};

TEST_F(CellReading, DisplayShowsAPlainNumberAndKeepsItNot) {
    holds(0xFFFB);
    EXPECT_EQ(transferred(), "-5");
    EXPECT_EQ(displayed(), "-5, not kept");
}

TEST_F(CellReading, DisplayShowsCharactersAndKeepsThemNot) {
    cell.Is_Ascii_Range = true;
    cell.Address_End = "101";
    holds(0x4142);
    EXPECT_EQ(transferred(), "AB--");
    EXPECT_EQ(displayed(), "AB--, not kept");
}

TEST_F(CellReading, DisplayKeepsWhatAFormatMakesOfARegister) {
    holds(3725);
    cell.Format = "TIME";
    EXPECT_EQ(displayed(), "62:05");
    cell.Format = " timess ";
    EXPECT_EQ(displayed(), "05");
    cell.Format = "TIMEMM";
    EXPECT_EQ(displayed(), "62");
    holds(0xFFFB);
    cell.Format = "NUMERIC_UNSIGNED";
    EXPECT_EQ(displayed(), "65531");
}

TEST_F(CellReading, TransferAsksForTheColumnsNegativeFormatFirst) {
    definition.Bits_Negative_Format = "8";
    cell.Format = "TIME";
    holds(133);
    EXPECT_EQ(transferred(), "-5");
    EXPECT_EQ(displayed(), "2:13");
}

TEST_F(CellReading, HalfOfARegisterHasNoNegativeFormat) {
    definition.Bits_Negative_Format = "8";
    cell.Address = "100/LO";
    holds(133);
    EXPECT_EQ(transferred(), "133");
}

TEST_F(CellReading, HighHalfHasASignOnTheDisplayOnly) {
    cell.Address = "100/HI";
    holds(0x8034);
    EXPECT_EQ(transferred(), "129");
    EXPECT_EQ(displayed(), "-127");
    cell.Address = "100/LO";
    EXPECT_EQ(transferred(), "52");
    EXPECT_EQ(displayed(), "52");
}

TEST_F(CellReading, CodeIsShownByItsTextAndKeptAsItsNumber) {
    cell.Has_Messages = true;
    cell.Messages.redim(1);
    cell.Messages(1) = {5, "On"};
    holds(5);
    const auto reading = displayedCell(cell, Register_Image(link, 3));
    ASSERT_TRUE(reading);
    EXPECT_EQ(reading->value, "5");
    EXPECT_EQ(reading->message, "On");
    EXPECT_TRUE(reading->kept);
}

TEST_F(CellReading, AddressOfNoKnownFormReadsNothing) {
    for (const char* const address : {"", "none", "100/hi", "x/LO"}) {
        cell.Address = address;
        EXPECT_EQ(transferred(), "nothing") << address;
        EXPECT_EQ(displayed(), "nothing") << address;
        EXPECT_EQ(cellRegisters(definition, cell), std::nullopt) << address;
    }
}

TEST_F(CellReading, RegistersOfARangeAreAllOfItUnlessTheColumnHasANegativeFormat) {
    cell.Is_Ascii_Range = true;
    cell.Address_End = "104";
    const auto whole = cellRegisters(definition, cell);
    ASSERT_TRUE(whole);
    EXPECT_EQ(whole->first, 100);
    EXPECT_EQ(whole->last, 104);
    definition.Bits_Negative_Format = "8";
    const auto first = cellRegisters(definition, cell);
    ASSERT_TRUE(first);
    EXPECT_EQ(first->last, 100);
}

} // namespace
} // namespace zorvane
