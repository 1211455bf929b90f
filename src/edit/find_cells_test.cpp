// SPDX-License-Identifier: MIT
#include "edit/find_cells.h"
#include "edit/testing/relay.h"

#include <gtest/gtest.h>

namespace zorvane::edit {
namespace {

std::string told(const std::vector<Cell_Place>& places) {
    std::string out;
    for (const Cell_Place& place : places)
        out += (out.empty() ? "" : ", ") + std::to_string(place.field) + " " + std::to_string(place.row) +
               " " + std::to_string(place.column);
    return out;
}

struct Find_Cells : testing::Test, doubles::Relay {
    [[nodiscard]] std::string found(const std::string& text) const {
        return told(foundCells(document, {text, false, false}, {}));
    }
};

TEST_F(Find_Cells, ByItsNameTheSettingOfARow) {
    EXPECT_EQ(found("set POINT"), "1 1 2, 1 1 4")
        << "the value and the reading, neither the name nor the remark";
    EXPECT_EQ(found("drop"), "1 2 2");
}

TEST_F(Find_Cells, ByPageAndHeading) {
    EXPECT_EQ(found("Timers"), "2 1 1, 2 1 2, 2 2 1, 2 2 2");
    EXPECT_EQ(found("pause"), "2 1 2, 2 2 2");
    EXPECT_EQ(found("timers/row 2/pause"), "2 2 2");
}

TEST_F(Find_Cells, ByTextAndValue) {
    EXPECT_EQ(found("agreed"), "1 1 3");
    EXPECT_EQ(found("1125"), "1 1 2");
    cell(1, 4, 2).Value = "7";
    EXPECT_EQ(found("trip"), "1 4 2") << "the text of the list";
    EXPECT_EQ(found("7"), "") << "not its code";
}

TEST_F(Find_Cells, ByRegister) {
    EXPECT_EQ(found("101"), "1 2 2");
    EXPECT_EQ(found("103"), "1 4 2") << "half of it";
    EXPECT_EQ(found("103/hi"), "1 4 2");
    EXPECT_EQ(found("105"), "1 5 2") << "within a range of characters";
}

TEST_F(Find_Cells, NothingIsNothing) { EXPECT_EQ(found("nowhere"), ""); }

TEST_F(Find_Cells, FiltersLeaveWhatTheyName) {
    doubles::Relay factory;
    cell(1, 2, 2).Value = "-5";
    cell(1, 4, 2).Value = "7";
    Cell_Marks marks;
    marks.differsFromFactory = differsFrom(document, factory.document);
    marks.isChanged = [](const Cell_Place& place) {
        return place == Cell_Place{1, 4, 2} || place == Cell_Place{2, 1, 1};
    };
    EXPECT_EQ(told(foundCells(document, {"", false, true}, marks)), "1 2 2, 1 4 2");
    EXPECT_EQ(told(foundCells(document, {"", true, false}, marks)), "1 4 2, 2 1 1");
    EXPECT_EQ(told(foundCells(document, {"", true, true}, marks)), "1 4 2");
    EXPECT_EQ(told(foundCells(document, {"drop", false, true}, marks)), "1 2 2");
}

TEST_F(Find_Cells, GoesRoundInBothDirections) {
    const std::vector<Cell_Place> found = {{1, 1, 2}, {1, 4, 2}, {2, 1, 1}};
    EXPECT_EQ(nextFound(found, {1, 1, 2}), (Cell_Place{1, 4, 2}));
    EXPECT_EQ(nextFound(found, {1, 2, 9}), (Cell_Place{1, 4, 2}));
    EXPECT_EQ(nextFound(found, {2, 1, 1}), (Cell_Place{1, 1, 2}));
    EXPECT_EQ(previousFound(found, {1, 4, 2}), (Cell_Place{1, 1, 2}));
    EXPECT_EQ(previousFound(found, {1, 1, 2}), (Cell_Place{2, 1, 1}));
    EXPECT_EQ(nextFound({}, {1, 1, 2}), std::nullopt);
    EXPECT_EQ(previousFound({}, {1, 1, 2}), std::nullopt);
}

} // namespace
} // namespace zorvane::edit
