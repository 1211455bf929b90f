// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/files/recent_files.h"
#include "app/testing/app_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

struct RecentFiles : testing::Test, doubles::App_Bench {
    void open(const std::string& path) {
        if (!files.exists(path)) files.put(path, doubles::smallDocument("10", "20"));
        openFile(app, path, false);
        noteRecentFile(app);
    }
    [[nodiscard]] std::vector<std::string> paths() const {
        std::vector<std::string> all;
        for (const Recent_File& file : recentFiles(app))
            all.push_back(file.path);
        return all;
    }
};

TEST_F(RecentFiles, AreNoneAtFirst) { EXPECT_THAT(recentFiles(app), IsEmpty()); }

TEST_F(RecentFiles, TheNewestIsFirstAndEachIsThereOnce) {
    open("/home/site7.abc");
    open("/home/site8.abc");
    open("/home/site9.abc");
    open("/home/site7.abc");
    EXPECT_THAT(paths(), ElementsAre("/home/site7.abc", "/home/site9.abc", "/home/site8.abc"));
    EXPECT_EQ(settings.texts.at("Zorvane/Recent/File1"), "/home/site7.abc");
}

TEST_F(RecentFiles, NineAreKept) {
    for (int i = 1; i <= 11; ++i)
        open("/home/s" + std::to_string(i) + ".abc");
    EXPECT_THAT(paths(), SizeIs(9));
    EXPECT_EQ(paths().front(), "/home/s11.abc");
    EXPECT_EQ(paths().back(), "/home/s3.abc");
}

TEST_F(RecentFiles, OneThatIsGoneIsToldSo) {
    open("/home/site7.abc");
    files.remove("/home/site7.abc");
    EXPECT_THAT(recentFiles(app), ElementsAre(Recent_File{"/home/site7.abc", false}));
}

TEST_F(RecentFiles, ADocumentWithoutAPlaceIsNone) {
    openFile(app, "/home/site7.abc", false);
    document.No_Place = true;
    noteRecentFile(app);
    EXPECT_THAT(recentFiles(app), IsEmpty());
}

TEST_F(RecentFiles, TheNewestAgainWritesNothing) {
    open("/home/site7.abc");
    const auto before = journal.beginningWith("setting Recent").size();
    noteRecentFile(app);
    EXPECT_EQ(journal.beginningWith("setting Recent").size(), before);
}

} // namespace
} // namespace zorvane::app
