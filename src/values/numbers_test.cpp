// SPDX-License-Identifier: MIT
#include "values/numbers.h"
#include "values/testing/comma_locale_linux.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

namespace zorvane {
namespace {

using doubles::failureNumber;

TEST(Val, IsTheLongestNumericBeginning) {
    EXPECT_EQ(Val("12abc"), 12.0);
    EXPECT_EQ(Val("abc"), 0.0);
    EXPECT_EQ(Val(""), 0.0);
    EXPECT_EQ(Val("   "), 0.0);
    EXPECT_EQ(Val("12 34"), 12.0);
    EXPECT_EQ(Val("1.5.2"), 1.5);
    EXPECT_EQ(Val("1,5"), 1.0);
}

TEST(Val, SkipsLeadingBlanksOnly) {
    EXPECT_EQ(Val("  7"), 7.0);
    EXPECT_EQ(Val("\t7"), 0.0);
    EXPECT_EQ(Val("- 7"), 0.0);
}

TEST(Val, TakesSignsAndPoints) {
    EXPECT_EQ(Val("-5"), -5.0);
    EXPECT_EQ(Val("+5"), 5.0);
    EXPECT_EQ(Val("5."), 5.0);
    EXPECT_EQ(Val(".5"), 0.5);
    EXPECT_EQ(Val("-.5x"), -0.5);
    EXPECT_EQ(Val("."), 0.0);
    EXPECT_EQ(Val("--5"), 0.0);
    EXPECT_EQ(Val("+-5"), 0.0);
}

TEST(Val, TakesExponentsWithEAndD) {
    EXPECT_EQ(Val("1e3"), 1000.0);
    EXPECT_EQ(Val("1E+3"), 1000.0);
    EXPECT_EQ(Val("1d3"), 1000.0);
    EXPECT_EQ(Val("2D-1"), 0.2);
    EXPECT_EQ(Val(".5d1"), 5.0);
    EXPECT_EQ(Val("5.d1"), 50.0);
}

TEST(Val, AnExponentWithoutDigitsIsNoPartOfTheNumber) {
    EXPECT_EQ(Val("3e"), 3.0);
    EXPECT_EQ(Val("3e+"), 3.0);
    EXPECT_EQ(Val("3dog"), 3.0);
    EXPECT_EQ(Val("e3"), 0.0);
}

TEST(Val, WordsForNumbersAreNone) {
    EXPECT_EQ(Val("inf"), 0.0);
    EXPECT_EQ(Val("nan"), 0.0);
    EXPECT_EQ(Val("&H10"), 0.0);
    EXPECT_EQ(Val("0x10"), 0.0);
}

TEST(Val, BeyondADoubleIsInfiniteOr0) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Val("1e999"), infinity);
    EXPECT_EQ(Val("-1e999"), -infinity);
    EXPECT_EQ(Val("1d999"), infinity);
    EXPECT_EQ(Val("1e-999"), 0.0);
    EXPECT_EQ(Val("1d-999"), 0.0);
    EXPECT_EQ(Val("0e999"), 0.0);
    EXPECT_EQ(Val("1e99999999999999999999"), infinity);
    EXPECT_EQ(Val("1e-99999999999999999999"), 0.0);
    EXPECT_EQ(Val(std::string(400, '9')), infinity);
}

TEST(Val, TheWholeExponentWeighsMoreThanTheDigitsBeforeIt) {
    EXPECT_EQ(Val("10000e-400"), 0.0);
    EXPECT_EQ(Val("0.00001e400"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Val(std::string(500, '9') + "e-100"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Val("0." + std::string(500, '0') + "1e100"), 0.0);
}

TEST(Val, LongTextsOfDigitsKeepTheirSize) {
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0.0);
    EXPECT_EQ(Val("0." + std::string(400, '0') + "1e401"), 1.0);
    EXPECT_EQ(Val("1" + std::string(400, '0') + "e-10"), std::numeric_limits<double>::infinity());
    EXPECT_EQ(Val("1" + std::string(400, '0') + "e-400"), 1.0);
    EXPECT_EQ(Val(std::string(500, '0') + "7"), 7.0);
}

TEST(IsNumeric, WantsTheWholeTextBlanksApart) {
    EXPECT_TRUE(isNumeric("12"));
    EXPECT_TRUE(isNumeric("  -12.50  "));
    EXPECT_TRUE(isNumeric("1d5"));
    EXPECT_TRUE(isNumeric("1E-5"));
    EXPECT_TRUE(isNumeric("5."));
    EXPECT_TRUE(isNumeric(".5"));
    EXPECT_FALSE(isNumeric("12abc"));
    EXPECT_FALSE(isNumeric("1 2"));
    EXPECT_FALSE(isNumeric(""));
    EXPECT_FALSE(isNumeric("   "));
    EXPECT_FALSE(isNumeric("."));
    EXPECT_FALSE(isNumeric("-"));
    EXPECT_FALSE(isNumeric("1,000"));
    EXPECT_FALSE(isNumeric("1e"));
    EXPECT_FALSE(isNumeric("&H10"));
    EXPECT_FALSE(isNumeric("$5"));
    EXPECT_FALSE(isNumeric("12\t"));
    EXPECT_FALSE(isNumeric("1:30"));
}

TEST(Rounding, GoesToTheNearestHalvesToTheEvenNumber) {
    EXPECT_EQ(toLong(0.5), 0);
    EXPECT_EQ(toLong(1.5), 2);
    EXPECT_EQ(toLong(2.5), 2);
    EXPECT_EQ(toLong(-0.5), 0);
    EXPECT_EQ(toLong(-1.5), -2);
    EXPECT_EQ(toLong(2.4999), 2);
    EXPECT_EQ(toInteger(3.5), 4);
}

TEST(Rounding, OutOfRangeIsAnOverflow) {
    EXPECT_EQ(toLong(2147483647.4), 2147483647);
    EXPECT_EQ(toLong(-2147483648.5), -2147483647 - 1);
    EXPECT_EQ(failureNumber([] { (void)toLong(2147483647.5); }), 6);
    EXPECT_EQ(failureNumber([] { (void)toLong(-2147483649.0); }), 6);
    EXPECT_EQ(toInteger(32767.4), 32767);
    EXPECT_EQ(toInteger(-32768.5), -32768);
    EXPECT_EQ(failureNumber([] { (void)toInteger(32767.5); }), 6);
    EXPECT_EQ(failureNumber([] { (void)toInteger(-32769.0); }), 6);
    EXPECT_EQ(failureNumber([] { (void)toLong(std::numeric_limits<double>::infinity()); }), 6);
    EXPECT_EQ(failureNumber([] { (void)toLong(std::nan("")); }), 6);
}

TEST(StrictConversion, ATextThatIsNoNumberIsATypeMismatch) {
    EXPECT_EQ(strictInteger(" 1100 "), 1100);
    EXPECT_EQ(strictInteger("2.5"), 2);
    EXPECT_EQ(strictLong("70000"), 70000);
    EXPECT_EQ(strictDouble("-1.25"), -1.25);
    EXPECT_EQ(failureNumber([] { (void)strictInteger("abc"); }), 13);
    EXPECT_EQ(failureNumber([] { (void)strictInteger("12abc"); }), 13);
    EXPECT_EQ(failureNumber([] { (void)strictLong(""); }), 13);
    EXPECT_EQ(failureNumber([] { (void)strictDouble("1,5"); }), 13);
}

TEST(StrictConversion, ANumberThatDoesntFitIsAnOverflow) {
    EXPECT_EQ(failureNumber([] { (void)strictInteger("32768"); }), 6);
    EXPECT_EQ(failureNumber([] { (void)strictLong("2147483648"); }), 6);
    EXPECT_EQ(failureNumber([] { (void)strictDouble("1e999"); }), 6);
}

TEST(LongValue, RoundsTheNumericBeginning) {
    EXPECT_EQ(longValue("12.5kg"), 12);
    EXPECT_EQ(longValue("x"), 0);
    EXPECT_EQ(failureNumber([] { (void)longValue("99999999999"); }), 6);
}

TEST(NumberText, WholeNumbersArePlain) {
    EXPECT_EQ(numberText(0), "0");
    EXPECT_EQ(numberText(-32768), "-32768");
    EXPECT_EQ(numberText(2147483647), "2147483647");
    EXPECT_EQ(numberText(65536.0), "65536");
}

TEST(NumberText, HasAtMost15SignificantDigits) {
    EXPECT_EQ(numberText(0.0), "0");
    EXPECT_EQ(numberText(-0.0), "0");
    EXPECT_EQ(numberText(1.0), "1");
    EXPECT_EQ(numberText(-1.0), "-1");
    EXPECT_EQ(numberText(0.1), "0.1");
    EXPECT_EQ(numberText(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(numberText(2.0 / 3.0), "0.666666666666667");
    EXPECT_EQ(numberText(123456789012345.6), "123456789012346");
    EXPECT_EQ(numberText(1234.5), "1234.5");
}

TEST(NumberText, HasNoExponentBelow1e15) {
    EXPECT_EQ(numberText(100000000000000.0), "100000000000000");
    EXPECT_EQ(numberText(999999999999999.0), "999999999999999");
    EXPECT_EQ(numberText(1e15), "1E+15");
    EXPECT_EQ(numberText(1.2e16), "1.2E+16");
    EXPECT_EQ(numberText(1.25e20), "1.25E+20");
    EXPECT_EQ(numberText(-1e100), "-1E+100");
    EXPECT_EQ(numberText(999999999999999.9), "1E+15") << "rounded up to 16 digits";
    EXPECT_EQ(numberText(0.0001), "0.0001");
    EXPECT_EQ(numberText(0.000012345), "0.000012345");
    EXPECT_EQ(numberText(1e-20), "0.00000000000000000001");
}

TEST(NumberText, HasALeading0AndNoMinus0) {
    EXPECT_EQ(numberText(0.5), "0.5");
    EXPECT_EQ(numberText(-0.5), "-0.5");
    EXPECT_EQ(numberText(-0.0), "0");
}

TEST(NumberText, OfNoNumberIsAnOverflow) {
    EXPECT_EQ(failureNumber([] { (void)numberText(std::numeric_limits<double>::infinity()); }), 6);
    EXPECT_EQ(failureNumber([] { (void)numberText(std::nan("")); }), 6);
}

TEST(NumberText, ComesBackAsTheSameNumber) {
    for (const double value : {0.1, -2.5, 65535.0, 1e15, 1.25e-7, 123456789.012345})
        EXPECT_EQ(Val(numberText(value)), value) << value;
}

TEST(Numbers, ThePointIsTheDecimalSignInEveryLocale) {
    const doubles::Comma_Locale locale;
    ASSERT_EQ(std::strtod("1,5", nullptr), 1.5) << "the locale is in force";
    EXPECT_EQ(numberText(1234.5), "1234.5");
    EXPECT_EQ(numberText(0.25), "0.25");
    EXPECT_EQ(Val("1.5"), 1.5);
    EXPECT_EQ(Val("1,5"), 1.0);
    EXPECT_EQ(Val("1.5d0"), 1.5);
    EXPECT_TRUE(isNumeric("1.5"));
    EXPECT_FALSE(isNumeric("1,5"));
}

TEST(TwoDigits, PutsTheSignInFront) {
    EXPECT_EQ(twoDigits(0), "00");
    EXPECT_EQ(twoDigits(5), "05");
    EXPECT_EQ(twoDigits(59), "59");
    EXPECT_EQ(twoDigits(-5), "-05");
    EXPECT_EQ(twoDigits(-30), "-30");
    EXPECT_EQ(twoDigits(123), "123");
}

} // namespace
} // namespace zorvane
