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
        folder_ = ::mkdtemp(folder.data());
    }
    ~Serial_Memory_Test() override { std::filesystem::remove_all(folder_); }

    std::string folder_;
};

TEST_F(Serial_Memory_Test, EachDocumentPortAndUnitHasItsOwn) {
    Native_Serials serials(folder_);
    const std::string first = serialKey("/site/pump.kvrt", "ttyUSB0", 1);
    EXPECT_EQ(serials.known(first), std::nullopt);
    EXPECT_EQ(serials.remember(first, "A-17"), "");
    EXPECT_EQ(serials.remember(serialKey("/site/pump.kvrt", "ttyUSB0", 2), "B-4"), "");
    EXPECT_EQ(Native_Serials(folder_).known(first), "A-17");
    EXPECT_EQ(serials.remember(first, "A-18"), "");
    EXPECT_EQ(serials.known(first), "A-18");
}

TEST_F(Serial_Memory_Test, AFileThatIsNoMemoryIsAnEmptyOne) {
    std::ofstream(folder_ + "/serials.json") << "[1, 2]";
    Native_Serials serials(folder_);
    EXPECT_EQ(serials.known("a"), std::nullopt);
    EXPECT_EQ(serials.remember("a", "1"), "");
    EXPECT_EQ(serials.known("a"), "1");
}

TEST_F(Serial_Memory_Test, WhatCantBeKeptIsTold) {
    Native_Serials serials(folder_ + "/gone");
    EXPECT_EQ(serials.remember("a", "1").substr(0, 46), "The serial number can't be kept for the next t");
}

} // namespace
} // namespace zorvane::commission
