// SPDX-License-Identifier: MIT
#include "values/rtf_escape.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

TEST(RtfEscape, PrintableAsciiStands) { EXPECT_EQ(rtfEscaped("Pump 7 ~ 12.5%"), "Pump 7 ~ 12.5%"); }

TEST(RtfEscape, BracesAndBackslashesAreNoControlWords) { EXPECT_EQ(rtfEscaped("{a\\b}"), "\\{a\\\\b\\}"); }

TEST(RtfEscape, ATabIsAControlWord) { EXPECT_EQ(rtfEscaped("a\tb"), "a\\tab b"); }

TEST(RtfEscape, BytesAboveAsciiAreHexadecimal) {
    EXPECT_EQ(rtfEscaped("\x80 \xB0"
                         "C\xFF"),
              "\\'80 \\'b0C\\'ff");
}

TEST(RtfEscape, WhatStandsForNoCharacterIsReplaced) {
    for (const char character :
         {'\0', '\x01', '\n', '\r', '\x1F', '\x7F', '\x81', '\x8D', '\x8F', '\x90', '\x9D'})
        EXPECT_EQ(rtfEscaped(std::string{'a', character, 'z'}), "a\\u-3\\'3fz");
}

} // namespace
} // namespace zorvane
