// SPDX-License-Identifier: MIT
#include "simulator/controller/modbus_slave.h"

#include <gtest/gtest.h>

namespace zorvane::simulator {
namespace {

// Frames with known check sums (CRC-16/MODBUS; "123456789" has the check value 0x4B37).
TEST(ModbusSlave, SealsWithTheCheckSumOfTheLine) {
    Modbus_Slave slave(1);
    EXPECT_EQ(slave.sealed(Bytes{'1', '2', '3', '4', '5', '6', '7', '8', '9'}),
              (Bytes{'1', '2', '3', '4', '5', '6', '7', '8', '9', 0x37, 0x4B}));
    EXPECT_EQ(slave.sealed(Bytes{0x01, 0x03, 0x00, 0x64, 0x00, 0x05}),
              (Bytes{0x01, 0x03, 0x00, 0x64, 0x00, 0x05, 0xC4, 0x16}));
}

TEST(ModbusSlave, TellsARightCheckSumFromAWrongOne) {
    Modbus_Slave slave(1);
    EXPECT_TRUE(slave.checkSumRight(Bytes{0x01, 0x03, 0x00, 0x64, 0x00, 0x05, 0xC4, 0x16}));
    EXPECT_FALSE(slave.checkSumRight(Bytes{0x01, 0x03, 0x00, 0x64, 0x00, 0x05, 0xC4, 0x17}));
    EXPECT_FALSE(slave.checkSumRight(Bytes{0xFF, 0xFF}));
    EXPECT_FALSE(slave.checkSumRight(Bytes(257, 0)));
}

TEST(ModbusSlave, AnswersReadsAndWrites) {
    Modbus_Slave slave(1);
    slave.setValue(100, 0x1234);
    EXPECT_EQ(slave.answer(slave.sealed(Bytes{1, 3, 0, 100, 0, 1})),
              slave.sealed(Bytes{1, 3, 2, 0x12, 0x34}));
    EXPECT_EQ(slave.answer(slave.sealed(Bytes{1, 6, 0, 100, 0, 7})), slave.sealed(Bytes{1, 6, 0, 100, 0, 7}));
    EXPECT_EQ(slave.value(100), 7);
    EXPECT_EQ(slave.answer(slave.sealed(Bytes{1, 16, 0, 100, 0, 2, 4, 0, 8, 0, 9})),
              slave.sealed(Bytes{1, 16, 0, 100, 0, 2}));
    EXPECT_EQ(slave.value(101), 9);
}

TEST(ModbusSlave, ReachesTheLastRegister) {
    Modbus_Slave slave(1);
    slave.setValue(0xFFFF, 42);
    EXPECT_EQ(slave.answer(slave.sealed(Bytes{1, 3, 0xFF, 0xFF, 0, 1})), slave.sealed(Bytes{1, 3, 2, 0, 42}));
}

TEST(ModbusSlave, ExecutesABroadcastAndDoesNotAnswerIt) {
    Modbus_Slave slave(1);
    EXPECT_TRUE(slave.answer(slave.sealed(Bytes{0, 6, 0, 100, 0, 7})).empty());
    EXPECT_EQ(slave.value(100), 7);
}

TEST(ModbusSlave, LeavesAnotherUnitAlone) {
    Modbus_Slave slave(1);
    EXPECT_TRUE(slave.answer(slave.sealed(Bytes{2, 6, 0, 100, 0, 7})).empty());
    EXPECT_EQ(slave.value(100), 0);
    EXPECT_FALSE(slave.answer(slave.sealed(Bytes{1, 3, 0, 100, 0, 1})).empty());
}

} // namespace
} // namespace zorvane::simulator
