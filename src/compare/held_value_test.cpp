// SPDX-License-Identifier: MIT
#include "compare/held_value.h"

#include <gtest/gtest.h>

namespace zorvane::compare {
namespace {

/// A cell with a register, and that of its column.
struct Cell_And_Column {
    Cell_Rec column;
    Cell_Rec cell;
};

std::string held(const Cell_And_Column& at) {
    const auto registers = heldOf(at.column, at.cell);
    if (!registers) return "none";
    std::string text;
    for (const std::int32_t each : *registers)
        text += (text.empty() ? "" : " ") + std::to_string(each);
    return text;
}

std::string heldOfValue(const std::string& value, const std::string& address = "100",
                        const std::string& format = "") {
    Cell_And_Column at;
    at.cell.Address = address;
    at.cell.Format = format;
    at.cell.Value = value;
    return held(at);
}

TEST(HeldValue, ANumberIsItsRegister) {
    EXPECT_EQ(heldOfValue("0"), "0");
    EXPECT_EQ(heldOfValue("65535"), "65535");
    EXPECT_EQ(heldOfValue("65536"), "none");
    EXPECT_EQ(heldOfValue("-1"), "65535");
    EXPECT_EQ(heldOfValue("-32768"), "32768");
    EXPECT_EQ(heldOfValue("-32769"), "none");
    EXPECT_EQ(heldOfValue("7", ""), "none") << "there is no register";
}

TEST(HeldValue, AHalfOfARegisterIsAByte) {
    EXPECT_EQ(heldOfValue("255", "100/HI"), "255");
    EXPECT_EQ(heldOfValue("256", "100/LO"), "none");
    EXPECT_EQ(heldOfValue("-1", "100/LO"), "none");
}

TEST(HeldValue, ATimeIsItsSeconds) {
    EXPECT_EQ(heldOfValue("1:30", "100", "TIME"), "90");
    EXPECT_EQ(heldOfValue("1092:15", "100", "TIME"), "65535");
    EXPECT_EQ(heldOfValue("1092:16", "100", "TIME"), "none");
    EXPECT_EQ(heldOfValue("3", "100", "TIMEMM"), "3");
}

TEST(HeldValue, ATextFillsItsRegistersWithBlanksAndIsCut) {
    Cell_And_Column at;
    at.cell.Address = "100";
    at.cell.Address_End = "101";
    at.cell.Is_Ascii_Range = true;
    at.cell.Value = "ABC";
    EXPECT_EQ(held(at), std::to_string(0x4142) + " " + std::to_string(0x4320));
    at.cell.Value = "ABCDE";
    EXPECT_EQ(held(at), std::to_string(0x4142) + " " + std::to_string(0x4344));
}

} // namespace
} // namespace zorvane::compare
