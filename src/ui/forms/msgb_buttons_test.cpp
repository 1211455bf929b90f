// SPDX-License-Identifier: MIT
#include "ui/forms/msgb_buttons.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane::ui {
namespace {

/// The buttons of a style from the first to the last, "-" for a hidden one: "Yes=6 No=7 -".
std::string buttons(int style) {
    std::string line;
    for (const Msgb_Look::Button& button : msgbLook(style).buttons) {
        if (!line.empty()) line += ' ';
        line += button.shown ? std::string(button.text) + "=" + std::to_string(button.code) : "-";
    }
    return line;
}

std::string icons(int style) {
    const Msgb_Look look = msgbLook(style);
    std::string line;
    if (look.critical) line += "critical ";
    if (look.question) line += "question ";
    if (look.exclamation) line += "exclamation ";
    if (look.information) line += "information ";
    return line;
}

TEST(Msgb_Buttons_Test, ShowsOkAloneForZero) { EXPECT_EQ(buttons(0), "- Ok=1 -"); }

TEST(Msgb_Buttons_Test, ShowsYesAndNoForFour) { EXPECT_EQ(buttons(4), "Yes=6 No=7 -"); }

TEST(Msgb_Buttons_Test, ShowsYesNoAndCancelForAllOthersBelowSix) {
    for (const int style : {1, 2, 3, 5})
        EXPECT_EQ(buttons(style), "Yes=6 No=7 Cancel=2") << style;
}

TEST(Msgb_Buttons_Test, ShowsTheQuestionWithYesAndNoForThirtySix) {
    EXPECT_EQ(icons(36), "question ");
    EXPECT_EQ(buttons(36), "Yes=6 No=7 -");
}

TEST(Msgb_Buttons_Test, ShowsTheCriticalIconWithOkForSixteen) {
    EXPECT_EQ(icons(16), "critical ");
    EXPECT_EQ(buttons(16), "- Ok=1 -");
}

TEST(Msgb_Buttons_Test, ShowsOneIconForEachOfTheFourStyles) {
    EXPECT_EQ(icons(0), "");
    EXPECT_EQ(icons(32), "question ");
    EXPECT_EQ(icons(48), "exclamation ");
    EXPECT_EQ(icons(64), "information ");
    EXPECT_EQ(icons(64 + 4), "information ");
}

TEST(Msgb_Buttons_Test, IgnoresTheDefaultButton) {
    for (const int value : {256, 512, 768, 1280})
        EXPECT_EQ(buttons(value + 36), "Yes=6 No=7 -") << value;
    EXPECT_EQ(icons(768 + 36), "question ");
    EXPECT_EQ(icons(256 + 64), "information ");
}

TEST(Msgb_Buttons_Test, TakesEachIconOffOnce) {
    EXPECT_EQ(icons(64 + 48), "exclamation information ");
    EXPECT_EQ(icons(64 + 64), "critical exclamation information ");
}

} // namespace
} // namespace zorvane::ui
