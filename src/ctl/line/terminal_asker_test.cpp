// SPDX-License-Identifier: MIT
#include "ctl/line/terminal_asker.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zorvane::ctl {
namespace {

TEST(TerminalAsker, TellsWhatIsWrongOnceAndInOneLine) {
    std::ostringstream err;
    Terminal_Asker asker(err, false);
    EXPECT_EQ(asker.Msgb_Show("The port is busy.\r\nClose the other program.", Msgb_Critical, "Zorvane"),
              Msgb_Code_Ok);
    asker.Msgb_Show("The port is busy.\r\nClose the other program.", Msgb_Critical, "Zorvane");
    EXPECT_EQ(err.str(), "zorvanectl: The port is busy. Close the other program.\n");
}

TEST(TerminalAsker, AnswersAQuestionWithYesAndSaysNothing) {
    std::ostringstream err;
    Terminal_Asker asker(err, false);
    EXPECT_EQ(asker.Msgb_Show("Go on?", Msgb_Question + Msgb_YesNo, "Zorvane"), Msgb_Code_Yes);
    EXPECT_EQ(asker.Msgb_Show("Saved.", Msgb_Information, "Zorvane"), Msgb_Code_Ok);
    EXPECT_EQ(err.str(), "");
}

} // namespace
} // namespace zorvane::ctl
