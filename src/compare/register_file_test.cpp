// SPDX-License-Identifier: MIT
#include "compare/register_file.h"

#include <gtest/gtest.h>

namespace zorvane::compare {
namespace {

std::string faultOf(const std::string& json) {
    try {
        static_cast<void>(parseRegisters(json));
    } catch (const Bad_Register_File& bad) {
        return bad.what();
    }
    return "";
}

TEST(RegisterFile, EachRegisterHasItsValue) {
    EXPECT_EQ(parseRegisters(R"({"100": 5, "101": 65535})"), (Register_Values{{100, 5}, {101, 65535}}));
}

TEST(RegisterFile, ARegisterThatStandsThereTwiceIsNamed) {
    EXPECT_EQ(faultOf(R"({"100": 5, "101": 7, "100": 6})"), "register \"100\" stands there twice");
    EXPECT_EQ(faultOf(R"({"100": 5, "100": 5})"), "register \"100\" stands there twice");
    EXPECT_EQ(faultOf(R"({"0100": 5, "100": 6})"), "register \"100\" stands there twice");
}

} // namespace
} // namespace zorvane::compare
