// SPDX-License-Identifier: MIT
#include "app/document/document_commands.h"
#include "app/refused_input.h"
#include "app/testing/app_bench.h"

#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using doubles::App_Bench;

struct Refused_Input_Test : testing::Test, App_Bench {
    Refused_Input_Test() {
        openFile(app, "/home/site7.abc", false);
        upper.setRow(1);
        journal.clear();
    }
    Cell_Rec& definition() { return document.Fields(1).Cells(0, 2); }
    Cell_Rec& cell() { return document.Fields(1).Cells(1, 2); }
    [[nodiscard]] const Bar_Line* line() { return mainForm.messageBar().find("refused input"); }
};

TEST_F(Refused_Input_Test, OnlyTextsTakeABlock) {
    definition().Column_Type = "NUMERIC";
    EXPECT_FALSE(takesBlock(app.grids, 1, 1));
    definition().Column_Type = "TIME";
    EXPECT_FALSE(takesBlock(app.grids, 1, 1));
    definition().Column_Type = "";
    EXPECT_TRUE(takesBlock(app.grids, 1, 1));
    definition().Column_Type = "ASCII";
    cell().Is_Ascii_Range = true;
    EXPECT_TRUE(takesBlock(app.grids, 1, 1)) << "registers of characters";
}

TEST_F(Refused_Input_Test, ACellThatTheDocumentDoesntHaveTakesNone) {
    EXPECT_FALSE(takesBlock(app.grids, 9, 9));
}

TEST_F(Refused_Input_Test, ABlockIsToldOf) {
    tellRefused(app.grids, 1, 1, "");
    ASSERT_NE(line(), nullptr);
    EXPECT_EQ(line()->text,
              "Row 1, \"Value\": nothing was taken. The clipboard holds several cells or lines; "
              "this cell takes one value. Copy a single cell.");
    EXPECT_EQ(line()->kind, Bar_Kind::Note);
    EXPECT_TRUE(line()->ofDocument);
    EXPECT_TRUE(journal.lines().empty()) << "nothing else changes";
}

TEST_F(Refused_Input_Test, ACharacterIsNamed) {
    tellRefused(app.grids, 2, 1, "U+03A9");
    EXPECT_EQ(line()->text, "Row 2, \"Value\": nothing was taken. A file can't hold the character U+03A9; it "
                            "holds those of Windows-1252.");
}

TEST_F(Refused_Input_Test, WhatIsTakenNextTakesTheLineBack) {
    tellRefused(app.grids, 1, 1, "");
    withdrawRefused(app.grids);
    EXPECT_EQ(line(), nullptr);
}

} // namespace
} // namespace zorvane::app
