// SPDX-License-Identifier: MIT
// When the port is told that nothing is of use yet. 9600 baud without parity: 1042 us a character.
#include "comm/modbus_control/testing/transaction_rig.h"

#include <random>

namespace zorvane {
namespace {

using namespace testing;

constexpr Micros character = 1042;

/// A line at the pace of its baud rate, and a port that follows the hint or doesn't.
class Paced_Line : public Transaction_Rig {
  protected:
    explicit Paced_Line(bool follows = true) : follows_(follows) { transaction.setWaits(0, 1000 * ms); }

    /// The bytes come in one by one from now on.
    void comesIn(const Byte_Array& bytes) {
        for (std::size_t i = 0; i < bytes.size(); ++i)
            clock.in(static_cast<Micros>(i + 1) * character, [this, byte = bytes[i]] {
                held_.push_back(byte);
                tellIfDue();
            });
    }
    /// One exchange in which that comes in, so long after the request has gone out.
    Try_Result exchange(const Rtu_Request& request, const Byte_Array& bytes, Micros after = silence) {
        const std::size_t before = recorder.results.size();
        begin(request);
        pieces = 0;
        clock.in(requestTime + after, [this, bytes] { comesIn(bytes); });
        clock.runUntilTrue([&] { return recorder.results.size() > before; }, 10 * microsPerSecond);
        const Try_Result result = recorder.results.at(before);
        clock.runFor(3000 * ms); // late answers are forgotten
        return result;
    }
    /// The time from the end of the request to the end of the try.
    static Micros took(const Try_Result& result) { return result.endedAt - result.startedAt - requestTime; }

    static Byte_Array longAnswer() {
        Byte_Array bytes = bytesOf("01 03 64");
        bytes.resize(103, 1); // a value of 257 looks like the unit twice
        return withCrc(bytes);
    }

    const Rtu_Request longRead = readRequest(1, 0, 50);
    Byte_Array gathered;
    std::size_t lastTold = 0;
    std::size_t pieces = 0; ///< in which the last exchange's bytes were told

  private:
    void tellIfDue() {
        if (held_.empty()) return;
        if (!follows_ || clock.now() >= port.notBefore) {
            ++pieces;
            return port.deliver(std::exchange(held_, {}));
        }
        if (plannedFor_ == port.notBefore) return;
        plannedFor_ = port.notBefore;
        clock.at(plannedFor_, [this] { tellIfDue(); });
    }

    bool follows_;
    Byte_Array held_;
    Micros plannedFor_ = 0;
};

TEST_F(Paced_Line, TheFirstAnswerShowsThePaceByteByByte) {
    const Try_Result first = exchange(longRead, longAnswer());
    EXPECT_TRUE(first.answer);
    EXPECT_EQ(pieces, 105U);
    EXPECT_EQ(took(first), silence + 105 * character);
}

TEST_F(Paced_Line, LaterAnswersComeInFewPiecesAndNotALaterTime) {
    exchange(longRead, longAnswer());
    const Try_Result second = exchange(longRead, longAnswer());
    EXPECT_TRUE(second.answer);
    EXPECT_LE(pieces, 9U);
    EXPECT_EQ(took(second), silence + 105 * character);
}

TEST_F(Paced_Line, AWriteTakesNoLongerEither) {
    exchange(longRead, longAnswer());
    const Rtu_Request write = presetSingle(1, 4, 300);
    const Try_Result result = exchange(write, encodeRequest(write));
    EXPECT_TRUE(result.answer);
    EXPECT_EQ(took(result), silence + 8 * character);
}

TEST_F(Paced_Line, AnExceptionIsSeenAtItsLastByte) {
    exchange(longRead, longAnswer());
    const Try_Result result = exchange(longRead, withCrc(bytesOf("01 83 02")));
    ASSERT_TRUE(result.answer);
    EXPECT_EQ(result.answer->exception, 2);
    EXPECT_EQ(took(result), silence + 5 * character);
}

TEST_F(Paced_Line, AnswersWithoutTheSilenceBeforeThemAreSeenInTime) {
    exchange(longRead, longAnswer());
    EXPECT_EQ(took(exchange(longRead, longAnswer(), 0)), 105 * character);
    EXPECT_EQ(took(exchange(longRead, withCrc(bytesOf("01 83 02")), 0)), 5 * character);
}

TEST_F(Paced_Line, ALineThatIsThreePartsInAHundredFasterIsSeenInTime) {
    exchange(longRead, longAnswer());
    begin(longRead);
    const Byte_Array bytes = longAnswer();
    for (std::size_t i = 0; i < bytes.size(); ++i)
        clock.in(requestTime + static_cast<Micros>(i + 1) * 1011, [this, byte = bytes[i], i] {
            gathered.push_back(byte);
            if (clock.now() < port.notBefore) return;
            port.deliver(std::exchange(gathered, {}));
            lastTold = i;
        });
    clock.runFor(500 * ms);
    EXPECT_EQ(lastTold, 104U);
    EXPECT_TRUE(recorder.results.back().answer);
}

TEST_F(Paced_Line, ATimeOutShorterThanTheAnswerStillLetsItEnd) {
    exchange(longRead, longAnswer());
    transaction.setWaits(0, 40 * ms);
    const Try_Result result = exchange(longRead, longAnswer());
    EXPECT_TRUE(result.answer);
    EXPECT_EQ(took(result), silence + 105 * character);
}

TEST_F(Paced_Line, SilenceIsNamedAtTheTimeOut) {
    exchange(longRead, longAnswer());
    const Try_Result result = exchange(longRead, {});
    EXPECT_EQ(result.fault, "no answer");
    EXPECT_EQ(took(result), 1000 * ms);
}

TEST_F(Paced_Line, BetweenExchangesEveryByteIsToldAtOnce) {
    exchange(longRead, longAnswer());
    EXPECT_EQ(port.notBefore, 0);
    begin(longRead);
    EXPECT_GT(port.notBefore, clock.now());
    transaction.abandon();
    EXPECT_EQ(port.notBefore, 0);
}

TEST_F(Paced_Line, TheHintIsAThirtySecondEarlierThanTheBaudRateSays) {
    exchange(longRead, longAnswer());
    begin(longRead);
    clock.runFor(requestTime);
    port.deliver(bytesOf("01 03 64"));
    const Micros untilTheLastThree = 103125; // 99 characters of the 102 that miss
    EXPECT_EQ(port.notBefore, clock.now() + untilTheLastThree - untilTheLastThree / 32);
}

TEST_F(Paced_Line, TheHintLeavesHalfASilenceBeforeTheTimeOut) {
    exchange(longRead, longAnswer());
    transaction.setWaits(0, 50 * ms);
    begin(longRead);
    clock.runFor(requestTime);
    port.deliver(bytesOf("01 03 64"));
    EXPECT_EQ(port.notBefore, clock.now() + 40 * ms);
}

TEST_F(Paced_Line, TheSameLineKeepsItsPace) {
    exchange(longRead, longAnswer());
    use(settings);
    begin(longRead);
    EXPECT_GT(port.notBefore, 0);
}

TEST_F(Paced_Line, AnAnswerInOnePieceShowsNoPace) {
    for (int i = 0; i < 10; ++i) {
        begin(longRead);
        EXPECT_EQ(port.notBefore, 0);
        clock.runFor(requestTime + 200);
        port.deliver(longAnswer());
        clock.runFor(10 * ms);
        EXPECT_TRUE(recorder.results.back().answer);
    }
}

/// An answer of nine bytes comes in in so many pieces, the first one the longest, from the first to the last
/// in so long. Tells whether the next request's answer is hinted at.
struct Piecewise : Paced_Line {
    bool learns(std::size_t count, Micros inAll) {
        transaction.lineOpened();
        begin(read);
        clock.runFor(requestTime + silence);
        const std::size_t first = answer.size() - count + 1;
        port.deliver(Byte_Array(answer.begin(), answer.begin() + static_cast<std::ptrdiff_t>(first)));
        for (std::size_t at = first; at + 1 < answer.size(); ++at)
            port.deliver({answer[at]});
        clock.runFor(inAll);
        port.deliver({answer.back()});
        begin(longRead);
        const bool hinted = port.notBefore > 0;
        clock.runFor(3000 * ms);
        return hinted;
    }
};

TEST_F(Piecewise, EightPiecesShowThePaceAndSevenDoNot) {
    EXPECT_FALSE(learns(7, 8 * character));
    EXPECT_TRUE(learns(8, 8 * character));
}

TEST_F(Piecewise, ThreeQuartersOfTheBaudRatesTimeAreItsPace) {
    EXPECT_FALSE(learns(8, 6249)) << "the eight bytes after the first take 8334 us";
    EXPECT_TRUE(learns(8, 6250));
}

TEST_F(Paced_Line, APseudoTerminalInPiecesIsFasterThanItsBaudRate) {
    begin(longRead);
    clock.runFor(requestTime);
    for (const std::uint8_t byte : longAnswer()) {
        clock.runFor(10);
        port.deliver({byte});
    }
    begin(longRead);
    EXPECT_EQ(port.notBefore, 0);
}

TEST_F(Paced_Line, AnotherLineOrAnOpenedPortShowsItsPaceAnew) {
    exchange(longRead, longAnswer());
    transaction.lineOpened();
    begin(longRead);
    EXPECT_EQ(port.notBefore, 0);
    clock.runFor(500 * ms);
    exchange(longRead, longAnswer());
    settings.line.baud = 19200;
    use(settings);
    begin(longRead);
    EXPECT_EQ(port.notBefore, 0);
}

/// The same line with a port that follows the hint and with one that doesn't.
struct Following_Line : Paced_Line {
    Following_Line() : Paced_Line(true) {}
    using Paced_Line::exchange;
    using Paced_Line::longAnswer;
    using Paced_Line::longRead;
    using Paced_Line::took;
    using Paced_Line::transaction;
    void TestBody() override {}
};
struct Heedless_Line : Paced_Line {
    Heedless_Line() : Paced_Line(false) {}
    using Paced_Line::exchange;
    using Paced_Line::transaction;
    void TestBody() override {}
};

/// An answer with something wrong with it, or nothing.
Byte_Array mangled(std::mt19937& random, Byte_Array bytes) {
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    switch (below(7)) {
    case 0:
        bytes.at(below(bytes.size())) ^= 0x10;
        break;
    case 1:
        bytes.resize(below(bytes.size()));
        break;
    case 2:
        for (std::size_t i = 1 + below(9); i > 0; --i)
            bytes.insert(bytes.begin(), static_cast<std::uint8_t>(below(4)));
        break;
    case 3:
        bytes[0] = 9;
        break;
    case 4:
        return withCrc(bytesOf("01 83 04"));
    case 5: {
        const Byte_Array echo = encodeRequest(readRequest(1, 0, 50));
        bytes.insert(bytes.begin(), echo.begin(), echo.end());
        break;
    }
    default:
        break;
    }
    return bytes;
}

/// `latest`: how much later a try may end than without the hint. Only failed ones do.
void expectSameOutcomes(Micros timeOut, Micros latest) {
    std::mt19937 random(20261121);
    Following_Line following;
    Heedless_Line heedless;
    following.transaction.setWaits(0, timeOut);
    heedless.transaction.setWaits(0, timeOut);
    following.exchange(following.longRead, Following_Line::longAnswer());
    heedless.exchange(following.longRead, Following_Line::longAnswer());
    for (int i = 0; i < 400; ++i) {
        const Byte_Array bytes = mangled(random, Following_Line::longAnswer());
        const auto after = static_cast<Micros>(random() % 30000);
        const Try_Result a = following.exchange(following.longRead, bytes, after);
        const Try_Result b = heedless.exchange(following.longRead, bytes, after);
        EXPECT_EQ(a.answer, b.answer) << i;
        EXPECT_EQ(a.fault, b.fault) << i;
        EXPECT_EQ(a.received, b.received) << i;
        EXPECT_EQ(a.noise, b.noise) << i;
        EXPECT_LE(Following_Line::took(a) - Following_Line::took(b), latest) << i;
        if (a.answer) {
            EXPECT_EQ(Following_Line::took(a), Following_Line::took(b)) << i;
        }
        if (::testing::Test::HasFailure()) break;
    }
}

TEST(PacedLines, TheHintChangesNoOutcome) { expectSameOutcomes(1000 * ms, 4 * character); }

TEST(PacedLines, NorDoesItWhereTheTimeOutIsShorterThanAnAnswer) { expectSameOutcomes(60 * ms, 10 * ms); }

} // namespace
} // namespace zorvane
