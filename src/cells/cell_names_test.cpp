// SPDX-License-Identifier: MIT
#include "cells/cell_names.h"
#include "comm/main_form/testing/comm_bench.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

struct CellNames : ::testing::Test, doubles::Comm_Bench {
    CellNames() : field(addField(2, 2)) {
        field.Description = " Regulation ";
        field.Cells(1, 1).Value = "Set point";
    }
    Field_Rec& field;
};

TEST_F(CellNames, PageAndRowByTheirTexts) { EXPECT_EQ(cellName(document, 1, 1, 2), "Regulation, Set point"); }

TEST_F(CellNames, RowWithoutATextByItsNumber) { EXPECT_EQ(cellName(document, 1, 2, 2), "Regulation, row 2"); }

TEST_F(CellNames, FirstColumnThatHoldsSettingsNamesNoRow) {
    field.Cells(0, 1).Modifiable = true;
    EXPECT_EQ(cellName(document, 1, 1, 2), "Regulation, row 1");
    EXPECT_EQ(cellName(document, 1, 1, 1), "Regulation, row 1");
}

TEST_F(CellNames, CellOfTheFirstColumnHasItsRowsNumber) {
    EXPECT_EQ(cellName(document, 1, 1, 1), "Regulation, row 1");
}

TEST_F(CellNames, PageWithoutATextByItsNumber) {
    field.Description.clear();
    EXPECT_EQ(pageName(document, 1), "page 1");
}

} // namespace
} // namespace zorvane
