// SPDX-License-Identifier: MIT
#include "app/edit/block_commands.h"
#include "app/edit/history_commands.h"
#include "app/edit/testing/edit_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Block_Commands : testing::Test, doubles::Edit_Bench {
    Block_Commands() {
        for (std::int32_t row : {1, 2}) {
            document.Fields(1).Cells(0, 2).Column_Type = "NUMERIC";
            document.Fields(1).Cells(row, 2).Min_Value = "0";
            document.Fields(1).Cells(row, 2).Max_Value = "1400";
        }
        select(1, 1);
    }
    void select(std::int32_t row, std::int32_t col) {
        lower.setRow(row);
        lower.setCol(col);
    }
    void paste(const std::string& clipboard, bool answer = false) {
        MNU_PasteBlock_Click(app, clipboard, [&](const Fit_Question& question) {
            asked.push_back(question.title + ": " + question.summary);
            for (const std::string& line : question.leftOut)
                asked.push_back(line);
            return answer;
        });
    }

    std::vector<std::string> asked;
};

TEST_F(Block_Commands, ABlockThatFitsIsTakenAtOnceAsOneStep) {
    paste("11\n21\n");
    EXPECT_THAT(asked, IsEmpty());
    EXPECT_EQ(values(), "11 21");
    EXPECT_EQ(lower.TextMatrix(2, 1), "21");
    EXPECT_TRUE(form.Dirty);
    EXPECT_EQ(undoEntry(app).caption, "Undo paste of 2 values");
    MNU_Undo_Click(app);
    EXPECT_EQ(values(), "10 20");
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Block_Commands, WhatDoesntFitIsAskedAbout) {
    paste("11\n1500\n");
    EXPECT_THAT(asked, ElementsAre("Paste: 1 of 2 fit; row 2 above its limit 1400",
                                   "Inputs, row 2, Value: \"1500\" above its limit 1400"));
    EXPECT_EQ(values(), "10 20") << "nothing";
    EXPECT_FALSE(form.Dirty);
    paste("11\n1500\n", true);
    EXPECT_EQ(values(), "11 20") << "all that fit";
    EXPECT_EQ(undoEntry(app).caption, "Undo paste of 1 value");
}

TEST_F(Block_Commands, OneValueFillsASelection) {
    lower.setRowSel(2);
    EXPECT_EQ(selectedCells(app.grids), (edit::Cell_Range{1, 1, 2, 2, 2}));
    paste("7");
    EXPECT_EQ(values(), "7 7");
    EXPECT_EQ(undoEntry(app).caption, "Undo paste of 2 values");
}

TEST_F(Block_Commands, ASelectionMadeUpwardsBeginsAtItsUpperLeftCorner) {
    select(2, 1);
    lower.setRowSel(1);
    lower.setColSel(0);
    EXPECT_EQ(selectedCells(app.grids), (edit::Cell_Range{1, 1, 1, 2, 2}));
}

TEST_F(Block_Commands, WithoutACurrentCellNothingHappens) {
    lower.setCol(-1);
    paste("7");
    EXPECT_EQ(values(), "10 20");
}

TEST_F(Block_Commands, OnlineNothingIsPasted) {
    form.Online = true;
    paste("11\n21\n");
    EXPECT_EQ(values(), "10 20");
    ASSERT_NE(mainForm.base.bar.find("pasted block"), nullptr);
    EXPECT_EQ(mainForm.base.bar.find("pasted block")->text,
              "Nothing was pasted. The window is online: disconnect first.");
    form.Online = false;
    paste("11\n21\n");
    EXPECT_EQ(mainForm.base.bar.find("pasted block"), nullptr);
}

TEST_F(Block_Commands, ADocumentThatWentWhileAskingStaysAsItIs) {
    MNU_PasteBlock_Click(app, "11\n1500\n", [&](const Fit_Question&) {
        form.Online = true;
        return true;
    });
    EXPECT_EQ(values(), "10 20");
}

} // namespace
} // namespace zorvane::app
