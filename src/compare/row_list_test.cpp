// SPDX-License-Identifier: MIT
#include "compare/comparison_words.h"
#include "compare/row_list.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zorvane::compare {
namespace {

/// A comparison whose rows have these signs, named "1", "2" and so on.
Comparison comparisonWith(const std::vector<Sign>& signs) {
    Comparison comparison;
    for (std::size_t i = 0; i < signs.size(); ++i) {
        Row row;
        row.place = {1, static_cast<std::int32_t>(i + 1), 2};
        row.name = std::to_string(i + 1);
        row.page = i < 3 ? "Regulation" : "Outputs";
        row.sign = signs[i];
        comparison.counts.add(row.sign);
        comparison.rows.push_back(std::move(row));
    }
    return comparison;
}

class RowList : public ::testing::Test {
  protected:
    Row_List rows{comparisonWith(
        {Sign::Differs, Sign::Equal, Sign::One_Side, Sign::Read_Only, Sign::Differs, Sign::Not_Read})};

    void list(const std::string& words, bool all = false) { rows.list(Filter(words), all); }
    [[nodiscard]] std::string listed() const {
        std::string text;
        for (std::size_t i = 0; i < rows.size(); ++i)
            text += rows.at(i).name;
        return text;
    }
};

TEST_F(RowList, ListsNothingBeforeItIsTold) { EXPECT_EQ(rows.size(), 0U); }

TEST_F(RowList, ListsWhatIsntEqualUnlessToldOtherwise) {
    list("");
    EXPECT_EQ(listed(), "13456");
    list("", true);
    EXPECT_EQ(listed(), "123456");
    list("is:equal");
    EXPECT_EQ(listed(), "2");
    list("page:outputs");
    EXPECT_EQ(listed(), "456");
    list("nowhere");
    EXPECT_EQ(listed(), "");
    EXPECT_EQ(rows.comparison().counts.rows(), 6U) << "counted are all rows";
}

/// Rows in the given rows of field 1, of these signs.
Comparison comparisonAt(const std::vector<std::pair<std::int32_t, Sign>>& signs) {
    Comparison comparison;
    for (const auto& [number, sign] : signs) {
        Row row;
        row.place = {1, number, 2};
        row.name = std::to_string(number);
        row.sign = sign;
        row.left = {.value = true, .shown = "l" + row.name};
        row.right = {.value = true, .shown = "r" + row.name};
        comparison.counts.add(sign);
        comparison.rows.push_back(std::move(row));
    }
    return comparison;
}

class ThreeSides : public ::testing::Test {
  protected:
    // The second comparison is with a controller: cell 1 has no register, and the file has nothing of cell 5.
    Row_List rows{
        comparisonAt({{1, Sign::Differs}, {2, Sign::Equal}, {3, Sign::Equal}, {4, Sign::Differs}}),
        comparisonAt({{2, Sign::Equal}, {3, Sign::One_Side}, {4, Sign::Not_Read}, {5, Sign::Equal}})};

    [[nodiscard]] std::string listed(const std::string& words, bool all = false) {
        rows.list(Filter(words), all);
        std::string text;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const Row* const left = rows.leftRow(i);
            const Row* const right = rows.rightRow(i);
            text += (text.empty() ? "" : " ") + rows.at(i).name + ":" +
                    (left != nullptr ? std::string(signMark(left->sign)) : ".") +
                    (right != nullptr ? std::string(signMark(right->sign)) : ".");
        }
        return text;
    }
};

TEST_F(ThreeSides, EachCellIsListedOnceWithItsRowsInBothComparisons) {
    EXPECT_TRUE(rows.threeSides());
    EXPECT_EQ(listed("", true), "1:\xE2\x89\xA0. 2:== 3:=! 4:\xE2\x89\xA0? 5:.=");
    EXPECT_EQ(listed(""), "1:\xE2\x89\xA0. 3:=! 4:\xE2\x89\xA0?");
    EXPECT_EQ(listed("is:missing"), "3:=!");
    EXPECT_EQ(listed("is:differs"), "1:\xE2\x89\xA0. 4:\xE2\x89\xA0?");
    EXPECT_EQ(listed("r4"), "4:\xE2\x89\xA0?");
}

TEST_F(ThreeSides, TheCountsAddUpForEachPair) {
    std::size_t left = 0;
    std::size_t right = 0;
    (void)listed("", true);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        left += rows.leftRow(i) != nullptr ? 1U : 0U;
        right += rows.rightRow(i) != nullptr ? 1U : 0U;
    }
    EXPECT_EQ(left, rows.leftComparison().counts.rows());
    EXPECT_EQ(right, rows.comparison().counts.rows());
    EXPECT_EQ(countsText(rows.leftComparison().counts), "4 values: 2 differ, 2 equal");
    EXPECT_EQ(countsText(rows.comparison().counts), "4 values: 1 on one side only, 1 not read, 2 equal");
}

TEST_F(ThreeSides, TheNextDifferenceIsThatOfEitherPair) {
    (void)listed("", true);
    EXPECT_EQ(rows.nextDifference(std::nullopt), 0U);
    EXPECT_EQ(rows.nextDifference(0), 2U);
    EXPECT_EQ(rows.nextDifference(2), 3U);
    EXPECT_EQ(rows.nextDifference(3), 0U);
    EXPECT_EQ(rows.differenceText(2), "2 of 3");
}

TEST_F(ThreeSides, TicksStandForTheRowsOfTheSideThatIsTaken) {
    (void)listed("");
    rows.tickDifferences();
    EXPECT_EQ(rows.tickedRows().size(), 3U);
    EXPECT_EQ(rows.tickedLeftRows().size(), 3U);
    ASSERT_EQ(rows.tickedRightRows().size(), 2U);
    EXPECT_EQ(rows.tickedRightRows()[0]->name, "3");
}

TEST(RowListOfTwoSides, HasNoLeftRows) {
    Row_List rows{comparisonAt({{1, Sign::Differs}})};
    rows.list(Filter(), false);
    EXPECT_FALSE(rows.threeSides());
    EXPECT_EQ(rows.leftRow(0), nullptr);
    EXPECT_EQ(rows.rightRow(0), &rows.at(0));
    rows.tickDifferences();
    EXPECT_EQ(rows.tickedLeftRows().size(), 0U);
    EXPECT_EQ(rows.tickedRightRows(), rows.tickedRows());
}

TEST_F(RowList, GoesRoundTheDifferences) {
    list("", true); // 1, 3 and 5 differ, at 0, 2 and 4
    EXPECT_EQ(rows.nextDifference(std::nullopt), 0U);
    EXPECT_EQ(rows.nextDifference(0), 2U);
    EXPECT_EQ(rows.nextDifference(1), 2U);
    EXPECT_EQ(rows.nextDifference(4), 0U);
    EXPECT_EQ(rows.previousDifference(std::nullopt), 4U);
    EXPECT_EQ(rows.previousDifference(4), 2U);
    EXPECT_EQ(rows.previousDifference(3), 2U);
    EXPECT_EQ(rows.previousDifference(0), 4U);
}

TEST_F(RowList, SaysWhichDifferenceItIs) {
    list("");
    EXPECT_EQ(rows.differenceText(0), "1 of 3");
    EXPECT_EQ(rows.differenceText(1), "2 of 3");
    EXPECT_EQ(rows.differenceText(2), "3 differences") << "a row that is read only";
    EXPECT_EQ(rows.differenceText(3), "3 of 3");
    EXPECT_EQ(rows.differenceText(std::nullopt), "3 differences");
    list("page:regulation is:missing");
    EXPECT_EQ(rows.differenceText(std::nullopt), "1 difference");
}

TEST_F(RowList, WithoutADifferenceThereIsNoneToGoTo) {
    list("is:readonly");
    EXPECT_EQ(rows.nextDifference(std::nullopt), std::nullopt);
    EXPECT_EQ(rows.previousDifference(0), std::nullopt);
    EXPECT_EQ(rows.differenceText(0), "no difference");
}

TEST_F(RowList, SaysHowManyHaveATickAndAreNotListed) {
    list("");
    EXPECT_EQ(rows.ticksText(), "");
    rows.tick(0, true);
    EXPECT_EQ(rows.ticksText(), "1 ticked");
    rows.tickDifferences();
    EXPECT_EQ(rows.ticksText(), "3 ticked");
    list("page:regulation is:missing");
    EXPECT_EQ(rows.ticksText(), "3 ticked, 2 of them not listed");
    list("nowhere");
    EXPECT_EQ(rows.ticksText(), "3 ticked, 3 of them not listed");
}

TEST_F(RowList, TicksStayWithTheirRows) {
    list("");
    rows.tick(1, true); // row 3
    list("page:outputs");
    EXPECT_FALSE(rows.ticked(1));
    rows.tick(2, true); // row 6
    const std::vector<const Row*> ticked = rows.tickedRows();
    ASSERT_EQ(ticked.size(), 2U);
    EXPECT_EQ(ticked[0]->name + ticked[1]->name, "36");
    list("");
    EXPECT_TRUE(rows.ticked(1));
    rows.tickNothing();
    EXPECT_TRUE(rows.tickedRows().empty());
}

TEST_F(RowList, TicksTheListedDifferencesAndNothingElse) {
    list("", true);
    rows.tick(1, true);
    list("page:regulation");
    rows.tickDifferences();
    ASSERT_EQ(rows.tickedRows().size(), 2U);
    EXPECT_EQ(rows.tickedRows()[0]->name, "1");
    EXPECT_EQ(rows.tickedRows()[1]->name, "3");
}

TEST(ComparisonWords, SayWhatPeopleSeeOfASide) {
    EXPECT_EQ(sideText({.read = false}), "not read");
    EXPECT_EQ(sideText({.value = false}), "-");
    EXPECT_EQ(sideText({.value = true, .shown = "1:30"}), "1:30");
    EXPECT_EQ(sideText({.value = true, .held = Held{77}}), "(code 77)");
}

TEST(ComparisonWords, NameASettingByRowAndColumn) {
    Row row;
    row.name = "R6 pulse";
    EXPECT_EQ(settingText(row), "R6 pulse");
    row.heading = "Value";
    EXPECT_EQ(settingText(row), "R6 pulse, Value");
}

} // namespace
} // namespace zorvane::compare
