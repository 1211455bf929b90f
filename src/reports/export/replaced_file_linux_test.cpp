// SPDX-License-Identifier: MIT
#include "reports/export/byte_file.h"
#include "reports/export/replaced_file.h"
#include "template/testing/file_size_limit_linux.h"
#include "template/testing/temporary_folder.h"
#include "template/testing/unprivileged_linux.h"
#include "values/testing/failure_number.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/xattr.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace zorvane {
namespace {

namespace fs = std::filesystem;
using doubles::failureNumber;
using testing::UnorderedElementsAre;

struct Replaced_Files : testing::Test {
    [[nodiscard]] std::string path(const std::string& name) const { return folder.path() + "/" + name; }
    void put(const std::string& name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
    }
    [[nodiscard]] std::string bytes(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder.path()))
            found.push_back(entry.path().filename().string());
        return found;
    }
    [[nodiscard]] struct stat facts(const std::string& name) const {
        struct stat found {};
        EXPECT_EQ(::stat(path(name).c_str(), &found), 0) << name;
        return found;
    }

    /// Before the folder, which then belongs to an ordinary user.
    doubles::Unprivileged ordinary;
    doubles::Temporary_Folder folder;
};

TEST_F(Replaced_Files, TheOldFileIsWholeUntilTheNewOneIs) {
    put("site.pdf", "old");
    Replaced_File file(path("site.pdf"));
    file.write("a new ");
    file.write("report");
    EXPECT_EQ(bytes("site.pdf"), "old");
    EXPECT_THAT(names(), UnorderedElementsAre("site.pdf"));
    file.finish();
    EXPECT_EQ(bytes("site.pdf"), "a new report");
    EXPECT_THAT(names(), UnorderedElementsAre("site.pdf"));
}

TEST_F(Replaced_Files, AFullDiskLeavesTheOldFileAndNoTorso) {
    put("site.tif", "old");
    {
        const doubles::File_Size_Limit disk(8192);
        EXPECT_EQ(failureNumber([&] { writeByteFile(path("site.tif"), std::string(100000, 'x')); }), 75);
        EXPECT_EQ(failureNumber([&] { writeByteFile(path("new.tif"), std::string(100000, 'x')); }), 75);
    }
    EXPECT_EQ(bytes("site.tif"), "old");
    EXPECT_THAT(names(), UnorderedElementsAre("site.tif"));
}

TEST_F(Replaced_Files, AFileGivenUpHalfWayLeavesNothing) {
    Replaced_File(path("new.txt")).write("half");
    EXPECT_THAT(names(), UnorderedElementsAre());
}

TEST_F(Replaced_Files, PermissionsAndAttributesAreKept) {
    put("site.txt", "old");
    fs::permissions(path("site.txt"), static_cast<fs::perms>(0640));
    const std::string colour = "green";
    const bool attributes =
        ::setxattr(path("site.txt").c_str(), "user.colour", colour.data(), colour.size(), 0) == 0;
    const ino_t before = facts("site.txt").st_ino;
    writeByteFile(path("site.txt"), "new");
    EXPECT_EQ(bytes("site.txt"), "new");
    EXPECT_NE(facts("site.txt").st_ino, before);
    EXPECT_EQ(facts("site.txt").st_mode & 07777U, 0640U);
    if (!attributes) return; // this disk knows none
    std::string value(colour.size(), ' ');
    EXPECT_EQ(::getxattr(path("site.txt").c_str(), "user.colour", value.data(), value.size()), 5);
    EXPECT_EQ(value, colour);
}

TEST_F(Replaced_Files, ANewFileHasThePermissionsOfTheUsersMask) {
    const mode_t mask = umask(0027);
    writeByteFile(path("new.txt"), "new");
    umask(mask);
    EXPECT_EQ(facts("new.txt").st_mode & 07777U, 0640U);
}

TEST_F(Replaced_Files, AnOwnerThatCanNotBeGivenKeepsTheFile) {
    if (getuid() != 0) GTEST_SKIP() << "only the super-user can give files away";
    put("site.txt", "old and longer");
    fs::permissions(path("site.txt"), static_cast<fs::perms>(0666));
    ASSERT_EQ(seteuid(0), 0);
    ASSERT_EQ(::chown(path("site.txt").c_str(), 1, 1), 0);
    ASSERT_EQ(seteuid(65534), 0);
    const ino_t before = facts("site.txt").st_ino;
    writeByteFile(path("site.txt"), "new");
    EXPECT_EQ(bytes("site.txt"), "new");
    EXPECT_EQ(facts("site.txt").st_ino, before);
    EXPECT_EQ(facts("site.txt").st_uid, 1U);
}

TEST_F(Replaced_Files, LinksAreFollowed) {
    fs::create_directory(path("shelf"));
    put("shelf/site.txt", "old");
    fs::create_symlink("shelf/site.txt", path("first.txt"));
    fs::create_symlink(path("first.txt"), path("second.txt"));
    writeByteFile(path("second.txt"), "new");
    EXPECT_EQ(bytes("shelf/site.txt"), "new");
    EXPECT_TRUE(fs::is_symlink(path("first.txt")));
    EXPECT_TRUE(fs::is_symlink(path("second.txt")));
    EXPECT_THAT(names(), UnorderedElementsAre("shelf", "first.txt", "second.txt"));
}

TEST_F(Replaced_Files, ALinkToNothingGetsItsFile) {
    fs::create_symlink("later.txt", path("link.txt"));
    writeByteFile(path("link.txt"), "new");
    EXPECT_TRUE(fs::is_symlink(path("link.txt")));
    EXPECT_EQ(bytes("later.txt"), "new");
}

TEST_F(Replaced_Files, AFileOfTwoNamesStaysOneFile) {
    put("site.txt", "old");
    fs::create_hard_link(path("site.txt"), path("other.txt"));
    writeByteFile(path("site.txt"), "new");
    EXPECT_EQ(bytes("other.txt"), "new");
    EXPECT_EQ(facts("other.txt").st_ino, facts("site.txt").st_ino);
}

TEST_F(Replaced_Files, WhereNothingCanBeMadeBesideTheFileItselfIsWritten) {
    fs::create_directory(path("shut"));
    put("shut/site.txt", "old and longer");
    fs::permissions(path("shut"), static_cast<fs::perms>(0500));
    const ino_t before = facts("shut/site.txt").st_ino;
    writeByteFile(path("shut/site.txt"), "new");
    EXPECT_EQ(bytes("shut/site.txt"), "new");
    EXPECT_EQ(facts("shut/site.txt").st_ino, before);
    EXPECT_EQ(failureNumber([&] { writeByteFile(path("shut/new.txt"), "new"); }), 70);
    {
        const doubles::File_Size_Limit disk(8192);
        EXPECT_EQ(failureNumber([&] { writeByteFile(path("shut/site.txt"), std::string(100000, 'x')); }), 75);
    }
    EXPECT_EQ(bytes("shut/site.txt"), "new");
    fs::permissions(path("shut"), static_cast<fs::perms>(0700));
}

TEST_F(Replaced_Files, AFileThatMayNotBeWrittenIsNotReplaced) {
    put("site.txt", "old");
    fs::permissions(path("site.txt"), static_cast<fs::perms>(0400));
    EXPECT_EQ(failureNumber([&] { writeByteFile(path("site.txt"), "new"); }), 70);
    EXPECT_EQ(bytes("site.txt"), "old");
}

TEST_F(Replaced_Files, APipeGetsTheBytes) {
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    const File_Descriptor reader(::open(path("pipe").c_str(), O_RDONLY | O_NONBLOCK));
    writeByteFile(path("pipe"), "new");
    std::string read(10, ' ');
    EXPECT_EQ(::read(reader.number(), read.data(), read.size()), 3);
    EXPECT_EQ(read.substr(0, 3), "new");
}

} // namespace
} // namespace zorvane
