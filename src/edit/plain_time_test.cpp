// SPDX-License-Identifier: MIT
#include "edit/plain_time.h"

#include <gtest/gtest.h>

namespace zorvane::edit {
namespace {

std::string timeIn(std::string_view text) {
    const auto time = spreadsheetTime(text);
    if (!time) return "no such time";
    return time->other.empty() ? time->text : time->text + "|" + time->other;
}

TEST(SpreadsheetTime, MinutesThatASpreadsheetTookForHours) {
    EXPECT_EQ(timeIn("62:05:00"), "62:05") << "no clock shows 62";
    EXPECT_EQ(timeIn("24:00:00"), "24:00");
    EXPECT_EQ(timeIn("00:45:00"), "0:45|45:00");
    EXPECT_EQ(timeIn("23:59:00"), "23:59|1439:00");
}

TEST(SpreadsheetTime, TwelveHoursAreTaken) {
    EXPECT_EQ(timeIn("12:45:00 AM"), "0:45|45:00");
    EXPECT_EQ(timeIn("12:05:00 PM"), "12:05|725:00");
    EXPECT_EQ(timeIn("01:30:00 pm"), "13:30|810:00");
}

TEST(SpreadsheetTime, AnythingElseIsLeftToOthers) {
    for (const char* text :
         {"", "0:45", "1:02:05", "1:2:3:4", "a:b:00", "1::00", "00:45:00 XM", "-1:30:00", "9999999:00:00"})
        EXPECT_EQ(timeIn(text), "no such time") << text;
}

} // namespace
} // namespace zorvane::edit
