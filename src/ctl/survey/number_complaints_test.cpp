// SPDX-License-Identifier: MIT
#include "ctl/survey/number_complaints.h"

#include <gtest/gtest.h>

namespace zorvane::ctl {
namespace {

TEST(SecondsComplaint, TakesSecondsAndNothingElse) {
    for (const char* good : {"0", "1.5", "3600", "1e3"})
        EXPECT_EQ(secondsComplaint(good, 3600), "") << good;
    for (const char* bad : {"nan", "-nan", "inf", "-1", "3600.1", "", "1s", " 1", "1,5"})
        EXPECT_EQ(secondsComplaint(bad, 3600), "\"" + std::string(bad) + "\" is not seconds from 0 to 3600");
}

TEST(FramesComplaint, TakesANumberOfFramesAndNothingElse) {
    EXPECT_EQ(framesComplaint("1"), "");
    EXPECT_EQ(framesComplaint("18446744073709551615"), "");
    for (const char* bad : {"0", "-1", "1.5", "1e3", "", "18446744073709551616"})
        EXPECT_EQ(framesComplaint(bad), "\"" + std::string(bad) + "\" is not a number of frames, 1 or more");
}

} // namespace
} // namespace zorvane::ctl
