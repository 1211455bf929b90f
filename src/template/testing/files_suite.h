// SPDX-License-Identifier: MIT
#pragma once

#include "template/services/files.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace zorvane::doubles {

/// What a kind of files must offer to run the suite: the files, and a folder of them that exists and is
/// empty, its path ending in the separator.
class Files_Under_Test {
  public:
    virtual ~Files_Under_Test() = default;
    [[nodiscard]] virtual Files& files() = 0;
    [[nodiscard]] virtual std::string folder() const = 0;
    /// From now on the file of that name may be neither read nor written.
    virtual void refuse(const std::string& name) = 0;
};

/// The tests that every kind of files has to pass. `Kind` is a `Files_Under_Test`.
template <class Kind> class Files_Suite : public testing::Test {
  protected:
    [[nodiscard]] std::string path(const std::string& name) const { return kind.folder() + name; }
    [[nodiscard]] Files& files() { return kind.files(); }

    void write(const std::string& name, const std::vector<std::string>& lines) {
        const auto writer = files().create(path(name));
        for (const std::string& line : lines)
            writer->writeLine(line);
        writer->close();
    }

    Kind kind;
};

TYPED_TEST_SUITE_P(Files_Suite);

TYPED_TEST_P(Files_Suite, WritesLinesThatEndInCrLf) {
    this->write("a.txt", {"one", "", "t\xF1o"});
    EXPECT_EQ(this->files().read(this->path("a.txt")), "one\r\n\r\nt\xF1o\r\n");
}

TYPED_TEST_P(Files_Suite, CreatingOverwrites) {
    this->write("a.txt", {"a long first text"});
    this->write("a.txt", {"b"});
    EXPECT_EQ(this->files().read(this->path("a.txt")), "b\r\n");
}

TYPED_TEST_P(Files_Suite, AWriterThatIsNeverClosedStillLeavesItsLines) {
    this->files().create(this->path("a.txt"))->writeLine("kept");
    EXPECT_EQ(this->files().read(this->path("a.txt")), "kept\r\n");
}

TYPED_TEST_P(Files_Suite, TellsWhetherAFileIsThere) {
    EXPECT_FALSE(this->files().exists(this->path("a.txt")));
    this->write("a.txt", {});
    EXPECT_TRUE(this->files().exists(this->path("a.txt")));
    EXPECT_FALSE(this->files().exists(this->kind.folder())) << "a folder is no file";
    EXPECT_FALSE(this->files().exists(""));
}

TYPED_TEST_P(Files_Suite, ReadingAMissingFileIsFailure53) {
    EXPECT_EQ(failureNumber([&] { (void)this->files().read(this->path("none.txt")); }), 53);
}

TYPED_TEST_P(Files_Suite, CreatingInAMissingFolderIsFailure76) {
    EXPECT_EQ(failureNumber([&] { (void)this->files().create(this->path("none/a.txt")); }), 76);
}

TYPED_TEST_P(Files_Suite, AFileThatMayNotBeUsedIsFailure70) {
    this->write("a.txt", {"x"});
    this->kind.refuse("a.txt");
    EXPECT_TRUE(this->files().exists(this->path("a.txt")));
    EXPECT_EQ(failureNumber([&] { (void)this->files().read(this->path("a.txt")); }), 70);
    EXPECT_EQ(failureNumber([&] { (void)this->files().create(this->path("a.txt")); }), 70);
}

TYPED_TEST_P(Files_Suite, ANameMeansTheFileThatHasItInAnyLetterCase) {
    this->write("abc.Ztp", {"x"});
    EXPECT_TRUE(this->files().exists(this->path("ABC.ZTP")));
    EXPECT_EQ(this->files().read(this->path("ABC.ZTP")), "x\r\n");
    this->write("ABC.ZTP", {"y"});
    EXPECT_EQ(this->files().list(this->kind.folder().substr(0, this->kind.folder().size() - 1)),
              std::vector<std::string>{"abc.Ztp"})
        << "saving writes the file that is there, never a second one beside it";
    EXPECT_EQ(this->files().read(this->path("abc.Ztp")), "y\r\n");
}

TYPED_TEST_P(Files_Suite, LetterCaseCoversTheWholeCodePage) {
    this->write("tama\xF1o.\x9E", {"x"});
    EXPECT_TRUE(this->files().exists(this->path("TAMA\xD1O.\x8E")));
}

TYPED_TEST_P(Files_Suite, ANameThatNoFileHasIsUsedAsGiven) {
    this->write("New.Abc", {"x"});
    EXPECT_EQ(this->files().list(this->kind.folder().substr(0, this->kind.folder().size() - 1)),
              std::vector<std::string>{"New.Abc"});
}

TYPED_TEST_P(Files_Suite, ListsNamesInTheirOrderWithoutCase) {
    for (const char* name : {"b.ZTP", "C.txt", "a.ztp", "A1"})
        this->write(name, {});
    EXPECT_EQ(this->files().list(this->kind.folder().substr(0, this->kind.folder().size() - 1)),
              (std::vector<std::string>{"a.ztp", "A1", "b.ZTP", "C.txt"}));
}

TYPED_TEST_P(Files_Suite, AFolderThatIsntThereListsNothing) {
    EXPECT_TRUE(this->files().list(this->path("none")).empty());
}

REGISTER_TYPED_TEST_SUITE_P(Files_Suite, WritesLinesThatEndInCrLf, CreatingOverwrites,
                            AWriterThatIsNeverClosedStillLeavesItsLines, TellsWhetherAFileIsThere,
                            ReadingAMissingFileIsFailure53, CreatingInAMissingFolderIsFailure76,
                            AFileThatMayNotBeUsedIsFailure70, ANameMeansTheFileThatHasItInAnyLetterCase,
                            LetterCaseCoversTheWholeCodePage, ANameThatNoFileHasIsUsedAsGiven,
                            ListsNamesInTheirOrderWithoutCase, AFolderThatIsntThereListsNothing);

} // namespace zorvane::doubles
