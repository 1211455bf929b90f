// SPDX-License-Identifier: MIT
#include "comm/main_form/testing/comm_bench.h"
#include "comm/transfer/requests/needed_registers.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

/// One field of two rows and three columns, of which the last two are sent. The user stands in row 1, column
/// 1 of it, so that the neighbour of a shared time is the cell of row 1 in the model's column 2.
struct NeededRegisters : ::testing::Test, doubles::Comm_Bench {
    NeededRegisters() : field(addField(2, 3)) {}

    void cell(std::int32_t row, std::int32_t column, const std::string& address, const std::string& value,
              const std::string& format = "") {
        Cell_Rec& cell = field.Cells(row, column);
        cell.Address = address;
        cell.Value = value;
        cell.Format = format;
    }
    void board() { document.Controller_Model = "R7702-16"; }
    [[nodiscard]] Register_Set needed() const { return neededRegisters(document, selection); }
    [[nodiscard]] Unknown_Effect effect() const { return effectOfUnknown(document, selection, needed()); }

    Field_Rec& field;
    Grid_Selection selection{1, 1, 1};
};

TEST_F(NeededRegisters, WholeRegistersNeedNone) {
    cell(1, 2, "100", "5");
    cell(2, 2, "101", "6");
    EXPECT_EQ(needed(), Register_Set{});
    EXPECT_TRUE(effect().empty());
}

TEST_F(NeededRegisters, HalfNeedsItsRegisterAndItsOtherHalfIsLost) {
    cell(1, 2, "4660/HI", "5");
    EXPECT_EQ(needed(), Register_Set{4660});
    EXPECT_EQ(effect().part, Register_Set{4660});
    EXPECT_EQ(effect().whole, Register_Set{});
}

TEST_F(NeededRegisters, TwoHalvesNeedTheRegisterAndLeaveNothingUnknown) {
    cell(1, 2, "4660/HI", "5");
    cell(2, 2, "4660/LO", "6");
    EXPECT_EQ(needed(), Register_Set{4660});
    EXPECT_TRUE(effect().empty());
}

TEST_F(NeededRegisters, HalfOfARegisterThatWasWrittenBeforeNeedsItSinceThatWriteMayFail) {
    cell(1, 2, "4660", "5");
    cell(2, 2, "4660/LO", "6");
    EXPECT_EQ(needed(), Register_Set{4660});
    EXPECT_TRUE(effect().empty());
}

TEST_F(NeededRegisters, RegisterKeptBackFromDownloadsNeedsNone) {
    cell(1, 2, "4660/HI", "5");
    addNotDownloadable("4660/HI");
    EXPECT_EQ(needed(), Register_Set{});
}

TEST_F(NeededRegisters, ColumnThatIsNotSentNeedsNone) {
    cell(1, 1, "4660/HI", "5");
    EXPECT_EQ(needed(), Register_Set{});
}

TEST_F(NeededRegisters, SharedTimeNeedsTheNeighbourOfTheSelectionAndLosesItsOtherPart) {
    cell(1, 2, "300", "1");
    cell(2, 2, "200", "3", "TIMEMM");
    cell(2, 3, "201", "4", "TIMESS");
    selection = {1, 1, 2}; // its neighbour is (1, 3)
    cell(1, 3, "310", "7");
    EXPECT_EQ(needed(), Register_Set{310});
    EXPECT_EQ(effect().part, (Register_Set{200}));
    selection = {1, 2, 2}; // (2, 3), after (2, 2)
    EXPECT_EQ(needed(), Register_Set{201});
    EXPECT_EQ(effect().part, (Register_Set{200, 201}));
}

TEST_F(NeededRegisters, BlockOfABoardLosesWhatNoCellNames) {
    board();
    addDownloadBlock("10", "14", 0);
    cell(1, 2, "11", "5");
    cell(2, 2, "13", "6");
    cell(1, 3, "12", "0");
    cell(2, 3, "12", "0");
    EXPECT_EQ(needed(), (Register_Set{10, 11, 12, 13, 14}));
    EXPECT_EQ(effect().whole, (Register_Set{10, 14}));
    EXPECT_EQ(effect().part, Register_Set{});
}

TEST_F(NeededRegisters, TextsOfABoardAreWrittenWhole) {
    board();
    addDownloadBlock("20", "35", 2);
    for (const std::int32_t row : {1, 2})
        for (const std::int32_t column : {2, 3}) {
            cell(row, column, "20", "PUMP");
            field.Cells(row, column).Is_Ascii_Range = true;
        }
    EXPECT_EQ(needed(), Register_Set{});
}

TEST_F(NeededRegisters, CellThatFailsEndsTheList) {
    board();
    addDownloadBlock("10", "11", 0);
    cell(1, 2, "10", "5");
    cell(2, 2, "9", "5"); // in no block: the download fails here
    cell(1, 3, "4660/HI", "5");
    EXPECT_EQ(needed(), (Register_Set{10, 11}));
}

TEST_F(NeededRegisters, DocumentAndLinkStayAsTheyWere) {
    cell(1, 2, "4660/HI", "5");
    (void)effect();
    EXPECT_EQ(field.Cells(1, 2).Value, "5");
    EXPECT_EQ(journal.lines(), std::vector<std::string>{});
}

} // namespace
} // namespace zorvane
