// SPDX-License-Identifier: MIT
#include "commission/folder/journal.h"
#include "commission/folder/native_runs.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace zorvane::commission {
namespace {

namespace fs = std::filesystem;

class NativeRuns : public ::testing::Test {
  protected:
    static fs::path freshFolder() {
        std::string pattern = (fs::temp_directory_path() / "zorvane-runs-XXXXXX").string();
        EXPECT_NE(::mkdtemp(pattern.data()), nullptr);
        return pattern;
    }
    ~NativeRuns() override { fs::remove_all(base); }

    [[nodiscard]] static int modeOf(const fs::path& path) {
        return static_cast<int>(fs::status(path).permissions());
    }

    fs::path base = freshFolder();
    Native_Runs runs{(base / "state" / "runs").string()};
};

TEST_F(NativeRuns, AFolderAndItsFilesAreTheUsersAlone) {
    const Opened_Run run = runs.make("20261122-KVRT207D-1");
    ASSERT_TRUE(run.folder) << run.why;
    EXPECT_EQ(run.folder->name(), "20261122-KVRT207D-1-1");
    EXPECT_EQ(run.folder->put(planFile, "{}\n"), "");
    EXPECT_EQ(run.folder->append("line"), "");
    const fs::path folder = base / "state" / "runs" / run.folder->name();
    EXPECT_EQ(modeOf(base / "state"), 0700);
    EXPECT_EQ(modeOf(folder), 0700);
    EXPECT_EQ(modeOf(folder / "plan.json"), 0600);
    EXPECT_EQ(modeOf(folder / "journal"), 0600);
    EXPECT_EQ(runs.read(run.folder->name(), journalFile), "line\n");
    EXPECT_EQ(runs.names(), (std::vector<std::string>{run.folder->name()}));
}

TEST_F(NativeRuns, TheSameNameIsNeverTakenTwice) {
    const Opened_Run first = runs.make("a");
    const Opened_Run second = runs.make("a");
    EXPECT_EQ(first.folder->name(), "a-1");
    EXPECT_EQ(second.folder->name(), "a-2");
}

TEST_F(NativeRuns, OneProgramAtATimeIsAtWorkOnARun) {
    const Opened_Run first = runs.make("a");
    const Opened_Run second = runs.open("a-1");
    EXPECT_FALSE(second.folder);
    EXPECT_EQ(second.why, "another program is at work on this run");
}

TEST_F(NativeRuns, ATornLineEndsWhereTheNextOneBegins) {
    { EXPECT_EQ(runs.make("a").folder->append(journalLine({{"a", 1}})), ""); }
    std::ofstream(base / "state/runs/a-1/journal", std::ios::app | std::ios::binary) << "8a34 {\"ev";
    const Opened_Run again = runs.open("a-1");
    ASSERT_TRUE(again.folder);
    EXPECT_EQ(again.folder->append(journalLine({{"b", 2}})), "");
    const Journal journal = readJournal(*runs.read("a-1", journalFile));
    EXPECT_EQ(journal.records.size(), 2U);
    EXPECT_FALSE(journal.damaged);
}

TEST_F(NativeRuns, WhereAFolderCantBeMadeItSaysWhy) {
    std::ofstream(base / "state") << "a file";
    const Opened_Run run = runs.make("a");
    EXPECT_FALSE(run.folder);
    EXPECT_EQ(run.why, "Not a directory");
}

TEST_F(NativeRuns, NoNameLeadsOutOfTheFolder) {
    EXPECT_FALSE(runs.open("../a").folder);
    EXPECT_FALSE(runs.open("").folder);
    EXPECT_EQ(runs.read("..", planFile), std::nullopt);
}

TEST_F(NativeRuns, ARemovedRunIsGone) {
    { (void)runs.make("a"); }
    runs.remove("a-1");
    EXPECT_TRUE(runs.names().empty());
}

} // namespace
} // namespace zorvane::commission
