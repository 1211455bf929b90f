// SPDX-License-Identifier: MIT
#include "values/testing/failure_number.h"
#include "values/times.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::failureNumber;

TEST(TimeText, HasMinutesAndTwoDigitSeconds) {
    EXPECT_EQ(timeText(0), "0:00");
    EXPECT_EQ(timeText(59), "0:59");
    EXPECT_EQ(timeText(60), "1:00");
    EXPECT_EQ(timeText(605), "10:05");
}

TEST(TimeText, HasNoHours) { EXPECT_EQ(timeText(3725), "62:05"); }

TEST(TimeText, ANegativeTimeKeepsItsSignInBothParts) {
    EXPECT_EQ(timeText(-90), "-1:-30");
    EXPECT_EQ(timeText(-5), "0:-5") << "two characters already, so no 0 in front";
    EXPECT_EQ(timeText(-60), "-1:00");
}

TEST(TimeSeconds, NeedsAColon) {
    EXPECT_EQ(timeSeconds("90"), 0);
    EXPECT_EQ(timeSeconds(""), 0);
}

TEST(TimeSeconds, AddsMinutesAndSecondsWithoutABound) {
    EXPECT_EQ(timeSeconds("1:30"), 90);
    EXPECT_EQ(timeSeconds("1:300"), 360);
    EXPECT_EQ(timeSeconds("0:00"), 0);
    EXPECT_EQ(timeSeconds(":30"), 30);
    EXPECT_EQ(timeSeconds("2:"), 120);
    EXPECT_EQ(timeSeconds("x:y"), 0);
    EXPECT_EQ(timeSeconds("-1:30"), -30);
    EXPECT_EQ(timeSeconds("1:30:59"), 90) << "the part after the first colon begins with 30";
}

TEST(TimeSeconds, RoundsHalvesToEven) {
    EXPECT_EQ(timeSeconds("0.5:0.5"), 30);
    EXPECT_EQ(timeSeconds("0:1.5"), 2);
    EXPECT_EQ(timeSeconds("0:2.5"), 2);
}

TEST(TimeSeconds, BeyondA32BitNumberIsAnOverflow) {
    EXPECT_EQ(failureNumber([] { (void)timeSeconds("99999999:00"); }), 6);
    EXPECT_EQ(failureNumber([] { (void)timeSeconds("1e999:-1e999"); }), 6);
}

TEST(IsTime, WantsANumberOnBothSidesOfTheColon) {
    EXPECT_FALSE(isTime(":30"));
    EXPECT_FALSE(isTime("1:"));
    EXPECT_FALSE(isTime("1:xx"));
    EXPECT_FALSE(isTime("90"));
    EXPECT_FALSE(isTime(" :30"));
    EXPECT_FALSE(isTime("1:2:3"));
    EXPECT_TRUE(isTime("1:99"));
    EXPECT_TRUE(isTime("1:30"));
}

TEST(IsTime, SignsAndDecimalPointsPass) {
    EXPECT_TRUE(isTime("-1:30"));
    EXPECT_TRUE(isTime("1.5:+3"));
    EXPECT_TRUE(isTime(" 1 : 30 "));
}

TEST(Times, TheProceduresGiveTheSame) {
    std::string text;
    PRO_Tiempo_Texto(605, text);
    EXPECT_EQ(text, "10:05");
    std::int32_t seconds = 1;
    PRO_Texto_Tiempo("10:05", seconds);
    EXPECT_EQ(seconds, 605);
    PRO_Texto_Tiempo("90", seconds);
    EXPECT_EQ(seconds, 0);
    bool ok = false;
    PRO_Valida_Tiempo("1:99", ok);
    EXPECT_TRUE(ok);
    PRO_Valida_Tiempo("1:xx", ok);
    EXPECT_FALSE(ok);
}

TEST(Times, MinutesAndSecondsOfARegisterAreCutTowardZero) {
    EXPECT_EQ(wholeMinutes(119), 1);
    EXPECT_EQ(restSeconds(119), 59);
    EXPECT_EQ(wholeMinutes(-119), -1);
    EXPECT_EQ(restSeconds(-119), -59);
}

} // namespace
} // namespace zorvane
