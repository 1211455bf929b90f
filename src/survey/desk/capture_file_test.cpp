// SPDX-License-Identifier: MIT
#include "survey/desk/capture_file.h"
#include "survey/listen/pcapng.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <iterator>

namespace zorvane::survey {
namespace {

class Capture_File_Test : public ::testing::Test {
  protected:
    Capture_File_Test() {
        std::string folder = ::testing::TempDir() + "capture-XXXXXX";
        folder_ = ::mkdtemp(folder.data());
    }
    ~Capture_File_Test() override { std::filesystem::remove_all(folder_); }

    [[nodiscard]] std::string path() const { return folder_ + "/line.pcapng"; }
    [[nodiscard]] std::string bytes() const {
        std::ifstream file(path(), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

  private:
    std::string folder_;
};

TEST_F(Capture_File_Test, HasEachFrameAsSoonAsItWasHeard) {
    constexpr std::int64_t epoch = 1795333205000000;
    Capture_File file(path(), "ttyUSB0", epoch);
    const std::string head(pcapngBeginning("ttyUSB0"));
    EXPECT_EQ(bytes(), head);
    Heard_Frame frame;
    frame.firstAt = 1500;
    frame.bytes = {1, 3, 0, 100, 0, 2, 0x84, 0x14};
    file.add(frame);
    EXPECT_EQ(bytes(), head + std::string(pcapngPacket(epoch + 1500, frame.bytes)));
    EXPECT_TRUE(file.good());
    EXPECT_TRUE(file.end());
}

TEST_F(Capture_File_Test, SaysThatItCantBeWritten) {
    Capture_File file(path() + "/nowhere/line.pcapng", "ttyUSB0", 0);
    EXPECT_FALSE(file.good());
    EXPECT_FALSE(file.end());
}

} // namespace
} // namespace zorvane::survey
