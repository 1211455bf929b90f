// SPDX-License-Identifier: MIT
#include "commission/folder/port_lock.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace zorvane::commission {
namespace {

namespace fs = std::filesystem;

class PortLock : public ::testing::Test {
  protected:
    PortLock() {
        const std::ofstream line(base / "line");
        fs::create_symlink(base / "line", base / "other-name");
    }
    static fs::path freshFolder() {
        std::string pattern = (fs::temp_directory_path() / "zorvane-locks-XXXXXX").string();
        EXPECT_NE(::mkdtemp(pattern.data()), nullptr);
        return pattern;
    }
    ~PortLock() override { fs::remove_all(base); }

    fs::path base = freshFolder();
    Native_Port_Locks locks{(base / "locks").string()};
    Native_Port_Locks others{(base / "locks").string()};
};

TEST_F(PortLock, OneLineHasOneUserWhateverItsName) {
    Port_Hold first = locks.take((base / "line").string(), 1);
    EXPECT_TRUE(first.held);
    const Port_Hold second = others.take((base / "other-name").string(), 2);
    EXPECT_FALSE(second.held);
    EXPECT_EQ(second.why, "The port " + (base / "other-name").string() +
                              " is in use by another run (process " + std::to_string(::getpid()) +
                              "). Wait for its end, or stop it.");
    first.held.reset();
    EXPECT_TRUE(others.take((base / "other-name").string(), 2).held);
}

TEST_F(PortLock, APathWithColonsIsNoNetworkLine) {
    const fs::path byPath = base / "pci-0000:00:14.0-usb-0:1:1.0-port0";
    fs::create_symlink(base / "line", byPath);
    const Port_Hold first = locks.take(byPath.string(), 1);
    EXPECT_TRUE(first.held);
    EXPECT_FALSE(others.take((base / "line").string(), 2).held);
}

TEST_F(PortLock, AHostHasNoCaseAndThisOneThreeNames) {
    const Port_Hold first = locks.take("tcp:localhost:502", 1);
    ASSERT_TRUE(first.held);
    for (const char* const same : {"tcp:127.0.0.1:502", "TCP:LocalHost:502", "tcp:[::1]:502"})
        EXPECT_FALSE(others.take(same, 1).held) << same;
    EXPECT_TRUE(others.take("tcp:localhost:5020", 1).held);
    EXPECT_TRUE(others.take("rtu+tcp:localhost:4001", 1).held);
}

TEST_F(PortLock, ANetworkLineIsSharedByItsUnits) {
    const Port_Hold first = locks.take("tcp:10.0.0.5:502", 1);
    EXPECT_TRUE(first.held);
    EXPECT_TRUE(others.take("tcp:10.0.0.5:502", 2).held);
    EXPECT_FALSE(others.take("tcp:10.0.0.5:502", 1).held);
}

} // namespace
} // namespace zorvane::commission
