// SPDX-License-Identifier: MIT
#include "edit/named_cells.h"
#include "edit/testing/relay.h"

#include <gtest/gtest.h>

namespace zorvane::edit {
namespace {

struct Named_Cells : testing::Test, doubles::Relay {
    /// "1 2 3" of each cell, with commas between them.
    [[nodiscard]] std::string named(std::string_view name) const {
        std::string out;
        for (const Cell_Place& place : cellsNamed(document, name))
            out += (out.empty() ? "" : ", ") + std::to_string(place.field) + " " + std::to_string(place.row) +
                   " " + std::to_string(place.column);
        return out;
    }
};

TEST_F(Named_Cells, PageAndRowNameTheSettingOfTheRow) {
    EXPECT_EQ(named("Regulation/Set point"), "1 1 2");
    EXPECT_EQ(named(" regulation / SET POINT "), "1 1 2");
    EXPECT_EQ(named("Regulation/Tag"), "1 5 2");
}

TEST_F(Named_Cells, AHeadingNamesAnyCellOfTheRow) {
    EXPECT_EQ(named("Regulation/Set point/Value"), "1 1 2");
    EXPECT_EQ(named("Regulation/Set point/Remark"), "1 1 3");
    EXPECT_EQ(named("Regulation/Set point/Reading"), "1 1 4");
    EXPECT_EQ(named("Regulation/Set point/Setting"), "1 1 1");
    EXPECT_EQ(named("Regulation/Set point/Unit"), "");
}

TEST_F(Named_Cells, ARowOfSeveralSettingsNeedsTheHeading) {
    EXPECT_EQ(named("Timers/row 2"), "2 2 1, 2 2 2");
    EXPECT_EQ(named("Timers/row 2/Pause"), "2 2 2");
}

TEST_F(Named_Cells, ARowWithoutARegisterIsItsOnlyCellThatCanBeEdited) {
    cell(1, 2, 2).Address = "";
    cell(1, 0, 3).Modifiable = false;
    EXPECT_EQ(named("Regulation/Drop X"), "1 2 2");
    cell(1, 0, 3).Modifiable = true;
    EXPECT_EQ(named("Regulation/Drop X"), "1 2 2, 1 2 3");
}

TEST_F(Named_Cells, AReadingIsNamedWhereTheRowHasNothingElse) {
    cell(1, 0, 2).Modifiable = false;
    cell(1, 0, 3).Modifiable = false;
    cell(1, 2, 4).Address = "";
    EXPECT_EQ(named("Regulation/Drop X"), "1 2 2");
}

TEST_F(Named_Cells, ANameThatStandsTwiceStandsForBoth) {
    cell(1, 2, 1).Value = "Set point";
    EXPECT_EQ(named("Regulation/Set point"), "1 1 2, 1 2 2");
    EXPECT_EQ(named("Regulation/row 2"), "1 2 2");
}

TEST_F(Named_Cells, NamesMayHaveTheSeparatorInThem) {
    document.Fields(1).Description = "On/Off";
    cell(1, 1, 1).Value = "Up/Down";
    EXPECT_EQ(named("On/Off/Up/Down"), "1 1 2");
    EXPECT_EQ(named("On/Off/Up/Down/Remark"), "1 1 3");
    EXPECT_EQ(named("On/Off/Up"), "");
}

TEST_F(Named_Cells, WhatHasNoTextIsNamedByItsNumber) {
    document.Fields(2).Description = " ";
    cell(2, 0, 1).Value = "";
    EXPECT_EQ(named("page 2/row 1/column 1"), "2 1 1");
    EXPECT_EQ(cellPath(document, {2, 1, 1}), "page 2/row 1/column 1");
    EXPECT_EQ(cellPath(document, {1, 1, 2}), "Regulation/Set point/Value");
    EXPECT_EQ(named(cellPath(document, {1, 4, 3})), "1 4 3");
}

TEST_F(Named_Cells, NumbersNameWhatHasATextToo) {
    EXPECT_EQ(named("page 1/row 1/column 2"), "1 1 2");
    EXPECT_EQ(named("Regulation/Set point/Column 3"), "1 1 3");
    EXPECT_EQ(named("Timers/row 2/column 2"), "2 2 2");
    EXPECT_EQ(named("Timers/row 2/column 3"), "");
}

TEST_F(Named_Cells, AnythingElseNamesNothing) {
    for (const char* name : {"", "/", "Regulation", "Regulation/", "Set point", "Regulation/Setpoint",
                             "Regulations/Set point", "Regulation/row 6", "page 3/row 1"})
        EXPECT_EQ(named(name), "") << name;
    EXPECT_TRUE(cellsNamed(Declara_Zorvane{}, "Regulation/Set point").empty());
}

TEST_F(Named_Cells, TheProblemOfANameSaysWhatToWrite) {
    const auto problem = [&](std::string_view name) {
        return nameProblem(document, name, cellsNamed(document, name));
    };
    EXPECT_EQ(problem("Regulation/Setpoint"), "no cell is named \"Regulation/Setpoint\". The rows of "
                                              "Regulation: Set point, Drop X, Delay, Output, Tag");
    EXPECT_EQ(problem("Regulator/Set point"),
              "no cell is named \"Regulator/Set point\". The pages: Regulation, Timers");
    EXPECT_EQ(problem("Timers/row 2"),
              "\"Timers/row 2\" fits 2 cells: Timers/row 2/Pulse (2 2 1), Timers/row 2/Pause (2 2 2)");
}

/// The places of so many cells of different names, and what is said of a name that fits all of them.
std::string problemOf(Declara_Zorvane& document, std::int32_t cells) {
    std::vector<Cell_Place> places;
    for (std::int32_t row = 1; row <= 5; ++row)
        for (std::int32_t column = 1; column <= 4 && static_cast<std::int32_t>(places.size()) < cells;
             ++column)
            places.push_back({1, row, column});
    return nameProblem(document, "x", places);
}

TEST_F(Named_Cells, TwelveNamesAreToldAndThatThereAreMore) {
    const std::string twelve = problemOf(document, 12);
    EXPECT_TRUE(twelve.starts_with("\"x\" fits 12 cells: Regulation/Set point/Setting (1 1 1), ")) << twelve;
    EXPECT_TRUE(twelve.ends_with("Regulation/Delay/Reading (1 3 4)")) << twelve;
    const std::string more = ", ...";
    for (const std::int32_t cells : {13, 14, 20}) {
        const std::string told = problemOf(document, cells);
        EXPECT_TRUE(told.ends_with("Regulation/Delay/Reading (1 3 4)" + more)) << told;
    }
}

} // namespace
} // namespace zorvane::edit
