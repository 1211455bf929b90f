// SPDX-License-Identifier: MIT
#include "edit/plain_number.h"

#include <gtest/gtest.h>

namespace zorvane::edit {
namespace {

/// "text", "text|other" for two readings, and the sign that it proves after a blank.
std::string numberIn(std::string_view text) {
    const auto number = plainNumber(text);
    if (!number) return "no number";
    std::string out = number->text;
    if (!number->other.empty()) out += "|" + number->other;
    if (number->decimalSign != '\0') out += std::string(" ") + number->decimalSign;
    return out;
}

TEST(PlainNumber, WholeNumbersProveNoSign) {
    EXPECT_EQ(numberIn("1125"), "1125");
    EXPECT_EQ(numberIn(" -12 "), "-12");
    EXPECT_EQ(numberIn("+5"), "+5");
    EXPECT_EQ(numberIn("1e3"), "1e3");
    EXPECT_EQ(numberIn(""), "no number");
    EXPECT_EQ(numberIn("12a"), "no number");
    EXPECT_EQ(numberIn("1 234"), "no number");
}

TEST(PlainNumber, EitherDecimalSignIsRead) {
    EXPECT_EQ(numberIn("5.5"), "5.5 .");
    EXPECT_EQ(numberIn("5,5"), "5.5 ,");
    EXPECT_EQ(numberIn("-112,25"), "-112.25 ,");
    EXPECT_EQ(numberIn(",5"), ".5 ,");
    EXPECT_EQ(numberIn("1,0e3"), "1.0e3 ,");
    EXPECT_EQ(numberIn("1234,567"), "1234.567 ,") << "no group has four digits";
    EXPECT_EQ(numberIn("0,123"), "0.123 ,") << "no group begins with 0";
    EXPECT_EQ(numberIn("1,2345"), "1.2345 ,");
}

TEST(PlainNumber, ThreeDigitsBehindASignReadTwoWays) {
    EXPECT_EQ(numberIn("1,234"), "1.234|1234");
    EXPECT_EQ(numberIn("-12.345"), "-12.345|-12345");
    EXPECT_EQ(numberIn("999.000"), "999.000|999000");
}

TEST(PlainNumber, GroupsAreTakenWhereTheyCanBeNothingElse) {
    EXPECT_EQ(numberIn("1,234.5"), "1234.5 .");
    EXPECT_EQ(numberIn("1.234,5"), "1234.5 ,");
    EXPECT_EQ(numberIn("1,234,567"), "1234567 .");
    EXPECT_EQ(numberIn("1.234.567"), "1234567 ,");
    EXPECT_EQ(numberIn("1,23,456"), "no number");
    EXPECT_EQ(numberIn("1,23.4"), "no number");
    EXPECT_EQ(numberIn("1.2.3"), "no number");
    EXPECT_EQ(numberIn(","), "no number");
}

TEST(PlainNumber, TheSignOfAFileIsTheOneThatItsNumbersProve) {
    EXPECT_EQ(provenDecimalSign({"1125", "text", "5,5", "1,234"}), ',');
    EXPECT_EQ(provenDecimalSign({"5.5", "1,234"}), '.');
    EXPECT_EQ(provenDecimalSign({"1125", "1,234"}), '\0');
    EXPECT_EQ(provenDecimalSign({"5.5", "5,5"}), '\0') << "two that disagree";
}

} // namespace
} // namespace zorvane::edit
