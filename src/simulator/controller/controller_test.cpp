// SPDX-License-Identifier: MIT
#include "simulator/controller/controller.h"
#include "simulator/controller/testing/write_requests.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>

namespace zorvane::simulator {
namespace {

using namespace std::chrono_literals;

/// A controller with registers 100 to 109 that hold 1000 to 1009, of which 105 is live.
class Controller_Test : public testing::Test {
  protected:
    void faults(std::initializer_list<const char*> texts, std::uint64_t seed = 1) {
        std::vector<Fault_Rule> rules;
        for (const char* text : texts)
            rules.push_back(parseFault(text));
        Register_Map map;
        map.addressBase = base_;
        for (std::int32_t i = 0; i < 10; ++i)
            map.values[100 + i] = static_cast<std::uint16_t>(1000 + i);
        map.live[105] = {};
        controller_.emplace(map, 1, std::move(rules), seed);
    }

    Reaction take(const Bytes& body) { return controller_->take(sealer_.sealed(body)); }

    /// The bytes that go out for a request, without check sum; empty for no answer.
    Bytes answer(const Bytes& body) {
        const Reaction reaction = take(body);
        if (reaction.outgoing.empty()) return {};
        Bytes bytes = reaction.outgoing.back().bytes;
        EXPECT_TRUE(sealer_.checkSumRight(bytes));
        bytes.resize(bytes.size() - 2);
        return bytes;
    }

    Modbus_Slave sealer_{1};
    std::optional<Controller> controller_;
    std::int32_t base_ = 0;
};

const Bytes readTwo{1, 3, 0, 100, 0, 2};

TEST_F(Controller_Test, AnswersFunctions3And6And16) {
    faults({});
    EXPECT_EQ(answer(readTwo), (Bytes{1, 3, 4, 0x03, 0xE8, 0x03, 0xE9}));
    EXPECT_EQ(answer(writeSeven), writeSeven);
    EXPECT_EQ(controller_->value(100), 7);
    EXPECT_EQ(answer(writeBlock), (Bytes{1, 16, 0, 100, 0, 2}));
    EXPECT_EQ(controller_->value(101), 9);
}

TEST_F(Controller_Test, RefusesWhatItDoesNotKnow) {
    faults({});
    EXPECT_EQ(answer({1, 4, 0, 100, 0, 1}), (Bytes{1, 0x84, 1}));
    EXPECT_EQ(answer({1, 43, 14, 1, 0}), (Bytes{1, 0xAB, 1}));
    EXPECT_EQ(answer({1, 3, 0, 99, 0, 2}), (Bytes{1, 0x83, 2}));
    EXPECT_EQ(answer({1, 3, 0, 109, 0, 2}), (Bytes{1, 0x83, 2}));
    EXPECT_EQ(answer({1, 6, 0, 110, 0, 2}), (Bytes{1, 0x86, 2}));
    EXPECT_EQ(answer({1, 3, 0xFF, 0xFF, 0, 2}), (Bytes{1, 0x83, 2}));
    EXPECT_EQ(answer({1, 3, 0, 100, 0, 0}), (Bytes{1, 0x83, 3}));
    EXPECT_EQ(answer({1, 3, 0, 100, 0, 126}), (Bytes{1, 0x83, 3}));
    EXPECT_EQ(answer({1, 16, 0, 100, 0, 3, 4, 0, 8, 0, 9}), (Bytes{1, 0x90, 3}));
    EXPECT_EQ(controller_->value(100), 1000);
}

TEST_F(Controller_Test, LeavesOtherUnitsAlone) {
    faults({"exception=4"});
    const Reaction reaction = take({2, 6, 0, 100, 0, 7});
    EXPECT_TRUE(reaction.outgoing.empty());
    EXPECT_EQ(reaction.received.note, "another unit");
    EXPECT_EQ(controller_->value(100), 1000);
}

TEST_F(Controller_Test, TakesABroadcastAndDoesNotAnswerIt) {
    faults({"exception=4"});
    const Reaction reaction = take({0, 6, 0, 100, 0, 7});
    EXPECT_TRUE(reaction.outgoing.empty());
    EXPECT_EQ(reaction.received.note, "broadcast");
    EXPECT_EQ(reaction.received.taken, true);
    EXPECT_EQ(controller_->value(100), 7);
    EXPECT_TRUE(take({0, 6, 0, 99, 0, 7}).outgoing.empty());
}

TEST_F(Controller_Test, AnAddressBaseMovesTheWire) {
    base_ = 100;
    faults({"silent@109"});
    EXPECT_EQ(answer({1, 3, 0, 0, 0, 1}), (Bytes{1, 3, 2, 0x03, 0xE8}));
    EXPECT_EQ(answer({1, 3, 0, 10, 0, 1}), (Bytes{1, 0x83, 2}));
    EXPECT_EQ(answer({1, 3, 0, 9, 0, 1}), Bytes{});
}

TEST_F(Controller_Test, LiveRegistersMoveWithEachGoodReading) {
    faults({});
    const Bytes readLive{1, 3, 0, 105, 0, 1};
    EXPECT_EQ(answer(readLive), (Bytes{1, 3, 2, 0x03, 0xED}));
    EXPECT_NE(answer(readLive), (Bytes{1, 3, 2, 0x03, 0xED}));
    EXPECT_EQ(controller_->value(104), 1004);
}

TEST_F(Controller_Test, ARepeatedReadingAfterAFaultGivesTheSameValue) {
    faults({"silent:1"});
    const Bytes readLive{1, 3, 0, 105, 0, 1};
    EXPECT_EQ(answer(readLive), Bytes{});
    EXPECT_EQ(answer(readLive), (Bytes{1, 3, 2, 0x03, 0xED}));
}

TEST_F(Controller_Test, WhatAClientWroteStandsStill) {
    faults({});
    (void)take({1, 6, 0, 105, 0, 50});
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(answer({1, 3, 0, 105, 0, 1}), (Bytes{1, 3, 2, 0, 50}));
}

TEST_F(Controller_Test, TheSameSeedReactsTheSame) {
    const auto run = [this](std::uint64_t seed) {
        faults({"crc:20%", "noise=4:20%", "wrong-echo:20%"}, seed);
        std::vector<Bytes> out;
        for (int i = 0; i < 50; ++i)
            for (const Bytes& request : {readTwo, writeSeven})
                for (const Outgoing& outgoing : take(request).outgoing)
                    out.push_back(outgoing.bytes);
        return out;
    };
    const auto first = run(3);
    EXPECT_EQ(first, run(3));
    EXPECT_NE(first, run(4));
}

TEST_F(Controller_Test, SilentTakesAWriteAndDoesNotAnswer) {
    faults({"silent"});
    const Reaction reaction = take(writeSeven);
    EXPECT_TRUE(reaction.outgoing.empty());
    EXPECT_EQ(reaction.received.fault, "silent");
    EXPECT_EQ(reaction.received.taken, true);
    EXPECT_EQ(controller_->value(100), 7);
}

TEST_F(Controller_Test, LateAnswersRightButLater) {
    faults({"late=300"});
    const Reaction reaction = take(readTwo);
    ASSERT_EQ(reaction.outgoing.size(), 1U);
    EXPECT_EQ(reaction.outgoing[0].delay, 300ms);
    EXPECT_TRUE(sealer_.checkSumRight(reaction.outgoing[0].bytes));
}

TEST_F(Controller_Test, CrcIsWrongAndTheRestRight) {
    faults({"crc"});
    const Bytes bytes = take(writeSeven).outgoing.at(0).bytes;
    EXPECT_FALSE(sealer_.checkSumRight(bytes));
    EXPECT_EQ(Bytes(bytes.begin(), bytes.begin() + 6), writeSeven);
    EXPECT_EQ(controller_->value(100), 7);
}

TEST_F(Controller_Test, TruncateKeepsTheFirstBytes) {
    faults({"truncate=5"});
    EXPECT_EQ(take(writeSeven).outgoing.at(0).bytes, (Bytes{1, 6, 0, 100, 0}));
    EXPECT_EQ(controller_->value(100), 7);
}

TEST_F(Controller_Test, NoiseComesJoinedBeforeTheAnswer) {
    faults({"noise=4"});
    const Bytes bytes = take(writeSeven).outgoing.at(0).bytes;
    ASSERT_EQ(bytes.size(), 12U);
    EXPECT_EQ(Bytes(bytes.begin() + 4, bytes.end()), sealer_.sealed(writeSeven));
}

TEST_F(Controller_Test, EchoComesBeforeTheAnswer) {
    faults({"echo"});
    const Reaction reaction = take(readTwo);
    ASSERT_EQ(reaction.outgoing.size(), 2U);
    EXPECT_TRUE(reaction.outgoing[0].localEcho);
    EXPECT_EQ(reaction.outgoing[0].bytes, sealer_.sealed(readTwo));
    EXPECT_EQ(reaction.outgoing[1].bytes, sealer_.sealed({{1, 3, 4, 0x03, 0xE8, 0x03, 0xE9}}));
}

TEST_F(Controller_Test, WrongUnitIsAGoodFrameOfAnother) {
    faults({"wrong-unit"});
    EXPECT_EQ(answer(writeSeven), (Bytes{2, 6, 0, 100, 0, 7}));
}

TEST_F(Controller_Test, WrongEchoNamesAnotherAddressOrValueAndChangesNothing) {
    bool otherAddress = false;
    bool otherValue = false;
    for (std::uint64_t seed = 0; seed < 20; ++seed) {
        faults({"wrong-echo"}, seed);
        const Bytes got = answer(writeSeven);
        ASSERT_EQ(got.size(), 6U);
        otherAddress = otherAddress || (got[3] != 100 && got[5] == 7);
        otherValue = otherValue || (got[3] == 100 && got[5] != 7);
        EXPECT_NE(got, writeSeven);
        EXPECT_EQ(controller_->value(100), 1000);
        EXPECT_EQ(take(writeSeven).received.taken, false);
    }
    EXPECT_TRUE(otherAddress && otherValue);
}

TEST_F(Controller_Test, WrongEchoOfABlockNamesAnotherAddressOrQuantity) {
    faults({"wrong-echo"});
    const Bytes got = answer(writeBlock);
    ASSERT_EQ(got.size(), 6U);
    EXPECT_TRUE(got[3] != 100 || got[5] != 2);
    EXPECT_EQ(controller_->value(100), 1000);
    EXPECT_EQ(answer(readTwo), (Bytes{1, 3, 4, 0x03, 0xE8, 0x03, 0xE9}));
}

TEST_F(Controller_Test, ShortHasOneRegisterFewer) {
    faults({"short"});
    EXPECT_EQ(answer(readTwo), (Bytes{1, 3, 2, 0x03, 0xE8}));
    EXPECT_EQ(answer({1, 3, 0, 100, 0, 1}), (Bytes{1, 3, 0}));
    EXPECT_EQ(answer(writeSeven), writeSeven);
}

TEST_F(Controller_Test, ExceptionExecutesNothing) {
    faults({"exception=11"});
    EXPECT_EQ(answer(writeSeven), (Bytes{1, 0x86, 11}));
    EXPECT_EQ(controller_->value(100), 1000);
    EXPECT_EQ(take(writeSeven).received.taken, false);
}

TEST_F(Controller_Test, BusyIsOverAfterItsCount) {
    faults({"busy=2"});
    EXPECT_EQ(answer(writeSeven), (Bytes{1, 0x86, 6}));
    EXPECT_EQ(answer(writeSeven), (Bytes{1, 0x86, 6}));
    EXPECT_EQ(controller_->value(100), 1000);
    EXPECT_EQ(answer(writeSeven), writeSeven);
}

TEST_F(Controller_Test, UnplugAnswersNothingAndTakesNothing) {
    faults({"unplug=250"});
    const Reaction reaction = take(writeSeven);
    EXPECT_TRUE(reaction.outgoing.empty());
    EXPECT_EQ(reaction.unplug, 250ms);
    EXPECT_EQ(reaction.received.taken, false);
    EXPECT_EQ(controller_->value(100), 1000);
}

TEST_F(Controller_Test, ARefusalCanBeDamagedToo) {
    faults({"crc"});
    const Bytes bytes = take({1, 3, 0, 99, 0, 1}).outgoing.at(0).bytes;
    ASSERT_EQ(bytes.size(), 5U);
    EXPECT_FALSE(sealer_.checkSumRight(bytes));
    EXPECT_FALSE(take({1, 3, 0, 99, 0, 1}).received.taken);
}

} // namespace
} // namespace zorvane::simulator
