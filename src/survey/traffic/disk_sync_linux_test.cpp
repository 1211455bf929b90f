// SPDX-License-Identifier: MIT
#include "survey/traffic/native_traffic_files.h"
#include "template/testing/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <fstream>
#include <future>
#include <iterator>
#include <string>
#include <unistd.h>
#include <vector>

namespace zorvane::survey {
namespace {

struct Open_File {
    explicit Open_File(const std::string& path) : file(std::fopen(path.c_str(), "wb")) {}
    ~Open_File() { static_cast<void>(std::fclose(file)); }
    Open_File(const Open_File&) = delete;
    Open_File& operator=(const Open_File&) = delete;

    [[nodiscard]] ino_t inode() const { return inodeOf(::fileno(file)); }
    static ino_t inodeOf(int descriptor) {
        struct stat of {};
        return ::fstat(descriptor, &of) == 0 ? of.st_ino : 0;
    }
    std::FILE* file;
};

/// A disk that takes its time: the test says when it is ready.
struct Slow_Disk {
    int wait(int descriptor) {
        asked.push_back(Open_File::inodeOf(descriptor));
        if (asked.size() == 1) {
            begun.set_value();
            ready.get_future().wait();
        }
        return 0;
    }
    std::promise<void> begun;
    std::promise<void> ready;
    std::vector<ino_t> asked;
};

TEST(DiskSync, NeverWaitsForTheDisk) {
    const zorvane::doubles::Temporary_Folder folder;
    Slow_Disk disk;
    const Open_File one(folder.path() + "/one");
    const Open_File two(folder.path() + "/two");
    {
        Disk_Sync sync([&disk](int descriptor) { return disk.wait(descriptor); });
        sync.begin(one.file);
        disk.begun.get_future().wait();
        sync.begin(one.file); // what was written since, once the disk is ready
        sync.begin(one.file);
        sync.begin(two.file);
        sync.begin(one.file);
        EXPECT_FALSE(sync.failed());
        disk.ready.set_value();
    }
    EXPECT_EQ(disk.asked, (std::vector<ino_t>{one.inode(), one.inode(), two.inode()}));
}

/// The file may be gone by the time that the disk has its turn.
TEST(DiskSync, TakesAFileThatIsClosedRightAfter) {
    const zorvane::doubles::Temporary_Folder folder;
    Slow_Disk disk;
    ino_t closed = 0;
    {
        Disk_Sync sync([&disk](int descriptor) { return disk.wait(descriptor); });
        sync.beginFolderOf(folder.path() + "/one");
        disk.begun.get_future().wait();
        {
            const Open_File one(folder.path() + "/one");
            closed = one.inode();
            sync.begin(one.file);
        }
        disk.ready.set_value();
    }
    ASSERT_EQ(disk.asked.size(), 2U);
    EXPECT_EQ(disk.asked[1], closed);
}

TEST(DiskSync, TellsOfADiskThatRefuses) {
    const zorvane::doubles::Temporary_Folder folder;
    const Open_File one(folder.path() + "/one");
    for (const int error : {EIO, EINVAL}) {
        std::promise<void> asked;
        Disk_Sync sync([&asked, error, first = true](int) mutable {
            if (!std::exchange(first, false)) asked.set_value(); // the one before was judged by now
            errno = error;
            return -1;
        });
        sync.begin(one.file);
        sync.beginFolderOf(folder.path() + "/one");
        asked.get_future().wait();
        EXPECT_EQ(sync.failed(), error == EIO) << "a pipe has no disk, which is no failure";
    }
}

TEST(DiskSync, BringsFilesOfTrafficToTheDisk) {
    const zorvane::doubles::Temporary_Folder folder;
    const std::string name = folder.path() + "/line.jsonl";
    Native_Traffic_Files files;
    ASSERT_TRUE(files.begin(name));
    EXPECT_TRUE(files.write("one\n"));
    files.sync();
    EXPECT_TRUE(files.write("two\n"));
    files.end();
    EXPECT_FALSE(files.write("three\n"));
    std::ifstream written(name);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(written), {}), "one\ntwo\n");
}

} // namespace
} // namespace zorvane::survey
