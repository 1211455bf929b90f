// SPDX-License-Identifier: MIT
#include "grids/rules/number_rules.h"
#include "values/run_time_failure.h"

#include <gtest/gtest.h>

#include <array>
#include <ostream>

namespace zorvane {

static void PrintTo(const Limits& limits, std::ostream* out) {
    *out << "\"" << limits.low << "\" to \"" << limits.high << "\"";
}

namespace {

Cell_Rec cellWith(const std::string& low, const std::string& high, const std::string& format = "") {
    Cell_Rec cell;
    cell.Min_Value = low;
    cell.Max_Value = high;
    cell.Format = format;
    return cell;
}

Cell_Rec column(const std::string& type, const std::string& negativeFormat = "") {
    Cell_Rec definition;
    definition.Column_Type = type;
    definition.Bits_Negative_Format = negativeFormat;
    return definition;
}

struct Limits_Case {
    const char* type;
    Cell_Rec cell;
    Limits limits;
};

TEST(Filled_Limits_Test, FollowTheColumnAndTheFormat) {
    const std::array<Limits_Case, 21> cases = {{
        {"NUMERIC", cellWith("", ""), {"-32768", "32767"}},
        {"numeric", cellWith(" ", "  "), {"-32768", "32767"}},
        {"NUMERIC", cellWith("10", ""), {"10", "32767"}},
        {"NUMERIC", cellWith("", "20"), {"-32768", "20"}},
        {"NUMERIC", cellWith("-99999", "99999"), {"-99999", "99999"}},
        {"NUMERIC", cellWith("", "", "NUMERIC_UNSIGNED"), {"0", "65535"}},
        {"NUMERIC", cellWith("-1", "70000", "NUMERIC_UNSIGNED"), {"0", "65535"}},
        {"NUMERIC", cellWith("5", "60000", "NUMERIC_UNSIGNED"), {"5", "60000"}},
        {"NUMERIC", cellWith("0.0", "65535.0", "NUMERIC_UNSIGNED"), {"0.0", "65535.0"}},
        {"NUMERIC", cellWith("none", "none", "NUMERIC_UNSIGNED"), {"none", "none"}},
        {"NUMERIC", cellWith("", "", "numeric_unsigned"), {"-32768", "32767"}},
        {"NUMERIC", cellWith("", "", " NUMERIC_UNSIGNED"), {"-32768", "32767"}},
        {"NUMERIC_UNSIGNED", cellWith("", ""), {"", ""}},
        {"NUMERIC_UNSIGNED", cellWith("", "", "NUMERIC_UNSIGNED"), {"0", "65535"}},
        {"TIME", cellWith("", ""), {"-32768", "32767"}},
        {"TIME", cellWith("", "20"), {"", "20"}},
        {"TIME", cellWith(" ", ""), {" ", ""}},
        {"TIME", cellWith("", "", "NUMERIC_UNSIGNED"), {"0", "65535"}},
        {"ASCII", cellWith("", ""), {"", ""}},
        {"ASCII", cellWith("", "", "NUMERIC_UNSIGNED"), {"", ""}},
        {"NUMERIC_OR_ASCII", cellWith("", ""), {"", ""}},
    }};
    for (const Limits_Case& each : cases)
        EXPECT_EQ(filledLimits(column(each.type), each.cell), each.limits)
            << each.type << ", " << each.cell.Format << ": \"" << each.cell.Min_Value << "\" to \""
            << each.cell.Max_Value << "\"";
}

TEST(Within_Limits_Test, ComparesByValueAndTakesNoNumberAs0) {
    EXPECT_TRUE(withinLimits("10", {"10", "20"}));
    EXPECT_TRUE(withinLimits("20", {"10", "20"}));
    EXPECT_FALSE(withinLimits("20.1", {"10", "20"}));
    EXPECT_FALSE(withinLimits("9.9", {"10", "20"}));
    EXPECT_TRUE(withinLimits("0", {"", ""}));
    EXPECT_FALSE(withinLimits("1", {"", ""}));
    EXPECT_FALSE(withinLimits("-1", {"", ""}));
}

TEST(Named_Limits_Test, NamesMissingOnesAsTheSignedRegister) {
    EXPECT_EQ(namedLimits({"", ""}), (Limits{"-32768", "32767"}));
    EXPECT_EQ(namedLimits({"10", ""}), (Limits{"10", "32767"}));
    EXPECT_EQ(namedLimits({" ", " "}), (Limits{" ", " "})) << "a blank is something";
}

TEST(Register_Width_Test, IsUnsignedForTheExactWordOnly) {
    EXPECT_EQ(registerWidth(cellWith("", "", "NUMERIC_UNSIGNED")), (Limits{"0", "65535"}));
    EXPECT_EQ(registerWidth(cellWith("", "", "Numeric_Unsigned")), (Limits{"-32768", "32767"}));
    EXPECT_EQ(registerWidth(cellWith("", "", "TIME")), (Limits{"-32768", "32767"}));
}

TEST(Register_Width_Test, HoldsItsBounds) {
    const Limits width{"-32768", "32767"};
    EXPECT_TRUE(fitsRegister("-32768", width));
    EXPECT_TRUE(fitsRegister(" 32767 ", width));
    EXPECT_FALSE(fitsRegister("32767.4", width));
    EXPECT_FALSE(fitsRegister("-32768.1", width));
}

struct Negative_Case {
    const char* number;
    const char* format;
    std::int32_t raw;
};

TEST(Raw_Negative_Test, EncodesByTheColumnsFormat) {
    const std::array<Negative_Case, 18> cases = {{
        {"-5", "8", 133},
        {"-5", " 8 ", 133},
        {"-5", "1", 6},
        {"-5", "15", 16389},
        {"-5", "16", 65531},
        {"-5", "32", 65531},
        {"-1", "16", 65535},
        {"-5", "15.6", 32773}, // 16 bits by rounding, and still sign and magnitude
        {"-2.5", "8", 130},    // halves to the even neighbour
        {"-5", "0", 0},
        {"-5", "-3", 0},
        {"-5", "", 0},
        {"-5", "  ", 0},
        {"-5", "two", 0},
        {"-5", "8bits", 0},
        {"5", "8", 0},
        {"0", "8", 0},
        {"5", "16", 0},
    }};
    for (const Negative_Case& each : cases)
        EXPECT_EQ(rawNegative(each.number, column("NUMERIC", each.format)), each.raw)
            << each.number << " with \"" << each.format << "\"";
}

TEST(Raw_Negative_Test, ABitCountBeyond16BitsIsAnOverflow) {
    try {
        static_cast<void>(rawNegative("5", column("NUMERIC", "-40000")));
        FAIL() << "no failure";
    } catch (const Run_Time_Failure& failure) {
        EXPECT_EQ(failure.number(), 6);
    }
}

} // namespace
} // namespace zorvane
