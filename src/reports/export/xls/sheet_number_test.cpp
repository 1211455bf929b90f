// SPDX-License-Identifier: MIT
#include "reports/export/xls/sheet_number.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

/// "value format", or "text".
std::string taken(const std::string& text) {
    const auto number = sheetNumber(text);
    if (!number) return "text";
    return std::to_string(number->value) + " " + number->format;
}

TEST(SheetNumber, TakesNumbersWithTheFormTheyHave) {
    EXPECT_EQ(taken("0"), "0.000000 ");
    EXPECT_EQ(taken("-40"), "-40.000000 ");
    EXPECT_EQ(taken("1500"), "1500.000000 ");
    EXPECT_EQ(taken("1.50"), "1.500000 0.00");
    EXPECT_EQ(taken("0.5"), "0.500000 0.0");
    EXPECT_EQ(taken("007"), "7.000000 000");
    EXPECT_EQ(taken("-01.20"), "-1.200000 00.00");
}

TEST(SheetNumber, ASignAndAMissingDigitAreShown) {
    EXPECT_EQ(taken("+49"), "49.000000 +0;-0");
    EXPECT_EQ(taken("+1.50"), "1.500000 +0.00;-0.00");
    EXPECT_EQ(taken("+0"), "0.000000 +0;-0");
    EXPECT_EQ(taken("-0"), "0.000000 0;-0;-0");
    EXPECT_EQ(taken("-0.0"), "0.000000 0.0;-0.0;-0.0");
    EXPECT_EQ(taken(".5"), "0.500000 #.0");
    EXPECT_EQ(taken("-.5"), "-0.500000 #.0");
    EXPECT_EQ(taken("5."), "5.000000 0.");
    EXPECT_EQ(taken(" 5 "), "5.000000 ");
}

TEST(SheetNumber, ALongWholeNumberGetsNoExponent) {
    EXPECT_EQ(taken("12345678901"), "12345678901.000000 ");
    EXPECT_EQ(taken("123456789012"), "123456789012.000000 0");
}

TEST(SheetNumber, AnExponentStaysText) {
    for (const char* text : {"1e5", "1E+05", "12d3", "-1.5e-3", "1e999"})
        EXPECT_EQ(taken(text), "text") << text;
}

TEST(SheetNumber, LeavesTextsAlone) {
    for (const char* text : {"", " ", "=1+1", "+x", "-", "@a", "0:45", "12abc", "1,5", "1e999"})
        EXPECT_EQ(taken(text), "text") << text;
}

TEST(SheetNumber, LeavesNumbersThatWouldLoseDigits) {
    EXPECT_EQ(taken("123456789012345"), "123456789012345.000000 0");
    EXPECT_EQ(taken("1234567890123456"), "text");
    EXPECT_EQ(taken("0.1234567890123456"), "text");
}

TEST(SheetNumber, LeavesNumbersWithMoreZerosThanAFormatHasRoomFor) {
    EXPECT_EQ(taken("0." + std::string(253, '0')), "0.000000 0." + std::string(253, '0'));
    EXPECT_EQ(taken("0." + std::string(254, '0')), "text");
    EXPECT_EQ(taken(std::string(256, '0')), "text");
}

} // namespace
} // namespace zorvane
