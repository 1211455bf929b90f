// SPDX-License-Identifier: MIT
// What comes before an answer: noise, and the adapter's echo of the request.
#include "comm/modbus_control/testing/transaction_rig.h"

namespace zorvane {
namespace {

using namespace testing;

using RtuTransactionEcho = Transaction_Rig;

TEST_F(RtuTransactionEcho, NoiseBeforeAnAnswerIsCounted) {
    for (const std::size_t noise : {std::size_t{1}, std::size_t{10}}) {
        begin(read);
        clock.runFor(requestTime + 5 * ms);
        port.deliver(Byte_Array(noise, 0xE7));
        clock.runFor(5 * ms);
        port.deliver(answer);
        EXPECT_TRUE(recorder.results.back().answer);
        EXPECT_EQ(recorder.results.back().noise, noise);
        EXPECT_EQ(recorder.results.back().answerAt, noise);
        EXPECT_EQ(recorder.results.back().answerLength, answer.size());
    }
}

TEST_F(RtuTransactionEcho, WhatFollowsAnAnswerIsStray) {
    begin(read);
    clock.runFor(requestTime + 5 * ms);
    Byte_Array more = answer;
    more.insert(more.end(), {0x00, 0xFF});
    port.deliver(more);
    EXPECT_EQ(recorder.results.at(0).received, answer);
    clock.runFor(20 * ms - 1);
    EXPECT_TRUE(recorder.strays.empty());
    clock.runFor(1);
    EXPECT_EQ(recorder.strays, std::vector<std::string>{"stray bytes (2)"});
}

TEST_F(RtuTransactionEcho, BytesOfTheLinesPastAreNotReadForTheNextRequest) {
    port.queue(bytesOf("55 AA"));
    begin(read);
    port.deliverQueued();
    clock.runFor(requestTime);
    port.deliver(answer);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(recorder.results[0].noise, 0U);
}

TEST_F(RtuTransactionEcho, ASilentLineHasNoStrayBytes) {
    clock.runFor(microsPerSecond);
    begin(read);
    clock.runFor(microsPerSecond);
    EXPECT_TRUE(recorder.strays.empty());
}

TEST_F(RtuTransactionEcho, StrayBytesAreToldAtOnceWhenMoreThan512Came) {
    port.deliver(Byte_Array(512, 0x00));
    EXPECT_TRUE(recorder.strays.empty());
    port.deliver(bytesOf("00"));
    EXPECT_EQ(recorder.strays, std::vector<std::string>{"stray bytes (513)"});
}

TEST_F(RtuTransactionEcho, AnAnswerThatComesAfterItsLastTimeIsStray) {
    begin(read);
    clock.runFor(requestTime + 200 * ms);
    port.deliver(answer);
    clock.runFor(20 * ms);
    EXPECT_EQ(recorder.strays, std::vector<std::string>{"stray bytes (9)"});
}

TEST_F(RtuTransactionEcho, StrayBytesBeforeALossAreTold) {
    port.deliver(bytesOf("00 FF"));
    port.unplug();
    EXPECT_EQ(recorder.strays, std::vector<std::string>{"stray bytes (2)"});
}

TEST_F(RtuTransactionEcho, StrayBytesBeforeTheUserOpensThePortAnewAreTold) {
    port.deliver(bytesOf("55 AA"));
    port.close();
    open();
    clock.runFor(20 * ms);
    EXPECT_EQ(recorder.strays, std::vector<std::string>{"stray bytes (2)"});
}

TEST_F(RtuTransactionEcho, BytesOfTheDelayBeforeSendingAreToldBeforeTheRequest) {
    settings.rts = Rts_Mode::HighOnSend;
    settings.txDelayMs = 3;
    use(settings);
    transaction.submit(read);
    clock.runFor(silence + ms);
    port.deliver(bytesOf("00 FF"));
    EXPECT_TRUE(recorder.strays.empty());
    clock.runFor(2 * ms);
    EXPECT_EQ(sentAt.size(), 1U);
    EXPECT_EQ(recorder.strays, std::vector<std::string>{"stray bytes (2)"});
}

TEST_F(RtuTransactionEcho, StrayBytesDoNotEndTheWaitForALateAnswer) {
    begin(read);
    clock.runFor(requestTime + 100 * ms);
    const Micros deadline = clock.now();
    transaction.submit(read);
    clock.runFor(10 * ms);
    port.deliver(bytesOf("00"));
    clock.runFor(100 * ms);
    EXPECT_EQ(sentAt.at(1), deadline + 100 * ms);
}

TEST_F(RtuTransactionEcho, StrayBytesMoveTheNextRequest) {
    clock.runFor(100 * ms);
    port.deliver(bytesOf("00"));
    const Micros stray = clock.now();
    begin(read);
    EXPECT_EQ(sentAt[0], stray + silence);
    EXPECT_EQ(recorder.strays, std::vector<std::string>{"stray bytes (1)"});
}

TEST_F(RtuTransactionEcho, AnEchoBeforeAReadsAnswerIsLearnt) {
    begin(read);
    port.deliver(port.written.back());
    clock.runFor(requestTime + 5 * ms);
    port.deliver(answer);
    EXPECT_TRUE(recorder.results.at(0).echoed);
    EXPECT_EQ(recorder.results.at(0).noise, 0U);

    begin(presetSingle(1, 4, 9));
    port.deliver(port.written.back());
    clock.runFor(requestTime + 5 * ms);
    EXPECT_EQ(recorder.results.size(), 1U) << "the echo was taken for the answer";
    port.deliver(port.written.back());
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_TRUE(recorder.results[1].answer);
}

TEST_F(RtuTransactionEcho, ALearntEchoWithoutAnAnswerIsAFailedWrite) {
    begin(read);
    port.deliver(port.written.back());
    clock.runFor(requestTime + 5 * ms);
    port.deliver(answer);
    begin(presetSingle(1, 4, 9));
    port.deliver(port.written.back());
    clock.runFor(requestTime + 100 * ms);
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_EQ(fault(), "only the adapter's echo");
}

TEST_F(RtuTransactionEcho, AnEchoAloneTellsThatTheAdapterEchoes) {
    begin(read);
    port.deliver(port.written.back());
    clock.runFor(requestTime + 100 * ms);
    EXPECT_EQ(fault(), "only the adapter's echo");
    begin(presetSingle(1, 4, 9));
    port.deliver(port.written.back());
    clock.runFor(requestTime + 100 * ms);
    EXPECT_EQ(fault(), "only the adapter's echo");
}

/// A single write whose answer comes in so many copies.
class RtuTransactionCopies : public Transaction_Rig {
  protected:
    [[nodiscard]] bool wellAnsweredBy(int copies) {
        begin(presetSingle(1, 4, 9));
        Byte_Array bytes;
        for (int copy = 0; copy < copies; ++copy)
            bytes.insert(bytes.end(), port.written.back().begin(), port.written.back().end());
        clock.runFor(requestTime + 5 * ms);
        port.deliver(bytes);
        clock.runFor(100 * ms);
        return recorder.results.back().answer.has_value();
    }
};

TEST_F(RtuTransactionCopies, TwoCopiesOfTwoWritesTellThatTheAdapterEchoes) {
    EXPECT_TRUE(wellAnsweredBy(2));
    EXPECT_TRUE(wellAnsweredBy(2));
    EXPECT_FALSE(wellAnsweredBy(1));
    EXPECT_EQ(fault(), "only the adapter's echo");
    EXPECT_TRUE(wellAnsweredBy(2));
}

TEST_F(RtuTransactionCopies, AnAnswerThatCameTwiceOnceCostsTheNextWritesNothing) {
    EXPECT_TRUE(wellAnsweredBy(2));
    EXPECT_TRUE(wellAnsweredBy(1));
    EXPECT_TRUE(wellAnsweredBy(2));
    EXPECT_TRUE(wellAnsweredBy(1));
}

TEST_F(RtuTransactionCopies, AnotherLineBeginsWithoutThatKnowledge) {
    EXPECT_TRUE(wellAnsweredBy(2));
    settings.line.baud = 19200;
    use(settings);
    EXPECT_TRUE(wellAnsweredBy(2));
    EXPECT_TRUE(wellAnsweredBy(1));
}

TEST_F(RtuTransactionEcho, AReadWithoutEchoForgetsIt) {
    begin(read);
    port.deliver(port.written.back());
    port.deliver(answer);
    begin(read);
    clock.runFor(requestTime + 5 * ms);
    port.deliver(answer);
    begin(presetSingle(1, 4, 9));
    clock.runFor(requestTime + 5 * ms);
    port.deliver(port.written.back());
    ASSERT_EQ(recorder.results.size(), 3U);
    EXPECT_TRUE(recorder.results[2].answer);
}

TEST_F(RtuTransactionEcho, TheEchoSwitchHoldsFromTheFirstRequest) {
    settings.adapterEchoes = true;
    use(settings);
    begin(presetSingle(1, 4, 9));
    port.deliver(port.written.back());
    clock.runFor(requestTime + 5 * ms);
    EXPECT_TRUE(recorder.results.empty());
    port.deliver(port.written.back());
    EXPECT_EQ(recorder.results.size(), 1U);
}

TEST_F(RtuTransactionEcho, AnEchoWhoseAddressLooksLikeAByteCountIsNoAnswer) {
    begin(readRequest(1, 0x0300, 2));
    port.deliver(port.written.back());
    clock.runFor(requestTime + 60 * ms);
    EXPECT_TRUE(recorder.results.empty());
    port.deliver(answer);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_TRUE(recorder.results[0].answer);
}

TEST_F(RtuTransactionEcho, AnExceptionInsideAnAnswerIsNotTaken) {
    begin(readRequest(1, 0, 4));
    const Byte_Array inside = withCrc(bytesOf("01 03 08 01 83 02 C0 F1 00 00 00"));
    clock.runFor(requestTime + 5 * ms);
    port.deliver(Byte_Array(inside.begin(), inside.begin() + 8));
    EXPECT_TRUE(recorder.results.empty());
    clock.runFor(8 * ms);
    port.deliver(Byte_Array(inside.begin() + 8, inside.end()));
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(recorder.results[0].answer->registers, (std::vector<std::uint16_t>{0x0183, 0x02C0, 0xF100, 0}));
}

} // namespace
} // namespace zorvane
