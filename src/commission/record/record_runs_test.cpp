// SPDX-License-Identifier: MIT
#include "commission/record/record_json.h"
#include "commission/record/record_of_run.h"
#include "commission/record/record_runs.h"
#include "commission/record/testing/sample_record.h"

#include <gtest/gtest.h>

namespace zorvane::commission {
namespace {

TEST(RecordRuns, GiveTheFilesOfTheRun) {
    const Record record = doubles::sampleRecord();
    const Record_Runs runs(record, "a.json");
    EXPECT_EQ(runs.place(), "a.json");
    EXPECT_EQ(runs.names(), std::vector<std::string>{record.run});
    EXPECT_EQ(runs.read(record.run, "journal"), "00000000 {}\n");
    EXPECT_EQ(runs.read(record.run, "before.KVRT207D"), record.document);
    EXPECT_EQ(runs.read(record.run, "result.json"), std::nullopt);
    EXPECT_EQ(runs.read("another", "journal"), std::nullopt);
}

TEST(RecordRuns, TakeNothing) {
    Record_Runs runs(doubles::sampleRecord(), "a.json");
    EXPECT_EQ(runs.make("x").why, "a record can't be changed");
    EXPECT_EQ(runs.open("x").folder, nullptr);
}

TEST(RecordRuns, ARecordMadeFromARecordIsTheSame) {
    Record record;
    record.run = "r-1";
    record.folder = {{"run.json", R"({"model": "K", "unit": 1})"}, {"plan.json", "{}"}};
    const auto again = recordOfRun(Record_Runs(record, ""), "r-1");
    ASSERT_TRUE(again);
    EXPECT_EQ(recordOfRun(Record_Runs(*recordOfJson(recordJson(*again)), ""), "r-1"), again);
}

} // namespace
} // namespace zorvane::commission
