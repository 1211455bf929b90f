// SPDX-License-Identifier: MIT
#include "app/form_life.h"
#include "app/testing/app_bench.h"
#include "app/tray.h"

#include <gtest/gtest.h>

#include <functional>

namespace zorvane::app {
namespace {

using doubles::App_Bench;
using doubles::Journal;
using Lines = std::vector<std::string>;

struct Scripted_Icon : Tray_Icon {
    explicit Scripted_Icon(Journal& journal) : journal(journal) {}
    bool add(const std::string& tip) override {
        journal.add("icon added: " + tip);
        return hasTray;
    }
    void remove() override { journal.add("icon removed"); }
    void popUpMenu() override {
        journal.add("menu popped up");
        if (whilePoppedUp) whilePoppedUp();
    }

    Journal& journal;
    bool hasTray = true;
    std::function<void()> whilePoppedUp;
};

struct Scripted_Form : Tray_Form {
    explicit Scripted_Form(Journal& journal) : journal(journal) {}
    [[nodiscard]] bool hidden() const override { return isHidden; }
    [[nodiscard]] bool minimized() const override { return isMinimized; }
    [[nodiscard]] std::string caption() const override { return text; }
    void hide() override {
        isHidden = true;
        journal.add("form hidden");
    }
    void showNormal() override {
        isHidden = isMinimized = false;
        journal.add("form shown");
    }
    void activate() override { journal.add("form activated"); }
    void setEntryChecked(bool checked) override {
        journal.add(checked ? "entry checked" : "entry unchecked");
    }

    Journal& journal;
    bool isHidden = false;
    bool isMinimized = false;
    std::string text = "site7.abc - Zorvane";
};

struct Tray_Test : testing::Test, App_Bench {
    Scripted_Icon icon{journal};
    Scripted_Form window{journal};
    Tray tray{app, icon, window};

    void doubleClick() { tray.Form_MouseMove(515, 0); }
    void rightClick(int y = 0) { tray.Form_MouseMove(517, y); }
    void monitor(bool loaded, bool visible) {
        link.monitorLoaded = loaded;
        link.monitorVisible = visible;
    }
    /// In the tray, minimized and therefore hidden.
    void putAway() {
        tray.MNU_Minimizetotray_Click();
        window.isMinimized = true;
        tray.formMinimized();
        journal.clear();
    }
};

TEST_F(Tray_Test, StartsOutsideTheTray) {
    EXPECT_FALSE(form.In_Tray);
    tray.formMinimized();
    tray.unload();
    EXPECT_EQ(journal.lines(), Lines{});
}

TEST_F(Tray_Test, TheEntryPutsTheIconThereAndHidesTheMonitor) {
    tray.MNU_Minimizetotray_Click();
    EXPECT_TRUE(form.In_Tray);
    EXPECT_EQ(journal.lines(),
              (Lines{"entry checked", "icon added: site7.abc - Zorvane", "link HideMonitor"}));
}

TEST_F(Tray_Test, TheEntryChosenAgainTakesTheIconAwayAndRestoresTheMonitor) {
    tray.MNU_Minimizetotray_Click();
    journal.clear();
    tray.MNU_Minimizetotray_Click();
    EXPECT_FALSE(form.In_Tray);
    EXPECT_EQ(journal.lines(), (Lines{"icon removed", "entry unchecked", "link RestoreMonitor"}));
}

TEST_F(Tray_Test, WithoutATrayAMessageSaysSoAndTheEntryStaysUnchecked) {
    icon.hasTray = false;
    tray.MNU_Minimizetotray_Click();
    EXPECT_FALSE(form.In_Tray);
    EXPECT_EQ(journal.lines(),
              (Lines{"entry checked", "icon added: site7.abc - Zorvane",
                     R"(Msgb 16 "Zorvane": "Unable to add icon to system tray!")", "entry unchecked"}));
    tray.unload();
    EXPECT_EQ(journal.lines().back(), "entry unchecked") << "there is no icon to take away";
}

TEST_F(Tray_Test, TheTipHasAtMostSixtyThreeCharacters) {
    window.text = std::string(70, 'a');
    tray.MNU_Minimizetotray_Click();
    EXPECT_EQ(journal.lines()[1], "icon added: " + std::string(63, 'a'));
}

TEST_F(Tray_Test, MinimizedWhileInTheTrayTheFormHidesAndTheMonitorToo) {
    tray.MNU_Minimizetotray_Click();
    journal.clear();
    tray.formMinimized();
    EXPECT_EQ(journal.lines(), (Lines{"form hidden", "link MonitorMinimized"}));
}

TEST_F(Tray_Test, ADoubleClickShowsTheFormAndBringsItToTheFront) {
    monitor(true, false);
    putAway();
    doubleClick();
    EXPECT_EQ(journal.lines(), (Lines{"form shown", "form activated"}));
}

TEST_F(Tray_Test, ADoubleClickWhileTheFormIsMinimizedButNotHiddenActivatesTheHiddenMonitor) {
    monitor(true, false);
    putAway();
    window.isHidden = false;
    doubleClick();
    EXPECT_EQ(journal.lines(), (Lines{"link ActivateMonitor", "form activated"}));
}

TEST_F(Tray_Test, RestoringFromTheTrayWithTheMonitorVisibleDoesntCallActivateMonitor) {
    monitor(true, true);
    putAway();
    doubleClick();
    putAway();
    window.isHidden = false;
    doubleClick();
    tray.MNU_Tray_All_Click();
    tray.MNU_Tray_Monitor_Window_Click();
    EXPECT_EQ(journal.beginningWith("link ActivateMonitor"), Lines{});
}

TEST_F(Tray_Test, ARightClickPopsUpTheMenuWhileTheFormIsMinimized) {
    rightClick();
    EXPECT_EQ(journal.lines(), Lines{});
    window.isMinimized = true;
    rightClick(7);
    EXPECT_EQ(journal.lines(), Lines{"menu popped up"});
}

TEST_F(Tray_Test, ARightClickPopsUpTheMenuWhileTheMonitorIsHidden) {
    monitor(true, false);
    rightClick();
    EXPECT_EQ(journal.lines(), Lines{}) << "not in the tray";
    tray.MNU_Minimizetotray_Click();
    journal.clear();
    rightClick(7);
    EXPECT_EQ(journal.lines(), Lines{}) << "a place of the form, not the icon";
    rightClick();
    EXPECT_EQ(journal.lines(), Lines{"menu popped up"});
    monitor(true, true);
    rightClick();
    EXPECT_EQ(journal.lines().size(), 1u);
}

TEST_F(Tray_Test, OtherMovesOfTheMouseDoNothing) {
    putAway();
    for (const int x : {0, 512, 513, 514, 516})
        tray.Form_MouseMove(x, 0);
    EXPECT_EQ(journal.lines(), Lines{});
}

TEST_F(Tray_Test, WhatArrivesWhileAnotherIsHandledIsIgnored) {
    window.isMinimized = true;
    icon.whilePoppedUp = [&] { doubleClick(); };
    rightClick();
    EXPECT_EQ(journal.lines(), Lines{"menu popped up"});
    icon.whilePoppedUp = nullptr;
    doubleClick();
    EXPECT_EQ(journal.lines().size(), 2u);
}

TEST_F(Tray_Test, AFailureIsSwallowed) {
    window.isMinimized = true;
    icon.whilePoppedUp = [] { throw Run_Time_Failure(5, "Invalid procedure call or argument"); };
    rightClick();
    rightClick();
    EXPECT_EQ(journal.lines(), (Lines{"menu popped up", "menu popped up"}));
}

TEST_F(Tray_Test, AllShowsTheFormAndTheHiddenMonitor) {
    monitor(true, false);
    putAway();
    tray.MNU_Tray_All_Click();
    EXPECT_EQ(journal.lines(), (Lines{"form shown", "link ActivateMonitor"}));
    journal.clear();
    monitor(false, false);
    tray.MNU_Tray_All_Click();
    EXPECT_EQ(journal.lines(), Lines{}) << "the form is shown, and there is no monitor";
}

TEST_F(Tray_Test, ApplicationWindowShowsTheFormAlone) {
    monitor(true, false);
    putAway();
    tray.MNU_Tray_Application_Window_Click();
    EXPECT_EQ(journal.lines(), Lines{"form shown"});
}

TEST_F(Tray_Test, MonitorWindowActivatesTheMonitorOrShowsANewOne) {
    monitor(true, false);
    tray.MNU_Tray_Monitor_Window_Click();
    EXPECT_EQ(journal.take(), Lines{"link ActivateMonitor"});
    monitor(true, true);
    tray.MNU_Tray_Monitor_Window_Click();
    EXPECT_EQ(journal.take(), Lines{});
    monitor(false, false);
    tray.MNU_Tray_Monitor_Window_Click();
    EXPECT_EQ(journal.take(), Lines{"link ShowMonitor 11 22 33 44"});
    monitor(false, false);
    form.Monitor_Place = {1, 2, 3, 4};
    tray.MNU_Tray_Monitor_Window_Click();
    EXPECT_EQ(journal.take(), Lines{"link ShowMonitor 1 2 3 4"});
}

TEST_F(Tray_Test, TheEndOfTheProgramTakesTheIconAwayOnce) {
    tray.MNU_Minimizetotray_Click();
    journal.clear();
    tray.unload();
    tray.unload();
    EXPECT_EQ(journal.lines(), Lines{"icon removed"});
}

} // namespace
} // namespace zorvane::app
