// SPDX-License-Identifier: MIT
#include "ctl/text/status_line.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zorvane::ctl {
namespace {

TEST(StatusLine, IsDrawnOverItselfAndGoneAtTheEnd) {
    std::ostringstream out;
    {
        Status_Line line(out, true);
        line.show("unit 17");
        line.show("unit 8");
    }
    EXPECT_EQ(out.str(), "\r\runit 17\r       \runit 8\r      \r");
}

TEST(StatusLine, IsNothingInAFile) {
    std::ostringstream out;
    {
        Status_Line line(out, false);
        line.show("unit 17");
    }
    EXPECT_EQ(out.str(), "");
}

} // namespace
} // namespace zorvane::ctl
