#include "comm/rtf_text.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

TEST(RtfText, LinesAndSpecialCharacters) {
    EXPECT_EQ(rtfDocument("Port: Com 3\r\n{a\\b}\tc\n\xE9"),
              "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fmodern Courier New;}}\r\n\\f0\\fs18\r\n"
              "Port: Com 3\\par\r\n\\{a\\\\b\\}\\tab c\\par\r\n\\'e9}\r\n");
}

TEST(RtfText, WhatStandsForNoCharacterIsReplaced) {
    for (const char character : {'\0', '\x01', '\x1F', '\x7F', '\x81', '\x8D', '\x8F', '\x90', '\x9D'})
        EXPECT_NE(rtfDocument(std::string{'a', character, 'z'}).find("a\\u-3\\'3fz"), std::string::npos);
    EXPECT_NE(rtfDocument("\x1F ~\x7F").find("\\u-3\\'3f ~\\u-3\\'3f"), std::string::npos);
}

} // namespace
} // namespace zorvane
