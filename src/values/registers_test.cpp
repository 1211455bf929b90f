// SPDX-License-Identifier: MIT
#include "values/registers.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::failureNumber;

TEST(HalfAddress, TakesTheSuffixInCapitalsBehindANumber) {
    const auto high = halfAddress("1004/HI");
    ASSERT_TRUE(high);
    EXPECT_EQ(high->number, "1004");
    EXPECT_EQ(high->half, Register_Half::High);
    const auto low = halfAddress("40123/LO");
    ASSERT_TRUE(low);
    EXPECT_EQ(low->number, "40123");
    EXPECT_EQ(low->half, Register_Half::Low);
}

TEST(HalfAddress, AnythingElseIsAPlainCell) {
    EXPECT_FALSE(halfAddress("1004"));
    EXPECT_FALSE(halfAddress(""));
    EXPECT_FALSE(halfAddress("1004/hi"));
    EXPECT_FALSE(halfAddress("1004/Lo"));
    EXPECT_FALSE(halfAddress("1004/HI "));
    EXPECT_FALSE(halfAddress("1004/"));
    EXPECT_FALSE(halfAddress("1004/LO/HI"));
    EXPECT_FALSE(halfAddress("abc/HI"));
    EXPECT_FALSE(halfAddress("/HI"));
}

TEST(RegisterHalves, AreCutTowardZero) {
    EXPECT_EQ(highByte(0x1234), 0x12);
    EXPECT_EQ(lowByte(0x1234), 0x34);
    EXPECT_EQ(highByte(-1), 0) << "0xFFFF read as signed";
    EXPECT_EQ(lowByte(-1), 255);
    EXPECT_EQ(highByte(-32768), -128);
    EXPECT_EQ(highByte(-256), -1);
    EXPECT_EQ(highByte(0xFF00), 255) << "the same register read as unsigned";
}

TEST(RegisterHalves, OneIsReplacedAndTheOtherKept) {
    EXPECT_EQ(withHighByte(0x1234, 0x56), 0x5634);
    EXPECT_EQ(withLowByte(0x1234, 0x78), 0x1278);
    EXPECT_EQ(withLowByte(-1, 1), -255) << "0xFF01 as a signed register";
    EXPECT_EQ(withLowByte(0x1200, 300), 0x1200 + 300) << "a half above 255 spills over";
}

TEST(SignMagnitude, With8BitsRegister133IsMinus5) {
    EXPECT_EQ(signBit(8), 128);
    EXPECT_EQ(signBit(8) + 5, 133) << "the register that holds -5";
    EXPECT_EQ(fromSignMagnitude(133, 8), -5);
}

TEST(SignMagnitude, WithoutTheSignBitTheRegisterStands) {
    EXPECT_EQ(fromSignMagnitude(5, 8), 5);
    EXPECT_EQ(fromSignMagnitude(0, 8), 0);
    EXPECT_EQ(fromSignMagnitude(0x0105, 8), 0x0105) << "bits above the sign bit don't matter";
    EXPECT_EQ(fromSignMagnitude(128, 8), 0);
}

TEST(SignMagnitude, GoesFrom1To15Bits) {
    EXPECT_EQ(signBit(1), 1);
    EXPECT_EQ(signBit(15), 16384);
    EXPECT_EQ(fromSignMagnitude(16384 + 7, 15), -7);
    EXPECT_EQ(fromSignMagnitude(1, 1), 0);
}

TEST(SignMagnitude, EveryNumberComesBackInEveryWidth) {
    for (std::int32_t bits = 1; bits <= 15; ++bits)
        for (std::int32_t magnitude = 1; magnitude < signBit(bits); ++magnitude)
            ASSERT_EQ(fromSignMagnitude(signBit(bits) + magnitude, bits), -magnitude) << bits << " bits";
}

TEST(AsciiText, HighByteFirst) {
    EXPECT_EQ(asciiText(0x4142), "AB");
    EXPECT_EQ(asciiText(0x4100), "A-");
    EXPECT_EQ(asciiText(0xFF42), "\xFF\x42");
    EXPECT_EQ(asciiText(0x0141), "\x01\x41");
    EXPECT_EQ(asciiText(0x0042), "-B");
    EXPECT_EQ(asciiText(0), "--");
}

TEST(AsciiText, ARegisterReadAsSignedLosesAHighByteFrom0x80On) {
    EXPECT_EQ(asciiText(-1), "-\xFF");
    EXPECT_EQ(asciiText(0xC441 - 65536), "-A");
    EXPECT_EQ(asciiText(0x41C4), "A\xC4") << "the low byte has the whole code page";
}

TEST(AsciiWord, PutsTheFirstCharacterHigh) {
    EXPECT_EQ(asciiWord('A', 'B'), 0x4142);
    EXPECT_EQ(asciiWord('\0', ' '), 0x0020);
    EXPECT_EQ(asciiWord('\x7F', '\x7F'), 0x7F7F);
    EXPECT_EQ(failureNumber([] { (void)asciiWord('\x80', 'A'); }), 6);
    EXPECT_EQ(failureNumber([] { (void)asciiWord('A', '\xFF'); }), 6);
}

} // namespace
} // namespace zorvane
