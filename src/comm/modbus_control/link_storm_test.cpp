// SPDX-License-Identifier: MIT
// Thousands of random transfers on a line on which everything goes wrong: faults of 56 kinds at random,
// answers up to ten time-outs late and a second master among them, in virtual time from kept seeds. A
// transfer may fail. It may not bring a value that the controller doesn't hold, call a write completed that
// the controller never took, or hang.
//
// ZORVANE_STORM=4000 runs so many transfers from each seed instead of the few hundred of the test suite.
#include "comm/modbus_control/testing/link_rig.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <ostream>
#include <random>
#include <set>

namespace zorvane {
namespace {

using testing::Link_Rig;
using testing::ms;
using testing::timeOut;
using testing::withCrc;
constexpr std::uint16_t firstWritten = 1000; ///< registers from here on are written, those below only read
constexpr int kindsOfFaults = 56;

/// What the kinds come to. Times are of the present answer's time; "in turn" means that the controller does
/// nothing else meanwhile, "out of turn" that a gateway answers others first.
enum class Fault {
    RequestLost,
    AnswerLost,
    LateInTurn,    ///< twelve kinds by how much
    LateOutOfTurn, ///< twelve
    SecondCopy,    ///< eight
    Damaged,
    Cut,
    NoiseBefore,
    NoiseAhead,
    NoiseBehind, ///< three
    OtherUnit,
    OtherFunction,
    TooShort,
    WrongEcho,
    Exception, ///< two
    LateException,
    Busy,
    Echo,
    Unplugged,
    OtherMaster, ///< six
};

constexpr std::array<std::pair<Fault, int>, 20> kinds = {
    {{Fault::RequestLost, 1}, {Fault::AnswerLost, 1},  {Fault::LateInTurn, 12}, {Fault::LateOutOfTurn, 12},
     {Fault::SecondCopy, 8},  {Fault::Damaged, 1},     {Fault::Cut, 1},         {Fault::NoiseBefore, 1},
     {Fault::NoiseAhead, 1},  {Fault::NoiseBehind, 3}, {Fault::OtherUnit, 1},   {Fault::OtherFunction, 1},
     {Fault::TooShort, 1},    {Fault::WrongEcho, 1},   {Fault::Exception, 2},   {Fault::LateException, 1},
     {Fault::Busy, 1},        {Fault::Echo, 1},        {Fault::Unplugged, 1},   {Fault::OtherMaster, 5}}};

/// How late, in tenths of the time-out.
constexpr std::array<int, 12> lateness = {10, 11, 13, 17, 20, 22, 25, 32, 45, 60, 80, 100};
/// How long after the answer its copy comes, in ms.
constexpr std::array<int, 8> copyAfter = {4, 10, 15, 25, 60, 150, 350, 900};

/// One transfer, from its own seed.
class Storm {
  public:
    explicit Storm(std::uint64_t seed) : random_(seed), rig(settings()) {
        base_ = (1 + pick(12)) * ms;
        changing_ = pick(3) == 0;
        faultsIn100_ = 4 + pick(45);
        rig.faults = [this](int, const Byte_Array& request) { requested(request); };
    }

    void run() {
        if (pick(3) == 0) return download();
        upload();
    }

    int faults = 0;
    int wrongValues = 0;
    int falseCompletions = 0;
    int hangs = 0;
    std::set<int> kindsSeen;
    int exchanges() const { return static_cast<int>(rig.log.exchanges.size()); }
    bool failed = false;

  private:
    Port_Settings settings() {
        Port_Settings settings = Link_Rig::defaults();
        settings.retries = static_cast<std::int32_t>(pick(4));
        return settings;
    }
    unsigned pick(unsigned below) { return static_cast<unsigned>(random_() % below); }

    // The controller. A register below 1000 tells its own address, and in some transfers changes all the
    // time.

    std::uint16_t valueOf(std::uint16_t address) {
        if (address >= firstWritten) return rig.slave.registers[address];
        const auto count = static_cast<std::uint16_t>(changing_ ? rig.clock.now() / (7 * ms) % 64 : 1);
        return static_cast<std::uint16_t>(address * 64U + count);
    }
    static bool mayBeOf(std::uint16_t address, std::int32_t value) { return value / 64 == address; }

    Byte_Array answerTo(const Byte_Array& request) {
        if (request.at(1) == 3) {
            const auto first = static_cast<std::uint16_t>(request.at(2) * 256U + request.at(3));
            for (std::uint16_t i = 0; i < request.at(5); ++i)
                rig.slave.registers[static_cast<std::uint16_t>(first + i)] =
                    valueOf(static_cast<std::uint16_t>(first + i));
        } else {
            taken_.push_back(request);
        }
        return rig.slave.answer(request);
    }

    /// The controller works on one request after the other.
    Micros turn(Micros work) {
        const Micros arrived = rig.clock.now() + rig.requestTime();
        free_ = std::max(free_, arrived) + work;
        return free_ - arrived;
    }
    Micros usualWork() { return base_ + static_cast<Micros>(pick(2000)); }

    void requested(const Byte_Array& request) {
        // What has waited longer than ten time-outs for its turn is forgotten.
        if (free_ > rig.clock.now() + 9 * timeOut) return;
        if (pick(100) >= faultsIn100_) return rig.reply(answerTo(request), turn(usualWork()));
        int kind = static_cast<int>(pick(kindsOfFaults));
        ++faults;
        kindsSeen.insert(kind);
        for (const auto& [fault, count] : kinds) {
            if (kind < count) return spoil(fault, static_cast<unsigned>(kind), request);
            kind -= count;
        }
    }

    void spoil(Fault fault, unsigned variant, const Byte_Array& request) {
        if (fault == Fault::RequestLost) return;
        if (fault == Fault::Exception || fault == Fault::LateException || fault == Fault::Busy) {
            const std::uint8_t code = fault == Fault::Busy ? 6 : static_cast<std::uint8_t>(2 + variant);
            const Micros work = fault == Fault::LateException ? timeOut * (11 + pick(70)) / 10 : usualWork();
            return rig.reply(rig.slave.exception(request, code), turn(work));
        }
        if (fault == Fault::OtherMaster) return otherMaster(variant, request);
        if (fault == Fault::Unplugged) return rig.clock.in(pick(40) * ms, [this] { rig.port.unplug(); });
        const Byte_Array good = answerTo(request);
        if (fault == Fault::LateOutOfTurn) return rig.reply(good, timeOut * lateness.at(variant) / 10);
        if (fault == Fault::LateInTurn) return rig.reply(good, turn(timeOut * lateness.at(variant) / 10));
        spoilAnswer(fault, variant, request, good);
    }

    void spoilAnswer(Fault fault, unsigned variant, const Byte_Array& request, const Byte_Array& good) {
        const Micros work = turn(usualWork());
        switch (fault) {
        case Fault::SecondCopy:
            rig.reply(good, work);
            return rig.reply(good, work + copyDelay(request, variant));
        case Fault::Damaged:
            return rig.reply(damaged(good), work);
        case Fault::Cut:
            return rig.reply(
                Byte_Array(good.begin(), good.begin() + pick(static_cast<unsigned>(good.size()))), work);
        case Fault::NoiseBefore:
            return rig.reply(joined(noise(), good), work);
        case Fault::NoiseAhead:
            rig.reply(noise(), work / 2);
            return rig.reply(good, work);
        case Fault::NoiseBehind:
            rig.reply(good, work);
            return rig.reply(noise(), work + (1 + 6 * variant) * ms);
        case Fault::OtherUnit:
            return rig.reply(resealed(good, 0, 2), work);
        case Fault::OtherFunction:
            return rig.reply(resealed(good, 1, 4), work);
        case Fault::TooShort:
            return rig.reply(shorter(good), work);
        case Fault::WrongEcho:
            if (request.at(1) == 3) return; // of a read that would be what the controller says
            return rig.reply(resealed(good, 3, static_cast<std::uint8_t>(good.at(3) + 1)), work);
        case Fault::Echo:
            rig.send(request, rig.requestTime());
            return rig.reply(good, work);
        default:
            return; // the answer was lost
        }
    }

    /// The first copy in a while comes before the next request is out. One that comes later without a sign
    /// before it, just when the next answer gets lost, can't be told from that by anybody.
    /// The copy of a single write's answer looks like an adapter's echo and announces nothing.
    Micros copyDelay(const Byte_Array& request, unsigned variant) {
        const Micros now = rig.clock.now();
        const bool announced = copiesUntil_ > now;
        if (request.at(1) != 6) copiesUntil_ = now + 9 * timeOut;
        return announced ? copyAfter.at(variant) * ms : 2 * ms;
    }

    /// Another master asks for as many registers as we do, or for others, around our own request.
    void otherMaster(unsigned variant, const Byte_Array& request) {
        Byte_Array other{
            1, 3, 0, static_cast<std::uint8_t>(pick(200)), 0, static_cast<std::uint8_t>(1 + pick(12))};
        if (request.at(1) == 3 && variant != 4) other[5] = request.at(5);
        other = withCrc(other);
        if (variant == 0) { // it asks after our answer
            const Micros work = turn(usualWork());
            rig.reply(answerTo(request), work);
            rig.reply(other, work + 2 * ms);
            return rig.reply(answerTo(other), turn(12 * ms + usualWork()));
        }
        // It asks while the controller works for us, and one of both is answered first, or one alone.
        rig.reply(other, 1 * ms);
        const Byte_Array ours = answerTo(request);
        const Byte_Array theirs = answerTo(other);
        if (variant != 3) rig.reply(variant == 1 ? ours : theirs, turn(10 * ms + usualWork()));
        if (variant != 2) rig.reply(variant == 1 ? theirs : ours, turn(10 * ms + usualWork()));
    }

    Byte_Array damaged(Byte_Array frame) {
        frame.at(pick(static_cast<unsigned>(frame.size()))) ^= static_cast<std::uint8_t>(1U << pick(8));
        return frame;
    }
    Byte_Array noise() {
        Byte_Array bytes(1 + pick(10));
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(pick(256));
        return bytes;
    }
    static Byte_Array joined(Byte_Array first, const Byte_Array& second) {
        first.insert(first.end(), second.begin(), second.end());
        return first;
    }
    /// One register less than was asked for; an answer to a write without its last byte.
    static Byte_Array shorter(Byte_Array frame) {
        const bool read = frame.at(1) == 3;
        frame.resize(frame.size() - (read ? 4 : 3));
        if (read) frame.at(2) = static_cast<std::uint8_t>(frame.at(2) - 2);
        return withCrc(frame);
    }
    static Byte_Array resealed(Byte_Array frame, std::size_t at, std::uint8_t value) {
        frame.resize(frame.size() - 2);
        frame.at(at) = value;
        return withCrc(frame);
    }

    // The transfers, as the machines of upload and download drive the link.

    void upload() {
        std::uint16_t next = static_cast<std::uint16_t>(pick(10));
        const unsigned usual = 1 + pick(12);
        const unsigned blocks = 2 + pick(7);
        for (unsigned i = 0; i < blocks; ++i) {
            const unsigned size = pick(3) != 0 ? usual : 1 + pick(pick(8) == 0 ? 200 : 20);
            rig.block(next, static_cast<std::int32_t>(next + size - 1));
            next = static_cast<std::uint16_t>(next + size + pick(3));
        }
        rig.scan();
        watch(next);
        checkImage(next);
    }

    void watch(std::uint16_t last) {
        const std::int32_t first = watchedScanBlock(rig.link);
        std::int32_t index = first;
        for (int tick = 0; tick < 60'000; ++tick) {
            rig.clock.runFor(10 * ms);
            static_cast<void>(watchedFailure(rig.link));
            if (watchedScanBlock(rig.link) == index) continue;
            index = watchedScanBlock(rig.link);
            checkImage(last);
            if (rig.link.CommLost()) {
                failed = true;
                return;
            }
            if (index == first) return;
        }
        ++hangs;
    }

    void checkImage(std::uint16_t last) {
        for (std::uint16_t address = 0; address < last; ++address) {
            const std::int32_t value = rig.link.RegisterValue(0, address, false);
            if (value != 0 && !mayBeOf(address, value)) ++wrongValues;
        }
    }

    /// Writes of the same few registers, each with new values, and in some transfers polling between them.
    void download() {
        if (pick(2) == 0) {
            rig.block(0, 9);
            rig.block(10, 19);
        }
        rig.scan("NONE");
        const auto first = static_cast<std::uint16_t>(firstWritten + pick(4));
        const unsigned writes = 6 + pick(20);
        for (unsigned i = 0; i < writes; ++i)
            write(first, 1 + static_cast<unsigned>(pick(2) * pick(6)));
        checkImage(20);
    }

    void write(std::uint16_t first, unsigned count) {
        std::vector<std::int32_t> values(count);
        for (std::int32_t& value : values)
            value = ++counter_ % 65536;
        const std::size_t before = taken_.size();
        rig.link.ClearWriteFailed();
        if (count == 1) {
            rig.link.PresetSingleRegister(0, first, values[0]);
        } else {
            rig.link.PresetMultipleRegisters(0, first, values);
        }
        if (!rig.clock.runUntilTrue([&] { return !rig.link.WriteBusy(); }, 120 * microsPerSecond)) ++hangs;
        failed = failed || rig.link.WriteFailed();
        const bool completed = !rig.link.WriteFailed();
        if (completed && !wasTaken(first, values, before)) ++falseCompletions;
        rig.clock.runFor(pick(3) == 0 ? pick(300) * ms : 0);
    }

    /// Whether the controller has got these very values since.
    bool wasTaken(std::uint16_t first, const std::vector<std::int32_t>& values, std::size_t since) const {
        Byte_Array wanted;
        for (const std::int32_t value : values) {
            wanted.push_back(static_cast<std::uint8_t>(value >> 8));
            wanted.push_back(static_cast<std::uint8_t>(value & 0xFF));
        }
        const std::size_t at = values.size() == 1 ? 4 : 7;
        for (std::size_t i = since; i < taken_.size(); ++i) {
            const Byte_Array& request = taken_[i];
            const bool here = request.at(2) * 256 + request.at(3) == first;
            if (here && std::equal(wanted.begin(), wanted.end(), request.begin() + static_cast<long>(at)))
                return true;
        }
        return false;
    }

    std::mt19937_64 random_;
    Micros base_ = 0;
    bool changing_ = false;
    unsigned faultsIn100_ = 0;
    Micros copiesUntil_ = 0; ///< until then the link knows that this line brings answers twice
    Micros free_ = 0;        ///< when the controller has nothing to do
    std::vector<Byte_Array> taken_;
    std::int32_t counter_ = 0;

  public:
    Link_Rig rig;
};

int transfersWanted() {
    const char* wanted = std::getenv("ZORVANE_STORM");
    return wanted == nullptr ? 250 : std::atoi(wanted);
}

class LinkStorm : public ::testing::TestWithParam<int> {};

TEST_P(LinkStorm, RandomTransfersBringNothingWrongCompleteNothingFalselyAndNeverHang) {
    int faults = 0;
    int exchanges = 0;
    int failedTransfers = 0;
    std::set<int> kindsSeen;
    const int transfers = transfersWanted();
    for (int i = 0; i < transfers; ++i) {
        const std::uint64_t seed =
            static_cast<std::uint64_t>(GetParam()) * 1'000'000U + static_cast<unsigned>(i);
        Storm storm(seed);
        storm.run();
        EXPECT_EQ(storm.wrongValues, 0) << "seed " << seed;
        EXPECT_EQ(storm.falseCompletions, 0) << "seed " << seed;
        EXPECT_EQ(storm.hangs, 0) << "seed " << seed;
        faults += storm.faults;
        exchanges += storm.exchanges();
        failedTransfers += storm.failed ? 1 : 0;
        kindsSeen.insert(storm.kindsSeen.begin(), storm.kindsSeen.end());
    }
    EXPECT_EQ(kindsSeen.size(), static_cast<std::size_t>(kindsOfFaults));
    EXPECT_GT(faults, 2 * transfers);
    EXPECT_LT(failedTransfers, transfers);
    std::cout << transfers << " transfers, " << exchanges << " exchanges, " << faults << " faults of "
              << kindsSeen.size() << " kinds, " << failedTransfers
              << " transfers with something that failed\n";
}

INSTANTIATE_TEST_SUITE_P(Seeds, LinkStorm, ::testing::Values(1, 2, 3, 4));

} // namespace
} // namespace zorvane
