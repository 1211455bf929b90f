// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/rtf_text.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

TEST(RtfText, LinesAndSpecialCharacters) {
    EXPECT_EQ(rtfDocument("Port: Com 3\r\n{a\\b}\tc\n\xE9"),
              "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fmodern Courier New;}}\r\n\\f0\\fs18\r\n"
              "Port: Com 3\\par\r\n\\{a\\\\b\\}\\tab c\\par\r\n\\'e9}\r\n");
}

TEST(RtfText, WhatStandsForNoCharacterIsReplaced) {
    EXPECT_NE(rtfDocument("a\x01\x9Dz\r\n").find("a\\u-3\\'3f\\u-3\\'3fz\\par\r\n}"), std::string::npos);
}

} // namespace
} // namespace zorvane
