// SPDX-License-Identifier: MIT
#include "edit/block_paste.h"
#include "edit/testing/relay.h"

#include <gtest/gtest.h>

namespace zorvane::edit {
namespace {

struct Block_Paste : testing::Test, doubles::Relay {
    [[nodiscard]] std::string summary(const Cell_Range& selection, const std::string& clipboard) const {
        return summaryOf(document, checkBlock(document, selection, textRows(clipboard)));
    }
    /// From a cell on.
    static Cell_Range at(std::int32_t field, std::int32_t row, std::int32_t column) {
        return {field, row, column, row, column};
    }
};

TEST_F(Block_Paste, ABlockIsJudgedAsAWhole) {
    const Block_Check check = checkBlock(document, at(1, 1, 2), textRows("1200\n-5\n1:30\ntrip\nT-3\n"));
    EXPECT_TRUE(check.allFit());
    EXPECT_EQ(check.range, (Cell_Range{1, 1, 2, 5, 2}));
    EXPECT_EQ(cell(1, 1, 2).Value, "1125") << "nothing has changed yet";
    EXPECT_EQ(apply(document, check.taken), 5);
    EXPECT_EQ(cell(1, 1, 2).Value, "1200");
    EXPECT_EQ(cell(1, 4, 2).Value, "7") << "a list's text becomes its code";
    EXPECT_EQ(nameOf(check), "paste of 5 values");
}

TEST_F(Block_Paste, TheSummaryNamesTheFirstThatDoesntFit) {
    EXPECT_EQ(summary(at(1, 1, 2), "1401\n-5"), "1 of 2 fit; row 1 above its limit 1400");
    EXPECT_EQ(summary(at(1, 1, 2), "1401\nx\n1:30\nAuto"),
              "1 of 4 fit; row 1 above its limit 1400, and 2 more");
    EXPECT_EQ(summary(at(2, 1, 1), "1\t2\n3\tx"), "3 of 4 fit; row 2 (Pause) not a number");
    EXPECT_EQ(summary(at(2, 1, 1), "1\t2\n3\t4"), "4 of 4 fit");
}

TEST_F(Block_Paste, ABlockBeyondTheTableIsTold) {
    EXPECT_EQ(summary(at(2, 2, 2), "1\t2\n3"),
              "1 of 3 fit; row 2 for a cell that the template doesn't have, and 1 more");
}

TEST_F(Block_Paste, OneValueFillsASelection) {
    const Block_Check check = checkBlock(document, {2, 1, 1, 2, 2}, textRows("7\r\n"));
    EXPECT_EQ(summaryOf(document, check), "4 of 4 fit");
    EXPECT_EQ(apply(document, check.taken), 4);
    EXPECT_EQ(cell(2, 1, 1).Value + cell(2, 1, 2).Value + cell(2, 2, 1).Value + cell(2, 2, 2).Value, "7777");
    EXPECT_EQ(nameOf(checkBlock(document, {2, 1, 1, 1, 1}, textRows("8"))), "paste of 1 value");
}

TEST_F(Block_Paste, ABlockOfSeveralIsntRepeated) {
    EXPECT_EQ(checkBlock(document, {2, 1, 1, 2, 2}, textRows("7\t8")).range, (Cell_Range{2, 1, 1, 1, 2}));
}

TEST_F(Block_Paste, TheDecimalSignIsFoundInTheBlock) {
    EXPECT_EQ(summary(at(2, 1, 1), "1,5\n1,234"), "2 of 2 fit");
    EXPECT_EQ(summary(at(2, 1, 1), "1\n1,234"), "1 of 2 fit; row 2 readable two ways, as 1.234 or 1234");
}

TEST_F(Block_Paste, TheLengthOfACellIsItsOwn) {
    EXPECT_EQ(summary(at(1, 5, 2), "T-13\tsubstation north"), "2 of 2 fit");
    EXPECT_EQ(summary(at(1, 5, 2), "T-130"), "0 of 1 fit; row 5 longer than its 4 characters");
}

} // namespace
} // namespace zorvane::edit
