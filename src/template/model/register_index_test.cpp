// SPDX-License-Identifier: MIT
#include "template/model/cell_table.h"
#include "template/model/register_index.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane {
namespace {

TEST(RegisterOfAddress, IsTheWholeOrHalfRegistersNumber) {
    EXPECT_EQ(registerOfAddress("100"), 100);
    EXPECT_EQ(registerOfAddress("100/HI"), 100);
    EXPECT_EQ(registerOfAddress("100/LO"), 100);
    EXPECT_EQ(registerOfAddress("0"), 0);
    EXPECT_EQ(registerOfAddress("0/HI"), 0);
    EXPECT_EQ(registerOfAddress("-5/LO"), -5);
    EXPECT_EQ(registerOfAddress("2147483647"), 2147483647);
}

TEST(RegisterOfAddress, AnyOtherWritingNamesNone) {
    for (const char* address : {"", "/HI", "-", "0100", "-05", "-0", "00", "+5", " 100", "100 ", "100/hi",
                                "100/HI/LO", "1e2", "100.0", "2147483648", "abc"})
        EXPECT_FALSE(registerOfAddress(address)) << address;
}

/// Where the cells at a register are, as their addresses one after another.
std::string at(Cell_Table& cells, std::int32_t number) {
    std::string text;
    for (const Register_Cell& place : cells.cellsAtRegister(number))
        text += std::to_string(place.row) + ":" + place.cell->Address + " ";
    return text;
}

TEST(CellsAtRegister, ComeRowByRow) {
    Cell_Table cells;
    cells.redim(3, 40);
    cells(3, 1).Address = "100";
    cells(0, 40).Address = "100/HI";
    cells(2, 35).Address = "7";
    cells(2, 2).Address = "100/LO";
    EXPECT_EQ(at(cells, 100), "0:100/HI 2:100/LO 3:100 ");
    EXPECT_EQ(at(cells, 7), "2:7 ");
    EXPECT_EQ(at(cells, 8), "");
}

TEST(CellsAtRegister, FollowEveryChange) {
    Cell_Table cells;
    cells.redim(2, 2);
    cells(1, 1).Address = "100";
    EXPECT_EQ(at(cells, 100), "1:100 ");
    cells(1, 1).Address = "200";
    EXPECT_EQ(at(cells, 100), "");
    EXPECT_EQ(at(cells, 200), "1:200 ");
    cells.redim(2, 2);
    EXPECT_EQ(at(cells, 200), "");
}

TEST(CellsAtRegister, OfATableWithoutASizeAreFailure9) {
    Cell_Table cells;
    EXPECT_EQ(doubles::failureNumber([&] { (void)cells.cellsAtRegister(1); }), 9);
}

} // namespace
} // namespace zorvane
