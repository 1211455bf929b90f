// SPDX-License-Identifier: MIT
// What a bad line does to the link. Each test looks at the register image afterwards: a fault may cost a
// value, it never may bring a wrong one.
#include "comm/modbus_control/testing/link_rig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::bytesOf;
using ::testing::ElementsAre;
using testing::Link_Rig;
using testing::ms;
using testing::withCrc;

/// A slave whose registers 0 to 999 tell their own address.
struct Fault_Rig : Link_Rig {
    explicit Fault_Rig(const Port_Settings& settings = defaults()) : Link_Rig(settings) {
        for (std::uint16_t address = 0; address < 1000; ++address) {
            slave.registers[address] = testing::valueOfRegister(address);
        }
    }

    /// The first answer is replaced by these bytes, the others are good.
    void firstAnswer(const Byte_Array& bytes) {
        faults = [this, bytes](int number, const Byte_Array& request) {
            const bool first = number == 0;
            reply(first ? bytes : slave.answer(request), turnaround);
        };
    }

    /// No register of the image says anything but its own value or that it was never read.
    void expectNoWrongValue(std::int32_t last = 999) const {
        for (std::int32_t address = 0; address <= last; ++address) {
            const std::int32_t value = link.RegisterValue(0, address, false);
            if (value == 0) continue;
            EXPECT_EQ(value, testing::valueOfRegister(address)) << address;
        }
    }
    void expectRead(std::int32_t first, std::int32_t last) const {
        for (std::int32_t address = first; address <= last; ++address) {
            EXPECT_EQ(link.RegisterValue(0, address, false), testing::valueOfRegister(address)) << address;
        }
    }
};

Byte_Array joined(Byte_Array first, const Byte_Array& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

/// The answer to a read of registers 10 to 12.
Byte_Array goodAnswer() {
    Byte_Array frame{1, 3, 6};
    for (std::int32_t address = 10; address <= 12; ++address) {
        frame.push_back(static_cast<std::uint8_t>(testing::valueOfRegister(address) >> 8U));
        frame.push_back(static_cast<std::uint8_t>(testing::valueOfRegister(address) & 0xFFU));
    }
    return withCrc(frame);
}

struct Bad_Answer {
    const char* name;
    Byte_Array bytes;
    const char* result;
};

class LinkBadAnswer : public ::testing::TestWithParam<Bad_Answer> {};

TEST_P(LinkBadAnswer, IsAFailedTryAndTheNextOneIsRight) {
    Fault_Rig rig;
    rig.firstAnswer(GetParam().bytes);
    rig.block(10, 12);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.log.exchanges[0].result, GetParam().result);
    EXPECT_FALSE(rig.log.exchanges[0].good);
    EXPECT_EQ(rig.link.RegisterValue(0, 10), 0);
    EXPECT_TRUE(watchedFailure(rig.link));
    ASSERT_TRUE(rig.exchanges(2));
    EXPECT_EQ(rig.log.exchanges[1].result, "good");
    rig.expectRead(10, 12);
    EXPECT_FALSE(rig.link.CommLost());
}

INSTANTIATE_TEST_SUITE_P(
    Faults, LinkBadAnswer,
    ::testing::Values(
        Bad_Answer{"Silence", {}, "no answer"},
        Bad_Answer{"BadCrc", bytesOf("01 03 06 00 AA 00 B1 00 B8 00 00"), "wrong CRC"},
        Bad_Answer{"OtherUnit", withCrc(bytesOf("02 03 06 00 01 00 02 00 03")), "answer of another unit"},
        Bad_Answer{"OtherFunction", withCrc(bytesOf("01 04 06 00 01 00 02 00 03")),
                   "answer to another function"},
        Bad_Answer{"Short", withCrc(bytesOf("01 03 04 00 01 00 02")), "wrong byte count"},
        Bad_Answer{"Long", withCrc(bytesOf("01 03 08 00 01 00 02 00 03 00 04")), "wrong byte count"},
        Bad_Answer{"ShorterThanItsByteCount", withCrc(bytesOf("01 03 06 00 01 00 02")), "answer cut short"},
        Bad_Answer{"Noise", bytesOf("00 FF 00 FF 00"), "only noise"}),
    [](const auto& chosen) { return chosen.param.name; });

TEST(LinkFaults, AnAnswerCutAtEachLength) {
    const Byte_Array good = goodAnswer();
    for (std::size_t length = 1; length < good.size(); ++length) {
        Fault_Rig rig;
        rig.firstAnswer(Byte_Array(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(length)));
        rig.block(10, 12);
        rig.scan();
        ASSERT_TRUE(rig.exchanges(1));
        EXPECT_EQ(rig.log.exchanges[0].result, "answer cut short") << length;
        EXPECT_EQ(rig.link.RegisterValue(0, 10), 0);
        ASSERT_TRUE(rig.exchanges(2));
        rig.expectRead(10, 12);
    }
}

TEST(LinkFaults, NoiseBeforeAGoodAnswerCostsNothing) {
    for (const std::size_t noise : {std::size_t{1}, std::size_t{10}}) {
        Fault_Rig rig;
        rig.firstAnswer(joined(Byte_Array(noise, 0x42), goodAnswer()));
        rig.block(10, 12);
        rig.scan();
        ASSERT_TRUE(rig.exchanges(1));
        EXPECT_EQ(rig.log.exchanges[0].result,
                  "good, " + std::to_string(noise) + " noise bytes before the answer");
        rig.expectRead(10, 12);
    }
}

TEST(LinkFaults, NoiseThatComesAheadOfTheAnswerCostsNothing) {
    for (const std::size_t noise : {std::size_t{1}, std::size_t{10}}) {
        Fault_Rig rig;
        rig.faults = [&](int, const Byte_Array& request) {
            rig.reply(Byte_Array(noise, 0x01), 2 * ms);
            rig.reply(rig.slave.answer(request), 30 * ms);
        };
        rig.block(10, 12);
        rig.scan();
        ASSERT_TRUE(rig.exchanges(1));
        EXPECT_TRUE(rig.log.exchanges[0].good);
        rig.expectRead(10, 12);
    }
}

TEST(LinkFaults, AnEchoingAdapter) {
    Fault_Rig rig;
    rig.faults = [&](int, const Byte_Array& request) {
        rig.send(request, rig.requestTime());
        rig.reply(rig.slave.answer(request), 10 * ms);
    };
    rig.block(10, 12);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.log.exchanges[0].result, "good, the adapter echoes");
    rig.link.PresetSingleRegister(0, 500, 4242);
    rig.link.PresetMultipleRegisters(0, 501, {1, 2});
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_FALSE(rig.link.WriteFailed());
    EXPECT_EQ(rig.slave.registers[500], 4242);
    EXPECT_EQ(rig.slave.registers[502], 2);
}

TEST(LinkFaults, AnEchoIsNotTakenForTheAnswerOfASilentController) {
    Fault_Rig rig;
    bool silent = false;
    rig.faults = [&](int, const Byte_Array& request) {
        rig.send(request, rig.requestTime());
        if (!silent) rig.reply(rig.slave.answer(request), 10 * ms);
    };
    rig.block(10, 12);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    silent = true;
    rig.link.PresetSingleRegister(0, 500, 4242);
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_TRUE(rig.link.WriteFailed());
    EXPECT_NE(rig.slave.registers[500], 4242);
    EXPECT_EQ(rig.log.exchanges.back().result, "only the adapter's echo, the adapter echoes");
    EXPECT_EQ(rig.link.RegisterValue(0, 500), 0);
}

TEST(LinkFaults, TheEchoSwitchProtectsTheVeryFirstWrite) {
    Port_Settings settings = Link_Rig::defaults();
    settings.adapterEchoes = true;
    Fault_Rig rig(settings);
    rig.faults = [&](int, const Byte_Array& request) { rig.send(request, rig.requestTime()); };
    rig.link.PrepareScan();
    rig.link.PresetSingleRegister(0, 500, 4242);
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_TRUE(rig.link.WriteFailed());
}

struct Bad_Echo {
    const char* name;
    bool single;
    const char* bytes;
    const char* result;
};

class LinkBadEcho : public ::testing::TestWithParam<Bad_Echo> {};

TEST_P(LinkBadEcho, IsNoCompletedWrite) {
    Fault_Rig rig;
    rig.faults = [&](int, const Byte_Array&) { rig.reply(withCrc(bytesOf(GetParam().bytes)), 5 * ms); };
    rig.link.PrepareScan();
    if (GetParam().single) {
        rig.link.PresetSingleRegister(0, 1, 3);
    } else {
        rig.link.PresetMultipleRegisters(0, 1, {10, 258});
    }
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_TRUE(rig.link.WriteFailed());
    EXPECT_EQ(rig.port.written.size(), 3U);
    EXPECT_THAT(rig.results(), ::testing::Each(std::string(GetParam().result)));
    EXPECT_EQ(rig.link.RegisterValue(0, 1), 0);
    EXPECT_EQ(rig.link.LastResponse(), "");
}

INSTANTIATE_TEST_SUITE_P(
    Faults, LinkBadEcho,
    ::testing::Values(Bad_Echo{"SingleAddress", true, "01 06 00 02 00 03", "wrong address echoed"},
                      Bad_Echo{"SingleValue", true, "01 06 00 01 00 04", "wrong value echoed"},
                      Bad_Echo{"SingleUnit", true, "02 06 00 01 00 03", "answer of another unit"},
                      Bad_Echo{"MultipleAddress", false, "01 10 00 02 00 02", "wrong address echoed"},
                      Bad_Echo{"MultipleQuantity", false, "01 10 00 01 00 01", "wrong quantity echoed"},
                      Bad_Echo{"MultipleFunction", false, "01 06 00 01 00 02", "answer to another function"}),
    [](const auto& chosen) { return chosen.param.name; });

TEST(LinkFaults, ABlockWriteThatIsRefusedAfterAnUnansweredOneOfAnotherLengthIsToldAsRefused) {
    Port_Settings settings = Link_Rig::defaults();
    settings.retries = 0;
    Fault_Rig rig(settings);
    rig.faults = [&](int number, const Byte_Array& request) {
        if (number > 0) rig.reply(rig.slave.exception(request, 3), 5 * ms);
    };
    rig.link.PrepareScan();
    rig.link.PresetMultipleRegisters(0, 1, {10, 258});
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_EQ(rig.link.LastResponse(), "");
    rig.link.PresetMultipleRegisters(0, 7, {1, 2, 3});
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_EQ(rig.link.LastResponse(), "Illegal data value (exception 3)");
    EXPECT_EQ(rig.port.written.size(), 2U);
}

// Late answers. Blocks 0-9, 10-19 and 20-29 have one shape, 30-34 another.

struct Late_Case {
    Micros delay;
    bool always; ///< every answer is late, else one of three
};

class LinkLateAnswer : public ::testing::TestWithParam<Late_Case> {
  protected:
    void run(Fault_Rig& rig, const std::function<void()>& between) {
        rig.faults = [&rig](int number, const Byte_Array& request) {
            const bool late = GetParam().always || number % 3 == 0;
            rig.reply(rig.slave.answer(request), late ? GetParam().delay : 5 * ms);
        };
        for (std::size_t count = 1; count <= 40; ++count) {
            ASSERT_TRUE(rig.exchanges(count));
            rig.expectNoWrongValue(40);
            between();
        }
    }
};

TEST_P(LinkLateAnswer, NeverCountsForTheNextRequest) {
    Fault_Rig rig;
    rig.block(0, 9);
    rig.block(10, 19);
    rig.block(20, 29);
    rig.block(30, 34);
    rig.scan();
    run(rig, [] {});
    if (!GetParam().always) rig.expectRead(0, 34);
}

TEST_P(LinkLateAnswer, NeverCountsForAWrite) {
    Fault_Rig rig;
    rig.block(0, 9);
    rig.scan();
    std::int32_t value = 0;
    std::int32_t asked = 0;
    const auto write = [&] {
        if (rig.link.WriteBusy()) return;
        const bool completed = asked != 0 && !rig.link.WriteFailed();
        EXPECT_TRUE(!completed || rig.slave.registers[600] == asked) << asked;
        rig.link.ClearWriteFailed();
        asked = ++value;
        rig.link.PresetSingleRegister(0, 600, asked);
    };
    run(rig, write);
}

std::vector<Late_Case> lateCases() {
    std::vector<Late_Case> cases;
    for (Micros delay = 96; delay <= 200; delay += 4) {
        cases.push_back({delay * ms, false});
        cases.push_back({delay * ms, true});
    }
    return cases;
}

INSTANTIATE_TEST_SUITE_P(Delays, LinkLateAnswer, ::testing::ValuesIn(lateCases()), [](const auto& chosen) {
    return std::to_string(chosen.param.delay / ms) + (chosen.param.always ? "msAlways" : "msOneOfThree");
});

TEST(LinkFaults, ALateAnswerIsShownAsSuch) {
    Fault_Rig rig;
    rig.faults = [&](int number, const Byte_Array& request) {
        rig.reply(rig.slave.answer(request), number == 0 ? 130 * ms : 5 * ms);
    };
    rig.block(0, 9);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(2));
    ASSERT_EQ(rig.log.strays.size(), 1U);
    EXPECT_EQ(rig.log.strays[0].what, "late answer to an earlier request, dropped");
    EXPECT_EQ(rig.log.strays[0].bytes.size(), 25U);
    EXPECT_THAT(rig.results(), ElementsAre("no answer", "good"));
}

TEST(LinkFaults, AStoppedScansAnswerDoesNotCountForTheNextScan) {
    Fault_Rig rig;
    rig.turnaround = 40 * ms;
    rig.block(0, 9, "ONCE");
    rig.block(10, 19, "ALWAYS");
    rig.scan("ONCE");
    rig.clock.runFor(20 * ms);
    ASSERT_EQ(rig.port.written.size(), 1U);
    rig.link.StopScan();
    rig.link.ClosePort();
    rig.scan("ALWAYS");
    for (std::size_t count = 1; count <= 3; ++count) {
        ASSERT_TRUE(rig.exchanges(count));
        rig.expectNoWrongValue(40);
    }
    rig.expectRead(10, 19);
}

TEST(LinkFaults, BusyAndOtherExceptionsLeaveTheImage) {
    Fault_Rig rig;
    rig.faults = [&](int number, const Byte_Array& request) {
        rig.reply(number == 0 ? rig.slave.exception(request, 6) : rig.slave.answer(request), 5 * ms);
    };
    rig.block(10, 12);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.link.LastResponse(), "BUSY");
    EXPECT_EQ(rig.log.exchanges[0].result, "BUSY");
    EXPECT_EQ(rig.link.RegisterValue(0, 10), 0);
    ASSERT_TRUE(rig.exchanges(2));
    EXPECT_EQ(rig.link.LastResponse(), "");
    rig.expectRead(10, 12);
}

} // namespace
} // namespace zorvane
