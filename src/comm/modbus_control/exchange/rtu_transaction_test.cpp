// SPDX-License-Identifier: MIT
// One exchange in time: when it goes out, how long it waits, what holds the next one. All times in us on a
// hand clock; 9600 baud without parity gives 1042 us a character and 3646 us of silence between frames.
#include "comm/modbus_control/testing/transaction_rig.h"

namespace zorvane {
namespace {

using namespace testing;

using RtuTransaction = Transaction_Rig;

TEST_F(RtuTransaction, TheFirstRequestWaitsForTheSilenceOfTheLine) {
    const Micros start = clock.now();
    begin(read);
    EXPECT_EQ(sentAt.at(0), start + silence);
    EXPECT_EQ(recorder.sent, 1);
}

TEST_F(RtuTransaction, KnowsTheUsualLineWithoutBeingTold) {
    Rtu_Transaction untold{port, clock, recorder};
    untold.setWaits(0, 100 * ms);
    untold.lineOpened();
    const Micros start = clock.now();
    untold.submit(read);
    clock.runFor(10 * ms);
    ASSERT_EQ(sentAt.size(), 1U);
    EXPECT_EQ(sentAt[0], start + silence);
}

TEST_F(RtuTransaction, ASlowerLineHasALongerSilenceFromTheNextRequestOn) {
    settings.line.baud = 1200;
    use(settings);
    const Micros start = clock.now();
    begin(read);
    EXPECT_EQ(sentAt[0], start + frameSilence(settings.line));
    EXPECT_GT(frameSilence(settings.line), 7 * silence);
}

TEST_F(RtuTransaction, TheNextRequestGoesOutOneSilenceAfterTheLastByte) {
    recorder.onFinished = [this] {
        if (recorder.results.size() == 1) transaction.submit(read);
    };
    begin(read);
    clock.runFor(requestTime + 20 * ms);
    port.deliver(answer);
    const Micros end = clock.now();
    clock.runFor(10 * ms);
    EXPECT_EQ(sentAt.at(1), end + silence);
    EXPECT_EQ(recorder.results.at(0).answer->registers, (std::vector<std::uint16_t>{7, 8}));
    EXPECT_EQ(recorder.results.at(0).endedAt, end);
}

TEST_F(RtuTransaction, WhatWaitsToBeReadAtTheDeadlineIsReadFirst) {
    begin(read);
    port.queue(answer);
    port.onLook = [this] { clock.in(0, [this] { port.deliverQueued(); }); };
    clock.runFor(requestTime + 100 * ms);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_TRUE(recorder.results[0].answer.has_value());
    EXPECT_EQ(recorder.results[0].endedAt, sentAt.at(0) + requestTime + 100 * ms);
}

TEST_F(RtuTransaction, WhatWaitsToBeReadWhileALineSettlesIsReadFirst) {
    begin(read);
    clock.runFor(requestTime + 10 * ms);
    port.deliver(bytesOf("01 03 04 00 07 00 08 00 00"));
    port.queue(answer);
    port.onLook = [this] { clock.in(0, [this] { port.deliverQueued(); }); };
    clock.runFor(40 * ms);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_TRUE(recorder.results[0].answer.has_value());
}

TEST_F(RtuTransaction, BytesThatWaitAndNeverComeHoldNoTry) {
    begin(read);
    port.queue(answer);
    clock.runFor(requestTime + 100 * ms);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(fault(), "no answer");
}

TEST_F(RtuTransaction, AnAnswerThatIsInBeforeTheRequestIsOutMovesNothing) {
    begin(read);
    port.deliver(answer);
    ASSERT_EQ(recorder.results.size(), 1U);
    begin(read);
    EXPECT_EQ(sentAt.at(1), sentAt[0] + requestTime + silence);
}

TEST_F(RtuTransaction, ThePauseOfTheTemplateComesOnTop) {
    transaction.setWaits(50 * ms, 100 * ms);
    recorder.onFinished = [this] {
        if (recorder.results.size() == 1) transaction.submit(read);
    };
    begin(read);
    clock.runFor(requestTime + 20 * ms);
    port.deliver(answer);
    const Micros end = clock.now();
    clock.runFor(100 * ms);
    EXPECT_EQ(sentAt.at(1), end + silence + 50 * ms);
}

TEST_F(RtuTransaction, AnAnswerInPiecesCountsWithItsLastByte) {
    begin(read);
    clock.runFor(requestTime);
    for (const std::uint8_t byte : answer) {
        EXPECT_TRUE(recorder.results.empty());
        clock.runFor(1042);
        port.deliver({byte});
    }
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_TRUE(recorder.results[0].answer);
}

TEST_F(RtuTransaction, TheTimeOutCountsFromTheLastByteSent) {
    begin(read);
    clock.runUntil(sentAt[0] + requestTime + 100 * ms - 1);
    EXPECT_TRUE(recorder.results.empty());
    clock.runFor(1);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(fault(), "no answer");
}

TEST_F(RtuTransaction, AnAnswerThatHasBegunMayEnd) {
    begin(read);
    clock.runUntil(sentAt[0] + requestTime + 100 * ms - 1000);
    port.deliver(Byte_Array(answer.begin(), answer.begin() + 4));
    clock.runFor(10 * ms);
    port.deliver(Byte_Array(answer.begin() + 4, answer.end()));
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_TRUE(recorder.results[0].answer);
}

TEST_F(RtuTransaction, AnAnswerThatStopsInTheMiddleFailsAtTheTimeOut) {
    for (std::size_t length = 1; length < answer.size(); ++length) {
        begin(read);
        clock.runFor(requestTime + 20 * ms);
        port.deliver(Byte_Array(answer.begin(), answer.begin() + static_cast<std::ptrdiff_t>(length)));
        clock.runUntil(sentAt.back() + requestTime + 100 * ms - 1);
        EXPECT_EQ(recorder.results.size(), length - 1);
        clock.runFor(1);
        ASSERT_EQ(recorder.results.size(), length);
        EXPECT_EQ(fault(), "answer cut short");
        clock.runFor(200 * ms);
    }
}

TEST_F(RtuTransaction, AfterAnAnswerThatStoppedBehindTheTimeOutTheSameShapeWaitsFromThere) {
    begin(read);
    clock.runUntil(sentAt[0] + requestTime + 95 * ms);
    port.deliver(bytesOf("01 03 04"));
    clock.runFor(20 * ms);
    EXPECT_EQ(fault(), "answer cut short");
    const Micros failed = clock.now();
    begin(read);
    EXPECT_EQ(sentAt.at(1), failed + 100 * ms);
}

TEST_F(RtuTransaction, AWrongCrcFailsOnceTheLineWasSilentFor20Ms) {
    begin(read);
    clock.runFor(requestTime + 20 * ms);
    Byte_Array damaged = answer;
    damaged[4] ^= 1U;
    port.deliver(damaged);
    clock.runFor(20 * ms - 1);
    EXPECT_TRUE(recorder.results.empty());
    clock.runFor(1);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(fault(), "wrong CRC");
    EXPECT_EQ(recorder.results[0].received, damaged);
}

TEST_F(RtuTransaction, AfterAWrongCrcNoLateAnswerIsWaitedFor) {
    begin(read);
    clock.runFor(requestTime + 20 * ms);
    Byte_Array damaged = answer;
    damaged[4] ^= 1U;
    port.deliver(damaged);
    clock.runFor(20 * ms);
    ASSERT_EQ(recorder.results.size(), 1U);
    const Micros failed = clock.now();
    begin(read);
    EXPECT_EQ(sentAt.at(1), failed);
}

TEST_F(RtuTransaction, AfterAFailedTryTheLineIsSilentFor5MsAtLeast) {
    settings.line.baud = 115200;
    use(settings);
    recorder.onFinished = [this] {
        if (recorder.results.size() == 1) transaction.submit(readRequest(1, 0, 3));
    };
    begin(read);
    clock.runFor(100 * ms);
    const Micros noise = clock.now();
    port.deliver(bytesOf("00"));
    clock.runFor(10 * ms);
    EXPECT_EQ(fault(), "only noise");
    EXPECT_EQ(sentAt.at(1), noise + 5 * ms);
}

TEST_F(RtuTransaction, AGoodAnswerEndsTheLongerSilence) {
    begin(read);
    clock.runFor(requestTime + 100 * ms);
    EXPECT_EQ(fault(), "no answer");
    begin(readRequest(1, 0, 1));
    clock.runFor(requestTime + 5 * ms);
    port.deliver(withCrc(bytesOf("01 03 02 00 07")));
    const Micros end = clock.now();
    begin(readRequest(1, 0, 1));
    EXPECT_EQ(sentAt.at(2), end + silence);
}

TEST_F(RtuTransaction, ALineThatNeverFallsSilentHoldsNothingForEver) {
    std::function<void()> babble = [&] {
        port.deliver(bytesOf("5A A5 5A"));
        clock.in(2 * ms, babble);
    };
    babble();
    begin(read);
    EXPECT_LE(sentAt[0], clock.now());
    clock.runFor(2 * microsPerSecond);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(fault(), "only noise");
    EXPECT_LE(recorder.results[0].received.size(), 4096U);
}

TEST_F(RtuTransaction, ALineThatNeverFallsSilentHoldsARequestForItsTimeOutBeyondThePause) {
    transaction.setWaits(50 * ms, 100 * ms);
    std::function<void()> babble = [&] {
        port.deliver(bytesOf("5A"));
        clock.in(2 * ms, babble);
    };
    babble();
    const Micros start = clock.now();
    begin(read);
    EXPECT_EQ(sentAt.at(0), start + silence + 150 * ms);
}

TEST_F(RtuTransaction, OfMoreThan4096BytesOnlyTheLastOnesAreKept) {
    begin(read);
    clock.runFor(requestTime);
    port.deliver(Byte_Array(4096, 0x5A));
    clock.runFor(200 * ms);
    EXPECT_EQ(recorder.results.at(0).received.size(), 4096U);
    clock.runFor(200 * ms);
    begin(read);
    clock.runFor(requestTime);
    port.deliver(Byte_Array(4097, 0x5A));
    clock.runFor(200 * ms);
    EXPECT_EQ(recorder.results.at(1).received.size(), 256U) << "as many as the longest frame has";
}

TEST_F(RtuTransaction, ADamagedAnswerInABabblingLineFailsInTheEnd) {
    begin(read);
    clock.runFor(requestTime + 10 * ms);
    Byte_Array damaged = answer;
    damaged[4] ^= 1U;
    port.deliver(damaged);
    std::function<void()> babble = [&] {
        port.deliver(bytesOf("5A"));
        clock.in(2 * ms, babble);
    };
    babble();
    const Micros begun = clock.now();
    clock.runFor(microsPerSecond);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(fault(), "wrong CRC, and the line doesn't fall silent");
    EXPECT_EQ(recorder.results[0].endedAt, begun + wireTime(settings.line, 256) + 40 * ms);
}

TEST_F(RtuTransaction, ARequestThatHasNotGoneOutCanBeTakenBack) {
    transaction.submit(read);
    EXPECT_TRUE(transaction.withdraw());
    clock.runFor(microsPerSecond);
    EXPECT_TRUE(sentAt.empty());
    begin(read);
    EXPECT_FALSE(transaction.withdraw());
}

// RTS and delay.

TEST_F(RtuTransaction, RtsStandsFromTheDelayToTheLastByte) {
    settings.rts = Rts_Mode::HighOnSend;
    settings.txDelayMs = 3;
    use(settings);
    const Micros start = clock.now();
    begin(read);
    EXPECT_EQ(sentAt[0], start + silence + 3 * ms);
    EXPECT_EQ(port.rtsAtWrite, std::vector<bool>{true});
    clock.runFor(requestTime - 1);
    EXPECT_TRUE(port.rts);
    clock.runFor(1);
    EXPECT_FALSE(port.rts);
    port.deliver(answer);
    EXPECT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(port.rtsChanges, (std::vector<bool>{true, false}));
}

TEST_F(RtuTransaction, ADelayOf1MsIsWaitedForAndNoneIsNot) {
    for (const std::int32_t delay : {0, 1}) {
        settings.txDelayMs = delay;
        use(settings);
        open();
        const Micros start = clock.now();
        begin(read);
        EXPECT_EQ(sentAt.back(), start + silence + delay * ms);
        clock.runFor(requestTime);
        port.deliver(answer);
    }
}

TEST_F(RtuTransaction, RtsFallsWhenTheRequestIsTakenBack) {
    settings.rts = Rts_Mode::HighOnSend;
    settings.txDelayMs = 3;
    use(settings);
    transaction.submit(read);
    clock.runFor(silence + ms);
    EXPECT_TRUE(port.rts);
    EXPECT_TRUE(transaction.withdraw());
    EXPECT_FALSE(port.rts);
}

TEST_F(RtuTransaction, RtsFallsWhenTheRequestIsAbandoned) {
    settings.rts = Rts_Mode::HighOnSend;
    use(settings);
    begin(read);
    EXPECT_TRUE(port.rts);
    transaction.abandon();
    EXPECT_FALSE(port.rts);
}

TEST_F(RtuTransaction, DamagedBytesThatComeEarlyDoNotCutTheRequestOff) {
    settings.rts = Rts_Mode::HighOnSend;
    use(settings);
    begin(read);
    clock.runFor(ms);
    Byte_Array damaged = answer;
    damaged.back() = static_cast<std::uint8_t>(damaged.back() ^ 1U);
    port.deliver(damaged);
    clock.runUntil(sentAt[0] + requestTime - 1);
    EXPECT_TRUE(port.rts);
    clock.runFor(1);
    EXPECT_FALSE(port.rts);
    clock.runFor(microsPerSecond);
    EXPECT_EQ(fault(), "wrong CRC");
}

TEST_F(RtuTransaction, RtsFallsWithAnAnswerThatIsInBeforeTheRequestIsOut) {
    settings.rts = Rts_Mode::HighOnSend;
    use(settings);
    begin(read);
    port.deliver(answer);
    EXPECT_FALSE(port.rts);
}

TEST_F(RtuTransaction, TheKernelsOwnDelayMovesTheTimeOutOnly) {
    settings.rts = Rts_Mode::KernelRs485;
    settings.txDelayMs = 3;
    use(settings);
    const Micros start = clock.now();
    begin(read);
    EXPECT_EQ(sentAt[0], start + silence);
    EXPECT_TRUE(port.rtsChanges.empty());
    clock.runFor(requestTime + 103 * ms - 1);
    EXPECT_TRUE(recorder.results.empty());
    clock.runFor(1);
    EXPECT_EQ(recorder.results.size(), 1U);
}

// The end of the port.

TEST_F(RtuTransaction, ALostPortEndsTheRequestWhateverItsState) {
    transaction.submit(read);
    port.unplug("gone");
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_TRUE(recorder.results[0].portLost);
    EXPECT_TRUE(recorder.results[0].sent.empty());
    open();
    begin(read);
    port.unplug("gone again");
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_TRUE(recorder.results[1].portLost);
    EXPECT_EQ(fault(), "port lost");
    EXPECT_EQ(recorder.lost, (std::vector<std::string>{"gone", "gone again"}));
    clock.runFor(microsPerSecond);
    EXPECT_EQ(recorder.results.size(), 2U);
}

TEST_F(RtuTransaction, AnAnswerMayStillComeAfterThePortWasLost) {
    begin(read);
    port.unplug();
    open();
    begin(read);
    EXPECT_EQ(sentAt.at(1), sentAt[0] + requestTime + 200 * ms);
}

TEST_F(RtuTransaction, AnOpenedLineNeedsNoLongerSilenceThanAnyOther) {
    begin(read);
    clock.runFor(requestTime + 100 * ms);
    EXPECT_EQ(fault(), "no answer");
    port.close();
    open();
    const Micros opened = clock.now();
    begin(readRequest(1, 0, 9));
    EXPECT_EQ(sentAt.at(1), opened + silence);
}

TEST_F(RtuTransaction, LeavesThePortWithoutAListener) {
    Scripted_Port other;
    {
        const Rtu_Transaction shortLived{other, clock, recorder};
        EXPECT_TRUE(other.hasListener());
    }
    EXPECT_FALSE(other.hasListener());
}

TEST_F(RtuTransaction, APortThatTakesNoBytesIsLost) {
    port.refuses = true;
    transaction.submit(read);
    clock.runFor(10 * ms);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_TRUE(recorder.results[0].portLost);
    EXPECT_TRUE(recorder.results[0].sent.empty());
    EXPECT_FALSE(port.isOpen());
    EXPECT_EQ(recorder.lost,
              std::vector<std::string>{"The port took no bytes: the adapter is gone or doesn't work."});
}

TEST_F(RtuTransaction, BytesAfterAnotherMastersRequestAreToldToo) {
    Byte_Array bytes = withCrc(bytesOf("05 03 00 00 00 02"));
    bytes.insert(bytes.end(), {0xAA, 0xBB, 0xCC});
    port.deliver(bytes);
    clock.runFor(microsPerSecond);
    EXPECT_EQ(recorder.strays,
              (std::vector<std::string>{"request of another master (8)", "stray bytes (3)"}));
}

/// Its first eight bytes are a whole request for 34 registers, check sum and all: the ninth shows what it is.
TEST_F(RtuTransaction, AnAnswerThatBeginsAsARequestIsTaken) {
    const Byte_Array odd = withCrc(bytesOf("01 03 04 F3 00 22 34"));
    const Byte_Array head(odd.begin(), odd.begin() + 8);
    ASSERT_EQ(head, withCrc(bytesOf("01 03 04 F3 00 22")));
    begin(read);
    clock.runFor(requestTime + 20 * ms);
    port.deliver(head);
    clock.runFor(1 * ms);
    port.deliver({odd.back()});
    clock.runFor(100 * ms);
    ASSERT_EQ(recorder.results.size(), 1U);
    ASSERT_TRUE(recorder.results[0].answer.has_value()) << fault();
    EXPECT_EQ(recorder.results[0].answer->registers, (std::vector<std::uint16_t>{0xF300, 0x2234}));
}

} // namespace
} // namespace zorvane
