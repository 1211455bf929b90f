// SPDX-License-Identifier: MIT
// Answers that can't be told apart by themselves: later than twice the time-out, second copies, those of
// another master, acknowledgements of an earlier write. The link tells them apart by what it asks next.
#include "comm/modbus_control/testing/link_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using testing::Link_Rig;
using testing::ms;
using testing::timeOut;
using testing::withCrc;

/// Registers 0 to 999 tell their own address. A watcher looks every 10 ms, as an upload does.
struct Doubt_Rig : Link_Rig {
    explicit Doubt_Rig(std::int32_t retries = 2) : Link_Rig(withRetries(retries)) {
        for (std::uint16_t address = 0; address < 1000; ++address)
            slave.registers[address] = testing::valueOfRegister(address);
    }
    static Port_Settings withRetries(std::int32_t retries) {
        Port_Settings settings = defaults();
        settings.retries = retries;
        return settings;
    }

    /// Runs one pass over all blocks. False when it hangs.
    bool pass() {
        scan();
        const std::int32_t first = watchedScanBlock(link);
        bool left = false;
        for (int tick = 0; tick < 6000; ++tick) {
            clock.runFor(10 * ms);
            if (watchedFailure(link)) ++failuresSeen;
            const std::int32_t index = watchedScanBlock(link);
            if (left && index == first) return true;
            left = left || index != first;
        }
        return false;
    }
    void stop() {
        link.StopScan();
        link.ClosePort();
        link.EndSession();
    }

    /// How many registers were read, and how many of them wrong.
    [[nodiscard]] int read(std::int32_t first, std::int32_t last) const {
        int count = 0;
        for (std::int32_t address = first; address <= last; ++address) {
            const std::int32_t value = link.RegisterValue(0, address, false);
            if (value == 0) continue;
            EXPECT_EQ(value, testing::valueOfRegister(address)) << address;
            ++count;
        }
        return count;
    }
    /// "10-14", in the order in which they went out.
    [[nodiscard]] std::vector<std::string> asked() const {
        std::vector<std::string> ranges;
        for (const Exchange_Record& exchange : log.exchanges)
            ranges.push_back(std::to_string(exchange.firstRegister) + "-" +
                             std::to_string(exchange.firstRegister + exchange.count - 1));
        return ranges;
    }
    [[nodiscard]] std::vector<std::string> strayTexts() const {
        std::vector<std::string> texts;
        for (const Stray_Record& stray : log.strays)
            texts.push_back(stray.what);
        return texts;
    }

    int failuresSeen = 0;
};

TEST(LinkDoubt, AnswersOfTwoAndAHalfTimeOutsAreNotTakenForTheNextBlocks) {
    Doubt_Rig rig;
    rig.turnaround = 250 * ms;
    for (std::int32_t first = 0; first < 20; first += 5)
        rig.block(first, first + 4);
    ASSERT_TRUE(rig.pass());
    EXPECT_EQ(rig.read(0, 19), 20);
}

TEST(LinkDoubt, AfterAnUnansweredRequestTheNextBlockOfItsShapeIsReadInParts) {
    Doubt_Rig rig(0);
    rig.faults = [&rig](int number, const Byte_Array& request) {
        if (number > 0) rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.block(0, 4);
    rig.block(5, 9);
    rig.block(10, 16);
    ASSERT_TRUE(rig.pass());
    rig.stop();
    EXPECT_THAT(rig.asked(), ElementsAre("0-4", "5-7", "8-9", "10-16"));
    EXPECT_EQ(rig.read(5, 16), 12);
}

/// The block of seven may be refused for itself, and so may be the next one of seven: a cut answer is no
/// refusal on its way. After a request without any answer the refusal may be that one's.
TEST(LinkDoubt, ARefusalAfterACutAnswerIsTheRequestsOwn) {
    for (const bool cut : {true, false}) {
        Doubt_Rig rig(1);
        rig.faults = [&](int number, const Byte_Array& request) {
            Byte_Array answer = rig.slave.answer(request);
            if (number == 0) answer.resize(cut ? 5 : 0);
            if (number == 2) answer = rig.slave.exception(request, 4);
            if (!answer.empty()) rig.reply(answer, 5 * ms);
        };
        rig.block(0, 11);
        rig.block(20, 26);
        rig.block(30, 36);
        ASSERT_TRUE(rig.pass());
        rig.stop();
        if (cut)
            EXPECT_THAT(rig.asked(), ElementsAre("0-11", "0-11", "20-26", "30-36"));
        else
            EXPECT_THAT(rig.asked(), ElementsAre("0-11", "0-11", "20-26", "30-34", "35-36"));
        EXPECT_EQ(rig.read(30, 36), 7);
    }
}

TEST(LinkDoubt, TenTimeOutsLaterBlocksAreReadWholeAgain) {
    Doubt_Rig rig(0);
    rig.faults = [&rig](int number, const Byte_Array& request) {
        if (number > 0) rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.block(0, 4);
    rig.block(5, 9);
    ASSERT_TRUE(rig.pass());
    rig.stop();
    rig.clock.runFor(11 * timeOut);
    rig.log.exchanges.clear();
    ASSERT_TRUE(rig.pass());
    rig.stop();
    EXPECT_THAT(rig.asked(), ElementsAre("0-4", "5-9"));
}

TEST(LinkDoubt, ABlockOfOneRegisterWaitsUntilNoAnswerCanComeAnyMore) {
    Doubt_Rig rig(0);
    std::vector<Micros> sentAt;
    rig.faults = [&](int number, const Byte_Array& request) {
        sentAt.push_back(rig.clock.now());
        if (number > 0) rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.block(0, 0);
    rig.block(1, 1);
    ASSERT_TRUE(rig.pass());
    rig.stop();
    EXPECT_GE(sentAt.at(1) - sentAt.at(0), 11 * timeOut);
    EXPECT_LE(sentAt.at(1) - sentAt.at(0), 11 * timeOut + 50 * ms);
    EXPECT_EQ(rig.read(1, 1), 1);
}

TEST(LinkDoubt, NoPartEndsWithinAText) {
    Doubt_Rig rig(0);
    rig.faults = [&rig](int number, const Byte_Array& request) {
        if (number > 0) rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.block(0, 9);
    rig.block(10, 19);
    rig.link.KeepTogether(13, 17);
    rig.link.KeepTogether(17, 19);
    ASSERT_TRUE(rig.pass());
    rig.stop();
    EXPECT_THAT(rig.asked(), ElementsAre("0-9", "10-12", "13-19"));
    EXPECT_EQ(rig.read(10, 19), 10);
}

TEST(LinkDoubt, ABlockOfWhichOnePartIsGivenUpLeavesTheImage) {
    Doubt_Rig rig(0);
    rig.faults = [&rig](int number, const Byte_Array& request) {
        if (number == 1) rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.block(0, 4);
    rig.block(5, 9);
    ASSERT_TRUE(rig.pass());
    rig.stop();
    EXPECT_THAT(rig.asked(), ElementsAre("0-4", "5-7", "8-9"));
    EXPECT_EQ(rig.read(0, 9), 0);
    EXPECT_TRUE(watchedFailure(rig.link));
    EXPECT_TRUE(rig.link.CommLost());
}

TEST(LinkDoubt, ABlockInPartsHasNoMoreTriesThanAWholeOne) {
    Doubt_Rig rig(2);
    rig.faults = [&rig](int number, const Byte_Array& request) {
        // The first block is silent; of the second, every other request.
        if (number > 2 && number % 2 == 0) rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.block(0, 4);
    rig.block(5, 14);
    rig.block(15, 19);
    ASSERT_TRUE(rig.pass());
    rig.stop();
    EXPECT_LE(rig.read(0, 19), 20);
    std::size_t failed = 0;
    for (const Exchange_Record& exchange : rig.log.exchanges)
        failed += exchange.firstRegister >= 15 && !exchange.good ? 1 : 0;
    EXPECT_LE(failed, 3U);
}

TEST(LinkDoubt, AFailedTryOfAPartStaysToBeSeenUntilTheBlockIsLeft) {
    Doubt_Rig rig(1);
    std::vector<bool> failedBehind;
    rig.faults = [&](int number, const Byte_Array& request) {
        if (number > 0) failedBehind.push_back(watchedFailure(rig.link));
        // Number 0 and 1 are the first block's tries, 2 is lost, and 3 to 5 read the second block.
        if (number > 2) rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.block(0, 4);
    rig.block(5, 9);
    rig.block(10, 16);
    ASSERT_TRUE(rig.pass());
    rig.stop();
    EXPECT_THAT(rig.asked(), ElementsAre("0-4", "0-4", "5-7", "5-7", "8-9", "10-16"));
    EXPECT_THAT(failedBehind, ElementsAre(true, true, true, true, false));
    EXPECT_EQ(rig.read(5, 16), 12);
}

TEST(LinkDoubt, AControllerThatRefusesPartsIsReadWholeOnceTheLineWasQuiet) {
    Doubt_Rig rig(2);
    std::vector<Micros> sentAt;
    rig.faults = [&](int number, const Byte_Array& request) {
        sentAt.push_back(rig.clock.now());
        const bool whole = request.at(5) == 5;
        if (number > 2)
            rig.reply(whole ? rig.slave.answer(request) : rig.slave.exception(request, 2), 150 * ms / 2);
    };
    rig.block(0, 4);
    rig.block(5, 9);
    ASSERT_TRUE(rig.pass());
    rig.stop();
    EXPECT_EQ(rig.asked().back(), "5-9");
    EXPECT_EQ(rig.read(5, 9), 5);
    EXPECT_GE(sentAt.back() - sentAt.at(2), 10 * timeOut);
}

TEST(LinkDoubt, ASecondCopyOfEveryAnswerIsTakenForNoOther) {
    for (const Micros after : {8 * ms, 15 * ms, 20 * ms, 33 * ms, 50 * ms, 90 * ms}) {
        Doubt_Rig rig;
        rig.faults = [&](int, const Byte_Array& request) {
            const Byte_Array answer = rig.slave.answer(request);
            rig.reply(answer, 5 * ms);
            rig.reply(answer, 5 * ms + after);
        };
        for (std::int32_t first = 0; first < 30; first += 5)
            rig.block(first, first + 4);
        ASSERT_TRUE(rig.pass()) << after;
        EXPECT_EQ(rig.read(0, 29), 30) << after;
    }
}

TEST(LinkDoubt, BlocksThatHoldTheSameAreReadWithoutFurtherRequests) {
    Doubt_Rig rig;
    for (std::uint16_t address = 0; address < 30; ++address)
        rig.slave.registers[address] = 0;
    for (std::int32_t first = 0; first < 30; first += 10)
        rig.block(first, first + 9);
    ASSERT_TRUE(rig.pass());
    rig.stop();
    EXPECT_THAT(rig.asked(), ElementsAre("0-9", "10-19", "20-29"));
}

/// Another master asks unit 1 for so many registers, and gets them 10 ms later.
struct Other_Master {
    static Byte_Array request(std::uint16_t first, std::uint16_t count) {
        return withCrc({1, 3, static_cast<std::uint8_t>(first >> 8U),
                        static_cast<std::uint8_t>(first & 0xFFU), 0, static_cast<std::uint8_t>(count)});
    }
};

TEST(LinkDoubt, AnAnswerAfterAnotherMastersRequestIsNobodys) {
    Doubt_Rig rig;
    rig.faults = [&](int number, const Byte_Array& request) {
        if (number > 0) return rig.reply(rig.slave.answer(request), 5 * ms);
        const Byte_Array other = Other_Master::request(100, 5);
        rig.reply(other, 10 * ms);
        rig.reply(rig.slave.answer(other), 20 * ms);
    };
    rig.block(0, 4);
    rig.block(5, 9);
    ASSERT_TRUE(rig.pass());
    EXPECT_EQ(rig.read(0, 9), 10);
    EXPECT_EQ(rig.log.exchanges.at(0).result, "an answer after another master's request is nobody's");
    EXPECT_THAT(rig.log.notes,
                Contains("Another master is on the line: it asks unit 1, 5 registers from address "
                         "100 on (function 3). Let only one master use it."));
}

TEST(LinkDoubt, AnotherMastersRequestBetweenTwoOfOursIsShownAndItsAnswerIsNotOurs) {
    for (Micros answerAfter = 4 * ms; answerAfter < 60 * ms; answerAfter += 4 * ms) {
        Doubt_Rig rig;
        rig.faults = [&](int number, const Byte_Array& request) {
            rig.reply(rig.slave.answer(request), 5 * ms);
            if (number != 0) return;
            const Byte_Array other = Other_Master::request(100, 5);
            rig.reply(other, 7 * ms);
            rig.reply(rig.slave.answer(other), 7 * ms + answerAfter);
        };
        for (std::int32_t first = 0; first < 20; first += 5)
            rig.block(first, first + 4);
        ASSERT_TRUE(rig.pass());
        EXPECT_EQ(rig.read(0, 19), 20) << answerAfter;
        EXPECT_THAT(rig.strayTexts(), Contains("request of another master")) << answerAfter;
    }
}

TEST(LinkDoubt, ALateAcknowledgementDoesNotConfirmTheNextWriteOfTheSameRange) {
    for (const Micros late : {150 * ms, 250 * ms, 400 * ms, 700 * ms, 1000 * ms}) {
        Doubt_Rig rig(0);
        rig.faults = [&](int number, const Byte_Array& request) {
            // The second write is lost on its way.
            if (number == 0) rig.reply(rig.slave.answer(request), late);
        };
        rig.link.PrepareScan();
        rig.link.PresetMultipleRegisters(0, 500, {1, 2, 3});
        ASSERT_TRUE(rig.writeEnds());
        EXPECT_TRUE(rig.link.WriteFailed());
        EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::Uncertain);
        rig.link.ClearWriteFailed();
        rig.link.PresetMultipleRegisters(0, 500, {7, 8, 9});
        ASSERT_TRUE(rig.writeEnds());
        EXPECT_TRUE(rig.link.WriteFailed()) << late;
        EXPECT_EQ(rig.slave.registers[500], 1);
    }
}

TEST(LinkDoubt, AWriteOfTheSameRangeGoesOutOnceTheLateAcknowledgementCame) {
    Doubt_Rig rig(0);
    std::vector<Micros> sentAt;
    rig.faults = [&](int number, const Byte_Array& request) {
        sentAt.push_back(rig.clock.now());
        rig.reply(rig.slave.answer(request), number == 0 ? 350 * ms : 5 * ms);
    };
    rig.link.PrepareScan();
    rig.link.PresetMultipleRegisters(0, 500, {1, 2, 3});
    ASSERT_TRUE(rig.writeEnds());
    rig.link.ClearWriteFailed();
    rig.link.PresetMultipleRegisters(0, 500, {7, 8, 9});
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_FALSE(rig.link.WriteFailed());
    EXPECT_EQ(rig.link.LastWriteOutcome(), Write_Outcome::Taken);
    EXPECT_EQ(rig.slave.registers[500], 7);
    EXPECT_GE(sentAt.at(1) - sentAt.at(0), 350 * ms);
    EXPECT_LE(sentAt.at(1) - sentAt.at(0), 420 * ms);
}

TEST(LinkDoubt, ALineThatNeverGetsQuietEndsATryThatCantBeToldApart) {
    Doubt_Rig rig(0);
    const Byte_Array other = Other_Master::request(100, 1);
    rig.faults = [](int, const Byte_Array&) {};
    rig.block(0, 0);
    for (int i = 0; i < 400; ++i)
        rig.clock.in(Micros{i} * 50 * ms, [&rig, other] { rig.port.deliver(other); });
    rig.clock.runFor(60 * ms);
    ASSERT_TRUE(rig.pass());
    EXPECT_TRUE(rig.link.CommLost());
    EXPECT_EQ(rig.read(0, 0), 0);
}

} // namespace
} // namespace zorvane
