// SPDX-License-Identifier: MIT
// The exchange in frames of Modbus TCP: the transaction's number tells right answers from others.
#include "comm/modbus_control/frame/mbap_frame.h"
#include "comm/modbus_control/testing/transaction_rig.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using namespace testing;

class TcpTransaction : public Transaction_Rig {
  protected:
    TcpTransaction() {
        port.close();
        useTcp();
    }

    void useTcp() {
        settings.port = "tcp:plc7:502";
        use(settings);
        open();
    }
    /// An answer under a number.
    static Byte_Array under(std::uint8_t number, std::string_view body) {
        const Byte_Array bytes = bytesOf(body);
        Byte_Array frame{0, number, 0, 0, 0, static_cast<std::uint8_t>(bytes.size())};
        frame.insert(frame.end(), bytes.begin(), bytes.end());
        return frame;
    }
    [[nodiscard]] const Try_Result& last() const { return recorder.results.back(); }
    [[nodiscard]] std::vector<std::uint16_t> registers() const { return last().answer->registers; }
};

TEST_F(TcpTransaction, ARequestHasANumberAndItsAnswerIsTakenAtOnce) {
    begin(read);
    EXPECT_EQ(port.written.back(), bytesOf("00 01 00 00 00 06 01 03 00 00 00 02"));
    clock.runFor(3 * ms);
    port.deliver(under(1, "01 03 04 00 07 00 08"));
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(registers(), (std::vector<std::uint16_t>{7, 8}));
    EXPECT_EQ(last().endedAt - last().startedAt, 3 * ms);
}

TEST_F(TcpTransaction, EachRequestHasTheNextNumberAndGoesOutWithoutSilence) {
    for (std::uint8_t number = 1; number <= 3; ++number) {
        const Micros before = clock.now();
        begin(read);
        EXPECT_EQ(clock.now(), before);
        EXPECT_EQ(port.written.back()[1], number);
        port.deliver(under(number, "01 03 04 00 07 00 08"));
    }
    EXPECT_EQ(recorder.results.size(), 3U);
}

TEST_F(TcpTransaction, AnAnswerMayComeInPieces) {
    begin(read);
    for (const std::uint8_t byte : under(1, "01 03 04 00 07 00 08")) {
        EXPECT_TRUE(recorder.results.empty());
        clock.runFor(ms);
        port.deliver({byte});
    }
    EXPECT_EQ(registers(), (std::vector<std::uint16_t>{7, 8}));
    EXPECT_EQ(port.notBefore, 0) << "bytes of a network take no time on a line";
}

TEST_F(TcpTransaction, TheTimeOutCountsFromTheRequest) {
    begin(read);
    clock.runFor(100 * ms - 1);
    EXPECT_THAT(recorder.results, IsEmpty());
    clock.runFor(1);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(fault(), "no answer");
}

TEST_F(TcpTransaction, ALateAnswerIsNeverTakenForTheNextOne) {
    begin(read);
    clock.runFor(100 * ms);
    EXPECT_EQ(fault(), "no answer");
    const Micros failedAt = clock.now();
    begin(readRequest(1, 50, 2)); // of the same shape
    EXPECT_LT(clock.now(), failedAt + 10 * ms) << "the number tells them apart, so nothing waits";
    port.deliver(under(1, "01 03 04 00 07 00 08"));
    EXPECT_EQ(recorder.results.size(), 1U);
    port.deliver(under(2, "01 03 04 00 32 00 33"));
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_EQ(registers(), (std::vector<std::uint16_t>{50, 51}));
}

TEST_F(TcpTransaction, ALateAnswerBetweenTwoRequestsIsTold) {
    begin(read);
    clock.runFor(150 * ms);
    port.deliver(under(1, "01 03 04 00 07 00 08"));
    EXPECT_THAT(recorder.strays, ElementsAre("late answer to an earlier request, dropped (13)"));
    EXPECT_FALSE(transaction.mayBeConfused(readRequest(1, 50, 2)));
    EXPECT_FALSE(transaction.expects(read));
}

TEST_F(TcpTransaction, ALateExceptionBelongsToItsOwnRequest) {
    begin(presetSingle(1, 5, 7));
    clock.runFor(100 * ms);
    begin(presetSingle(1, 5, 7));
    port.deliver(under(1, "01 86 06"));
    EXPECT_EQ(recorder.results.size(), 1U);
    port.deliver(under(2, "01 06 00 05 00 07"));
    ASSERT_EQ(recorder.results.size(), 2U);
    EXPECT_EQ(last().answer, Answer{});
}

TEST_F(TcpTransaction, TheAnswerToASingleWriteIsNoEcho) {
    settings.adapterEchoes = true; // left over from a serial line
    useTcp();
    for (std::uint8_t number = 1; number <= 3; ++number) {
        begin(presetSingle(1, 5, 7));
        port.deliver(under(number, "01 06 00 05 00 07"));
        ASSERT_EQ(recorder.results.size(), number);
        EXPECT_TRUE(last().answer.has_value());
        EXPECT_FALSE(last().echoed);
    }
}

TEST_F(TcpTransaction, AWrongAnswerUnderTheNumberEndsTheTry) {
    begin(read);
    port.deliver(under(1, "02 03 04 00 07 00 08"));
    clock.runFor(30 * ms);
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(fault(), "answer of another unit");
}

TEST_F(TcpTransaction, AnAnswerUnderAnotherNumberIsNone) {
    begin(read);
    port.deliver(under(9, "01 03 04 00 07 00 08"));
    clock.runFor(100 * ms);
    EXPECT_EQ(fault(), "answer under another transaction number");
}

TEST_F(TcpTransaction, AnotherProtocolIsNoise) {
    begin(read);
    port.deliver(bytesOf("48 54 54 50 2F 31 2E 31 20 34 30 30"));
    clock.runFor(100 * ms);
    EXPECT_EQ(fault(), "only noise");
}

TEST_F(TcpTransaction, AGatewaysExceptionsAreAnswers) {
    begin(read);
    port.deliver(under(1, "01 83 0B"));
    ASSERT_EQ(recorder.results.size(), 1U);
    EXPECT_EQ(last().answer->exception, 11);
}

TEST_F(TcpTransaction, ASecondCopyIsTakenForNothing) {
    for (std::uint8_t number = 1; number <= 2; ++number) {
        begin(readRequest(1, static_cast<std::uint16_t>(10 * number), 1));
        const std::string body = number == 1 ? "01 03 02 00 0A" : "01 03 02 00 14";
        if (number == 2) port.deliver(under(1, "01 03 02 00 0A"));
        port.deliver(under(number, body));
        ASSERT_EQ(recorder.results.size(), number);
    }
    EXPECT_EQ(registers(), std::vector<std::uint16_t>{20});
}

TEST_F(TcpTransaction, NumbersBeginAgainAfterTheLastButNeverWithNought) {
    for (int count = 0; count < 65536; ++count) {
        begin(read);
        const Byte_Array& sent = port.written.back();
        Byte_Array good = under(0, "01 03 04 00 07 00 08");
        good[0] = sent[0];
        good[1] = sent[1];
        port.deliver(good);
        port.written.clear();
        if (count >= 65534) EXPECT_EQ(last().request.number, count == 65534 ? 65535 : 1);
        recorder.results.erase(recorder.results.begin(), recorder.results.end() - 1);
    }
}

TEST_F(TcpTransaction, AnAbandonedRequestHoldsNothingBack) {
    begin(read);
    transaction.abandon();
    const Micros before = clock.now();
    begin(readRequest(1, 50, 2));
    EXPECT_EQ(clock.now(), before);
    port.deliver(under(1, "01 03 04 00 07 00 08"));
    EXPECT_THAT(recorder.results, IsEmpty());
    port.deliver(under(2, "01 03 04 00 32 00 33"));
    EXPECT_EQ(registers(), (std::vector<std::uint16_t>{50, 51}));
}

TEST_F(TcpTransaction, TheSameEngineGoesBackToTheLinesFrames) {
    begin(read);
    port.deliver(under(1, "01 03 04 00 07 00 08"));
    settings.port = "rtu+tcp:plc7:4001";
    use(settings);
    begin(read);
    EXPECT_EQ(port.written.back(), withCrc(bytesOf("01 03 00 00 00 02")));
    port.deliver(answer);
    EXPECT_EQ(last().request.number, 0);
    EXPECT_EQ(registers(), (std::vector<std::uint16_t>{7, 8}));
}

} // namespace
} // namespace zorvane
