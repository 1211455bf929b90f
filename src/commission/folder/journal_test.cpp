// SPDX-License-Identifier: MIT
#include "commission/folder/journal.h"
#include "commission/folder/run_journal.h"
#include "commission/folder/testing/memory_runs.h"

#include <gtest/gtest.h>

namespace zorvane::commission {
namespace {

using doubles::Memory_Runs;

struct Fixed_Clock final : Wall_Clock {
    [[nodiscard]] Wall_Time now() const override { return {1795333205123, 60}; }
};

TEST(Journal, ALineIsACheckSumAndAnObject) {
    EXPECT_EQ(journalLine({{"event", "write"}, {"write", 3}}), "bbf72ddf {\"event\":\"write\",\"write\":3}");
}

TEST(Journal, ComesBackLineByLine) {
    const std::string bytes = journalLine({{"a", 1}}) + "\n" + journalLine({{"b", 2}}) + "\n";
    const Journal journal = readJournal(bytes);
    ASSERT_EQ(journal.records.size(), 2U);
    EXPECT_EQ(journal.records[1], Json({{"b", 2}}));
    EXPECT_FALSE(journal.damaged);
}

/// What a power cut leaves: the line that was being written didn't come to its end, so nothing was sent for
/// it.
TEST(Journal, ATornLastLineDoesntCount) {
    const std::string whole = journalLine({{"a", 1}}) + "\n";
    const std::string torn = journalLine({{"b", 2}});
    for (std::size_t size = 0; size < torn.size(); ++size) {
        const Journal journal = readJournal(whole + torn.substr(0, size));
        EXPECT_EQ(journal.records.size(), 1U) << size;
        EXPECT_FALSE(journal.damaged) << size;
    }
}

TEST(Journal, NothingCountsFromADamagedLineOn) {
    std::string bytes = journalLine({{"a", 1}}) + "\n" + journalLine({{"b", 2}}) + "\n";
    bytes[bytes.find("\"a\"") + 1] = 'x';
    const Journal journal = readJournal(bytes);
    EXPECT_TRUE(journal.records.empty());
    EXPECT_TRUE(journal.damaged);
}

TEST(Journal, EachRecordHasItsTime) {
    Memory_Runs runs;
    const Opened_Run run = runs.make("run");
    const Fixed_Clock clock;
    Run_Journal journal(*run.folder, clock);
    EXPECT_TRUE(journal.note("begin", {{"unit", 1}}));
    const auto lines = readJournal(*runs.read("run-1", journalFile));
    EXPECT_EQ(lines.records.at(0),
              Json({{"time", "2026-11-22T07:40:05.123Z"}, {"event", "begin"}, {"unit", 1}}));
}

TEST(Journal, AFullDiskIsToldAndNothingFollows) {
    Memory_Runs runs;
    const Opened_Run run = runs.make("run");
    const Fixed_Clock clock;
    Run_Journal journal(*run.folder, clock);
    runs.full = true;
    EXPECT_FALSE(journal.note("write"));
    EXPECT_EQ(journal.fault(), "No space left on device");
    runs.full = false;
    EXPECT_FALSE(journal.note("write"));
}

TEST(RunKind, ARunThatBeganTwiceWasGoneOnWith) {
    Journal journal;
    journal.records = {{{"event", "begin"}}, {{"event", "write"}}};
    EXPECT_EQ(runKindWord(kindOf(false, journal)), "send");
    EXPECT_EQ(runKindWord(kindOf(true, journal)), "restore");
    journal.records.push_back({{"event", "begin"}});
    EXPECT_EQ(runKindWord(kindOf(false, journal)), "resume");
}

} // namespace
} // namespace zorvane::commission
