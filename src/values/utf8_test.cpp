// SPDX-License-Identifier: MIT
#include "values/utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane {
namespace {

std::string bytesOf(char32_t point) {
    std::string out;
    appendUtf8(out, point);
    return out;
}

TEST(Utf8, ACharacterHasOneToFourBytes) {
    EXPECT_EQ(bytesOf(0x41), "A");
    EXPECT_EQ(bytesOf(0xF1), "\xC3\xB1");
    EXPECT_EQ(bytesOf(0x20AC), "\xE2\x82\xAC");
    EXPECT_EQ(bytesOf(0x1F600), "\xF0\x9F\x98\x80");
}

TEST(Utf8, EveryCodePointComesBack) {
    for (char32_t point = 0; point <= 0x10FFFF; point += point < 0x3000 ? 1 : 61) {
        const std::string bytes = bytesOf(point);
        std::size_t at = 0;
        ASSERT_EQ(takeUtf8(bytes, at), point);
        ASSERT_EQ(at, bytes.size());
    }
}

TEST(Utf8, AByteThatBeginsNoCharacterIsPassedOverAlone) {
    for (const std::string text :
         {"\x80", "\xC1\x81", "\xE0\x81\x81", "\xF0\x80\x81\x81", "\xFF", "\xE2\x82", "\xC3("}) {
        std::size_t at = 0;
        EXPECT_EQ(takeUtf8(text, at), malformedUtf8) << text;
        EXPECT_EQ(at, 1U) << text;
    }
}

} // namespace
} // namespace zorvane
