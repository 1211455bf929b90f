// SPDX-License-Identifier: MIT
// What the controller did with a live write, whatever the status line says.
#include "grids/testing/grid_bench.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::Exchange;
using doubles::Write_Script;

/// Online, with a number at register 1004 in row 1 of the page "Regulation".
struct Live_Write_Bar : ::testing::Test, doubles::Grid_Bench {
    Live_Write_Bar() : cell(addTable(2, 1).Cells(1, 1)) {
        document.Fields(1).Description = "Regulation";
        cell.Address = "1004";
        cell.Value = "12";
        form.Online = true;
    }
    [[nodiscard]] std::string line() const {
        const Bar_Line* found = mainForm.bar.find("live write");
        if (found == nullptr) return "none";
        std::string text = found->text;
        for (const Bar_Button& button : found->buttons)
            text += " [" + button.caption + "]";
        return text;
    }
    /// An earlier write that the controller refused.
    void failOnce() {
        link.writes = {Write_Script{Exchange{false, "BUSY"}}};
        type(1, 0, "99");
        ASSERT_EQ(line(), "none"); // its status line is right
    }

    Cell_Rec& cell;
};

TEST_F(Live_Write_Bar, WriteThatWasTakenAfterAFailedOneIsTold) {
    failOnce();
    type(1, 0, "120");
    EXPECT_EQ(mainForm.panel(Panel::Message), "Write: 120 @1004 ...Failed");
    EXPECT_EQ(link.image[1004], 120);
    EXPECT_EQ(line(),
              "Regulation, row 1 @1004: the controller took the value, whatever the status line and the "
              "cell say. An earlier write had failed, and that stands until the next download. [Show]");
}

TEST_F(Live_Write_Bar, WriteThatWasRefusedAsWellIsTold) {
    failOnce();
    link.writes = {Write_Script{Exchange{false, "BUSY"}}};
    type(1, 0, "120");
    EXPECT_EQ(line(),
              "Regulation, row 1 @1004: the controller refused this value too. An earlier write had failed, "
              "and that stands until the next download. [Show]");
}

TEST_F(Live_Write_Bar, SilenceIsNotCertain) {
    failOnce();
    link.writes = {Write_Script{Exchange{false}}};
    type(1, 0, "120");
    EXPECT_EQ(line(),
              "Regulation, row 1 @1004: it is not certain whether the controller took the value. An earlier "
              "write had failed, and that stands until the next download. [Show]");
}

TEST_F(Live_Write_Bar, AnswerThatMayBeAnotherOnesIsToldWithoutAnEarlierFailure) {
    link.nextOutcome = Write_Outcome::Uncertain;
    type(1, 0, "120");
    EXPECT_EQ(mainForm.panel(Panel::Message), "Write: 120 @1004 ...Completed");
    EXPECT_EQ(line(),
              "Regulation, row 1 @1004: it is not certain whether the controller took the value. [Show]");
}

TEST_F(Live_Write_Bar, CellWithoutAWriteIsToldAfterAFailedOne) {
    failOnce();
    cell.Address = "1004/HI";
    type(1, 0, "120");
    EXPECT_EQ(line(),
              "Regulation, row 1 @1004/HI: nothing of it was sent. An earlier write had failed, and that "
              "stands until the next download. [Show]");
}

TEST_F(Live_Write_Bar, TextThatWasTakenAfterAFailedWriteIsTold) {
    failOnce();
    cell.Is_Ascii_Range = true;
    cell.Address_End = "1005";
    type(1, 0, "PUMP");
    EXPECT_EQ(mainForm.panel(Panel::Message), "Writing ascii block: 1004-1005 @PUMP ...Failed");
    EXPECT_EQ(line(),
              "Regulation, row 1 @1004: the controller took the value, whatever the status line and the "
              "cell say. An earlier write had failed, and that stands until the next download. [Show]");
}

TEST_F(Live_Write_Bar, GoodWriteTellsNothing) {
    type(1, 0, "120");
    EXPECT_EQ(line(), "none");
}

TEST_F(Live_Write_Bar, ShowGoesToTheCell) {
    failOnce();
    type(1, 0, "120");
    addTable(1, 1);
    mainForm.bar.find("live write")->buttons.at(0).press();
    EXPECT_EQ(ownUpper.Row(), 1);
    EXPECT_EQ(ownLower.Row(), 1);
    EXPECT_EQ(ownLower.Col(), 0);
}

TEST_F(Live_Write_Bar, ShowLeavesAnotherDocumentAlone) {
    failOnce();
    type(1, 0, "120");
    addTable(1, 1);
    ++document.Edition;
    mainForm.bar.find("live write")->buttons.at(0).press();
    EXPECT_EQ(ownUpper.Row(), 2);
}

} // namespace
} // namespace zorvane
