// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/files/file_watch.h"
#include "app/testing/app_bench.h"

#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using doubles::smallDocument;

struct FileWatch : testing::Test, doubles::App_Bench {
    FileWatch() {
        openFile(app, "/home/site7.abc", false);
        watch.settle();
    }
    [[nodiscard]] const Bar_Line* line() const { return mainForm.base.bar.find("changed on disk"); }
    void look() {
        watch.look({[this] { ++reloads; }, {}});
    }

    int reloads = 0;
    File_Watch watch{app};
};

TEST_F(FileWatch, SaysNothingWhileTheFileIsAsItWas) {
    look();
    EXPECT_EQ(line(), nullptr);
}

TEST_F(FileWatch, SaysWhatAnotherProgramDidAndOffersToReadItAgain) {
    files.put("/home/site7.abc", smallDocument("11", "20"));
    look();
    ASSERT_NE(line(), nullptr);
    EXPECT_EQ(line()->text,
              "/home/site7.abc was changed on disk by another program at 14:03:22. The window shows "
              "what it held before, and Save would write over it.");
    ASSERT_EQ(line()->buttons.size(), 1U);
    EXPECT_EQ(line()->buttons[0].caption, "Reload");
    line()->buttons[0].press();
    EXPECT_EQ(reloads, 1);
}

TEST_F(FileWatch, SaysOfEachChangeOnce) {
    files.put("/home/site7.abc", smallDocument("11", "20"));
    look();
    mainForm.base.bar.withdraw("changed on disk"); // the user closed it
    look();
    EXPECT_EQ(line(), nullptr);
    files.put("/home/site7.abc", smallDocument("12", "20"));
    look();
    EXPECT_NE(line(), nullptr);
}

TEST_F(FileWatch, TakesItBackWhenTheFileIsAsItWas) {
    files.put("/home/site7.abc", smallDocument("11", "20"));
    look();
    files.put("/home/site7.abc", smallDocument("10", "20"));
    look();
    EXPECT_EQ(line(), nullptr);
}

TEST_F(FileWatch, SaysThatTheFileIsGone) {
    files.remove("/home/site7.abc");
    look();
    ASSERT_NE(line(), nullptr);
    EXPECT_EQ(line()->text,
              "/home/site7.abc is no longer on disk, or can't be read any more: seen at 14:03:22. "
              "Save would write it again from what the window shows.");
    EXPECT_TRUE(line()->buttons.empty());
}

TEST_F(FileWatch, ASaveOfOurOwnIsNoChange) {
    edit(1, "42");
    MNU_Save_Click(app);
    watch.saved();
    look();
    EXPECT_EQ(line(), nullptr);
}

/// The system tells of the write at once, while the save still shows its panel for a second.
TEST_F(FileWatch, ASaveOfOurOwnIsNoChangeEvenBeforeItHasEnded) {
    edit(1, "42");
    int looked = 0;
    mainForm.base.duringPause = [&](std::int32_t) {
        ++looked;
        look();
    };
    MNU_Save_Click(app);
    EXPECT_EQ(looked, 1);
    EXPECT_EQ(line(), nullptr);
    watch.saved();
    look();
    EXPECT_EQ(line(), nullptr);
}

TEST_F(FileWatch, AnotherProgramsChangeRightAfterASaveIsTold) {
    edit(1, "42");
    mainForm.base.duringPause = [&](std::int32_t) {
        files.put("/home/site7.abc", smallDocument("11", "20"));
        look();
    };
    MNU_Save_Click(app);
    watch.saved();
    EXPECT_NE(line(), nullptr);
}

TEST_F(FileWatch, ASaveOverAnotherProgramsChangeEndsTheLine) {
    files.put("/home/site7.abc", smallDocument("11", "20"));
    look();
    ASSERT_NE(line(), nullptr);
    MNU_Save_Click(app);
    watch.saved();
    EXPECT_EQ(line(), nullptr);
    look();
    EXPECT_EQ(line(), nullptr);
}

TEST_F(FileWatch, ASaveAsThatWasCancelledLeavesTheLine) {
    files.put("/home/site7.abc", smallDocument("11", "20"));
    look();
    ASSERT_NE(line(), nullptr);
    MNU_Saveas_Click(app);
    watch.saved();
    EXPECT_NE(line(), nullptr);
}

TEST_F(FileWatch, AfterSaveAsTheNewFileIsWatched) {
    choose("/home/site8.abc");
    MNU_Saveas_Click(app);
    watch.saved();
    files.put("/home/site7.abc", smallDocument("11", "20"));
    look();
    EXPECT_EQ(line(), nullptr);
    files.put("/home/site8.abc", smallDocument("11", "20"));
    look();
    ASSERT_NE(line(), nullptr);
}

TEST_F(FileWatch, ADocumentWithoutAPlaceIsNotWatched) {
    document.No_Place = true;
    watch.settle();
    EXPECT_EQ(watch.path(), std::nullopt);
    look();
    EXPECT_EQ(line(), nullptr);
}

} // namespace
} // namespace zorvane::app
