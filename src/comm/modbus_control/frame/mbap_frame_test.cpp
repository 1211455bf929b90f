// SPDX-License-Identifier: MIT
#include "comm/modbus_control/frame/mbap_frame.h"
#include "comm/modbus_control/testing/toy_slave.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::bytesOf;

Rtu_Request numbered(Rtu_Request request, std::uint16_t number) {
    request.number = number;
    return request;
}

class MbapFraming : public ::testing::Test {
  protected:
    Finding find(std::string_view received, std::size_t from = 0) const {
        return framing.find(read, bytesOf(received), from);
    }
    Answer_Fault why(std::string_view received) const {
        return framing.whyNoAnswer(read, bytesOf(received), 0);
    }

    const Mbap_Framing framing{};
    const Rtu_Request read = numbered(readRequest(17, 107, 2), 0x1501);
};

TEST_F(MbapFraming, ARequestHasItsNumberTheProtocolAndItsLengthBeforeTheUnit) {
    EXPECT_EQ(framing.encode(read), bytesOf("15 01 00 00 00 06 11 03 00 6B 00 02"));
    EXPECT_EQ(framing.encode(numbered(presetSingle(255, 1, 3), 0xFFFF)),
              bytesOf("FF FF 00 00 00 06 FF 06 00 01 00 03"));
    EXPECT_EQ(framing.encode(numbered(presetMultiple(1, 1, {10, 258}), 2)),
              bytesOf("00 02 00 00 00 0B 01 10 00 01 00 02 04 00 0A 01 02"));
}

TEST_F(MbapFraming, AnAnswerUnderItsNumberIsFound) {
    const Finding found = find("15 01 00 00 00 07 11 03 04 02 2B 00 64");
    EXPECT_EQ(found.verdict, Finding::Verdict::Found);
    EXPECT_EQ(found.offset, 0U);
    EXPECT_EQ(found.length, 13U);
    EXPECT_EQ(found.answer, (Answer{std::nullopt, {0x022B, 0x0064}}));
}

TEST_F(MbapFraming, AnExceptionIsAnAnswer) {
    const Finding found = find("15 01 00 00 00 03 11 83 0B");
    EXPECT_EQ(found.verdict, Finding::Verdict::Found);
    EXPECT_EQ(found.answer.exception, 11);
}

TEST_F(MbapFraming, AnAnswerUnderAnotherNumberIsPassedOver) {
    EXPECT_EQ(find("15 00 00 00 00 07 11 03 04 02 2B 00 64").verdict, Finding::Verdict::Incomplete);
    const Finding found =
        find("15 00 00 00 00 07 11 03 04 00 01 00 02 15 01 00 00 00 07 11 03 04 02 2B 00 64");
    EXPECT_EQ(found.verdict, Finding::Verdict::Found);
    EXPECT_EQ(found.offset, 13U);
    EXPECT_EQ(found.answer.registers, (std::vector<std::uint16_t>{0x022B, 0x0064}));
}

TEST_F(MbapFraming, DataThatLookLikeAnAnswerAreNone) {
    // The late answer to a read of seven registers, which hold the very bytes of an answer to this one.
    EXPECT_EQ(find("14 FF 00 00 00 11 11 03 0E 15 01 00 00 00 07 11 03 04 02 2B 00 64 00").verdict,
              Finding::Verdict::Incomplete);
}

TEST_F(MbapFraming, AnAnswerThatGrowsIsPartialFromItsFirstByteOn) {
    const Byte_Array whole = bytesOf("15 01 00 00 00 07 11 03 04 02 2B 00 64");
    for (std::size_t count = 1; count < whole.size(); ++count) {
        const Finding finding = framing.find(read, Byte_View(whole).first(count), 0);
        EXPECT_EQ(finding.verdict, Finding::Verdict::Incomplete) << count;
        EXPECT_TRUE(finding.partial) << count;
    }
    EXPECT_FALSE(find("15 00 00 00").partial) << "under another number";
    EXPECT_FALSE(find("").partial);
}

TEST_F(MbapFraming, BytesThatBeginNoFrameAreNoise) {
    const Finding found = find("53 53 48 2D 15 01 00 00 00 07 11 03 04 02 2B 00 64");
    EXPECT_EQ(found.verdict, Finding::Verdict::Found);
    EXPECT_EQ(found.offset, 4U);
}

TEST_F(MbapFraming, AWrongAnswerUnderTheNumberIsDamaged) {
    EXPECT_EQ(find("15 01 00 00 00 07 12 03 04 02 2B 00 64").verdict, Finding::Verdict::Damaged);
    EXPECT_EQ(find("15 01 00 00 00 05 11 03 02 02 2B").verdict, Finding::Verdict::Damaged);
}

TEST_F(MbapFraming, NamesTheTestThatFailed) {
    EXPECT_EQ(why(""), Answer_Fault::Nothing);
    EXPECT_EQ(why("53 53 48 2D 32 2E 30"), Answer_Fault::Noise);
    EXPECT_EQ(why("15 01 00 00 00 07 11 03"), Answer_Fault::Truncated);
    EXPECT_EQ(why("15 00 00 00 00 07 11 03 04 02 2B 00 64"), Answer_Fault::OtherNumber);
    EXPECT_EQ(why("15 01 00 00 00 07 12 03 04 02 2B 00 64"), Answer_Fault::OtherUnit);
    EXPECT_EQ(why("15 01 00 00 00 07 11 04 04 02 2B 00 64"), Answer_Fault::OtherFunction);
    EXPECT_EQ(why("15 01 00 00 00 05 11 03 02 02 2B"), Answer_Fault::ByteCount);
    EXPECT_EQ(why("15 01 00 00 00 06 11 03 04 02 2B 00"), Answer_Fault::WrongLength);
    EXPECT_EQ(faultText(Answer_Fault::OtherNumber), "answer under another transaction number");
}

TEST_F(MbapFraming, AWriteMustBeEchoed) {
    const Rtu_Request write = numbered(presetSingle(1, 5, 7), 9);
    const auto fault = [&](std::string_view bytes) { return framing.whyNoAnswer(write, bytesOf(bytes), 0); };
    EXPECT_EQ(framing.find(write, bytesOf("00 09 00 00 00 06 01 06 00 05 00 07"), 0).verdict,
              Finding::Verdict::Found);
    EXPECT_EQ(fault("00 09 00 00 00 06 01 06 00 04 00 07"), Answer_Fault::EchoAddress);
    EXPECT_EQ(fault("00 09 00 00 00 06 01 06 00 05 00 08"), Answer_Fault::EchoValue);
}

TEST_F(MbapFraming, AFrameBeginsWhereTheProtocolIsNoughtAndTheLengthCanBe) {
    EXPECT_EQ(nextMbapFrame(bytesOf("FF FF FF 15 01 00 00 00 03 11 83 02"))->offset, 3U);
    EXPECT_FALSE(nextMbapFrame(bytesOf("15 01 00 00 00 02 FF FF FF")).value().offset < 7) << "too short";
    EXPECT_FALSE(nextMbapFrame(bytesOf("15 01 00 00 00 FF FF FF FF")).value().offset < 7) << "too long";
    EXPECT_FALSE(nextMbapFrame({}).has_value());
}

} // namespace
} // namespace zorvane
