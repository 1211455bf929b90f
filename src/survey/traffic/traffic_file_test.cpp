// SPDX-License-Identifier: MIT
#include "comm/modbus_control/testing/hand_clock.h"
#include "survey/traffic/native_traffic_files.h"
#include "survey/traffic/testing/one_exchange.h"
#include "template/testing/temporary_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace zorvane::survey {
namespace {

using survey::testing::exchange;
using zorvane::testing::Hand_Clock;

/// Files in memory; one that is full takes nothing more.
class Memory_Sink final : public Traffic_Sink {
  public:
    [[nodiscard]] bool exists(const std::string& name) const override { return files.contains(name); }
    bool begin(const std::string& name) override {
        present = name;
        files[name].clear();
        return !full;
    }
    bool write(std::string_view text) override {
        if (full) return false;
        files[present] += text;
        return true;
    }
    void sync() override { onDisk.push_back(files[present].size()); }

    std::map<std::string, std::string> files;
    std::vector<std::size_t> onDisk; ///< so much of the present file, at each sync
    std::string present;
    bool full = false;
};

std::size_t rowsIn(const std::string& text) { return Traffic_Reader().take(text).size(); }

TEST(TrafficFile, HasEachFrameAsItComes) {
    Memory_Sink sink;
    Hand_Clock clock;
    Traffic_File file(sink, clock, "line.jsonl", 1000000);
    file.write(exchange(1000));
    EXPECT_EQ(sink.files["line.jsonl"], trafficJsonLine(exchange(1000), 1000000));
    file.write(Stray_Record{5, {0xFF}, "stray bytes"});
    file.write(Port_Note{6, "The port was opened."});
    EXPECT_EQ(rowsIn(sink.files["line.jsonl"]), 3U);
}

TEST(TrafficFile, IsFollowedByTheNextAtItsLimit) {
    Memory_Sink sink;
    Hand_Clock clock;
    Traffic_File file(sink, clock, "/a.b/line.jsonl", 1000000,
                      2 * trafficJsonLine(exchange(1000), 1000000).size());
    for (int i = 0; i < 5; ++i)
        file.write(exchange(1000));
    ASSERT_EQ(sink.files.size(), 3U);
    EXPECT_EQ(rowsIn(sink.files["/a.b/line.jsonl"]), 2U);
    EXPECT_EQ(rowsIn(sink.files["/a.b/line-2.jsonl"]), 2U);
    EXPECT_EQ(rowsIn(sink.files["/a.b/line-3.jsonl"]), 1U);
}

/// Files of an earlier day stay.
TEST(TrafficFile, PassesOverNamesThatAreTaken) {
    Memory_Sink sink;
    sink.files["line-2.jsonl"] = "older";
    Hand_Clock clock;
    Traffic_File file(sink, clock, "line.jsonl", 0, 1);
    file.write(Port_Note{6, "one"});
    file.write(Port_Note{7, "two"});
    EXPECT_EQ(file.present(), "line-3.jsonl");
    EXPECT_EQ(sink.files["line-2.jsonl"], "older");
    EXPECT_EQ(rowsIn(sink.files["line-3.jsonl"]), 1U);
}

TEST(TrafficFile, EndsWhenItsDiskIsFull) {
    Memory_Sink sink;
    Hand_Clock clock;
    Traffic_File file(sink, clock, "line", 0);
    EXPECT_TRUE(file.good());
    sink.full = true;
    file.write(exchange(1));
    EXPECT_FALSE(file.good());
    sink.full = false;
    file.write(exchange(2));
    EXPECT_EQ(sink.files["line"], "");
}

TEST(TrafficFile, IsWithTheSystemAsSoonAsItIsWritten) {
    const zorvane::doubles::Temporary_Folder folder;
    const std::string name = folder.path() + "/line.jsonl";
    Native_Traffic_Files sink;
    Hand_Clock clock;
    Traffic_File file(sink, clock, name, 0);
    EXPECT_TRUE(sink.exists(name));
    file.write(exchange(1));
    std::ifstream written(name);
    std::string line;
    std::getline(written, line);
    EXPECT_EQ(line + "\n", trafficJsonLine(exchange(1), 0));
}

/// A power cut loses a second at most, and the disk isn't asked for each frame.
TEST(TrafficFile, IsOnTheDiskASecondLaterAtMost) {
    Memory_Sink sink;
    Hand_Clock clock;
    Traffic_File file(sink, clock, "line", 0);
    const std::size_t row = trafficJsonLine(exchange(1), 0).size();
    for (int tenth = 0; tenth < 25; ++tenth) {
        file.write(exchange(1));
        clock.runFor(100 * microsPerMs);
    }
    EXPECT_EQ(sink.onDisk, (std::vector<std::size_t>{10 * row, 20 * row}));
    clock.runFor(500 * microsPerMs);
    EXPECT_EQ(sink.onDisk, (std::vector<std::size_t>{10 * row, 20 * row, 25 * row}));
    clock.runFor(60 * microsPerSecond);
    EXPECT_EQ(sink.onDisk.size(), 3U) << "while nothing comes, nothing is to be brought there";
    file.write(exchange(1));
    clock.runFor(999 * microsPerMs);
    EXPECT_EQ(sink.onDisk.size(), 3U);
    clock.runFor(microsPerMs);
    EXPECT_EQ(sink.onDisk.back(), 26 * row);
}

TEST(TrafficFile, AsksAFullDiskForNothing) {
    Memory_Sink sink;
    Hand_Clock clock;
    Traffic_File file(sink, clock, "line", 0);
    sink.full = true;
    file.write(exchange(1));
    clock.runFor(10 * microsPerSecond);
    EXPECT_TRUE(sink.onDisk.empty());
}

TEST(TrafficFile, SaysThatAFolderThatIsNotThereTakesNoFile) {
    Native_Traffic_Files sink;
    Hand_Clock clock;
    EXPECT_FALSE(Traffic_File(sink, clock, "/nowhere/at/all.jsonl", 0).good());
}

} // namespace
} // namespace zorvane::survey
