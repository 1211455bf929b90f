// SPDX-License-Identifier: MIT
#include "grids/terminal_grids.h"
#include "grids/testing/grid_bench.h"
#include "template/sections/messages.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using Texts = std::vector<std::string>;

/// A number, a list and a time in one row; headings "Num", "List", "Time".
class Terminal_Grids_Test : public testing::Test, protected doubles::Grid_Bench {
  protected:
    Terminal_Grids_Test() {
        Field_Rec& field = addTable(1, 3);
        const char* const headings[] = {"Num", "List", "Time"};
        for (std::int32_t c = 1; c <= 3; ++c) {
            field.Cells(0, c).Value = headings[c - 1];
            field.Cells(1, c).Address = std::to_string(99 + c);
            field.Cells(1, c).Modbus_Request = "ALWAYS";
        }
        readMessages(field.Cells(1, 2), "(0)Off,(1)On");
        field.Cells(1, 3).Format = "TIME";
        field.Cells(1, 3).Value = "1:30";
    }
    Cell_Rec& cell(std::int32_t column) { return document.Fields(1).Cells(1, column); }
};

TEST_F(Terminal_Grids_Test, FieldsGoFrom0To100) {
    Terminal_Grids cursor(comm);
    for (const std::int32_t field : {0, 1, 100}) {
        cursor.select(field);
        EXPECT_EQ(cursor.configuration().Row(), field);
    }
    EXPECT_THROW(cursor.select(-1), Run_Time_Failure);
    EXPECT_THROW(cursor.select(101), Run_Time_Failure);
}

TEST_F(Terminal_Grids_Test, ShowsAFieldOffline) {
    const Settings_Table table = settingsTable(comm, 1);
    EXPECT_EQ(table.headings, (Texts{"Num", "List", "Time"}));
    EXPECT_EQ(table.grid, (std::vector<Texts>{{"0", "Off", "1:30"}}));
    EXPECT_FALSE(table.failure);
}

TEST_F(Terminal_Grids_Test, ShowsAFieldOnARegisterImage) {
    form.Online = true;
    form.Current_Request = "ALWAYS";
    link.image = {{100, 12}, {101, 1}, {102, 61}};
    EXPECT_EQ(settingsTable(comm, 1).grid, (std::vector<Texts>{{"12", "On", "1:01"}}));
    link.lost = true;
    EXPECT_EQ(settingsTable(comm, 1).grid, (std::vector<Texts>{{"???", "???", "???"}}));
    form.Current_Request = "NONE";
    EXPECT_EQ(settingsTable(comm, 1).grid, (std::vector<Texts>{{"0", "1", "1:01"}}))
        << "the document's texts, as the first fill left them";
}

TEST_F(Terminal_Grids_Test, ShowsWhatWasFilledBeforeAFailure) {
    cell(2).Has_Messages = false;
    cell(2).Address = "101/HI";
    cell(2).Value = "none";
    const Settings_Table table = settingsTable(comm, 1);
    ASSERT_TRUE(table.failure);
    EXPECT_EQ(table.failure->number(), 13);
    EXPECT_EQ(table.grid, (std::vector<Texts>{{"0", "", ""}}));
}

TEST_F(Terminal_Grids_Test, AFieldThatIsNotThereIsAFailure) {
    for (const std::int32_t field : {-1, 101, 32767}) {
        const Settings_Table table = settingsTable(comm, field);
        ASSERT_TRUE(table.failure);
        EXPECT_EQ(table.failure->number(), 9);
        EXPECT_TRUE(table.headings.empty());
    }
    EXPECT_EQ(settingsTable(comm, 40000).failure->number(), 6);
}

TEST_F(Terminal_Grids_Test, AFieldWithoutATableIsEmpty) {
    const Settings_Table table = settingsTable(comm, 7);
    EXPECT_FALSE(table.failure);
    EXPECT_TRUE(table.headings.empty());
    EXPECT_TRUE(table.grid.empty());
}

TEST_F(Terminal_Grids_Test, CommitsATypedText) {
    const Entry_Outcome outcome = enterValue(comm, 1, 1, 1, "012");
    EXPECT_FALSE(outcome.refused);
    EXPECT_FALSE(outcome.failure);
    EXPECT_EQ(outcome.Value, "12");
    EXPECT_EQ(outcome.grid, "012");
    EXPECT_EQ(outcome.Min_Value, "-32768");
    EXPECT_EQ(outcome.Max_Value, "32767");
    EXPECT_TRUE(form.Dirty);
}

TEST_F(Terminal_Grids_Test, CommitsInTheRowThatWasNamed) {
    addTable(3, 1);
    const Entry_Outcome outcome = enterValue(comm, 2, 2, 1, "012");
    EXPECT_EQ(outcome.Value, "12");
    EXPECT_EQ(outcome.grid, "012");
    EXPECT_EQ(document.Fields(2).Cells(1, 1).Value, "0");
    EXPECT_EQ(document.Fields(2).Cells(3, 1).Value, "0");
}

TEST_F(Terminal_Grids_Test, CommitsAListEntryByItsNumber) {
    const Entry_Outcome outcome = enterValue(comm, 1, 1, 2, "1");
    EXPECT_EQ(outcome.Value, "1");
    EXPECT_EQ(outcome.grid, "On");
    const Entry_Outcome none = enterValue(comm, 1, 1, 2, "");
    EXPECT_EQ(none.Value, "0");
    EXPECT_EQ(none.grid, "Off");
}

TEST_F(Terminal_Grids_Test, AnEntryThatIsNotThereIsAFailure) {
    const Entry_Outcome outcome = enterValue(comm, 1, 1, 2, "2");
    ASSERT_TRUE(outcome.failure);
    EXPECT_EQ(outcome.failure->number(), 9);
    EXPECT_EQ(enterValue(comm, 1, 1, 2, "On").failure->number(), 13);
}

TEST_F(Terminal_Grids_Test, TellsWhatIsOutOfRange) {
    const Entry_Outcome outcome = enterValue(comm, 1, 1, 1, "40000");
    EXPECT_EQ(outcome.grid, "32767");
    EXPECT_FALSE(outcome.refused);
    EXPECT_EQ(journal.beginningWith("Msgb").size(), 1U);
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Terminal_Grids_Test, RefusesACellThatIsNotModifiable) {
    document.Fields(1).Cells(0, 1).Modifiable = false;
    const Entry_Outcome outcome = enterValue(comm, 1, 1, 1, "5");
    EXPECT_EQ(outcome.refused, "not modifiable");
    EXPECT_EQ(outcome.Value, "0");
    EXPECT_EQ(outcome.grid, "0");
    document.Read_Only = true;
    EXPECT_EQ(enterValue(comm, 1, 1, 1, "5").refused, "read only");
}

TEST_F(Terminal_Grids_Test, APlaceThatIsNotThereIsAFailure) {
    EXPECT_EQ(enterValue(comm, 1, 2, 1, "5").failure->number(), 9);
    EXPECT_EQ(enterValue(comm, 1, 1, 4, "5").failure->number(), 9);
    EXPECT_EQ(enterValue(comm, 1, 0, 1, "5").failure->number(), 9);
    EXPECT_EQ(enterValue(comm, 1, 1, 0, "5").failure->number(), 9);
    EXPECT_EQ(enterValue(comm, 101, 1, 1, "5").failure->number(), 9);
    EXPECT_EQ(enterValue(comm, -1, 1, 1, "5").failure->number(), 9);
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Terminal_Grids_Test, ACellBesideABrokenOneCanBeSet) {
    cell(3).Address = "102/LO"; // its "1:30" is no number
    const Entry_Outcome outcome = enterValue(comm, 1, 1, 1, "5");
    EXPECT_FALSE(outcome.failure);
    EXPECT_EQ(outcome.Value, "5");
}

TEST_F(Terminal_Grids_Test, CommitsALongTextWhole) {
    cell(1).Is_Ascii_Range = true;
    cell(1).Address_End = "100";
    EXPECT_EQ(enterValue(comm, 1, 1, 1, "longer than two").Value, "longer than two");
}

} // namespace
} // namespace zorvane
