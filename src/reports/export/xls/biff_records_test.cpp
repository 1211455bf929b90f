// SPDX-License-Identifier: MIT
#include "reports/export/xls/biff_records.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using namespace std::string_literals;

TEST(BiffRecords, NumbersHaveTheirLowByteFirst) {
    EXPECT_EQ(Biff_Bytes().u8(0x12).u16(0x3456).u32(0x789ABCDE).bytes(), "\x12\x56\x34\xDE\xBC\x9A\x78");
    EXPECT_EQ(Biff_Bytes().real(1.5).bytes(), "\0\0\0\0\0\0\xF8\x3F"s);
}

TEST(BiffRecords, TextsAreUtf16) {
    EXPECT_EQ(toUtf16("A\xE9\x80"), "A\0\xE9\0\xAC\x20"s);
    EXPECT_EQ(Biff_Bytes().shortText("A").bytes(), "\1\1A\0"s);
    EXPECT_EQ(Biff_Bytes().longText("A").bytes(), "\1\0\1A\0"s);
}

TEST(BiffRecords, ARecordHasItsTypeAndLengthInFront) {
    Biff_Stream stream;
    stream.record(Biff::CodePage, Biff_Bytes().u16(0x04B0));
    EXPECT_EQ(stream.take(), "\x42\0\2\0\xB0\4"s);
}

TEST(BiffRecords, TheTextTableGoesOnInFurtherRecords) {
    Biff_Stream stream;
    stream.textTable({std::string(5000, 'x'), "end"}, 2);
    const std::string bytes = stream.take();
    // 8 bytes of counts, 3 of the first text's head, then 4106 characters have room.
    EXPECT_EQ(bytes.substr(0, 15), "\xFC\0\x1F\x20\2\0\0\0\2\0\0\0\x88\x13\1"s);
    const std::size_t second = 4 + 0x201F;
    EXPECT_EQ(bytes.substr(second, 5), "\x3C\0\x06\x07\1"s);
    EXPECT_EQ(bytes.size(), second + 4 + 0x0706);
    EXPECT_EQ(bytes.substr(bytes.size() - 9), "\3\0\1e\0n\0d\0"s);
}

} // namespace
} // namespace zorvane
