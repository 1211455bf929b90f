// SPDX-License-Identifier: MIT
// The folders of runs: their order, what is kept of them, and what a damaged one tells.
#include "commission/folder/testing/memory_runs.h"
#include "commission/runs.h"
#include "commission/testing/session_bench.h"

#include <gmock/gmock.h>

namespace zorvane::commission {
namespace {

using doubles::Memory_Runs;
using doubles::Session_Bench;
using ::testing::ElementsAre;
using ::testing::SizeIs;

constexpr std::int64_t day = std::int64_t{24} * 3600 * 1000;
constexpr std::int64_t noon = 1795348800000; // 2026-11-22 12:00 UTC

struct Set_Clock final : Wall_Clock {
    [[nodiscard]] Wall_Time now() const override { return {ms, 0}; }
    std::int64_t ms = noon;
};

struct Runs_Bench {
    std::string begin() {
        Run_Beginning beginning{{}, paper, "controller.PUMP", "bytes"};
        beginning.head.model = "PUMP";
        return beginRun(runs, clock, std::move(beginning)).folder->name();
    }
    std::string beginAndFinish() {
        std::string name = begin();
        runs.runs[name]["result.json"] = R"({"state": "finished"})";
        return name;
    }
    [[nodiscard]] std::vector<std::string> listed() const {
        std::vector<std::string> names;
        for (const Run_Entry& run : listRuns(runs))
            names.push_back(run.name);
        return names;
    }

    Memory_Runs runs;
    Set_Clock clock;
    Plan_Paper paper;
};

TEST(Runs, TheNewestIsFirstThoughTheClockWasSetBack) {
    Runs_Bench bench;
    bench.begin();
    bench.clock.ms = noon + day;
    bench.begin();
    bench.clock.ms = noon - 2 * day;
    bench.begin();
    EXPECT_THAT(bench.listed(), ElementsAre("20261120-120000-PUMP-1-1", "20261123-120000-PUMP-1-1",
                                            "20261122-120000-PUMP-1-1"));
}

TEST(Runs, TwoOfOneSecondHaveTwoFolders) {
    Runs_Bench bench;
    bench.begin();
    bench.begin();
    EXPECT_THAT(bench.listed(), ElementsAre("20261122-120000-PUMP-1-2", "20261122-120000-PUMP-1-1"));
}

TEST(Runs, OfTheOldOnesAHundredAreKept) {
    Runs_Bench bench;
    const std::string oldest = bench.beginAndFinish();
    const std::string second = bench.beginAndFinish();
    for (int i = 0; i < 98; ++i)
        bench.beginAndFinish();
    bench.clock.ms = noon + 31 * day;
    bench.beginAndFinish(); // the 101st
    EXPECT_EQ(bench.runs.runs.size(), 100U);
    EXPECT_FALSE(bench.runs.runs.contains(oldest));
    EXPECT_TRUE(bench.runs.runs.contains(second));
}

TEST(Runs, WhatIsNoOlderThanThirtyDaysIsKept) {
    Runs_Bench bench;
    for (int i = 0; i < 105; ++i)
        bench.beginAndFinish();
    bench.clock.ms = noon + 30 * day;
    bench.beginAndFinish();
    EXPECT_EQ(bench.runs.runs.size(), 106U);
    bench.clock.ms += 1;
    bench.beginAndFinish();
    EXPECT_EQ(bench.runs.runs.size(), 100U); // of 107, among them the two of the last month
}

TEST(Runs, AnInterruptedRunIsKeptForEver) {
    Runs_Bench bench;
    const std::string interrupted = bench.begin();
    for (int i = 0; i < 100; ++i)
        bench.beginAndFinish();
    bench.clock.ms = noon + 400 * day;
    bench.beginAndFinish();
    EXPECT_TRUE(bench.runs.runs.contains(interrupted));
    EXPECT_EQ(bench.runs.runs.size(), 101U);
}

TEST(Runs, AClockSetBackRemovesNothing) {
    Runs_Bench bench;
    for (int i = 0; i < 105; ++i)
        bench.beginAndFinish();
    bench.clock.ms = noon - 400 * day;
    bench.beginAndFinish();
    EXPECT_EQ(bench.runs.runs.size(), 106U);
}

// A folder as a failing disk or a hand may leave it.

struct Damaged_Run : ::testing::Test {
    Damaged_Run() {
        bench.set(1, 2, 2, "50");
        EXPECT_EQ(bench.send().step, Step::Good);
        name = bench.newestRun();
    }
    std::string& file(const char* of) { return bench.runs.runs[name][of]; }
    [[nodiscard]] std::string state() const {
        const auto run = readRun(bench.runs, name);
        return run ? std::string(runStateWord(run->state)) : "none";
    }

    Session_Bench bench;
    std::string name;
};

TEST_F(Damaged_Run, WithoutAHeadOrAPlanItIsNoRun) {
    const auto whole = bench.runs.runs;
    EXPECT_EQ(state(), "finished");
    for (const char* const of : {"run.json", "plan.json"}) {
        for (const char* const text : {"", "{", "[]", "null", "{\"version\": 1}", "{\"version\": \"1\"}"}) {
            bench.runs.runs = whole;
            file(of) = text;
            EXPECT_EQ(state(), "none") << of << " " << text;
            EXPECT_THAT(listRuns(bench.runs), SizeIs(0));
        }
    }
}

TEST_F(Damaged_Run, AResultOfAnotherKindIsNone) {
    for (const char* const text : {"", "5", "[1]", R"({"state": 5})", R"({"state": null, "counts": 3})"}) {
        file("result.json") = text;
        EXPECT_EQ(state(), "interrupted") << text;
        EXPECT_EQ(listRuns(bench.runs).front().counts.at("unknown"), 1) << text;
    }
}

TEST_F(Damaged_Run, ALongTextWhoseSecondWriteNeverBeganIsOneUnknownValue) {
    Json paper = Json::parse(file("plan.json"));
    Json second = paper["writes"][0];
    second["address"] = 12; // of the same cell, as the writes of a long text are
    paper["writes"].push_back(second);
    file("plan.json") = paper.dump();
    file("result.json") = "";
    EXPECT_EQ(listRuns(bench.runs).front().counts, Json({{"verified", 0},
                                                         {"refused", 0},
                                                         {"stored_otherwise", 0},
                                                         {"unknown", 1},
                                                         {"not_sent", 0},
                                                         {"rows", 1}}));
}

TEST_F(Damaged_Run, WhatTheJournalSaysWasRefusedIsCountedAsThat) {
    file("result.json") = "";
    file("journal") += journalLine({{"event", "answer"}, {"write", 0}, {"end", "refused"}}) + "\n";
    const Json counts = listRuns(bench.runs).front().counts;
    EXPECT_EQ(counts.at("refused"), 1);
    EXPECT_EQ(counts.at("unknown"), 0);
    EXPECT_EQ(counts.at("rows"), 1);
}

TEST_F(Damaged_Run, RecordsOfTheJournalWithOtherKindsOfValuesAreNone) {
    file("result.json") = "";
    file("after.json") = "";
    file("journal") =
        journalLine({{"event", 5}}) + "\n" +
        journalLine({{"event", "write"}, {"write", "0"}, {"address", "11"}, {"values", {50}}}) + "\n" +
        journalLine({{"event", "write"}, {"write", -1}, {"address", 11}, {"values", {"50"}}}) + "\n" +
        journalLine({{"event", "write"}, {"write", 7}, {"address", 11}, {"values", 70000}}) + "\n";
    const auto run = readRun(bench.runs, name);
    ASSERT_TRUE(run);
    EXPECT_EQ(leftBy(*run), run->paper.before);
    EXPECT_EQ(listRuns(bench.runs).front().counts.at("not_sent"), 1);
}

TEST_F(Damaged_Run, AHeadWhoseNumbersAreBeyondTheirRangeIsNoHead) {
    const std::string head = file("run.json");
    const auto changed = [&head](const char* member, const Json& value) {
        Json json = Json::parse(head);
        json[member] = value;
        return parseHead(json.dump()).has_value();
    };
    EXPECT_TRUE(changed("sequence", 9007199254740991));
    EXPECT_FALSE(changed("sequence", 9007199254740992)); // the next run counts on from here
    EXPECT_FALSE(changed("sequence", -1));
    EXPECT_FALSE(changed("sequence", 1.5));
    EXPECT_FALSE(changed("started_ms", 1e300));
    EXPECT_FALSE(changed("started_ms", true));
    EXPECT_FALSE(changed("unit", 4294967297)); // not unit 1
    EXPECT_FALSE(changed("unit", Json()));
}

TEST_F(Damaged_Run, APlanWhoseNumbersAreNoRegistersIsNoPlan) {
    const std::string plan = file("plan.json");
    const auto changed = [&plan](const char* member, const Json& value) {
        Json json = Json::parse(plan);
        json["writes"][0][member] = value;
        return parsePaper(json.dump()).has_value();
    };
    EXPECT_TRUE(changed("values", Json::array({65535})));
    EXPECT_FALSE(changed("values", Json::array({65536})));
    EXPECT_FALSE(changed("values", Json::array({-1})));
    EXPECT_FALSE(changed("values", Json::array({1.5})));
    EXPECT_FALSE(changed("values", Json::array()));
    EXPECT_FALSE(changed("values", Json(std::vector<int>(124, 0))));
    EXPECT_FALSE(changed("function", 3));
    EXPECT_FALSE(changed("address", 4294967296));
    EXPECT_FALSE(changed("address", 2147483647));
    EXPECT_FALSE(changed("cells", Json::array({Json::array({1, 2})})));
}

} // namespace
} // namespace zorvane::commission
