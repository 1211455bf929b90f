// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/exchange_text.h"
#include "comm/modbus_control/testing/toy_slave.h"
#include "survey/listen/pcapng.h"

#include <gtest/gtest.h>

namespace zorvane::survey {
namespace {

std::string hex(const std::string& bytes) { return hexPairs(Byte_Array(bytes.begin(), bytes.end())); }

TEST(Pcapng, BeginsWithASectionAndALine) {
    EXPECT_EQ(hex(pcapngBeginning("ttyUSB0")),
              "0A 0D 0D 0A 1C 00 00 00 4D 3C 2B 1A 01 00 00 00 FF FF FF FF FF FF FF FF 1C 00 00 00 "
              "01 00 00 00 24 00 00 00 FC 00 00 00 00 00 00 00 "
              "02 00 07 00 74 74 79 55 53 42 30 00 00 00 00 00 24 00 00 00");
}

TEST(Pcapng, NamesTheDissectorOfAFrame) {
    const Byte_Array frame = zorvane::testing::withCrc({1, 3, 0, 0, 0, 1});
    EXPECT_EQ(hex(pcapngPacket(0x0001020304050607, frame)),
              "06 00 00 00 38 00 00 00 00 00 00 00 03 02 01 00 07 06 05 04 18 00 00 00 18 00 00 00 "
              "00 0C 00 08 6D 62 72 74 75 00 00 00 00 00 00 00 01 03 00 00 00 01 84 0A 38 00 00 00");
}

TEST(Pcapng, PadsAFrameAndTakesAComment) {
    const Byte_Array frame = zorvane::testing::withCrc({1, 0x83, 2});
    EXPECT_EQ(hex(pcapngPacket(0, frame, "no request")),
              "06 00 00 00 4C 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 15 00 00 00 15 00 00 00 "
              "00 0C 00 08 6D 62 72 74 75 00 00 00 00 00 00 00 01 83 02 C0 F1 00 00 00 "
              "01 00 0A 00 6E 6F 20 72 65 71 75 65 73 74 00 00 00 00 00 00 4C 00 00 00");
}

} // namespace
} // namespace zorvane::survey
