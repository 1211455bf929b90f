// SPDX-License-Identifier: MIT
#include "template/pro_escribe_archivo.h"
#include "template/services/native_files.h"
#include "template/testing/files_suite.h"
#include "template/testing/temporary_folder.h"
#include "template/testing/unprivileged_linux.h"
#include "values/code_page.h"
#include "values/utf8.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace zorvane::doubles {
namespace {

class Native_Kind : public Files_Under_Test {
  public:
    [[nodiscard]] Files& files() override { return files_; }
    [[nodiscard]] std::string folder() const override { return folder_.path() + "/"; }
    void refuse(const std::string& name) override {
        std::filesystem::permissions(folder() + name, std::filesystem::perms::none);
    }

  private:
    Unprivileged user_;
    Temporary_Folder folder_;
    Native_Files files_;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Native, Files_Suite, Native_Kind);

} // namespace
} // namespace zorvane::doubles

namespace zorvane {
namespace {

namespace fs = std::filesystem;
using doubles::failureNumber;
using doubles::Temporary_Folder;
using doubles::Unprivileged;

struct NativeFiles : testing::Test {
    [[nodiscard]] std::string path(const std::string& name) const { return folder.path() + "/" + name; }
    void put(const std::string& nativeName, const std::string& text) {
        std::ofstream(folder.path() + "/" + nativeName, std::ios::binary) << text;
    }

    Unprivileged user;
    Temporary_Folder folder;
    Native_Files files;
};

TEST_F(NativeFiles, TheExactNameComesBeforeOneInAnotherLetterCase) {
    put("abc.ztp", "small");
    put("ABC.ZTP", "exact");
    put("Abc.ztp", "mixed");
    EXPECT_EQ(files.read(path("ABC.ZTP")), "exact");
    EXPECT_EQ(files.read(path("abc.ztp")), "small");
}

TEST_F(NativeFiles, OfSeveralInAnotherLetterCaseTheFirstByItsBytesIsMeant) {
    put("abc.ztp", "small");
    put("aBC.ztp", "mixed");
    EXPECT_EQ(files.found(path("ABC.ZTP")), path("aBC.ztp"));
}

TEST_F(NativeFiles, AFolderOfTheNameDoesntHideTheFile) {
    fs::create_directory(path("ABC.ZTP"));
    put("abc.ztp", "file");
    EXPECT_TRUE(files.exists(path("ABC.ZTP")));
    EXPECT_EQ(files.read(path("ABC.ZTP")), "file");
}

TEST_F(NativeFiles, ReadingOrCreatingAFolderIsFailure75) {
    fs::create_directory(path("ABC.ZTP"));
    EXPECT_FALSE(files.exists(path("ABC.ZTP")));
    EXPECT_EQ(failureNumber([&] { (void)files.read(path("ABC.ZTP")); }), 75);
    EXPECT_EQ(failureNumber([&] { (void)files.create(path("ABC.ZTP")); }), 75);
}

TEST_F(NativeFiles, AFolderWithoutPermissionIsFailure70) {
    fs::create_directory(path("locked"));
    put("locked/old.ABC", "x");
    fs::permissions(path("locked"), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(failureNumber([&] { (void)files.create(path("locked/new.ABC")); }), 70);
    fs::permissions(path("locked"), fs::perms::none);
    EXPECT_FALSE(files.exists(path("locked/old.ABC")));
    EXPECT_EQ(failureNumber([&] { (void)files.read(path("locked/old.ABC")); }), 70);
    EXPECT_TRUE(files.list(path("locked")).empty());
    fs::permissions(path("locked"), fs::perms::owner_all);
}

TEST_F(NativeFiles, AFileInTheFoldersPlaceIsFailure76) {
    put("site7.ABC", "x");
    EXPECT_EQ(failureNumber([&] { (void)files.create(path("site7.ABC/new.ABC")); }), 76);
}

TEST_F(NativeFiles, AFullDiskIsFailure61AtTheLatestWhenClosing) {
    ASSERT_TRUE(fs::exists("/dev/full"));
    const auto writer = files.create("/dev/full");
    EXPECT_EQ(failureNumber([&] {
                  writer->writeLine("a line");
                  writer->close();
              }),
              61);
}

TEST_F(NativeFiles, AFullDiskIsFailure61AtAnyLine) {
    const auto writer = files.create("/dev/full");
    const std::string line(10000, 'x');
    EXPECT_EQ(failureNumber([&] {
                  for (int k = 0; k < 100; ++k)
                      writer->writeLine(line);
              }),
              61);
}

TEST_F(NativeFiles, SavingToAFullDiskReportsIt) {
    Declara_Zorvane document;
    std::string result;
    PRO_Escribe_Archivo(document, files, "/dev/full", result);
    EXPECT_EQ(result, "Disk full");
    EXPECT_TRUE(document.Save_Failed);
}

TEST_F(NativeFiles, ListsFilesOnlyAndFollowsLinks) {
    put("a.ZTP", "");
    fs::create_directory(path("b.ZTP"));
    fs::create_symlink(path("a.ZTP"), path("c.ZTP"));
    fs::create_symlink(path("gone"), path("d.ZTP"));
    EXPECT_EQ(files.list(folder.path()), (std::vector<std::string>{"a.ZTP", "c.ZTP"}));
}

TEST_F(NativeFiles, ANameAloneLiesInTheCurrentFolder) {
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    put("abc.ztp", "x");
    EXPECT_EQ(files.found("ABC.ZTP"), "abc.ztp");
    EXPECT_TRUE(files.exists("ABC.ZTP"));
    std::error_code closedToThisUser;
    fs::current_path(before, closedToThisUser);
    if (closedToThisUser) fs::current_path("/");
}

TEST_F(NativeFiles, ALargeFileIsReadWhole) {
    const std::string text(200000, 'x');
    put("a", text);
    EXPECT_EQ(files.read(path("a")), text);
}

// Names.

TEST_F(NativeFiles, NamesOfTheCodePageAreThatText) {
    put("Tama\xC3\xB1o \xE2\x82\xAC.ZTP", "x");
    EXPECT_EQ(files.list(folder.path()), (std::vector<std::string>{"Tama\xF1o \x80.ZTP"}));
    EXPECT_EQ(files.read(path("TAMA\xD1O \x80.ztp")), "x");
    const auto writer = files.create(path("\xC4\xD6\xDC"));
    writer->close();
    EXPECT_TRUE(fs::exists(folder.path() + "/\xC3\x84\xC3\x96\xC3\x9C"));
}

TEST_F(NativeFiles, NamesBeyondTheCodePageCanBeUsedAllTheSame) {
    for (const std::string native : {"\xD0\x9F\xD0\xBB\xD0\xB0\xD0\xBD.ABC", "\xF0\x9F\x98\x80.ABC",
                                     "\xFF\xFE.ABC", "\xC2\x81.ABC", "\xE0\x81\x81.ABC"}) {
        put(native, "x");
        const std::vector<std::string> names = files.list(folder.path());
        ASSERT_EQ(names.size(), 1U);
        EXPECT_EQ(files.read(path(names[0])), "x");
        EXPECT_EQ(files.read(path(upperCase(names[0]))), "x")
            << "and found again once the name is upper case";
        fs::remove(folder.path() + "/" + native);
    }
}

TEST(NativePaths, EveryCharacterComesBack) {
    for (char32_t point = 1; point <= 0x10FFFF; point += point < 0x3000 ? 1 : 97) {
        std::string native = "a";
        appendUtf8(native, point);
        ASSERT_EQ(pathToNative(pathFromNative(native)), native) << static_cast<unsigned>(point);
    }
}

TEST(NativePaths, EveryByteThatIsNoUtf8ComesBack) {
    for (unsigned first = 0x80; first < 0x100; ++first)
        for (unsigned second = 0x01; second < 0x100; ++second) {
            const std::string native{'a', static_cast<char>(first), static_cast<char>(second), 'b'};
            ASSERT_EQ(pathToNative(pathFromNative(native)), native) << first << " " << second;
        }
}

TEST(NativePaths, ALoneMarkIsACharacterOfItsOwn) {
    EXPECT_EQ(pathToNative("a\x81"), "a\xC2\x81");
    EXPECT_EQ(pathToNative("\x8D"
                           "b"),
              "\xC2\x8D"
              "b");
}

} // namespace
} // namespace zorvane
