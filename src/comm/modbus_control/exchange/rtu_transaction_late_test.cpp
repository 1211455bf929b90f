// SPDX-License-Identifier: MIT
// Answers that come when nobody waits for them any more: after a time-out, or for a request that was
// abandoned.
#include "comm/modbus_control/testing/transaction_rig.h"

namespace zorvane {
namespace {

using namespace testing;

using RtuTransactionLate = Transaction_Rig;

TEST_F(RtuTransactionLate, AfterATimeOutTheSameShapeWaitsForOneMore) {
    begin(read);
    clock.runFor(requestTime + 100 * ms);
    const Micros deadline = sentAt[0] + requestTime + 100 * ms;
    begin(readRequest(1, 500, 2));
    EXPECT_EQ(sentAt.at(1), deadline + 100 * ms);
}

TEST_F(RtuTransactionLate, AfterATimeOutAnotherShapeGoesOn) {
    for (const Rtu_Request& other : {readRequest(1, 0, 3), readRequest(2, 0, 2), presetSingle(1, 0, 1)}) {
        begin(read);
        clock.runFor(requestTime + 100 * ms);
        const Micros deadline = clock.now();
        begin(other);
        EXPECT_EQ(sentAt.back(), deadline);
        transaction.abandon();
        clock.runFor(microsPerSecond);
    }
}

TEST_F(RtuTransactionLate, ALateAnswerIsDroppedAndFreesItsShape) {
    begin(read);
    clock.runFor(requestTime + 100 * ms);
    transaction.submit(readRequest(1, 500, 2));
    clock.runFor(40 * ms);
    port.deliver(answer);
    const Micros late = clock.now();
    clock.runFor(10 * ms);
    EXPECT_EQ(recorder.strays, std::vector<std::string>{"late answer to an earlier request, dropped (9)"});
    EXPECT_EQ(sentAt.at(1), late + 5 * ms);
    EXPECT_EQ(recorder.results.size(), 1U);
}

TEST_F(RtuTransactionLate, ALateAnswerOfAnotherShapeDoesNotEndTheWait) {
    begin(readRequest(1, 0, 3));
    clock.runFor(requestTime + 100 * ms);
    begin(read);
    clock.runFor(requestTime + 10 * ms);
    port.deliver(withCrc(bytesOf("01 03 06 00 09 00 09 00 09")));
    EXPECT_EQ(recorder.results.size(), 1U);
    clock.runFor(50 * ms);
    port.deliver(answer);
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_EQ(recorder.results[1].answer->registers, (std::vector<std::uint16_t>{7, 8}));
    EXPECT_EQ(recorder.results[1].noise, 0U);
}

TEST_F(RtuTransactionLate, ALateAnswerThatHoldsWhatLooksLikeADamagedOneDoesNotEndTheWait) {
    begin(readRequest(1, 0, 5));
    clock.runFor(requestTime + 100 * ms);
    begin(read);
    clock.runFor(requestTime + 10 * ms);
    port.deliver(withCrc(bytesOf("01 03 0A 01 03 04 00 07 00 08 00 00 00")));
    clock.runFor(50 * ms);
    EXPECT_EQ(recorder.results.size(), 1U);
    port.deliver(answer);
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_EQ(recorder.results[1].answer->registers, (std::vector<std::uint16_t>{7, 8}));
}

TEST_F(RtuTransactionLate, AnAnswerIsFoundBehindALateOneAndMoreNoiseThanIsKept) {
    begin(readRequest(1, 0, 1));
    clock.runFor(requestTime + 100 * ms);
    EXPECT_EQ(fault(), "no answer");
    begin(read);
    clock.runFor(requestTime);
    port.deliver(Byte_Array(300, 0x5A));
    port.deliver(withCrc(bytesOf("01 03 02 00 07")));
    port.deliver(Byte_Array(3800, 0x5A));
    port.deliver(answer);
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_TRUE(recorder.results[1].answer);
}

TEST_F(RtuTransactionLate, AnExceptionThatMayBeLateIsNobodys) {
    begin(readRequest(1, 0, 3));
    clock.runFor(requestTime + 100 * ms);
    begin(read);
    clock.runFor(requestTime + 10 * ms);
    port.deliver(withCrc(bytesOf("01 83 02")));
    clock.runFor(100 * ms);
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_FALSE(recorder.results[1].answer);
    EXPECT_EQ(fault(), "only a late answer to an earlier request");
}

TEST_F(RtuTransactionLate, AnExceptionAtTheLastTimeOfALateAnswerIsNotLate) {
    begin(readRequest(1, 0, 1));
    clock.runFor(requestTime + 100 * ms);
    begin(read);
    clock.runUntil(sentAt[0] + requestTime + 200 * ms);
    port.deliver(withCrc(bytesOf("01 83 02")));
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_TRUE(recorder.results[1].answer);
}

TEST_F(RtuTransactionLate, AnExceptionOfAnotherFunctionIsNotLate) {
    begin(read);
    clock.runFor(requestTime + 100 * ms);
    begin(presetSingle(1, 5, 7));
    clock.runFor(requestTime);
    port.deliver(withCrc(bytesOf("01 86 02")));
    ASSERT_EQ(recorder.results.size(), 2U);
    ASSERT_TRUE(recorder.results[1].answer);
    EXPECT_EQ(recorder.results[1].answer->exception, 2);
}

TEST_F(RtuTransactionLate, AnAnswerBehindAnExceptionThatMayBeLateCounts) {
    begin(readRequest(1, 0, 1));
    clock.runFor(requestTime + 100 * ms);
    begin(read);
    clock.runFor(requestTime);
    port.deliver(bytesOf("5A"));
    port.deliver(withCrc(bytesOf("01 83 02")));
    EXPECT_EQ(recorder.results.size(), 1U);
    port.deliver(answer);
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_TRUE(recorder.results[1].answer);
    EXPECT_EQ(recorder.results[1].noise, 0U) << "what stands before a late answer was told apart";
}

TEST_F(RtuTransactionLate, AfterANoisyCopyOfAnEarlierAnswerTheOwnOneMayTakeItsWholeTime) {
    begin(read);
    clock.runFor(requestTime + 5 * ms);
    port.deliver(answer);
    ASSERT_EQ(recorder.results.size(), 1U);
    begin(readRequest(1, 500, 2));
    clock.runFor(requestTime + 2 * ms);
    port.deliver(bytesOf("55"));
    port.deliver(answer);
    clock.runFor(90 * ms);
    EXPECT_EQ(recorder.results.size(), 1U) << "the time-out isn't over";
    port.deliver(withCrc(bytesOf("01 03 04 00 09 00 09")));
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_EQ(recorder.results[1].answer->registers, (std::vector<std::uint16_t>{9, 9}));
}

TEST_F(RtuTransactionLate, OnALineFasterThanItsBaudRateAnEarlyAnswerIsNoCopy) {
    begin(readRequest(1, 100, 3));
    clock.runFor(requestTime - 1);
    port.deliver(withCrc(bytesOf("01 03 06 00 01 00 02 00 03")));
    begin(read);
    clock.runFor(requestTime + 5 * ms);
    port.deliver(answer);
    begin(readRequest(1, 500, 2));
    clock.runFor(requestTime - 1);
    port.deliver(answer);
    clock.runFor(10 * ms);
    ASSERT_EQ(recorder.results.size(), 3U);
    EXPECT_EQ(recorder.results[2].answer->registers, (std::vector<std::uint16_t>{7, 8}));
}

TEST_F(RtuTransactionLate, WhatMayBeALateAnswerDoesntMakeALineFast) {
    begin(readRequest(1, 100, 3));
    clock.runFor(requestTime + 100 * ms);
    transaction.submit(readRequest(1, 200, 3));
    clock.runFor(100 * ms + requestTime - 1);
    port.deliver(withCrc(bytesOf("01 03 06 00 01 00 02 00 03")));
    ASSERT_EQ(recorder.results.size(), 2U);
    begin(read);
    clock.runFor(requestTime + 5 * ms);
    port.deliver(answer);
    begin(readRequest(1, 500, 2));
    clock.runFor(requestTime - 1);
    port.deliver(answer);
    clock.runFor(10 * ms);
    EXPECT_EQ(recorder.results.size(), 3U) << "it may be the copy of the one before";
}

TEST_F(RtuTransactionLate, AnAnswerThatWasOneLongAgoIsNoCopy) {
    begin(read);
    clock.runFor(requestTime + 5 * ms);
    port.deliver(answer);
    clock.runFor(microsPerSecond);
    begin(readRequest(1, 500, 2));
    clock.runFor(requestTime - 1);
    port.deliver(answer);
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_EQ(recorder.results[1].answer->registers, (std::vector<std::uint16_t>{7, 8}));
}

TEST_F(RtuTransactionLate, AnAbandonedRequestKeepsTheLineUntilItsAnswerCame) {
    begin(read);
    clock.runFor(requestTime + 5 * ms);
    transaction.abandon();
    EXPECT_TRUE(transaction.idle());
    transaction.submit(readRequest(1, 500, 2));
    clock.runFor(30 * ms);
    EXPECT_EQ(sentAt.size(), 1U);
    port.deliver(answer);
    const Micros end = clock.now();
    clock.runFor(10 * ms);
    EXPECT_EQ(sentAt.at(1), end + silence);
    EXPECT_TRUE(recorder.results.empty());
}

TEST_F(RtuTransactionLate, ToAbandonNothingHoldsNothingUp) {
    begin(read);
    clock.runFor(requestTime);
    port.deliver(answer);
    const Micros end = clock.now();
    transaction.abandon();
    begin(readRequest(1, 500, 2));
    EXPECT_EQ(sentAt.at(1), end + silence);
    port.deliver(answer);
    transaction.submit(read);
    transaction.abandon();
    clock.runFor(requestTime + silence);
    const Micros start = clock.now();
    begin(read);
    EXPECT_EQ(sentAt.at(2), start) << "the abandoned one had not gone out";
}

TEST_F(RtuTransactionLate, ALineThatFallsSilentBehindAnAbandonedRequestIsFree) {
    begin(read);
    clock.runFor(requestTime + 5 * ms);
    transaction.abandon();
    transaction.submit(readRequest(1, 0, 3));
    port.deliver(bytesOf("5A"));
    const Micros last = clock.now();
    clock.runFor(30 * ms);
    EXPECT_EQ(sentAt.at(1), last + 20 * ms);
}

TEST_F(RtuTransactionLate, AnAbandonedRequestKeepsTheLineNoLongerThanItsTimeOut) {
    begin(read);
    clock.runFor(requestTime + 5 * ms);
    transaction.abandon();
    begin(readRequest(1, 0, 3));
    EXPECT_EQ(sentAt.at(1), sentAt[0] + requestTime + 100 * ms);
    transaction.abandon();
}

TEST_F(RtuTransactionLate, WhatCameForAnAbandonedRequestIsNotTheNextOnes) {
    begin(read);
    clock.runFor(requestTime);
    port.deliver(bytesOf("5A 5A"));
    transaction.abandon();
    clock.runFor(microsPerSecond);
    begin(read);
    clock.runFor(requestTime);
    port.deliver(answer);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(recorder.results[0].received, answer);
    EXPECT_EQ(recorder.results[0].noise, 0U);
}

} // namespace
} // namespace zorvane
