// SPDX-License-Identifier: MIT
// What each request of a send is for. The pump has two blocks, 10-20 and 30, which one request each reads.

#include "commission/testing/session_bench.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace zorvane::commission {
namespace {

using doubles::pumpIdentity;
using doubles::Session_Bench;

using Counts = std::pair<std::size_t, std::size_t>; ///< reads, writes

Counts countsOf(const Session_End& end) {
    EXPECT_EQ(end.step, Step::Good) << end.why;
    return {end.requests.reads, end.requests.writes};
}

TEST(Request_Count, NothingToWriteTakesOneReadingOfAll) {
    Session_Bench bench;
    EXPECT_EQ(countsOf(bench.send()), Counts(2, 0));
}

TEST(Request_Count, OneValueIsWrittenBetweenTwoQuestionsAndReadBack) {
    Session_Bench bench;
    bench.set(1, 2, 2, "50");
    EXPECT_EQ(countsOf(bench.send()), Counts(2 + 1 + 1 + 1, 1));
}

TEST(Request_Count, WhatLiesInOneBlockIsReadBackAtOnce) {
    Session_Bench bench;
    bench.set(1, 1, 2, "1");
    bench.set(1, 2, 2, "50");
    bench.set(1, 9, 2, "41000");
    EXPECT_EQ(countsOf(bench.send()), Counts(2 + 1 + 1 + 1, 3));
}

TEST(Request_Count, HalfARegisterIsReadAgainJustBefore) {
    Session_Bench bench;
    bench.set(1, 5, 2, "9");
    EXPECT_EQ(countsOf(bench.send()), Counts(2 + 1 + 1 + 1 + 1, 1));
}

TEST(Request_Count, TheFirmwareIsReadOnceAndNotWithEachQuestion) {
    Session_Bench bench(pumpIdentity + "FIRMWARE=300\n");
    bench.toy.registers[300] = 17;
    bench.set(1, 2, 2, "50");
    const Session_End end = bench.send();
    EXPECT_EQ(countsOf(end), Counts(3 + 1 + 1 + 1, 1));
    ASSERT_TRUE(end.identity.has_value());
    EXPECT_EQ(end.identity->firmware, "17");
}

TEST(Request_Count, TheSerialNumberIsReadWithEachQuestion) {
    Session_Bench bench(pumpIdentity + "SERIAL=300\n");
    bench.toy.registers[300] = 17;
    bench.set(1, 2, 2, "50");
    EXPECT_EQ(countsOf(bench.send()), Counts(3 + 2 + 1 + 2, 1)) << "another one's would be told";
}

TEST(Request_Count, WhatCantBeReadBackGoesOutWithEachSend) {
    Session_Bench bench(pumpIdentity + "WRITEONLY=12\n");
    bench.toy.unreadable = {12};
    for (const int sends : {1, 2}) {
        const Session_End end = bench.send();
        EXPECT_EQ(end.step, Step::Incomplete);
        EXPECT_EQ(end.report.counts.of(Value_State::Unknown), 1U);
        EXPECT_EQ(bench.toy.writes, sends) << "no reading tells whether the controller has it";
    }
}

} // namespace
} // namespace zorvane::commission
