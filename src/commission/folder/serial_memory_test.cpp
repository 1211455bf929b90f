// SPDX-License-Identifier: MIT
#include "commission/folder/serial_memory.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace zorvane::commission {
namespace {

class Serial_Memory_Test : public ::testing::Test {
  protected:
    Serial_Memory_Test() {
        std::string folder = ::testing::TempDir() + "serials-XXXXXX";
        place = ::mkdtemp(folder.data());
    }
    ~Serial_Memory_Test() override { std::filesystem::remove_all(place); }

    std::string place;
};

TEST_F(Serial_Memory_Test, EachDocumentPortAndUnitHasItsOwn) {
    Native_Serials serials(place);
    const std::string first = serialKey("/site/pump.kvrt", "ttyUSB0", 1);
    EXPECT_EQ(serials.known(first), std::nullopt);
    EXPECT_EQ(serials.remember(first, "A-17"), "");
    EXPECT_EQ(serials.remember(serialKey("/site/pump.kvrt", "ttyUSB0", 2), "B-4"), "");
    EXPECT_EQ(Native_Serials(place).known(first), "A-17");
    EXPECT_EQ(serials.remember(first, "A-18"), "");
    EXPECT_EQ(serials.known(first), "A-18");
}

TEST_F(Serial_Memory_Test, AFileThatIsNoMemoryIsAnEmptyOne) {
    std::ofstream(place + "/serials.json") << "[1, 2]";
    Native_Serials serials(place);
    EXPECT_EQ(serials.known("a"), std::nullopt);
    EXPECT_EQ(serials.remember("a", "1"), "");
    EXPECT_EQ(serials.known("a"), "1");
}

TEST_F(Serial_Memory_Test, WhatCantBeKeptIsTold) {
    Native_Serials serials(place + "/gone");
    EXPECT_EQ(serials.remember("a", "1").substr(0, 46), "The serial number can't be kept for the next t");
}

} // namespace
} // namespace zorvane::commission
