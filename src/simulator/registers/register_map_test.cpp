// SPDX-License-Identifier: MIT
#include "simulator/registers/register_map.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zorvane::simulator {
namespace {

std::string complaint(const char* json, std::int32_t base = 0) {
    Register_Map map;
    map.addressBase = base;
    try {
        applyRegisterJson(json, map);
    } catch (const std::runtime_error& error) {
        EXPECT_TRUE(map.values.empty());
        return error.what();
    }
    return "accepted";
}

TEST(RegisterJson, SetsAndAddsRegisters) {
    Register_Map map;
    map.values = {{100, 1}, {101, 2}};
    applyRegisterJson(R"({"101": 65535, "40010": 7})", map);
    EXPECT_EQ(map.values, (std::map<std::int32_t, std::uint16_t>{{100, 1}, {101, 65535}, {40010, 7}}));
}

TEST(RegisterJson, SaysWhatIsWrong) {
    EXPECT_EQ(complaint("[1]"), "not a JSON object of the form {\"address\": value, …}");
    EXPECT_EQ(complaint("{"), "not a JSON object of the form {\"address\": value, …}");
    EXPECT_EQ(complaint(R"({"x": 1})"), "\"x\" is not a register's address");
    EXPECT_EQ(complaint(R"({"": 1})"), "\"\" is not a register's address");
    EXPECT_EQ(complaint(R"({"1": 65536})"), "register 1 needs a whole number from 0 to 65535, not 65536");
    EXPECT_EQ(complaint(R"({"1": -1})"), "register 1 needs a whole number from 0 to 65535, not -1");
    EXPECT_EQ(complaint(R"({"1": 1.5})"), "register 1 needs a whole number from 0 to 65535, not 1.5");
    EXPECT_EQ(complaint(R"({"65536": 1})"), "register 65536 has no address from 0 to 65535 on the wire");
    EXPECT_EQ(complaint(R"({"40000": 1})", 40001),
              "register 40000 has no address from 0 to 65535 on the wire");
    EXPECT_EQ(complaint(R"({"100000": 1})", 40001), "accepted");
}

TEST(RegisterJson, ARegisterThatStandsThereTwiceIsNamed) {
    EXPECT_EQ(complaint(R"({"100": 5, "101": 7, "100": 6})"), "register \"100\" stands there twice");
    EXPECT_EQ(complaint(R"({"0100": 5, "100": 6})"), "register \"100\" stands there twice");
}

} // namespace
} // namespace zorvane::simulator
