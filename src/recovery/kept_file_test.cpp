// SPDX-License-Identifier: MIT
#include "recovery/native_recovery_folder.h"
#include "recovery/recovery.h"
#include "template/testing/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace zorvane {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;

struct KeptFile : testing::Test {
    doubles::Temporary_Folder home;
    std::string time = "2026-11-21 03:20:05";
    Native_Recovery_Folder copies{home.path() + "/data/Recovery"};
    Native_Recovery_Folder files{filesFolder(home.path() + "/data/Recovery")};
    Recovery recovery{copies, [this] { return time; }, "77", &files};

    [[nodiscard]] static std::string bytesOf(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    [[nodiscard]] bool keep(const std::string& bytes) {
        return recovery.keepFile({"site7.abc", "ABC", "ABC 100", bytes});
    }
};

TEST_F(KeptFile, IsListedWithItsNameAndComesBackByteForByte) {
    const std::string bytes = ";time=mine\r\n\nno line end and \x01\xFF";
    ASSERT_TRUE(keep(bytes));
    const std::vector<Recovery_Entry> entries = recovery.list();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].file, "20261121032005-77-1.ABC");
    EXPECT_EQ(entries[0].time, "2026-11-21 03:20:05");
    EXPECT_EQ(entries[0].name, "site7.abc");
    EXPECT_EQ(entries[0].model, "ABC 100");
    EXPECT_EQ(entries[0].why, "before Save");
    EXPECT_TRUE(entries[0].beforeSave);
    EXPECT_EQ(keptBytes(bytesOf(recovery.path(entries[0]))), bytes);
}

TEST_F(KeptFile, ACopyWithoutItsFourLinesIsAllOfIt) {
    EXPECT_EQ(keptBytes(";time=a\r\n;name=b\r\n;model=c\r\n;kept=d\r\n;time=e\r\nrest"), ";time=e\r\nrest");
    EXPECT_EQ(keptBytes("[HARDWARE]\r\n"), "[HARDWARE]\r\n");
    EXPECT_EQ(keptBytes(";time=a"), ";time=a");
}

TEST_F(KeptFile, ANameOfTwoLinesDoesntBecomeTwoLinesOfTheCopy) {
    ASSERT_TRUE(recovery.keepFile({"a\nb\r;kept=c", "ABC", "", "rest"}));
    EXPECT_EQ(recovery.list().at(0).name, "a?b?;kept=c");
    EXPECT_EQ(keptBytes(bytesOf(recovery.path(recovery.list().at(0)))), "rest");
}

TEST_F(KeptFile, FiftyAreKeptAndTheyPushOutNoUnsavedChanges) {
    ASSERT_TRUE(copies.write("20261121000000-1-1.ABC", ";time=2026-11-21 00:00:00\r\n;kept=changed\r\n"));
    for (int k = 10; k < 70; ++k) {
        time = "2026-11-21 03:20:" + std::to_string(k);
        ASSERT_TRUE(keep(std::to_string(k)));
    }
    const std::vector<Recovery_Entry> entries = recovery.list();
    ASSERT_EQ(entries.size(), recoveryLimit + 1);
    EXPECT_EQ(entries.front().time, "2026-11-21 03:20:69");
    EXPECT_EQ(entries[recoveryLimit - 1].time, "2026-11-21 03:20:20");
    EXPECT_EQ(entries.back().why, "changed");
}

TEST_F(KeptFile, IsRemovedLikeAnyCopy) {
    ASSERT_TRUE(keep("a"));
    recovery.remove(recovery.list().at(0));
    EXPECT_THAT(recovery.list(), IsEmpty());
}

TEST_F(KeptFile, NobodyElseMayLookIntoTheFoldersThatWereMadeForIt) {
    ASSERT_TRUE(keep("a"));
    for (const char* folder : {"/data", "/data/Recovery", "/data/Recovery/Saved"})
        EXPECT_EQ(fs::status(home.path() + folder).permissions(), fs::perms::owner_all) << folder;
}

TEST_F(KeptFile, WithoutAFolderForFilesNothingIsKept) {
    Recovery without(copies, [] { return std::string("2026-11-21 03:20:05"); });
    EXPECT_FALSE(without.keepFile({"site7.abc", "ABC", "", "a"}));
    EXPECT_THAT(without.list(), IsEmpty());
}

} // namespace
} // namespace zorvane
