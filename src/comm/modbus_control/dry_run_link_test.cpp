// SPDX-License-Identifier: MIT
#include "comm/modbus_control/dry_run_link.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::ElementsAre;

TEST(DryRunLink, WritesAreListedAndReadBack) {
    Dry_Run_Link link(Dry_Run_Link::Registers{{100, 65535}});
    EXPECT_EQ(link.RegisterValue(0, 100), -1);
    EXPECT_EQ(link.RegisterValue(0, 100, false), 65535);
    EXPECT_EQ(link.RegisterValue(0, 999), 0);
    link.PresetSingleRegister(0, 100, -5);
    link.PresetMultipleRegisters(0, 200, {65536 + 7, 8});
    EXPECT_THAT(link.writes(), ElementsAre(Planned_Write{6, 100, {65531}}, Planned_Write{16, 200, {7, 8}}));
    EXPECT_EQ(link.RegisterValue(0, 100), -5);
    EXPECT_EQ(link.RegisterValue(0, 201), 8);
    EXPECT_FALSE(link.WriteBusy());
    EXPECT_FALSE(link.WriteFailed());
    EXPECT_EQ(link.TransactionCount(), 2);
}

TEST(DryRunLink, WhatWasGivenCountsAsRead) {
    Dry_Run_Link link({{10, 1}});
    link.PresetSingleRegister(0, 11, 2);
    EXPECT_EQ(link.readingOf(0, 10).age, Reading_Age::ThisOpening);
    EXPECT_EQ(link.readingOf(0, 11).age, Reading_Age::Never);
}

TEST(DryRunLink, ScanModeIsKept) {
    Dry_Run_Link link;
    link.SetScanMode("ALWAYS");
    EXPECT_EQ(link.ScanMode(), "ALWAYS");
    EXPECT_FALSE(link.CommLost());
}

} // namespace
} // namespace zorvane
