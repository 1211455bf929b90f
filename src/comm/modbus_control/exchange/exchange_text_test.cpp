// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/exchange_text.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

Try_Result answered(std::optional<std::uint8_t> exception = std::nullopt) {
    Try_Result result;
    result.sent = {0x01, 0x03, 0x00, 0x6B};
    result.received = {0x01, 0x83, 0xFF};
    result.answer = Answer{exception, {}};
    return result;
}

TEST(ExchangeText, LinesInHexPairs) {
    EXPECT_EQ(transmitLine(answered()), "Tx: 01 03 00 6B");
    EXPECT_EQ(receiveLine(answered()), "Rx: 01 83 FF");
}

TEST(ExchangeText, TheReasonStandsWhereNothingCame) {
    Try_Result result = answered();
    result.answer.reset();
    result.received.clear();
    result.fault = "no answer";
    EXPECT_EQ(receiveLine(result), "Rx: no answer");
}

TEST(ExchangeText, ExceptionsInWords) {
    EXPECT_EQ(exceptionText(1), "Illegal function (exception 1)");
    EXPECT_EQ(exceptionText(2), "Illegal data address (exception 2)");
    EXPECT_EQ(exceptionText(3), "Illegal data value (exception 3)");
    EXPECT_EQ(exceptionText(4), "Server device failure (exception 4)");
    EXPECT_EQ(exceptionText(5), "Acknowledge (exception 5)");
    EXPECT_EQ(exceptionText(6), "BUSY");
    EXPECT_EQ(exceptionText(7), "Exception 7");
    EXPECT_EQ(exceptionText(8), "Memory parity error (exception 8)");
    EXPECT_EQ(exceptionText(10), "Gateway path unavailable (exception 10)");
    EXPECT_EQ(exceptionText(11), "Gateway target failed to respond (exception 11)");
    EXPECT_EQ(exceptionText(255), "Exception 255");
}

TEST(ExchangeText, ResponseIsEmptyWithoutAnException) {
    EXPECT_EQ(responseText(answered()), "");
    EXPECT_EQ(responseText(Try_Result{}), "");
    EXPECT_EQ(responseText(answered(6)), "BUSY");
}

TEST(ExchangeText, ResultNamesWhatCameBeforeTheAnswer) {
    Try_Result result = answered();
    EXPECT_EQ(resultText(result), "good");
    result.echoed = true;
    result.noise = 3;
    EXPECT_EQ(resultText(result), "good, the adapter echoes, 3 noise bytes before the answer");
    EXPECT_EQ(resultText(answered(2)), "Illegal data address (exception 2)");
}

} // namespace
} // namespace zorvane
