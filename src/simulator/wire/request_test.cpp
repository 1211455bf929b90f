// SPDX-License-Identifier: MIT
#include "simulator/wire/request.h"

#include <gtest/gtest.h>

namespace zorvane::simulator {
namespace {

using Words = std::vector<std::uint16_t>;

TEST(RequestLength, IsEightForOneAddressAndOneWord) {
    for (std::uint8_t function = 1; function <= 6; ++function)
        EXPECT_EQ(requestLength(Bytes{1, function}), 8U);
}

TEST(RequestLength, OfABlockWriteNeedsTheByteCount) {
    EXPECT_EQ(requestLength(Bytes{1, 16, 0, 100, 0, 2}), std::nullopt);
    EXPECT_EQ(requestLength(Bytes{1, 16, 0, 100, 0, 2, 4}), 13U);
}

TEST(RequestLength, OfAnotherFunctionIsUnknown) {
    EXPECT_EQ(requestLength(Bytes{1, 43, 14, 1, 0, 0x70, 0x77}), std::nullopt);
    EXPECT_EQ(requestLength(Bytes{1}), std::nullopt);
}

TEST(RequestFacts, OfARead) {
    const Frame_Facts facts = requestFacts(Bytes{0x01, 0x03, 0x00, 0x64, 0x00, 0x05, 0xC4, 0x16});
    EXPECT_EQ(facts.unit, 1);
    EXPECT_EQ(facts.function, 3);
    EXPECT_EQ(facts.address, 100);
    EXPECT_EQ(facts.quantity, 5);
    EXPECT_TRUE(facts.values.empty());
}

TEST(RequestFacts, OfASingleWrite) {
    const Frame_Facts facts = requestFacts(Bytes{0x11, 0x06, 0x00, 0x01, 0xFF, 0xFB, 0, 0});
    EXPECT_EQ(facts.unit, 0x11);
    EXPECT_EQ(facts.address, 1);
    EXPECT_EQ(facts.quantity, 1);
    EXPECT_EQ(facts.values, (Words{65531}));
}

TEST(RequestFacts, OfABlockWrite) {
    const Frame_Facts facts = requestFacts(Bytes{1, 16, 0x01, 0x00, 0, 2, 4, 0x12, 0x34, 0, 7, 0, 0});
    EXPECT_EQ(facts.address, 256);
    EXPECT_EQ(facts.quantity, 2);
    EXPECT_EQ(facts.values, (Words{0x1234, 7}));
    EXPECT_TRUE(facts.byteCountFits);
}

TEST(RequestFacts, NoticesAByteCountThatDoesNotFit) {
    EXPECT_FALSE(requestFacts(Bytes{1, 16, 1, 0, 0, 3, 4, 0x12, 0x34, 0, 7, 0, 0}).byteCountFits);
}

TEST(AnswerFacts, OfARead) {
    const Frame_Facts request = requestFacts(Bytes{1, 3, 0, 100, 0, 2, 0, 0});
    const auto facts = answerFacts(Bytes{1, 3, 4, 0, 10, 0, 20, 0, 0}, request);
    ASSERT_TRUE(facts);
    EXPECT_EQ(facts->address, 100);
    EXPECT_EQ(facts->quantity, 2);
    EXPECT_EQ(facts->values, (Words{10, 20}));
}

TEST(AnswerFacts, OfWritesAndExceptions) {
    const Frame_Facts request = requestFacts(Bytes{1, 6, 0, 100, 0, 7, 0, 0});
    EXPECT_EQ(answerFacts(Bytes{1, 6, 0, 101, 0, 7, 0, 0}, request)->address, 101);
    EXPECT_EQ(answerFacts(Bytes{1, 6, 0, 101, 0, 7, 0, 0}, request)->values, (Words{7}));
    EXPECT_EQ(answerFacts(Bytes{1, 16, 0, 100, 0, 7, 0, 0}, request)->quantity, 7);
    const auto refused = answerFacts(Bytes{1, 0x86, 2, 0, 0}, request);
    EXPECT_EQ(refused->function, 6);
    EXPECT_EQ(refused->exception, 2);
}

TEST(AnswerFacts, AreNotMadeUpForHalfAnAnswer) {
    const Frame_Facts request = requestFacts(Bytes{1, 3, 0, 100, 0, 2, 0, 0});
    EXPECT_FALSE(answerFacts(Bytes{}, request));
    EXPECT_FALSE(answerFacts(Bytes{1, 3, 4, 0, 10, 0}, request));
    EXPECT_FALSE(answerFacts(Bytes{1, 0x83, 2, 0, 0, 0}, request));
}

} // namespace
} // namespace zorvane::simulator
