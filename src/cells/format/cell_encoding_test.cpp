// SPDX-License-Identifier: MIT
#include "cells/format/cell_encoding.h"
#include "values/run_time_failure.h"

#include <gtest/gtest.h>

#include <array>

namespace zorvane {
namespace {

Cell_Rec column(const std::string& negativeFormat) {
    Cell_Rec definition;
    definition.Bits_Negative_Format = negativeFormat;
    return definition;
}

Cell_Rec cellWith(const std::string& format) {
    Cell_Rec cell;
    cell.Format = format;
    return cell;
}

template <class Call> std::int32_t failureNumber(Call&& call) {
    try {
        std::forward<Call>(call)();
    } catch (const Run_Time_Failure& failure) {
        return failure.number();
    }
    return 0;
}

/// With 125 s, 2 minutes and 5 seconds, where the other part comes from.
std::optional<double> encoded(const Writing_Path& path, const std::string& format, std::string_view text) {
    return encodedByFormat(path, cellWith(format), text, [] { return 125; });
}

TEST(Time_Part_Test, TakesARegisterOfSecondsApart) {
    EXPECT_EQ(timePart(Cell_Format::Minutes, 125), 2);
    EXPECT_EQ(timePart(Cell_Format::Seconds, 125), 5);
    EXPECT_EQ(timePart(Cell_Format::Minutes, -125), -2) << "cut toward zero";
    EXPECT_EQ(timePart(Cell_Format::Seconds, -125), -5);
}

TEST(Time_Part_Test, ReplacesOnePartAndKeepsTheOther) {
    EXPECT_EQ(withTimePart(Cell_Format::Minutes, 3, 125), 185);
    EXPECT_EQ(withTimePart(Cell_Format::Seconds, 7, 125), 127);
    EXPECT_EQ(withTimePart(Cell_Format::Minutes, 0.5, 125), 35);
}

TEST(With_Half_Test, KeepsTheOtherHalf) {
    EXPECT_EQ(withHalf(Register_Half::High, 5, 0x1234), 0x0534);
    EXPECT_EQ(withHalf(Register_Half::Low, 5, 0x1234), 0x1205);
    EXPECT_EQ(withHalf(Register_Half::Low, 300, 0x1200), 0x132C) << "spills over";
    EXPECT_EQ(failureNumber([] { (void)withHalf(Register_Half::High, 1e9, 0); }), 6);
}

TEST(Encoded_By_Format_Test, FormatWithoutARuleOfItsOwnGoesOutByItsNumber) {
    for (const char* const format : {"", "NUMERIC", "WATTS"})
        EXPECT_EQ(encoded(paths::download, format, "12"), std::nullopt) << format;
}

TEST(Encoded_By_Format_Test, TimeIsItsSecondsOnEachPath) {
    EXPECT_EQ(encoded(paths::download, "time", "1:30"), 90);
    EXPECT_EQ(encoded(paths::boardDownload, " TIME ", "1:30"), 90);
}

TEST(Encoded_By_Format_Test, UnsignedStandsForItselfOnAPlainModelOnly) {
    EXPECT_EQ(encoded(paths::download, "NUMERIC_UNSIGNED", "40000x"), 40000);
    EXPECT_EQ(encoded(paths::boardDownload, "NUMERIC_UNSIGNED", "40000"), std::nullopt);
    EXPECT_EQ(encoded(paths::liveWrite, "NUMERIC_UNSIGNED", "40000"), std::nullopt);
}

TEST(Encoded_By_Format_Test, PartOfATimeIsReadInEachPathsWay) {
    EXPECT_EQ(encoded(paths::download, "TIMEMM", "2.5"), 125) << "2, by rounding to the even neighbour";
    EXPECT_EQ(encoded(paths::boardDownload, "TIMEMM", "2.5x"), 155);
    EXPECT_EQ(encoded(paths::liveWrite, "TIMEMM", "2.5"), 155);
    EXPECT_EQ(encoded(paths::download, "TIMESS", "7"), 127);
    EXPECT_EQ(encoded(paths::boardDownload, "TIMESS", "7"), 127);
    EXPECT_EQ(encoded(paths::liveWrite, "timess", "7"), 127);
    EXPECT_EQ(failureNumber([] { (void)encoded(paths::download, "TIMEMM", "2x"); }), 13);
    EXPECT_EQ(failureNumber([] { (void)encoded(paths::liveWrite, "TIMEMM", "2x"); }), 13);
    EXPECT_EQ(failureNumber([] { (void)encoded(paths::boardDownload, "TIMEMM", "none"); }), 0);
}

TEST(Encoded_By_Format_Test, BlanksOfTheWordCountInALiveWriteOnly) {
    EXPECT_EQ(encoded(paths::download, " TIMESS ", "7"), 127);
    EXPECT_EQ(encoded(paths::liveWrite, " TIMESS ", "7"), std::nullopt);
}

TEST(Plain_Word_Test, OnlyABoardsBlockTakesANegativeNumberAsIts16Bits) {
    EXPECT_EQ(plainWord(paths::download, -5), -5);
    EXPECT_EQ(plainWord(paths::boardDownload, -5), 65531);
    EXPECT_EQ(plainWord(paths::boardDownload, 0), 0);
    EXPECT_EQ(plainWord(paths::boardDownload, 2.5), 2);
}

TEST(Negative_Word_Test, PathsDifferInABitCountBetween15And16AndBelow1) {
    EXPECT_EQ(negativeWord(paths::download, column("15.6"), -5), 65531) << "rounded to 16: two's complement";
    EXPECT_EQ(negativeWord(paths::liveWrite, column("15.6"), -5), 32773) << "still sign and magnitude";
    EXPECT_EQ(negativeWord(paths::download, column("0"), -5), 6) << "5.5 to the even neighbour";
    EXPECT_EQ(negativeWord(paths::liveWrite, column("0"), -5), std::nullopt);
    EXPECT_EQ(negativeWord(paths::download, column("1"), -5), 6);
    EXPECT_EQ(negativeWord(paths::liveWrite, column("1"), -5), 6);
    EXPECT_EQ(negativeWord(paths::liveWrite, column("8"), 0), std::nullopt);
}

TEST(Negative_Word_Test, DownloadTakesAnyBitCountOf32Bits) {
    EXPECT_EQ(negativeWord(paths::download, column("-40000"), -5), 5);
    EXPECT_EQ(failureNumber([] { (void)negativeWord(paths::download, column("1e10"), 5); }), 6);
    EXPECT_EQ(negativeWord(paths::liveWrite, column("1e10"), -5), 65531);
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
        EXPECT_EQ(rawNegative(each.number, column(each.format)), each.raw)
            << each.number << " with \"" << each.format << "\"";
}

TEST(Raw_Negative_Test, ABitCountBeyond16BitsIsAnOverflow) {
    try {
        static_cast<void>(rawNegative("5", column("-40000")));
        FAIL() << "no failure";
    } catch (const Run_Time_Failure& failure) {
        EXPECT_EQ(failure.number(), 6);
    }
}

} // namespace
} // namespace zorvane
