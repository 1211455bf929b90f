// SPDX-License-Identifier: MIT
#include "cells/format/cell_limits.h"

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

Cell_Rec columnOfType(const std::string& type) {
    Cell_Rec definition;
    definition.Column_Type = type;
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
        EXPECT_EQ(filledLimits(columnOfType(each.type), each.cell), each.limits)
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
    EXPECT_FALSE(fitsRegister("1e999", width));
    EXPECT_FALSE(fitsRegister("-1e999", width));
}

} // namespace
} // namespace zorvane
