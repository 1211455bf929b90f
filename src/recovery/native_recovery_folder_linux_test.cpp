// SPDX-License-Identifier: MIT
#include "recovery/native_recovery_folder.h"
#include "template/services/native_files.h"
#include "template/testing/temporary_folder.h"
#include "template/testing/unprivileged_linux.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace zorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

struct NativeRecoveryFolder : testing::Test {
    [[nodiscard]] std::string path() const { return home.path() + "/data/recovery"; }
    doubles::Unprivileged user;
    doubles::Temporary_Folder home;
    Native_Recovery_Folder folder{path()};
};

/// Files of this process may not grow beyond so many bytes, as if the disk were full.
class Small_Disk {
  public:
    explicit Small_Disk(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~Small_Disk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    Small_Disk(const Small_Disk&) = delete;
    Small_Disk& operator=(const Small_Disk&) = delete;

  private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

TEST_F(NativeRecoveryFolder, IsMadeForItsOwnerAloneWhenTheFirstCopyIsWritten) {
    EXPECT_FALSE(fs::exists(path()));
    EXPECT_THAT(folder.list(), IsEmpty());
    EXPECT_TRUE(folder.write("a.ABC", "text"));
    EXPECT_EQ(fs::status(path()).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(path() + "/a.ABC").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(NativeRecoveryFolder, WritesReadsListsAndRemoves) {
    ASSERT_TRUE(folder.write("a.ABC", "one"));
    ASSERT_TRUE(folder.write("b.ABC", std::string(10000, 'x')));
    EXPECT_THAT(folder.list(), UnorderedElementsAre("a.ABC", "b.ABC"));
    EXPECT_EQ(folder.beginning("a.ABC"), "one");
    EXPECT_EQ(folder.beginning("b.ABC"), std::string(4096, 'x'));
    EXPECT_EQ(folder.beginning("none"), "");
    folder.remove("a.ABC");
    EXPECT_THAT(folder.list(), ElementsAre("b.ABC"));
}

TEST_F(NativeRecoveryFolder, TheSystemsFilesFindACopy) {
    ASSERT_TRUE(folder.write("a.ta\xF1o", "one"));
    EXPECT_EQ(Native_Files().read(folder.path("a.ta\xF1o")), "one");
}

TEST_F(NativeRecoveryFolder, ACopyThatDoesntFitLeavesTheOlderOneAndNothingElse) {
    ASSERT_TRUE(folder.write("a.ABC", "older"));
    {
        const Small_Disk disk(4096);
        EXPECT_FALSE(folder.write("a.ABC", std::string(10000, 'x')));
    }
    EXPECT_EQ(folder.beginning("a.ABC"), "older");
    EXPECT_EQ(std::distance(fs::directory_iterator(path()), fs::directory_iterator()), 1);
}

TEST_F(NativeRecoveryFolder, AFolderThatCantBeMadeOrWrittenIsNoCopy) {
    ASSERT_TRUE(folder.write("a.ABC", "older"));
    fs::permissions(path(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_FALSE(folder.write("a.ABC", "newer"));
    EXPECT_EQ(folder.beginning("a.ABC"), "older");
    fs::permissions(path(), fs::perms::owner_all);
    EXPECT_FALSE(Native_Recovery_Folder("/proc/none/recovery").write("a.ABC", "x"));
}

TEST_F(NativeRecoveryFolder, WhatAKilledProgramLeftIsNoCopyAndIsSweptAway) {
    ASSERT_TRUE(folder.write("a.ABC", "older"));
    std::ofstream(path() + "/b.ABC.unfinished") << "half";
    EXPECT_THAT(folder.list(), ElementsAre("a.ABC"));
    const Native_Recovery_Folder next(path());
    EXPECT_FALSE(fs::exists(path() + "/b.ABC.unfinished"));
    EXPECT_TRUE(fs::exists(path() + "/a.ABC"));
}

} // namespace
} // namespace zorvane
