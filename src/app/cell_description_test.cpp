// SPDX-License-Identifier: MIT
// What a screen reader is told of a cell of the lower grid.

#include "app/cell_description.h"
#include "app/document/document_commands.h"
#include "app/testing/app_bench.h"
#include "values/colours.h"

#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using doubles::App_Bench;

struct Cell_Description : testing::Test, App_Bench {
    Cell_Description() {
        openFile(app, "/home/site7.abc", false);
        upper.setRow(1);
    }
    [[nodiscard]] std::string described(std::int32_t row, std::int32_t col) const {
        return cellDescription(app.grids, row, col, lower.coloursOf(row, col));
    }
    void colour(const std::string& back, const std::string& fore) {
        lower.setRow(1);
        lower.setCol(1);
        lower.setCellBackColor(colourOf(back));
        lower.setCellForeColor(colourOf(fore));
    }
};

TEST_F(Cell_Description, TellsWhetherTheColumnCanBeChanged) {
    EXPECT_EQ(described(1, 0), "Fixed");
    EXPECT_EQ(described(1, 1), "Modifiable");
    document.Read_Only = true;
    EXPECT_EQ(described(1, 1), "Read only");
}

TEST_F(Cell_Description, TellsHowAWriteStands) {
    colour(document.Colors.Color_Back_Writing, document.Colors.Color_Txt_Writing);
    EXPECT_EQ(described(1, 1), "Writing");
    colour(document.Colors.Color_Back_Error, document.Colors.Color_Txt_Error);
    EXPECT_EQ(described(1, 1), "Write failed");
}

TEST_F(Cell_Description, TellsThatTheControllerIsSilent) {
    lower.setTextMatrix(1, 1, "???");
    EXPECT_EQ(described(1, 1), "Modifiable");
    form.Online = true;
    EXPECT_EQ(described(1, 1), "Link lost");
}

TEST_F(Cell_Description, OnlyACellInTroubleHasAToolTip) {
    const auto tip = [&] { return cellToolTip(app.grids, 1, 1, lower.coloursOf(1, 1)); };
    EXPECT_EQ(tip(), "");
    colour(document.Colors.Color_Back_Writing, document.Colors.Color_Txt_Writing);
    EXPECT_EQ(tip(), "");
    colour(document.Colors.Color_Back_Error, document.Colors.Color_Txt_Error);
    EXPECT_EQ(tip(), "Write failed");
    lower.setCellBackColor(0);
    lower.setTextMatrix(1, 1, "???");
    form.Online = true;
    EXPECT_EQ(tip(), "Link lost");
}

TEST_F(Cell_Description, IsEmptyForACellThatTheDocumentDoesntHave) {
    EXPECT_EQ(cellDescription(app.grids, 9, 1, {}), "");
    EXPECT_EQ(cellDescription(app.grids, 1, 9, {}), "");
    document.Fields.redim(0);
    EXPECT_EQ(described(1, 1), "");
}

} // namespace
} // namespace zorvane::app
