// SPDX-License-Identifier: MIT
// Literal frames: the data bytes are the examples of "MODBUS Application Protocol Specification
// V1.1b3", 6.3, 6.6 and 6.12, put into RTU frames for unit 17.
#include "comm/modbus_control/frame/rtu_frame.h"
#include "comm/modbus_control/testing/toy_slave.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::bytesOf;
using testing::withCrc;

Answer_Fault faultOf(const Rtu_Request& request, const Byte_Array& frame) {
    const auto checked = checkAnswer(request, frame);
    const auto* fault = std::get_if<Answer_Fault>(&checked);
    EXPECT_NE(fault, nullptr) << "the answer was taken for a good one";
    return fault != nullptr ? *fault : Answer_Fault::Nothing;
}

Answer answerOf(const Rtu_Request& request, const Byte_Array& frame) {
    const auto checked = checkAnswer(request, frame);
    const auto* answer = std::get_if<Answer>(&checked);
    EXPECT_NE(answer, nullptr);
    return answer != nullptr ? *answer : Answer{};
}

TEST(RtuFrame, CrcOfThePublishedExample) {
    // "MODBUS over Serial Line V1.02", 6.2.2: slave 2, function 7 gives CRC 1241 hex.
    EXPECT_EQ(crc16(bytesOf("02 07")), 0x1241);
    EXPECT_TRUE(crcHolds(bytesOf("02 07 41 12")));
    EXPECT_FALSE(crcHolds(bytesOf("02 07 12 41")));
    EXPECT_FALSE(crcHolds(bytesOf("FF FF")));
    EXPECT_FALSE(crcHolds(withCrc(bytesOf("02")))) << "no frame is that short";
}

TEST(RtuFrame, ReadRequest) {
    EXPECT_EQ(encodeRequest(readRequest(17, 0x006B, 3)), bytesOf("11 03 00 6B 00 03 76 87"));
    EXPECT_EQ(answerLength(readRequest(17, 0x006B, 3)), 11U);
    EXPECT_EQ(answerLength(readRequest(17, 0, 125)), 255U);
}

TEST(RtuFrame, PresetSingleRequest) {
    EXPECT_EQ(encodeRequest(presetSingle(17, 1, 3)), bytesOf("11 06 00 01 00 03 9A 9B"));
    EXPECT_EQ(answerLength(presetSingle(17, 1, 3)), 8U);
}

TEST(RtuFrame, PresetMultipleRequest) {
    EXPECT_EQ(encodeRequest(presetMultiple(17, 1, {0x000A, 0x0102})),
              bytesOf("11 10 00 01 00 02 04 00 0A 01 02 C6 F0"));
    EXPECT_EQ(answerLength(presetMultiple(17, 1, {10, 258})), 8U);
    EXPECT_EQ(encodeRequest(presetMultiple(1, 0, std::vector<std::uint16_t>(123, 7))).size(), 255U);
}

TEST(RtuFrame, GoodAnswers) {
    EXPECT_EQ(answerOf(readRequest(17, 0x6B, 3), withCrc(bytesOf("11 03 06 02 2B 00 00 00 64"))).registers,
              (std::vector<std::uint16_t>{555, 0, 100}));
    EXPECT_EQ(answerOf(presetSingle(17, 1, 3), bytesOf("11 06 00 01 00 03 9A 9B")), Answer{});
    EXPECT_EQ(answerOf(presetMultiple(17, 1, {10, 258}), bytesOf("11 10 00 01 00 02 12 98")), Answer{});
}

TEST(RtuFrame, ExceptionAnswers) {
    EXPECT_EQ(answerOf(readRequest(17, 0x6B, 3), withCrc(bytesOf("11 83 02"))).exception, 2);
    EXPECT_EQ(answerOf(presetSingle(17, 1, 3), withCrc(bytesOf("11 86 06"))).exception, 6);
    EXPECT_EQ(answerOf(presetMultiple(17, 1, {10}), withCrc(bytesOf("11 90 04"))).exception, 4);
    EXPECT_EQ(faultOf(readRequest(17, 0x6B, 3), withCrc(bytesOf("11 86 02"))), Answer_Fault::OtherFunction);
    EXPECT_EQ(faultOf(readRequest(17, 0x6B, 3), withCrc(bytesOf("11 83 02 00"))), Answer_Fault::WrongLength);
}

TEST(RtuFrame, EachTestOfAReadAnswerCanFail) {
    const Rtu_Request request = readRequest(17, 0x6B, 3);
    EXPECT_EQ(faultOf(request, {}), Answer_Fault::Nothing);
    EXPECT_EQ(faultOf(request, bytesOf("11 03 06")), Answer_Fault::Truncated);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("11"))), Answer_Fault::Truncated);
    EXPECT_EQ(faultOf(request, bytesOf("11 03 06 02")), Answer_Fault::Truncated);
    EXPECT_EQ(faultOf(request, bytesOf("11 83 02 00 00")), Answer_Fault::BadCrc);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("11 03 04"))), Answer_Fault::ByteCount);
    EXPECT_EQ(faultOf(request, bytesOf("11 03 06 02 2B 00 00 00 64 00 00")), Answer_Fault::BadCrc);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("12 03 06 02 2B 00 00 00 64"))), Answer_Fault::OtherUnit);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("11 04 06 02 2B 00 00 00 64"))), Answer_Fault::OtherFunction);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("11 03 04 02 2B 00 00"))), Answer_Fault::ByteCount);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("11 03 06 02 2B 00 00"))), Answer_Fault::WrongLength);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("11 03"))), Answer_Fault::WrongLength);
}

TEST(RtuFrame, EachTestOfAWriteAnswerCanFail) {
    const Rtu_Request single = presetSingle(17, 1, 3);
    EXPECT_EQ(single.count, 1);
    EXPECT_EQ(faultOf(single, withCrc(bytesOf("11 06 00 02 00 03"))), Answer_Fault::EchoAddress);
    EXPECT_EQ(faultOf(single, withCrc(bytesOf("11 06 00 01 00 04"))), Answer_Fault::EchoValue);
    EXPECT_EQ(faultOf(single, withCrc(bytesOf("11 06 00 01 00"))), Answer_Fault::WrongLength);
    const Rtu_Request multiple = presetMultiple(17, 1, {10, 258});
    EXPECT_EQ(faultOf(multiple, withCrc(bytesOf("11 10 00 02 00 02"))), Answer_Fault::EchoAddress);
    EXPECT_EQ(faultOf(multiple, withCrc(bytesOf("11 10 00 01 00 01"))), Answer_Fault::EchoQuantity);
    EXPECT_EQ(faultOf(multiple, withCrc(bytesOf("11 10 00 01 00 02 00"))), Answer_Fault::WrongLength);
}

TEST(RtuFrame, ObjectsByWhichAControllerTellsWhoItIs) {
    // The example of 6.21: three objects, of one answer.
    const Rtu_Request request = objectsRequest(17, Object_Level::Basic);
    EXPECT_EQ(encodeRequest(request), withCrc(bytesOf("11 2B 0E 01 00")));
    EXPECT_EQ(encodeRequest(objectsRequest(17, Object_Level::Extended)), withCrc(bytesOf("11 2B 0E 03 00")));
    const Byte_Array good =
        withCrc(bytesOf("11 2B 0E 01 01 00 00 03 00 02 41 42 01 00 02 05 56 32 2E 31 31"));
    EXPECT_EQ(answerOf(request, good).objects,
              (std::map<std::uint8_t, std::string>{{0, "AB"}, {1, ""}, {2, "V2.11"}}));
    EXPECT_EQ(answerOf(request, withCrc(bytesOf("11 2B 0E 01 01 00 00 00"))).objects.size(), 0U);
    EXPECT_EQ(answerOf(request, withCrc(bytesOf("11 AB 01"))).exception, 1);
}

TEST(RtuFrame, ObjectsThatDontAddUpAreNoAnswer) {
    const Rtu_Request request = objectsRequest(17, Object_Level::Basic);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("11 2B 0E 01 01 00 00 01 00 03 41 42"))),
              Answer_Fault::WrongLength);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("11 2B 0E 01 01 00 00 01 00 01 41 42"))),
              Answer_Fault::WrongLength);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("11 2B 0E 01 01 00 00 02 00 01 41"))),
              Answer_Fault::WrongLength);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("11 2B 0E 01 01 00 00"))), Answer_Fault::WrongLength);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("11 2B 0D 01 01 00 00 00"))), Answer_Fault::OtherFunction);
    EXPECT_EQ(faultOf(request, withCrc(bytesOf("11 03 02 00 01"))), Answer_Fault::OtherFunction);
}

TEST(RtuFrame, FaultsInWords) {
    EXPECT_EQ(faultText(Answer_Fault::Nothing), "no answer");
    EXPECT_EQ(faultText(Answer_Fault::Truncated), "answer cut short");
    EXPECT_EQ(faultText(Answer_Fault::BadCrc), "wrong CRC");
    EXPECT_EQ(faultText(Answer_Fault::OtherUnit), "answer of another unit");
    EXPECT_EQ(faultText(Answer_Fault::OtherFunction), "answer to another function");
    EXPECT_EQ(faultText(Answer_Fault::ByteCount), "wrong byte count");
    EXPECT_EQ(faultText(Answer_Fault::EchoAddress), "wrong address echoed");
    EXPECT_EQ(faultText(Answer_Fault::EchoValue), "wrong value echoed");
    EXPECT_EQ(faultText(Answer_Fault::EchoQuantity), "wrong quantity echoed");
    EXPECT_EQ(faultText(Answer_Fault::WrongLength), "wrong length");
    EXPECT_EQ(faultText(Answer_Fault::Noise), "only noise");
    EXPECT_EQ(faultText(Answer_Fault::OnlyEcho), "only the adapter's echo");
}

} // namespace
} // namespace zorvane
