// SPDX-License-Identifier: MIT
// A million frames in ten million bytes of noise, by chance: what is found, what is put together, what is
// made up.
#include "comm/modbus_control/testing/toy_slave.h"
#include "survey/listen/heard_exchanges.h"

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <set>

namespace zorvane::survey {
namespace {

/// A made-up line: exchanges of all common functions, some without an answer, with noise between the frames.
class Made_Up_Line {
  public:
    explicit Made_Up_Line(std::uint64_t seed) : dice_(seed) {}

    /// Where the frames stand in the stream.
    std::set<std::uint64_t> frames;
    std::map<std::uint64_t, std::uint64_t> answerOf; ///< by its request
    std::uint64_t length = 0;

    /// The bytes of the next exchange, with its noise.
    Byte_Array next() {
        Byte_Array bytes;
        const auto [asking, answering] = exchange();
        const std::uint64_t request = add(bytes, asking);
        if (upTo(99) != 0) answerOf[request] = add(bytes, answering);
        length += bytes.size();
        return bytes;
    }
    [[nodiscard]] Byte_Array noise(std::size_t count) {
        Byte_Array bytes(count);
        for (std::uint8_t& byte : bytes)
            byte = any();
        return bytes;
    }

  private:
    int upTo(int most) { return std::uniform_int_distribution<int>(0, most)(dice_); }
    std::uint8_t any() { return static_cast<std::uint8_t>(upTo(255)); }

    std::uint64_t add(Byte_Array& bytes, const Byte_Array& frame) {
        const Byte_Array before = noise(static_cast<std::size_t>(upTo(20))); // ten on average
        bytes.insert(bytes.end(), before.begin(), before.end());
        const std::uint64_t position = length + bytes.size();
        bytes.insert(bytes.end(), frame.begin(), frame.end());
        frames.insert(position);
        return position;
    }

    std::pair<Byte_Array, Byte_Array> exchange() {
        const auto unit = static_cast<std::uint8_t>(1 + upTo(30));
        const std::uint8_t high = any();
        const std::uint8_t low = any();
        const auto count = static_cast<std::uint8_t>(1 + upTo(20));
        Byte_Array asking{unit, 3, high, low, 0, count};
        Byte_Array answering{unit, 3};
        switch (upTo(5)) {
        case 0:
            asking = answering = {unit, 6, high, low, any(), any()};
            break;
        case 1:
            asking = {unit, 16, high, low, 0, count, static_cast<std::uint8_t>(2 * count)};
            append(asking, 2U * count);
            answering = {unit, 16, high, low, 0, count};
            break;
        case 2:
            answering = {unit, 0x83, static_cast<std::uint8_t>(1 + upTo(5))};
            break;
        default:
            answering.push_back(static_cast<std::uint8_t>(2 * count));
            append(answering, 2U * count);
        }
        return {zorvane::testing::withCrc(asking), zorvane::testing::withCrc(answering)};
    }
    void append(Byte_Array& bytes, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            bytes.push_back(any());
    }

    std::mt19937_64 dice_;
};

TEST(MillionFrames, AreFoundInTenMillionBytesOfNoise) {
    constexpr std::uint64_t wanted = 1000000;
    Made_Up_Line line(1);
    std::uint64_t found = 0;
    std::uint64_t madeUp = 0;
    std::uint64_t pairs = 0;
    std::uint64_t falsePairs = 0;
    const auto isTrue = [&line](const Heard_Frame& frame) { return line.frames.count(frame.position) != 0; };
    Heard_Exchanges exchanges([&](const Heard_Exchange& exchange) {
        if (!exchange.paired()) return;
        ++pairs;
        const auto answer = line.answerOf.find(exchange.request->position);
        if (answer == line.answerOf.end() || answer->second != exchange.answer->position) ++falsePairs;
    });
    Frame_Finder finder([&](const Heard_Frame& frame) {
        ++(isTrue(frame) ? found : madeUp);
        exchanges.take(frame);
    });
    while (line.frames.size() < wanted)
        finder.take(line.next(), 0);
    finder.flush();
    exchanges.end();

    EXPECT_GE(found, line.frames.size() * 999 / 1000);
    EXPECT_LE(madeUp, 40U);
    EXPECT_EQ(falsePairs, 0U);
    EXPECT_GE(pairs, line.answerOf.size() * 99 / 100);
    EXPECT_GE(finder.noiseBytes(), 9900000U);
    RecordProperty("found", static_cast<int>(found));
    RecordProperty("made_up", static_cast<int>(madeUp));
    RecordProperty("pairs", static_cast<int>(pairs));
    RecordProperty("exchanges", static_cast<int>(line.answerOf.size()));
}

TEST(MillionFrames, AreFewInNoiseAlone) {
    Made_Up_Line line(2);
    std::uint64_t madeUp = 0;
    std::uint64_t pairs = 0;
    Heard_Exchanges exchanges([&](const Heard_Exchange& exchange) { pairs += exchange.paired() ? 1 : 0; });
    Frame_Finder finder([&](const Heard_Frame& frame) {
        ++madeUp;
        exchanges.take(frame);
    });
    for (int i = 0; i < 10000; ++i)
        finder.take(line.noise(1000), 0);
    finder.flush();
    exchanges.end();
    EXPECT_LE(madeUp, 40U);
    EXPECT_EQ(pairs, 0U);
    RecordProperty("made_up", static_cast<int>(madeUp));
}

} // namespace
} // namespace zorvane::survey
