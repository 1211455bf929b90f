// SPDX-License-Identifier: MIT
#include "simulator/wire/frame_record.h"

#include <gtest/gtest.h>

namespace zorvane::simulator {
namespace {

using namespace std::chrono_literals;

TEST(HexText, IsPairsWithBlanks) {
    EXPECT_EQ(hexText(Bytes{}), "");
    EXPECT_EQ(hexText(Bytes{0x01, 0xAF}), "01 AF");
}

TEST(LogLine, OfARequestSaysWhatItAsks) {
    const Bytes bytes{0x01, 0x03, 0x00, 0x09, 0x00, 0x02, 0x14, 0x09};
    const Frame_Record record{Direction::In, bytes, requestFacts(bytes), "", {}, ""};
    EXPECT_EQ(logLine(record, 12'345'678ns, 40001),
              R"({"ms":12.346,"direction":"in","hex":"01 03 00 09 00 02 14 09","unit":1,"function":3,)"
              R"("address":40010,"wire":9,"quantity":2})");
}

TEST(LogLine, OfAWriteSaysWhetherItWasTakenAndWhatWentWrong) {
    const Bytes bytes{0x01, 0x06, 0x00, 0x09, 0x00, 0x02, 0xD9, 0xC9};
    const Frame_Record record{Direction::In, bytes, requestFacts(bytes), "silent:1", true, ""};
    EXPECT_EQ(logLine(record, 2ms, 0),
              R"({"ms":2.0,"direction":"in","hex":"01 06 00 09 00 02 D9 C9","unit":1,"function":6,)"
              R"("address":9,"wire":9,"quantity":1,"values":[2],"fault":"silent:1","taken":true})");
}

TEST(LogLine, OfBytesThatAreNoFrameSaysWhy) {
    EXPECT_EQ(logLine({Direction::In, {0xFF}, {}, "", {}, "noise"}, 1ms, 0),
              R"({"ms":1.0,"direction":"in","hex":"FF","note":"noise"})");
}

TEST(LogLine, OfAnExceptionNamesIt) {
    const Bytes request{0x01, 0x03, 0x00, 0x09, 0x00, 0x02, 0x14, 0x09};
    const Bytes answer{0x01, 0x83, 0x02, 0xC0, 0xF1};
    EXPECT_EQ(
        logLine({Direction::Out, answer, answerFacts(answer, requestFacts(request)), "", {}, ""}, 1ms, 0),
        R"({"ms":1.0,"direction":"out","hex":"01 83 02 C0 F1","unit":1,"function":3,"address":9,"wire":9,)"
        R"("exception":2})");
}

TEST(EventLine, HasATimeAndAText) {
    EXPECT_EQ(eventLine("unplugged", 5ms), R"({"ms":5.0,"event":"unplugged"})");
}

} // namespace
} // namespace zorvane::simulator
