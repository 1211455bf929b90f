// SPDX-License-Identifier: MIT
// Ten and a hundred thousand exchanges on a line where one answer in ten is spoilt, at random but from a
// fixed seed.
#include "comm/modbus_control/testing/link_rig.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>

namespace zorvane {
namespace {

using testing::Link_Rig;
using testing::ms;
using testing::timeOut;
using testing::withCrc;
constexpr std::uint16_t firstSettable = 1000; ///< registers from here on are written, those below are fixed

std::uint16_t soakValue(std::uint16_t address) { return static_cast<std::uint16_t>(address * 31 + 7); }

class Soak {
  public:
    explicit Soak(unsigned seed) : random_(seed) {
        for (std::uint16_t address = 0; address < firstSettable; ++address) {
            rig.slave.registers[address] = soakValue(address);
        }
        for (const auto& [first, last] :
             {std::pair{0, 9}, {10, 19}, {20, 29}, {30, 34}, {40, 200}, {300, 303}, {310, 313}}) {
            rig.block(first, last);
        }
        rig.faults = [this](int, const Byte_Array& request) { answer(request); };
    }

    /// Runs so many exchanges with a write now and then; false when one of them hangs.
    bool run(std::size_t exchanges) {
        rig.scan();
        while (rig.log.exchanges.size() < exchanges) {
            const std::size_t before = rig.log.exchanges.size();
            const bool moved = rig.clock.runUntilTrue([&] { return rig.log.exchanges.size() > before; },
                                                      10 * microsPerSecond);
            if (!moved) return false;
            checkImage();
            write();
        }
        return true;
    }

    Link_Rig rig;
    int faultsMade = 0;
    int wrongValues = 0;
    int falseCompletions = 0;
    int writesCompleted = 0;
    int writesFailed = 0;

  private:
    unsigned pick(unsigned below) { return static_cast<unsigned>(random_() % below); }

    void answer(const Byte_Array& request) {
        const Micros turnaround = (1 + pick(20)) * ms;
        if (pick(10) != 0) return rig.reply(rig.slave.answer(request), turnaround);
        ++faultsMade;
        spoil(request, turnaround);
    }

    void spoil(const Byte_Array& request, Micros turnaround) {
        switch (pick(12)) {
        case 0:
            return; // the request was lost
        case 1:     // the answer was lost
            static_cast<void>(rig.slave.answer(request));
            return;
        case 2:
            return rig.reply(rig.slave.answer(request), timeOut - 5 * ms + pick(105) * ms);
        case 3:
            return rig.reply(damaged(rig.slave.answer(request)), turnaround);
        case 4:
            return rig.reply(cut(rig.slave.answer(request)), turnaround);
        case 5:
            return noise(request, turnaround);
        case 6:
            return rig.reply(otherUnit(rig.slave.answer(request)), turnaround);
        case 7:
            return rig.reply(wrongContent(request), turnaround);
        case 8:
            return rig.reply(rig.slave.exception(request, static_cast<std::uint8_t>(1 + pick(4))),
                             turnaround);
        case 9:
            return rig.reply(rig.slave.exception(request, 6), turnaround);
        case 10:
            return echo(request, turnaround);
        default:
            return rig.clock.in(pick(30) * ms, [this] { rig.port.unplug(); });
        }
    }

    Byte_Array damaged(Byte_Array frame) {
        frame.at(pick(static_cast<unsigned>(frame.size()))) ^= static_cast<std::uint8_t>(1U << pick(8));
        return frame;
    }
    Byte_Array cut(Byte_Array frame) {
        frame.resize(pick(static_cast<unsigned>(frame.size())));
        return frame;
    }
    void noise(const Byte_Array& request, Micros turnaround) {
        Byte_Array bytes(1 + pick(10));
        for (std::uint8_t& byte : bytes) {
            byte = static_cast<std::uint8_t>(pick(256));
        }
        const Byte_Array good = rig.slave.answer(request);
        if (pick(2) == 0) {
            rig.reply(bytes, turnaround / 2);
            return rig.reply(good, turnaround);
        }
        bytes.insert(bytes.end(), good.begin(), good.end());
        rig.reply(bytes, turnaround);
    }
    static Byte_Array otherUnit(Byte_Array frame) {
        frame.resize(frame.size() - 2);
        frame[0] = 2;
        return withCrc(frame);
    }
    /// A frame with a good CRC that says something else: too few registers, or another address or value.
    Byte_Array wrongContent(const Byte_Array& request) {
        if (request[1] == 3) return withCrc({1, 3, 2, 0xDE, 0xAD});
        Byte_Array frame(request.begin(), request.begin() + 6);
        frame.at(2 + pick(4)) ^= 1U;
        return withCrc(frame);
    }
    void echo(const Byte_Array& request, Micros turnaround) {
        rig.send(request, rig.requestTime());
        rig.reply(rig.slave.answer(request), turnaround);
    }

    void checkImage() {
        for (std::uint16_t address = 0; address < 320; ++address) {
            const std::int32_t value = rig.link.RegisterValue(0, address, false);
            if (value != 0 && value != soakValue(address)) ++wrongValues;
        }
    }

    void write() {
        if (rig.link.WriteBusy()) return;
        judgeWrite();
        if (pick(3) != 0 || !rig.link.portOpen()) return;
        first_ = static_cast<std::uint16_t>(firstSettable + pick(20));
        written_.assign(1 + pick(3), 0);
        for (std::int32_t& value : written_) {
            value = ++counter_ % 65536;
        }
        if (written_.size() == 1) {
            rig.link.PresetSingleRegister(0, first_, written_[0]);
        } else {
            rig.link.PresetMultipleRegisters(0, first_, written_);
        }
    }

    void judgeWrite() {
        if (written_.empty()) return;
        const bool failed = rig.link.WriteFailed();
        rig.link.ClearWriteFailed();
        ++(failed ? writesFailed : writesCompleted);
        for (std::size_t i = 0; i < written_.size() && !failed; ++i) {
            const auto address = static_cast<std::uint16_t>(first_ + i);
            if (rig.slave.registers[address] != written_[i]) ++falseCompletions;
            if (rig.link.RegisterValue(0, address, false) != written_[i]) ++wrongValues;
        }
        written_.clear();
    }

    std::mt19937 random_;
    std::int32_t counter_ = 0;
    std::uint16_t first_ = 0;
    std::vector<std::int32_t> written_;
};

struct Soak_Run {
    unsigned seed;
    int exchanges;
};

void PrintTo(const Soak_Run& run, std::ostream* out) { *out << run.exchanges << "FromSeed" << run.seed; }

class LinkSoak : public ::testing::TestWithParam<Soak_Run> {};

TEST_P(LinkSoak, ManyExchangesBringNothingWrongAndNeverHang) {
    const auto [seed, exchanges] = GetParam();
    Soak soak(seed);
    ASSERT_TRUE(soak.run(static_cast<std::size_t>(exchanges)))
        << "hangs after " << soak.rig.log.exchanges.size();
    EXPECT_EQ(soak.wrongValues, 0);
    EXPECT_EQ(soak.falseCompletions, 0);
    EXPECT_GT(soak.faultsMade, exchanges * 9 / 100);
    EXPECT_GT(soak.writesCompleted, exchanges / 10);
    RecordProperty("faults", soak.faultsMade);
    RecordProperty("writesCompleted", soak.writesCompleted);
    RecordProperty("writesFailed", soak.writesFailed);
}

INSTANTIATE_TEST_SUITE_P(Seeds, LinkSoak,
                         ::testing::Values(Soak_Run{1, 10'000}, Soak_Run{2, 10'000}, Soak_Run{3, 10'000},
                                           Soak_Run{4, 100'000}),
                         ::testing::PrintToStringParamName());

} // namespace
} // namespace zorvane
