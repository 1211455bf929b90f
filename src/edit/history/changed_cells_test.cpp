// SPDX-License-Identifier: MIT
#include "edit/history/changed_cells.h"
#include "edit/testing/relay.h"

#include <gtest/gtest.h>

namespace zorvane::edit {
namespace {

struct Changed : testing::Test, doubles::Relay {
    Changed() { changed.take(document); }
    using Places = std::vector<Cell_Place>;
    Changed_Cells changed;
};

TEST_F(Changed, ACellThatDiffersFromItsFileIsOne) {
    EXPECT_EQ(changed.all(document), Places{});
    cell(1, 1, 2).Value = "1200";
    cell(2, 2, 1).Value = "8";
    EXPECT_EQ(changed.all(document), (Places{{1, 1, 2}, {2, 2, 1}}));
    EXPECT_TRUE(changed.isChanged(document, {1, 1, 2}));
    EXPECT_FALSE(changed.isChanged(document, {1, 2, 2}));
}

TEST_F(Changed, TheOldValueAgainIsNone) {
    cell(1, 1, 2).Value = "1200";
    cell(1, 1, 2).Value = "1125";
    EXPECT_EQ(changed.all(document), Places{});
}

TEST_F(Changed, ASaveMakesTheValuesTheFiles) {
    cell(1, 1, 2).Value = "1200";
    changed.take(document);
    EXPECT_EQ(changed.all(document), Places{});
    cell(1, 1, 2).Value = "1125";
    EXPECT_EQ(changed.all(document), (Places{{1, 1, 2}}));
}

TEST_F(Changed, WhatPollingPutThereIsNone) {
    document.Passing.put(cell(1, 1, 2), {1, 1, 2}, "1201");
    EXPECT_EQ(changed.all(document), Places{});
    cell(1, 1, 2).Value = "1202";
    EXPECT_EQ(changed.all(document), (Places{{1, 1, 2}})) << "somebody put another value over it";
}

TEST_F(Changed, AnotherCodeWithTheSameTextIsNone) {
    // The file has the texts of lists.
    cell(1, 4, 2).Messages(2).Text = "Off";
    changed.take(document);
    cell(1, 4, 2).Value = "0";
    EXPECT_EQ(changed.all(document), Places{});
    cell(1, 4, 2).Value = "7";
    EXPECT_EQ(changed.all(document), (Places{{1, 4, 2}}));
}

TEST_F(Changed, WithoutAFileThereIsNone) {
    changed.forget();
    cell(1, 1, 2).Value = "1200";
    EXPECT_EQ(changed.all(document), Places{});
    EXPECT_FALSE(changed.isChanged(document, {1, 1, 2}));
}

TEST_F(Changed, ACellThatTheDocumentDoesntHaveIsNone) {
    EXPECT_FALSE(changed.isChanged(document, {0, 1, 1}));
    EXPECT_FALSE(changed.isChanged(document, {3, 1, 1}));
    EXPECT_FALSE(changed.isChanged(document, {1, 1, 5}));
    EXPECT_FALSE(changed.isChanged(document, {1, 9, 2}));
}

} // namespace
} // namespace zorvane::edit
