// SPDX-License-Identifier: MIT
#include "comm/modbus_control/frame/answer_search.h"
#include "comm/modbus_control/testing/toy_slave.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::bytesOf;
using testing::withCrc;
using Verdict = Finding::Verdict;

const Rtu_Request request = readRequest(17, 0x6B, 3);
const Byte_Array answer = withCrc(bytesOf("11 03 06 02 2B 00 00 00 64"));

Byte_Array joined(Byte_Array first, const Byte_Array& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

TEST(AnswerSearch, FindsAnAnswerAlone) {
    const Finding finding = findAnswer(request, answer);
    EXPECT_EQ(finding.verdict, Verdict::Found);
    EXPECT_EQ(finding.offset, 0U);
    EXPECT_EQ(finding.length, 11U);
    EXPECT_EQ(finding.answer.registers, (std::vector<std::uint16_t>{555, 0, 100}));
    EXPECT_FALSE(finding.partial);
}

TEST(AnswerSearch, FindsAnAnswerBehindNoiseOfAnyLength) {
    for (std::size_t noise = 1; noise <= 10; ++noise) {
        const Finding finding = findAnswer(request, joined(Byte_Array(noise, 0x5A), answer));
        EXPECT_EQ(finding.verdict, Verdict::Found) << noise;
        EXPECT_EQ(finding.offset, noise);
    }
}

TEST(AnswerSearch, NoiseThatLooksLikeTheHeadOfAnAnswerDoesNotHideTheAnswer) {
    for (const char* noise : {"11", "11 03", "11 03 06", "11 03 06 02", "11 83", "11 83 02"}) {
        const Finding finding = findAnswer(request, joined(bytesOf(noise), answer));
        EXPECT_EQ(finding.verdict, Verdict::Found) << noise;
        EXPECT_EQ(finding.answer.registers, (std::vector<std::uint16_t>{555, 0, 100}));
    }
}

TEST(AnswerSearch, WaitsForTheRestOfATruncatedAnswer) {
    for (std::size_t length = 1; length < answer.size(); ++length) {
        const Finding finding = findAnswer(request, Byte_View(answer).first(length));
        EXPECT_EQ(finding.verdict, Verdict::Incomplete) << length;
        EXPECT_TRUE(finding.partial);
        EXPECT_EQ(whyNoAnswer(request, Byte_View(answer).first(length)), Answer_Fault::Truncated) << length;
    }
}

TEST(AnswerSearch, WaitsForNoRestOfAnotherFunctionsAnswer) {
    EXPECT_TRUE(findAnswer(request, bytesOf("11 83")).partial);
    EXPECT_FALSE(findAnswer(request, bytesOf("11 04")).partial);
    EXPECT_FALSE(findAnswer(request, bytesOf("11 03 04")).partial) << "another byte count";
}

TEST(AnswerSearch, LooksAtNoMoreThanCameOfAWritesAnswer) {
    const Rtu_Request write = presetSingle(17, 0x0102, 0x0304);
    const Byte_Array whole = encodeRequest(write);
    for (std::size_t length = 1; length < whole.size(); ++length) {
        Byte_Array begun(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        begun.push_back(0xEE); // what stands after the bytes that came
        EXPECT_EQ(whyNoAnswer(write, Byte_View(begun).first(length)), Answer_Fault::Truncated) << length;
    }
    EXPECT_EQ(whyNoAnswer(write, bytesOf("11 06 01 02 03 05")), Answer_Fault::Noise) << "another value";
}

TEST(AnswerSearch, SaysWhenAnExceptionStandsInAnAnswerThatIsStillComing) {
    const Byte_Array inside = joined(bytesOf("11 03 06"), withCrc(bytesOf("11 83 02")));
    const Finding finding = findAnswer(request, inside);
    EXPECT_EQ(finding.verdict, Verdict::Found);
    EXPECT_TRUE(finding.partial);
    const Finding whole = findAnswer(request, withCrc(joined(inside, bytesOf("00"))));
    EXPECT_EQ(whole.offset, 0U);
    EXPECT_FALSE(whole.answer.exception);
}

TEST(AnswerSearch, AWholeAnswerWithAWrongCrcIsDamaged) {
    for (std::size_t at = 3; at < answer.size(); ++at) {
        Byte_Array damaged = answer;
        damaged[at] ^= 0x10U;
        EXPECT_EQ(findAnswer(request, damaged).verdict, Verdict::Damaged) << at;
        EXPECT_EQ(whyNoAnswer(request, damaged), Answer_Fault::BadCrc) << at;
    }
}

TEST(AnswerSearch, NamesWhatIsWrongWithAForeignFrame) {
    const auto why = [](const Rtu_Request& asked, const char* frame) {
        return whyNoAnswer(asked, withCrc(bytesOf(frame)));
    };
    EXPECT_EQ(why(request, "12 03 06 02 2B 00 00 00 64"), Answer_Fault::OtherUnit);
    EXPECT_EQ(why(request, "11 06 00 01 00 03"), Answer_Fault::OtherFunction);
    EXPECT_EQ(why(request, "11 03 04 02 2B 00 00"), Answer_Fault::ByteCount);
    EXPECT_EQ(why(presetSingle(17, 1, 3), "11 06 00 02 00 03"), Answer_Fault::EchoAddress);
    EXPECT_EQ(why(presetSingle(17, 1, 3), "11 06 00 01 00 04"), Answer_Fault::EchoValue);
    EXPECT_EQ(why(presetMultiple(17, 1, {10, 258}), "11 10 00 01 00 01"), Answer_Fault::EchoQuantity);
}

TEST(AnswerSearch, AFrameOfTheUnitAndFunctionWithTwoFaultsHasAWrongCrc) {
    EXPECT_EQ(whyNoAnswer(request, bytesOf("11 03 08 02 2B 00 00 00 64 00 00")), Answer_Fault::BadCrc);
    EXPECT_EQ(whyNoAnswer(request, bytesOf("11 83 08 02 2B 00 00 00 64 00 00")), Answer_Fault::BadCrc);
    EXPECT_EQ(whyNoAnswer(request, bytesOf("11 03 08 02 2B 00 00 00 64 00")), Answer_Fault::Noise)
        << "shorter than an answer";
    EXPECT_EQ(whyNoAnswer(request, bytesOf("12 03 08 02 2B 00 00 00 64 00 00")), Answer_Fault::Noise);
    EXPECT_EQ(whyNoAnswer(request, bytesOf("11 04 08 02 2B 00 00 00 64 00 00")), Answer_Fault::Noise);
}

TEST(AnswerSearch, NothingAndNoise) {
    EXPECT_EQ(whyNoAnswer(request, {}), Answer_Fault::Nothing);
    EXPECT_EQ(whyNoAnswer(request, bytesOf("00 FF 5A")), Answer_Fault::Noise);
    EXPECT_EQ(whyNoAnswer(request, answer, answer.size()), Answer_Fault::Nothing);
    EXPECT_EQ(whyNoAnswer(request, answer, 99), Answer_Fault::Nothing);
}

TEST(AnswerSearch, LooksOnlyBehindTheGivenPlace) {
    EXPECT_EQ(findAnswer(request, joined(answer, answer), 1).offset, answer.size());
    EXPECT_EQ(findAnswer(request, answer, 1).verdict, Verdict::Incomplete);
}

TEST(AnswerSearch, FindsTheEndOfAnEcho) {
    const Byte_Array sent = encodeRequest(request);
    EXPECT_EQ(endOfEcho(sent, joined(sent, answer)), sent.size());
    EXPECT_EQ(endOfEcho(sent, joined(bytesOf("00 00"), sent)), sent.size() + 2);
    EXPECT_EQ(endOfEcho(sent, answer), std::nullopt);
    EXPECT_EQ(endOfEcho(sent, sent, 1), std::nullopt);
    EXPECT_EQ(endOfEcho(sent, sent, 99), std::nullopt);
}

TEST(AnswerSearch, TellsHowManyBytesMustStillCome) {
    const std::vector<std::size_t> missing = {5, 4, 3, 8, 7, 6, 5, 4, 3, 2, 1};
    for (std::size_t length = 0; length < missing.size(); ++length)
        EXPECT_EQ(leastMissing(request, Byte_View(answer).first(length)), missing[length]) << length;
    const Byte_Array exception = withCrc(bytesOf("11 83 02"));
    EXPECT_EQ(leastMissing(request, Byte_View(exception).first(3)), 2U);
    EXPECT_EQ(leastMissing(request, Byte_View(exception).first(4)), 1U);
}

TEST(AnswerSearch, AfterNoiseAnExceptionIsTheShortestThatCanCome) {
    EXPECT_EQ(leastMissing(request, bytesOf("5A 5B 5C")), 5U);
    EXPECT_EQ(leastMissing(request, bytesOf("5A 11")), 4U);
    EXPECT_EQ(leastMissing(request, bytesOf("5A 11 03")), 3U);
    EXPECT_EQ(leastMissing(request, bytesOf("11 03 07")), 5U) << "the byte count of no answer";
    EXPECT_EQ(leastMissing(request, joined(bytesOf("5A 5B"), bytesOf("11 03 06 02 11"))), 6U)
        << "a value that looks like a head doesn't count";
    EXPECT_EQ(leastMissing(request, bytesOf("5A 11 03 06"), 2), 5U) << "from an offset on";
}

TEST(AnswerSearch, AWholeButDamagedAnswerLacksAnotherOne) {
    Byte_Array damaged = answer;
    damaged.back() = static_cast<std::uint8_t>(damaged.back() ^ 1U);
    EXPECT_EQ(leastMissing(request, damaged), 5U) << "an exception's";
}

TEST(AnswerSearch, ObjectsTellTheirLengthAsTheyCome) {
    const Rtu_Request objects = objectsRequest(17, Object_Level::Basic);
    const Byte_Array told = withCrc(bytesOf("11 2B 0E 01 01 00 00 02 00 02 41 42 01 03 58 59 5A"));
    const Byte_Array noisy = joined(bytesOf("5A 11"), told);
    for (std::size_t length = 1; length < told.size(); ++length) {
        const Byte_View begun = Byte_View(told).first(length);
        const Finding finding = findAnswer(objects, begun);
        EXPECT_EQ(finding.verdict, Finding::Verdict::Incomplete) << length;
        EXPECT_TRUE(finding.partial) << length;
        EXPECT_LE(leastMissing(objects, begun), told.size() - length) << length;
        EXPECT_GE(leastMissing(objects, begun), 1U) << length;
    }
    const Finding finding = findAnswer(objects, noisy);
    EXPECT_EQ(finding.verdict, Finding::Verdict::Found);
    EXPECT_EQ(finding.offset, 2U);
    EXPECT_EQ(finding.length, told.size());
    EXPECT_EQ(finding.answer.objects, (std::map<std::uint8_t, std::string>{{0, "AB"}, {1, "XYZ"}}));
    EXPECT_EQ(findAnswer(objects, withCrc(bytesOf("11 AB 01"))).answer.exception, 1);
    Byte_Array damaged = told;
    damaged[11] = 0x43;
    EXPECT_EQ(findAnswer(objects, damaged).verdict, Finding::Verdict::Damaged);
    EXPECT_EQ(whyNoAnswer(objects, damaged), Answer_Fault::BadCrc);
    EXPECT_EQ(findAnswer(objects, bytesOf("11 2B 0E 01 01 00 00 02 00 FF")).partial, false)
        << "longer than any frame";
}

TEST(AnswerSearch, AFrameOfAFunctionWhoseLengthNobodyKnowsIsNoise) {
    for (const char* unknown : {"12 00 01 05", "12 07 01 02 03 04"})
        EXPECT_EQ(whyNoAnswer(request, withCrc(bytesOf(unknown))), Answer_Fault::Noise);
    for (const char* known : {"12 01 01 05", "12 05 01 02 FF 00", "12 0F 01 02 03 04"})
        EXPECT_EQ(whyNoAnswer(request, joined(bytesOf("5A"), withCrc(bytesOf(known)))),
                  Answer_Fault::OtherUnit);
}

} // namespace
} // namespace zorvane
