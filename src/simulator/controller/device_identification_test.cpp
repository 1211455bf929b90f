// SPDX-License-Identifier: MIT
#include "simulator/controller/device_identification.h"

#include <gtest/gtest.h>

namespace zorvane::simulator {
namespace {

/// A whole request; the check sum is of no matter here.
Bytes request(std::uint8_t code, std::uint8_t object) { return {1, 43, 14, code, object, 0, 0}; }

Bytes answer(const Device_Objects& objects, std::uint8_t code, std::uint8_t object = 0) {
    return std::get<Bytes>(identificationAnswer(objects, request(code, object)));
}

const Device_Objects basic{{0, "ACME"}, {1, "X1"}, {2, "V2"}};

TEST(DeviceIdentification, GivesTheBasicObjects) {
    EXPECT_EQ(answer(basic, 1), (Bytes{1, 43, 14,  1,   0x81, 0,   0, 3,           //
                                       0, 4,  'A', 'C', 'M',  'E', 1, 2, 'X', '1', //
                                       2, 2,  'V', '2'}));
}

TEST(DeviceIdentification, BasicObjectsWithoutATextAreEmpty) {
    EXPECT_EQ(answer({{1, "X1"}}, 1), (Bytes{1, 43, 14, 1, 0x81, 0, 0, 3, 0, 0, 1, 2, 'X', '1', 2, 0}));
}

TEST(DeviceIdentification, BeginsWithTheObjectAskedForOrWithTheFirst) {
    EXPECT_EQ(answer(basic, 1, 2), (Bytes{1, 43, 14, 1, 0x81, 0, 0, 1, 2, 2, 'V', '2'}));
    EXPECT_EQ(answer(basic, 1, 5), answer(basic, 1, 0));
}

TEST(DeviceIdentification, TellsTheHighestLevelThatItHas) {
    EXPECT_EQ(answer({{3, "url"}}, 1)[4], 0x82);
    EXPECT_EQ(answer({{0x80, "own"}}, 1)[4], 0x83);
    EXPECT_EQ(answer({{3, "url"}}, 1)[7], 3);
    EXPECT_EQ(answer({{3, "url"}, {0x80, "own"}}, 2)[7], 4);
    EXPECT_EQ(answer({{3, "url"}, {0x80, "own"}}, 3)[7], 5);
}

TEST(DeviceIdentification, GivesOneObjectAlone) {
    EXPECT_EQ(answer(basic, 4, 1), (Bytes{1, 43, 14, 4, 0x81, 0, 0, 1, 1, 2, 'X', '1'}));
}

TEST(DeviceIdentification, RefusesAnUnknownObjectAndAnUnknownCode) {
    EXPECT_EQ(std::get<int>(identificationAnswer(basic, request(4, 9))), 2);
    EXPECT_EQ(std::get<int>(identificationAnswer(basic, request(0, 0))), 3);
    EXPECT_EQ(std::get<int>(identificationAnswer(basic, request(5, 0))), 3);
}

TEST(DeviceIdentification, LeavesWhatDoesNotFitForTheNextRequest) {
    const std::string longest(longestObject, 'x');
    const Device_Objects objects{{0, longest}, {1, "X1"}, {2, "V2"}};
    const Bytes first = answer(objects, 1);
    EXPECT_EQ(first.size(), 254U);
    EXPECT_EQ((Bytes{first.begin() + 5, first.begin() + 8}), (Bytes{0xFF, 1, 1}));
    EXPECT_EQ(answer(objects, 1, 1), (Bytes{1, 43, 14, 1, 0x81, 0, 0, 2, 1, 2, 'X', '1', 2, 2, 'V', '2'}));
}

} // namespace
} // namespace zorvane::simulator
