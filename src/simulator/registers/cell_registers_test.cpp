// SPDX-License-Identifier: MIT
#include "simulator/registers/cell_registers.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace zorvane::simulator {
namespace {

Cell_Rec cellOf(std::string address, std::string value, std::string format = {}) {
    Cell_Rec cell;
    cell.Address = std::move(address);
    cell.Value = std::move(value);
    cell.Format = std::move(format);
    return cell;
}

Cell_Rec textCell(std::string first, std::string last, std::string text) {
    Cell_Rec cell = cellOf(std::move(first), std::move(text));
    cell.Address_End = std::move(last);
    cell.Is_Ascii_Range = true;
    return cell;
}

std::uint16_t encoded(const Cell_Rec& cell, const char* negativeFormat = "", std::uint16_t old = 0) {
    return encodedRegister(cell, negativeFormat, 0, old);
}

TEST(RegistersOf, APlainCellAndAHalfHaveOneRegister) {
    EXPECT_EQ(registersOf(cellOf("40123", "")), (Register_Span{40123, 40123}));
    EXPECT_EQ(registersOf(cellOf("40123/HI", "")), (Register_Span{40123, 40123}));
    EXPECT_EQ(registersOf(cellOf("40123/LO", "")), (Register_Span{40123, 40123}));
}

TEST(RegistersOf, ATextHasARange) {
    EXPECT_EQ(registersOf(textCell("200", "207", "")), (Register_Span{200, 207}));
    EXPECT_EQ(registersOf(textCell("207", "200", "")), std::nullopt);
    EXPECT_EQ(registersOf(textCell("200", "x", "")), std::nullopt);
}

TEST(RegistersOf, OtherAddressesNameNone) {
    for (const char* address : {"", "x", "12/hi", "12/", "/HI"})
        EXPECT_EQ(registersOf(cellOf(address, "1")), std::nullopt) << address;
}

TEST(EncodedRegister, OfANumberIsTwosComplement) {
    EXPECT_EQ(encoded(cellOf("1", "120")), 120);
    EXPECT_EQ(encoded(cellOf("1", "-5")), 65531);
    EXPECT_EQ(encoded(cellOf("1", "2.5")), 2);
    EXPECT_EQ(encoded(cellOf("1", "abc")), 0);
    EXPECT_EQ(encoded(cellOf("1", "1e99")), 0);
}

TEST(EncodedRegister, OfANegativeNumberFollowsTheColumn) {
    EXPECT_EQ(encoded(cellOf("1", "-5"), "8"), 133);
    EXPECT_EQ(encoded(cellOf("1", "5"), "8"), 5);
    EXPECT_EQ(encoded(cellOf("1", "-1"), "16"), 65535);
    EXPECT_EQ(encoded(cellOf("1", "-1"), "0"), 65535);
    EXPECT_EQ(encoded(cellOf("1", "-1"), "x"), 65535);
}

TEST(EncodedRegister, OfAnUnsignedNumber) {
    EXPECT_EQ(encoded(cellOf("1", "40000", "NUMERIC_UNSIGNED")), 40000);
}

TEST(EncodedRegister, OfATimeIsItsSeconds) {
    EXPECT_EQ(encoded(cellOf("1", "1:30", "TIME")), 90);
    EXPECT_EQ(encoded(cellOf("1", "62:05", " time ")), 3725);
    EXPECT_EQ(encoded(cellOf("1", "90", "TIME")), 0);
}

TEST(EncodedRegister, MinutesAndSecondsShareARegister) {
    const std::uint16_t minutes = encoded(cellOf("1", "10", "TIMEMM"), "", 0);
    EXPECT_EQ(minutes, 600);
    EXPECT_EQ(encoded(cellOf("1", "5", "TIMESS"), "", minutes), 605);
    EXPECT_EQ(encoded(cellOf("1", "10", "TIMEMM"), "", 5), 605);
}

TEST(EncodedRegister, OfAListIsItsCode) {
    Cell_Rec cell = cellOf("1", "4");
    cell.Has_Messages = true;
    EXPECT_EQ(encoded(cell), 4);
}

TEST(EncodedRegister, OfAHalfKeepsTheOtherHalf) {
    EXPECT_EQ(encoded(cellOf("1/HI", "18"), "", 0x5634), 0x1234);
    EXPECT_EQ(encoded(cellOf("1/LO", "52"), "", 0x1256), 0x1234);
    EXPECT_EQ(encoded(cellOf("1/HI", "255"), "", 0x0034), 0xFF34);
}

TEST(EncodedRegister, OfATextHoldsTwoCharactersAndBlanksBehindItsEnd) {
    const Cell_Rec cell = textCell("200", "202", "ABC");
    EXPECT_EQ(encodedRegister(cell, "", 0, 0), 0x4142);
    EXPECT_EQ(encodedRegister(cell, "", 1, 0), 0x4320);
    EXPECT_EQ(encodedRegister(cell, "", 2, 0), 0x2020);
}

TEST(LiveRangeOf, KeepsTheSignOfItsFormat) {
    EXPECT_EQ(liveRangeOf(cellOf("1", "1"), ""), (Live_Range{0x8000, {}}));
    EXPECT_EQ(liveRangeOf(cellOf("1", "1", "NUMERIC_UNSIGNED"), ""), (Live_Range{0, {}}));
    EXPECT_EQ(liveRangeOf(cellOf("1", "1"), "8"), (Live_Range{0xFF80, {}}));
}

TEST(LiveRangeOf, AListHasItsCodes) {
    Cell_Rec cell = cellOf("1", "1");
    cell.Has_Messages = true;
    cell.Messages.redim(2);
    cell.Messages(1).Code = 3;
    cell.Messages(2).Code = 8;
    EXPECT_EQ(liveRangeOf(cell, ""), (Live_Range{0x8000, {3, 8}}));
}

TEST(LiveRangeOf, TextsAndHalvesStandStill) {
    EXPECT_EQ(liveRangeOf(textCell("200", "207", "AB"), ""), std::nullopt);
    EXPECT_EQ(liveRangeOf(cellOf("1/HI", "1"), ""), std::nullopt);
}

} // namespace
} // namespace zorvane::simulator
