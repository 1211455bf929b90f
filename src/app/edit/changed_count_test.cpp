// SPDX-License-Identifier: MIT
#include "app/edit/changed_count.h"
#include "app/edit/testing/edit_bench.h"

#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

struct Changed_Count : testing::Test, doubles::Edit_Bench {};

TEST_F(Changed_Count, IsToldWhenAskedForAndKeptUpToDate) {
    edit(1, "11");
    refreshChangedCount(app);
    EXPECT_EQ(told(), "") << "nobody asked";
    tellChangedCount(app);
    EXPECT_EQ(told(), "1 value differs from the file.");
    edit(2, "21");
    refreshChangedCount(app);
    EXPECT_EQ(told(), "2 values differ from the file.");
    edit(1, "10");
    edit(2, "20");
    refreshChangedCount(app);
    EXPECT_EQ(told(), "");
}

TEST_F(Changed_Count, ADocumentWithoutAPlaceHasNoFileToDifferFrom) {
    document.No_Place = true;
    edit(1, "11");
    tellChangedCount(app);
    EXPECT_EQ(told(), "1 value differs from what was opened.");
    edit(2, "21");
    refreshChangedCount(app);
    EXPECT_EQ(told(), "2 values differ from what was opened.");
}

TEST_F(Changed_Count, NewerLinesStayInFrontOfIt) {
    edit(1, "11");
    tellChangedCount(app);
    mainForm.base.bar.tell({"other", Bar_Kind::Warning, "Something else.", {}});
    edit(2, "21");
    refreshChangedCount(app);
    EXPECT_EQ(told(), "Something else.");
}

TEST_F(Changed_Count, TheMarkIsThatOfTheShownPage) {
    edit(1, "11");
    EXPECT_TRUE(isMarkedChanged(app, 1, 1));
    EXPECT_FALSE(isMarkedChanged(app, 2, 1));
    upper.setRow(2);
    EXPECT_FALSE(isMarkedChanged(app, 1, 1));
}

TEST_F(Changed_Count, WhileOnlineTheValuesAreTheControllersAndCarryNoMark) {
    edit(1, "11");
    form.Online = true;
    EXPECT_FALSE(isMarkedChanged(app, 1, 1));
    form.Online = false;
    EXPECT_TRUE(isMarkedChanged(app, 1, 1));
}

TEST_F(Changed_Count, ASaveTakesAllMarksAway) {
    edit(1, "11");
    MNU_Save_Click(app);
    EXPECT_FALSE(isMarkedChanged(app, 1, 1));
}

TEST_F(Changed_Count, TheSwitchTurnsTheMarksOffForTheNextStartToo) {
    edit(1, "11");
    EXPECT_TRUE(marksChangedCells(app));
    MNU_MarkChanged_Click(app);
    EXPECT_FALSE(isMarkedChanged(app, 1, 1));
    EXPECT_EQ(told(), "");
    state.marksChanged.reset();
    EXPECT_FALSE(marksChangedCells(app));
    MNU_MarkChanged_Click(app);
    EXPECT_TRUE(isMarkedChanged(app, 1, 1));
    EXPECT_EQ(told(), "1 value differs from the file.");
}

} // namespace
} // namespace zorvane::app
