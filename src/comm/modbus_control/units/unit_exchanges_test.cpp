// SPDX-License-Identifier: MIT
// One request after the other, each waited for, on a hand clock and a scripted port.
#include "comm/modbus_control/units/testing/exchange_rig.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using namespace testing;

constexpr Micros ms = microsPerMs;

template <class Link>
concept Can_Write = requires(Link& link) {
    link.write(1, Function_Code::PresetSingleRegister, 1, {});
};
static_assert(!Can_Write<Unit_Reader>, "who only looks has no way to write");
static_assert(Can_Write<Unit_Writer>);

class UnitExchanges : public ::testing::Test {
  protected:
    UnitExchanges() { EXPECT_TRUE(rig.line.open().opened); }

    Exchange_Rig rig;
};

TEST_F(UnitExchanges, ReadsRegistersAndTellsWhen) {
    rig.slave.registers = {{10, 7}, {11, 8}};
    const Unit_Answer answer = rig.line.read(1, 10, 2);
    EXPECT_EQ(answer.end, Unit_End::Answered);
    EXPECT_EQ(answer.values, (std::vector<std::uint16_t>{7, 8}));
    EXPECT_EQ(answer.at, rig.clock.now());
    EXPECT_EQ(answer.requests, 1);
    EXPECT_EQ(answer.fault, "");
    EXPECT_NEAR(static_cast<double>(answer.answerTime), 5.0 * ms, 1.0 * ms);
}

TEST_F(UnitExchanges, AControllerThatIsBusyIsAskedAgain) {
    rig.slave.registers = {{10, 7}};
    rig.faults = [this](int number, const Byte_Array& request) {
        rig.reply(number < 2 ? rig.slave.exception(request, 6) : rig.slave.answer(request));
    };
    const Unit_Answer answer = rig.line.read(1, 10, 1);
    EXPECT_EQ(answer.end, Unit_End::Answered);
    EXPECT_EQ(answer.values, (std::vector<std::uint16_t>{7}));
    EXPECT_EQ(answer.requests, 3);
}

TEST_F(UnitExchanges, OneThatStaysBusyRefuses) {
    rig.faults = [this](int, const Byte_Array& request) { rig.reply(rig.slave.exception(request, 6)); };
    const Unit_Answer answer = rig.line.read(1, 10, 1);
    EXPECT_EQ(answer.end, Unit_End::Refused);
    EXPECT_EQ(answer.exception, 6);
    EXPECT_EQ(answer.requests, 1 + rig.line.settings().retries);
}

TEST_F(UnitExchanges, TellsHowLongTheAnswerToAWriteTook) {
    rig.slave.registers = {{10, 7}};
    const Unit_Answer answer = rig.line.write(1, Function_Code::PresetSingleRegister, 10, {8});
    EXPECT_EQ(answer.end, Unit_End::Answered);
    EXPECT_NEAR(static_cast<double>(answer.answerTime), 5.0 * ms, 1.0 * ms);
}

TEST_F(UnitExchanges, ReadsMoreThanAFrameHoldsInSeveral) {
    rig.slave.registers = {{0, 1}, {125, 2}, {199, 3}};
    const Unit_Answer answer = rig.line.read(1, 0, 200);
    ASSERT_EQ(answer.values.size(), 200U);
    EXPECT_EQ(answer.values.at(125), 2);
    EXPECT_EQ(answer.values.at(199), 3);
    EXPECT_EQ(answer.requests, 2);
}

TEST_F(UnitExchanges, TakesTheAddressBaseOffARegistersNumber) {
    rig.line.SetAddressBase(40001);
    rig.slave.registers = {{9, 42}};
    EXPECT_EQ(rig.line.read(1, 40010, 1).values, (std::vector<std::uint16_t>{42}));
    const Unit_Answer below = rig.line.read(1, 40000, 1);
    EXPECT_EQ(below.end, Unit_End::NotSent);
    EXPECT_EQ(below.fault, "Register 40000 has no address from 0 to 65535");
}

TEST_F(UnitExchanges, ReadsTheObjectsByWhichAUnitTellsWhoItIs) {
    rig.faults = [this](int, const Byte_Array& request) {
        EXPECT_EQ(request, withCrc(bytesOf("01 2B 0E 01 00")));
        rig.reply(withCrc(bytesOf("01 2B 0E 01 01 00 00 02 00 02 41 42 01 01 58")));
    };
    const Unit_Answer answer = rig.line.readObjects(1, 1);
    EXPECT_EQ(answer.end, Unit_End::Answered);
    EXPECT_EQ(answer.objects, (std::map<std::int32_t, std::string>{{0, "AB"}, {1, "X"}}));
    EXPECT_EQ(answer.requests, 1);
}

TEST_F(UnitExchanges, AsksForNoMoreObjectsThanAreWanted) {
    std::vector<int> levels;
    rig.faults = [&](int, const Byte_Array& request) {
        levels.push_back(request.at(3));
        rig.reply(rig.slave.exception(request, 1));
    };
    for (const std::int32_t highest : {0, 2, 3, 127, 128}) {
        const Unit_Answer answer = rig.line.readObjects(1, highest);
        EXPECT_EQ(answer.end, Unit_End::Refused);
        EXPECT_EQ(answer.exception, 1);
        EXPECT_EQ(answer.requests, 1) << "a refusal is final";
    }
    EXPECT_EQ(levels, (std::vector<int>{1, 1, 2, 2, 3}));
}

TEST_F(UnitExchanges, AUnitThatDoesntKnowTheFunctionIsAskedForObjectsTwiceAtMost) {
    rig.faults = [](int, const Byte_Array&) {};
    const Unit_Answer answer = rig.line.readObjects(1, 2);
    EXPECT_EQ(answer.end, Unit_End::Silent);
    EXPECT_EQ(answer.requests, 2);
    rig.faults = {};
    rig.slave.registers = {{10, 7}};
    EXPECT_EQ(rig.line.read(1, 10, 1).values, (std::vector<std::uint16_t>{7})) << "registers go on";
    EXPECT_EQ(rig.line.readObjects(0, 2).end, Unit_End::NotSent);
    rig.line.close();
    EXPECT_EQ(rig.line.readObjects(1, 2).end, Unit_End::PortLost);
}

TEST_F(UnitExchanges, ARefusalIsFinal) {
    rig.faults = [this](int, const Byte_Array& request) { rig.reply(rig.slave.exception(request, 2)); };
    const Unit_Answer answer = rig.line.read(1, 10, 2);
    EXPECT_EQ(answer.end, Unit_End::Refused);
    EXPECT_EQ(answer.exception, 2);
    EXPECT_EQ(answer.fault, "Illegal data address (exception 2)");
    EXPECT_EQ(rig.port.written.size(), 1U);
}

TEST_F(UnitExchanges, SilenceIsTriedAgainAndThenToldWithItsTries) {
    rig.faults = [](int, const Byte_Array&) {};
    const Unit_Answer answer = rig.line.read(1, 10, 2);
    EXPECT_EQ(answer.end, Unit_End::Silent);
    EXPECT_EQ(answer.requests, 3);
    EXPECT_EQ(answer.damaged, 0);
    EXPECT_EQ(answer.fault, "no answer");
}

TEST_F(UnitExchanges, ADamagedAnswerIsCountedAndTriedAgain) {
    rig.slave.registers = {{10, 7}};
    rig.faults = [this](int number, const Byte_Array& request) {
        Byte_Array answer = rig.slave.answer(request);
        if (number == 0) answer.back() ^= 1U;
        rig.reply(answer);
    };
    const Unit_Answer answer = rig.line.read(1, 10, 1);
    EXPECT_EQ(answer.values, (std::vector<std::uint16_t>{7}));
    EXPECT_EQ(answer.requests, 2);
    EXPECT_EQ(answer.damaged, 1);
}

/// The answer to the first read comes one and a half time-outs late and would pass for the second's.
TEST_F(UnitExchanges, ALateAnswerIsNeverTakenForTheNextRequests) {
    rig.retries(0);
    rig.slave.registers = {{10, 1}, {11, 2}, {12, 3}, {20, 4}, {21, 5}, {22, 6}, {23, 7}};
    rig.faults = [this](int number, const Byte_Array& request) {
        rig.reply(rig.slave.answer(request), number == 0 ? 350 * ms : 5 * ms);
    };
    EXPECT_EQ(rig.line.read(1, 10, 4).end, Unit_End::Silent);
    const Unit_Answer second = rig.line.read(1, 20, 4);
    EXPECT_EQ(second.values, (std::vector<std::uint16_t>{4, 5, 6, 7}));
    EXPECT_GT(second.requests, 1) << "in parts, which the late answer can't be one of";
}

TEST_F(UnitExchanges, AControllerThatHandsOutNoPartsIsReadWhole) {
    rig.retries(0);
    rig.slave.registers = {{20, 4}, {21, 5}, {22, 6}, {23, 7}};
    rig.faults = [this](int number, const Byte_Array& request) {
        if (number == 0) return;
        rig.reply(request.at(5) < 4 ? rig.slave.exception(request, 2) : rig.slave.answer(request));
    };
    EXPECT_EQ(rig.line.read(1, 10, 4).end, Unit_End::Silent);
    rig.line.pause(250 * ms); // until then a refusal could be of the first request
    EXPECT_EQ(rig.line.read(1, 20, 4).values, (std::vector<std::uint16_t>{4, 5, 6, 7}));
}

TEST_F(UnitExchanges, WritesOnceAndTellsThatItWasAcknowledged) {
    const Unit_Answer one = rig.line.write(1, Function_Code::PresetSingleRegister, 10, {5});
    const Unit_Answer block = rig.line.write(1, Function_Code::PresetMultipleRegisters, 20, {6, 7});
    EXPECT_TRUE(one.good());
    EXPECT_TRUE(block.good());
    EXPECT_EQ(rig.slave.registers, (std::map<std::uint16_t, std::uint16_t>{{10, 5}, {20, 6}, {21, 7}}));
}

TEST_F(UnitExchanges, AWriteWithoutAnAnswerIsNotSentAgain) {
    rig.faults = [this](int, const Byte_Array& request) { (void)rig.slave.answer(request); };
    const Unit_Answer answer = rig.line.write(1, Function_Code::PresetSingleRegister, 10, {5});
    EXPECT_EQ(answer.end, Unit_End::Silent);
    EXPECT_TRUE(answer.mayHaveArrived());
    EXPECT_EQ(rig.port.written.size(), 1U);
}

TEST_F(UnitExchanges, ARefusedWriteHasNotArrived) {
    rig.faults = [this](int, const Byte_Array& request) { rig.reply(rig.slave.exception(request, 3)); };
    const Unit_Answer answer = rig.line.write(1, Function_Code::PresetSingleRegister, 10, {5});
    EXPECT_EQ(answer.end, Unit_End::Refused);
    EXPECT_FALSE(answer.mayHaveArrived());
}

TEST_F(UnitExchanges, WhatNoFrameHoldsIsNotSent) {
    const std::vector<std::uint16_t> tooMany(124, 0);
    EXPECT_EQ(rig.line.write(1, Function_Code::PresetMultipleRegisters, 0, tooMany).end, Unit_End::NotSent);
    EXPECT_EQ(rig.line.write(1, Function_Code::PresetMultipleRegisters, 0, {}).end, Unit_End::NotSent);
    EXPECT_EQ(rig.line.write(1, Function_Code::PresetSingleRegister, 0, {1, 2}).end, Unit_End::NotSent);
    EXPECT_EQ(rig.line.write(0, Function_Code::PresetSingleRegister, 0, {1}).end, Unit_End::NotSent)
        << "a broadcast";
    EXPECT_TRUE(rig.port.written.empty());
}

TEST_F(UnitExchanges, AnAdaptersEchoIsNoAnswerToARead) {
    rig.faults = [this](int, const Byte_Array& request) { rig.send(request, 2 * ms); };
    const Unit_Answer answer = rig.line.read(1, 10, 2);
    EXPECT_EQ(answer.end, Unit_End::Silent);
    EXPECT_TRUE(answer.echoed);
}

TEST_F(UnitExchanges, AfterAnEchoedReadAnEchoIsNoAcknowledgementEither) {
    rig.faults = [this](int number, const Byte_Array& request) {
        rig.send(request, 2 * ms);
        if (number == 0) rig.reply(rig.slave.answer(request));
    };
    EXPECT_TRUE(rig.line.read(1, 10, 2).good());
    EXPECT_EQ(rig.line.write(1, Function_Code::PresetSingleRegister, 10, {5}).end, Unit_End::Silent);
}

TEST_F(UnitExchanges, TheWishToEndStopsAReadAtOnce) {
    rig.faults = [this](int, const Byte_Array&) { rig.cancelled = true; };
    const Unit_Answer answer = rig.line.read(1, 10, 2);
    EXPECT_EQ(answer.end, Unit_End::Cancelled);
    EXPECT_EQ(answer.values.size(), 0U);
}

TEST_F(UnitExchanges, TheWishToEndLetsAWriteOnItsWayEnd) {
    rig.faults = [this](int, const Byte_Array& request) {
        rig.cancelled = true;
        rig.reply(rig.slave.answer(request));
    };
    EXPECT_TRUE(rig.line.write(1, Function_Code::PresetSingleRegister, 10, {5}).good());
    const Unit_Answer next = rig.line.write(1, Function_Code::PresetSingleRegister, 11, {6});
    EXPECT_EQ(next.end, Unit_End::Cancelled);
    EXPECT_FALSE(next.mayHaveArrived());
    EXPECT_EQ(rig.slave.registers, (std::map<std::uint16_t, std::uint16_t>{{10, 5}}));
}

TEST_F(UnitExchanges, AnUnpluggedAdapterEndsTheRequestAndIsOpenedAgain) {
    rig.faults = [this](int number, const Byte_Array& request) {
        if (number == 0) return rig.port.unplug("The adapter was unplugged.");
        rig.reply(rig.slave.answer(request));
    };
    const Unit_Answer lost = rig.line.write(1, Function_Code::PresetSingleRegister, 10, {5});
    EXPECT_EQ(lost.end, Unit_End::PortLost);
    EXPECT_EQ(lost.fault, "The adapter was unplugged.");
    EXPECT_TRUE(lost.mayHaveArrived());
    EXPECT_EQ(rig.line.read(1, 10, 1).end, Unit_End::PortLost);
    EXPECT_TRUE(rig.line.openAgain());
    EXPECT_TRUE(rig.line.read(1, 10, 1).good());
}

TEST_F(UnitExchanges, TheTemplatesTimeOutWinsOverTheSettings) {
    rig.retries(0);
    rig.faults = [](int, const Byte_Array&) {};
    rig.line.SetTimings(0, 300);
    const Micros start = rig.clock.now();
    EXPECT_EQ(rig.line.read(1, 10, 1).end, Unit_End::Silent);
    EXPECT_GE(rig.clock.now() - start, 300 * ms);
}

TEST_F(UnitExchanges, OtherLineSettingsOpenThePortAnew) {
    EXPECT_TRUE(rig.line.setLine({19200, 'E', 8, 1}));
    EXPECT_EQ(rig.port.settingsSeen.line, (Line_Settings{19200, 'E', 8, 1}));
    EXPECT_TRUE(rig.line.read(1, 10, 1).good());
}

TEST_F(UnitExchanges, APauseServesEventsForItsTime) {
    const Micros start = rig.clock.now();
    int served = 0;
    rig.clock.in(10 * ms, [&] { ++served; });
    rig.line.pause(50 * ms);
    EXPECT_EQ(rig.clock.now(), start + 50 * ms);
    EXPECT_EQ(served, 1);
}

TEST(UnitExchangesOnNetwork, AnOpeningIsWaitedFor) {
    Exchange_Rig rig;
    rig.port.onOpen = [](const std::string&) { return Port_Opening{false, {}, {}, true}; };
    rig.clock.in(40 * ms, [&] { rig.port.endOpening({true, {}, {}}); });
    EXPECT_TRUE(rig.line.open().opened);
    rig.slave.registers = {{10, 7}};
    EXPECT_EQ(rig.line.read(1, 10, 1).values, (std::vector<std::uint16_t>{7}));
    rig.line.close();
    rig.clock.in(40 * ms, [&] { rig.port.endOpening({false, "Refused.", {}}); });
    EXPECT_EQ(rig.line.open().reason, "Refused.");
}

TEST(UnitExchangesOnNetwork, AnOpeningThatNobodyWantsAnyMoreIsGivenUp) {
    Exchange_Rig rig;
    rig.port.onOpen = [](const std::string&) { return Port_Opening{false, {}, {}, true}; };
    rig.clock.in(40 * ms, [&] { rig.cancelled = true; });
    const Port_Opening opening = rig.line.open();
    EXPECT_FALSE(opening.opened);
    EXPECT_EQ(opening.reason, "stopped");
}

} // namespace
} // namespace zorvane
