// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/byte_port.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace zorvane::testing {

/// Hears a port. It notes when it was told something from within a call.
class Port_Ear final : public Byte_Port_Listener {
  public:
    void bytesArrived(Byte_View bytes) override {
        toldInCall = toldInCall || inCall;
        heard.insert(heard.end(), bytes.begin(), bytes.end());
        if (onBytes) onBytes();
    }
    void portLost(const std::string& reason) override {
        toldInCall = toldInCall || inCall;
        losses.push_back(reason);
    }
    void openingEnded(const Port_Opening& opening) override {
        toldInCall = toldInCall || inCall;
        openings.push_back(opening);
    }

    Byte_Array heard;
    std::vector<std::string> losses;
    std::vector<Port_Opening> openings; ///< the ends of those that went on
    std::function<void()> onBytes;
    bool inCall = false;
    bool toldInCall = false;
};

/// What every byte port has to do. `Bench` has: Byte_Port& port(); std::string name(), a port that is there;
/// where the missing port isn't a serial one, absentName() and absentReason();
/// void farSend(bytes); Byte_Array farReceived(count); void hangUp(); void comeBack(); bool
/// runUntil(condition), which serves events; void idle(), which serves those that are due.
template <class Bench> class Byte_Port_Suite : public ::testing::Test {
  protected:
    Byte_Port_Suite() { bench.port().setListener(&ear); }
    ~Byte_Port_Suite() override { bench.port().setListener(nullptr); }

    void open() { ASSERT_TRUE(endOfOpening(bench.name()).opened); }
    /// Serves events until the opening has ended.
    Port_Opening endOfOpening(const std::string& name) {
        const std::size_t before = ear.openings.size();
        const Port_Opening begun = bench.port().open(name, settings);
        if (!begun.goesOn) return begun;
        const bool ended = bench.runUntil([&] { return ear.openings.size() > before; });
        return ended ? ear.openings.back() : Port_Opening{false, "It never ended.", {}};
    }
    static std::string absentName() {
        if constexpr (requires { Bench::absentName(); })
            return Bench::absentName();
        else
            return "/nowhere/at/all";
    }
    static std::string absentReason() {
        if constexpr (requires { Bench::absentReason(); })
            return Bench::absentReason();
        else
            return "No such port: plug the adapter in, or choose another port.";
    }
    bool heard(std::size_t count) {
        return bench.runUntil([&] { return ear.heard.size() >= count; });
    }

    /// Times of the link's clock.
    static Micros soon() { return now() + 30 * microsPerMs; }
    static Micros never() { return now() + 3600 * microsPerSecond; }
    static Micros now() {
        const auto since = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration_cast<std::chrono::microseconds>(since).count();
    }

    static Byte_Array allBytes() {
        Byte_Array bytes(256);
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            bytes[i] = static_cast<std::uint8_t>(i);
        }
        return bytes;
    }

    Port_Settings settings;
    Bench bench;
    Port_Ear ear;
};

TYPED_TEST_SUITE_P(Byte_Port_Suite);

TYPED_TEST_P(Byte_Port_Suite, OpensAndCloses) {
    EXPECT_FALSE(this->bench.port().isOpen());
    this->open();
    EXPECT_TRUE(this->bench.port().isOpen());
    this->bench.port().close();
    EXPECT_FALSE(this->bench.port().isOpen());
    this->open();
    EXPECT_TRUE(this->bench.port().isOpen());
}

TYPED_TEST_P(Byte_Port_Suite, APortThatIsNotThereGivesItsReason) {
    const Port_Opening opening = this->endOfOpening(this->absentName());
    EXPECT_FALSE(opening.opened);
    EXPECT_EQ(opening.reason, this->absentReason());
    EXPECT_FALSE(this->bench.port().isOpen());
}

TYPED_TEST_P(Byte_Port_Suite, OpensWithAnyLineSettings) {
    for (const char* line : {"300,n,8,1", "9600,e,8,1", "19200,o,7,2", "115200,n,8,2"}) {
        this->settings.line = *parseLineSettings(line);
        this->open();
        this->bench.port().close();
    }
}

TYPED_TEST_P(Byte_Port_Suite, EveryByteGoesOutUnchanged) {
    this->open();
    EXPECT_TRUE(this->bench.port().write(this->allBytes()));
    EXPECT_EQ(this->bench.farReceived(256), this->allBytes());
}

TYPED_TEST_P(Byte_Port_Suite, EveryByteComesInUnchanged) {
    this->open();
    this->bench.farSend(this->allBytes());
    ASSERT_TRUE(this->heard(256));
    EXPECT_EQ(this->ear.heard, this->allBytes());
}

TYPED_TEST_P(Byte_Port_Suite, TellsNothingFromWithinACall) {
    this->open();
    this->bench.farSend({1, 2, 3});
    this->ear.inCall = true;
    EXPECT_TRUE(this->bench.port().write(Byte_Array{4, 5}));
    this->bench.port().setRts(true);
    this->bench.port().setRts(false);
    this->ear.inCall = false;
    ASSERT_TRUE(this->heard(3));
    EXPECT_FALSE(this->ear.toldInCall);
}

TYPED_TEST_P(Byte_Port_Suite, DiscardsWhatHasComeIn) {
    this->open();
    this->bench.farSend({1, 2, 3});
    this->bench.port().discardInput();
    this->bench.farSend({4});
    ASSERT_TRUE(this->heard(1));
    EXPECT_EQ(this->ear.heard, Byte_Array{4});
}

TYPED_TEST_P(Byte_Port_Suite, KnowsOfBytesThatWaitToBeTold) {
    EXPECT_FALSE(this->bench.port().hasInput());
    this->open();
    EXPECT_FALSE(this->bench.port().hasInput());
    this->bench.farSend({1, 2, 3});
    const Micros limit = this->now() + microsPerSecond;
    while (!this->bench.port().hasInput() && this->now() < limit)
        std::this_thread::yield(); // without serving events, which would tell the bytes
    EXPECT_TRUE(this->bench.port().hasInput());
    EXPECT_TRUE(this->ear.heard.empty());
    ASSERT_TRUE(this->heard(3));
    EXPECT_FALSE(this->bench.port().hasInput());
}

TYPED_TEST_P(Byte_Port_Suite, ALineThatHangsUpIsToldOnceAndClosed) {
    this->open();
    this->bench.hangUp();
    ASSERT_TRUE(this->bench.runUntil([&] { return !this->ear.losses.empty(); }));
    EXPECT_FALSE(this->bench.port().isOpen());
    this->bench.idle();
    EXPECT_EQ(this->ear.losses.size(), 1U);
    EXPECT_FALSE(this->ear.losses[0].empty());
}

TYPED_TEST_P(Byte_Port_Suite, ALineThatHungUpCanBeOpenedAgain) {
    this->open();
    this->bench.hangUp();
    ASSERT_TRUE(this->bench.runUntil([&] { return !this->ear.losses.empty(); }));
    this->bench.comeBack();
    this->open();
    this->bench.farSend({7});
    ASSERT_TRUE(this->heard(1));
    EXPECT_EQ(this->ear.losses.size(), 1U);
}

TYPED_TEST_P(Byte_Port_Suite, AClosedPortTakesNoBytes) {
    EXPECT_FALSE(this->bench.port().write(Byte_Array{1}));
    this->open();
    this->bench.port().close();
    EXPECT_FALSE(this->bench.port().write(Byte_Array{1}));
    EXPECT_TRUE(this->ear.losses.empty());
}

TYPED_TEST_P(Byte_Port_Suite, MayBeClosedByWhoIsTold) {
    this->open();
    this->ear.onBytes = [this] { this->bench.port().close(); };
    this->bench.farSend({1});
    ASSERT_TRUE(this->heard(1));
    EXPECT_FALSE(this->bench.port().isOpen());
    this->bench.idle();
    EXPECT_TRUE(this->ear.losses.empty());
}

TYPED_TEST_P(Byte_Port_Suite, TellsNothingAfterItWasClosed) {
    this->open();
    this->bench.farSend({1});
    this->bench.port().close();
    this->bench.idle();
    EXPECT_TRUE(this->ear.heard.empty());
}

TYPED_TEST_P(Byte_Port_Suite, LosesNothingWhileToldToWait) {
    this->open();
    this->bench.port().tellNotBefore(this->soon());
    this->bench.farSend(this->allBytes());
    ASSERT_TRUE(this->heard(256));
    EXPECT_EQ(this->ear.heard, this->allBytes());
    this->bench.farSend({1});
    ASSERT_TRUE(this->heard(257)) << "and it listens again afterwards";
}

TYPED_TEST_P(Byte_Port_Suite, AHintCanBeTakenBack) {
    this->open();
    this->bench.port().tellNotBefore(this->never());
    this->bench.farSend({1, 2});
    this->bench.port().tellNotBefore(0);
    ASSERT_TRUE(this->heard(2));
}

TYPED_TEST_P(Byte_Port_Suite, AHintEndsWithTheOpening) {
    this->open();
    this->bench.port().tellNotBefore(this->never());
    this->bench.port().close();
    this->open();
    this->bench.farSend({1, 2});
    ASSERT_TRUE(this->heard(2));
}

TYPED_TEST_P(Byte_Port_Suite, ALostLineIsToldAtTheEndOfTheHintAtTheLatest) {
    this->open();
    this->bench.port().tellNotBefore(this->soon());
    this->bench.hangUp();
    ASSERT_TRUE(this->bench.runUntil([&] { return !this->ear.losses.empty(); }));
    EXPECT_FALSE(this->bench.port().isOpen());
}

REGISTER_TYPED_TEST_SUITE_P(Byte_Port_Suite, OpensAndCloses, APortThatIsNotThereGivesItsReason,
                            OpensWithAnyLineSettings, EveryByteGoesOutUnchanged, EveryByteComesInUnchanged,
                            TellsNothingFromWithinACall, DiscardsWhatHasComeIn, KnowsOfBytesThatWaitToBeTold,
                            ALineThatHangsUpIsToldOnceAndClosed, ALineThatHungUpCanBeOpenedAgain,
                            AClosedPortTakesNoBytes, MayBeClosedByWhoIsTold, TellsNothingAfterItWasClosed,
                            LosesNothingWhileToldToWait, AHintCanBeTakenBack, AHintEndsWithTheOpening,
                            ALostLineIsToldAtTheEndOfTheHintAtTheLatest);

} // namespace zorvane::testing
