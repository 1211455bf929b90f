// SPDX-License-Identifier: MIT
// What a send knows of its writes, and what it decides by that, without a line.

#include "commission/sending_rules.h"
#include "commission/write_states.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::commission {
namespace {

using compare::Controller_Registers;
using ::testing::ElementsAre;

/// Register 10, whole; a block of 20 to 22 of which 21 is kept; the upper half of 30.
const std::vector<Plan_Write>& someWrites() {
    static const std::vector<Plan_Write> writes = {
        {Function_Code::PresetSingleRegister, 10, {5}, {Part::Whole}, {}, Stage::Usual},
        {Function_Code::PresetMultipleRegisters,
         20,
         {1, 2, 3},
         {Part::Whole, Part::Kept, Part::Whole},
         {},
         Stage::Usual},
        {Function_Code::PresetSingleRegister, 30, {0x0700}, {Part::High}, {}, Stage::Usual}};
    return writes;
}

void goesOut(Write_States& states, std::size_t number) {
    states.record(number).progress = Write_Progress::Sent;
    states.record(number).sent = states.plan(number).values;
}

TEST(Write_States_Test, OnlyWhatWentOutIsReadBack) {
    Write_States states(someWrites(), {}, {});
    EXPECT_TRUE(states.someWait());
    EXPECT_FALSE(states.someWereSent());
    goesOut(states, 1);
    EXPECT_THAT(states.touched(false), ElementsAre(20, 21, 22));
    EXPECT_FALSE(states.allThere({}));
}

TEST(Write_States_Test, AReadingVerifiesWhatItHolds) {
    Write_States states(someWrites(), {}, {});
    for (const std::size_t number : {0U, 1U, 2U})
        goesOut(states, number);
    Controller_Registers now;
    now.take(10, {6});
    now.take(20, {1, 9, 3});
    now.take(30, {0x07FF});
    EXPECT_THAT(states.judge(now, false), ElementsAre(1, 2)) << "a kept register and half of one don't count";
    EXPECT_FALSE(states.record(0).verified);
    EXPECT_THAT(states.touched(false), ElementsAre(10));
    EXPECT_THAT(states.touched(true), ElementsAre(10, 20, 21, 22, 30));
}

TEST(Write_States_Test, TheLastReadingTellsWhatChangedSince) {
    Write_States states(someWrites(), {}, {});
    goesOut(states, 0);
    Controller_Registers now;
    now.take(10, {5});
    EXPECT_THAT(states.judge(now, false), ElementsAre(0));
    now.take(10, {6});
    EXPECT_THAT(states.judge(now, false), ElementsAre()) << "verified once";
    EXPECT_FALSE(states.record(0).changedSince);
    EXPECT_THAT(states.judge(now, true), ElementsAre());
    EXPECT_TRUE(states.record(0).changedSince);
    EXPECT_FALSE(states.record(0).verified);
}

TEST(Write_States_Test, WhatCanOnlyBeWrittenIsNotWaitedFor) {
    Write_States states(someWrites(), {{21, 21}}, {});
    goesOut(states, 1);
    EXPECT_TRUE(states.cantBeReadBack(1));
    EXPECT_TRUE(states.allThere({}));
    EXPECT_EQ(states.readableRows(1), (std::vector<Register_Range>{{20, 20}, {22, 22}}));
}

TEST(Write_States_Test, WhatWasDoneBeforeIsReadBackToo) {
    const Write_States states(someWrites(), {}, {2});
    EXPECT_TRUE(states.someWait());
    EXPECT_THAT(states.touched(false), ElementsAre(30));
}

TEST(Write_States_Test, ABlockWithAnotherRegisterThatChangedSaysWhich) {
    const Plan_Write& block = someWrites()[1];
    Controller_Registers now;
    now.take(20, {0, 8, 0});
    EXPECT_EQ(otherwiseThanBefore(block, {{20, 7}, {21, 8}, {22, 7}}, now), std::nullopt);
    EXPECT_EQ(otherwiseThanBefore(block, {{20, 7}, {21, 9}, {22, 7}}, now),
              "register 21 of its block was 9 and is 8 now");
}

TEST(Write_States_Test, AsBeforeIsOnlyWhatIsKnown) {
    const Plan_Write& half = someWrites()[2];
    EXPECT_TRUE(isAsBefore(half, {{30, 0x0102}}, {0x01FF}));
    EXPECT_FALSE(isAsBefore(half, {{30, 0x0102}}, {0x07FF}));
    EXPECT_FALSE(isAsBefore(half, {}, {0x01FF}));
}

} // namespace
} // namespace zorvane::commission
