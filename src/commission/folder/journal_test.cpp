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

Json intent(std::size_t write, std::int32_t address, std::vector<int> values) {
    return {{"event", "write"}, {"write", write}, {"address", address}, {"values", std::move(values)}};
}
Json answer(std::size_t write, const char* end) {
    return {{"event", "answer"}, {"write", write}, {"end", end}};
}

TEST(Journal, TellsWhichWritesAreOpenAndWhichWereRefused) {
    Journal journal;
    journal.records = {intent(0, 11, {50}),  answer(0, "acknowledged"), intent(1, 12, {7}),
                       answer(1, "refused"), intent(2, 13, {8}),        answer(2, "no answer"),
                       intent(3, 14, {9})};
    EXPECT_EQ(writeTraces(journal), (std::map<std::size_t, Write_Trace>{{0, Write_Trace::Open},
                                                                        {1, Write_Trace::Refused},
                                                                        {2, Write_Trace::Open},
                                                                        {3, Write_Trace::Open}}));
    journal.records.push_back(intent(1, 12, {7}));
    EXPECT_EQ(writeTraces(journal).at(1), Write_Trace::Open) << "it went on";
}

TEST(Journal, WhatWasRefusedIsntInTheRegister) {
    Journal journal;
    journal.records = {intent(0, 11, {50, 51}), answer(0, "acknowledged"), intent(1, 12, {7, 8}),
                       answer(1, "refused"),    intent(2, 20, {9}),        answer(2, "no answer")};
    EXPECT_EQ(writtenRegisters(journal),
              (std::map<std::int32_t, std::uint16_t>{{11, 50}, {12, 51}, {20, 9}}));
    journal.records.push_back(intent(1, 12, {7, 8}));
    EXPECT_EQ(writtenRegisters(journal),
              (std::map<std::int32_t, std::uint16_t>{{11, 50}, {12, 7}, {13, 8}, {20, 9}}));
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
