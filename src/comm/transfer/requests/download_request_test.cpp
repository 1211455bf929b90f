// SPDX-License-Identifier: MIT
#include "cells/format/cell_encoding.h"
#include "comm/main_form/testing/comm_bench.h"
#include "comm/transfer/requests/download_blocks.h"
#include "comm/transfer/requests/download_request.h"
#include "values/run_time_failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace zorvane {
namespace {

/// A request as a line: "single slave address value", "multiple slave address [values]", "ascii text",
/// "nothing", and "no register" when there is nothing to wait for.
struct Describe {
    std::string operator()(std::monostate) const { return "nothing"; }
    std::string operator()(const Single_Write& write) const {
        std::ostringstream line;
        line << "single " << write.slave << " " << write.address << " " << write.value;
        return line.str();
    }
    std::string operator()(const Multiple_Write& write) const {
        std::ostringstream line;
        line << "multiple " << write.slave << " " << write.address << " [";
        for (std::size_t i = 0; i < write.values.size(); ++i)
            line << (i == 0 ? "" : " ") << write.values[i];
        line << "]";
        return line.str();
    }
    std::string operator()(const Ascii_Write& write) const { return "ascii \"" + write.text + "\""; }
};

/// One field of two rows and three columns; the cell at work is (1, 2). The unit is 0, the slave number 7.
struct DownloadRequest : ::testing::Test, doubles::Comm_Bench {
    DownloadRequest()
        : field(addField(2, 3)), cell(field.Cells(1, 2)), next(field.Cells(1, 3)),
          definition(field.Cells(0, 2)) {}

    std::string request(const std::string& address, const std::string& value) {
        cell.Address = address;
        cell.Value = value;
        if (const auto word = negativeWord(definition, cell)) negative = *word;
        const Cell_Request built = buildRequest(
            Request_Sources{document, comm.image(), 7, selection, negative}, Cell_Place{1, 1, 2});
        return built.Nothing_Sent ? "no register" : std::visit(Describe{}, built.order);
    }

    int failureOf(const std::string& address, const std::string& value) {
        try {
            request(address, value);
        } catch (const Run_Time_Failure& failure) {
            return failure.number();
        }
        return 0;
    }

    void makeBoard() { document.Controller_Model = "R7702-32"; }

    Field_Rec& field;
    Cell_Rec& cell;
    Cell_Rec& next;
    Cell_Rec& definition;
    Grid_Selection selection{1, 2, 1};
    std::int32_t negative = 0;
};

// Numbers of a plain model.

TEST_F(DownloadRequest, PlainNumberGoesToTheSlaveOfThePortSettings) {
    EXPECT_EQ(request("100", "120"), "single 7 100 120");
}

TEST_F(DownloadRequest, TextCountsByItsNumericBeginning) {
    EXPECT_EQ(request("100", "12abc"), "single 7 100 12");
    EXPECT_EQ(request("100", "abc"), "single 7 100 0");
    EXPECT_EQ(request(" 100 ", "5.5"), "single 7 100 6");
    EXPECT_EQ(request("100", "6.5"), "single 7 100 6");
}

TEST_F(DownloadRequest, ValueBeyond32BitsIsFailure6) { EXPECT_EQ(failureOf("100", "3000000000"), 6); }

TEST_F(DownloadRequest, Minus5In8BitsIs133) {
    definition.Bits_Negative_Format = "8";
    EXPECT_EQ(request("100", "-5"), "single 0 100 133");
    EXPECT_EQ(request("100", "5"), "single 7 100 5");
    EXPECT_EQ(request("100", "0"), "single 7 100 0");
    EXPECT_EQ(request("100", "0.4"), "single 7 100 0");
}

TEST_F(DownloadRequest, Minus5In15BitsIs16389) {
    definition.Bits_Negative_Format = "15";
    EXPECT_EQ(request("100", "-5"), "single 0 100 16389");
}

TEST_F(DownloadRequest, Minus5In16BitsIs65531) {
    definition.Bits_Negative_Format = " 16 ";
    EXPECT_EQ(request("100", "-5"), "single 0 100 65531");
}

TEST_F(DownloadRequest, Minus5WithoutAFormatStaysNegative) {
    EXPECT_EQ(request("100", "-5"), "single 7 100 -5");
    definition.Bits_Negative_Format = "  ";
    EXPECT_EQ(request("100", "-5"), "single 7 100 -5");
}

TEST_F(DownloadRequest, NegativeWordOfNoBitsAddsAHalf) {
    definition.Bits_Negative_Format = "0";
    EXPECT_EQ(request("100", "-5"), "single 0 100 6"); // 5.5 to the even neighbour
    EXPECT_EQ(request("100", "-4"), "single 0 100 4"); // 4.5 too
}

TEST_F(DownloadRequest, OnlyANumberBelow0HasANegativeWord) {
    definition.Bits_Negative_Format = "8";
    for (const char* value : {"0", "0.5", "5", "abc"}) {
        cell.Value = value;
        EXPECT_EQ(negativeWord(definition, cell), std::nullopt) << value;
    }
    cell.Value = "-0.5";
    EXPECT_EQ(negativeWord(definition, cell), 128);
}

TEST_F(DownloadRequest, FormatThatIsNoNumberSendsTheWordOfAnEarlierCell) {
    definition.Bits_Negative_Format = "eight";
    negative = 133;
    EXPECT_EQ(request("100", "-7"), "single 0 100 133");
}

// Formats of a plain model.

TEST_F(DownloadRequest, TimeGoesOutInSeconds) {
    cell.Format = " time ";
    EXPECT_EQ(request("100", "62:05"), "single 0 100 3725");
    EXPECT_EQ(request("100", "90"), "single 0 100 0");
}

TEST_F(DownloadRequest, UnsignedNumberGoesToTheUnit) {
    cell.Format = "NUMERIC_UNSIGNED";
    EXPECT_EQ(request("100", "65535"), "single 0 100 65535");
}

TEST_F(DownloadRequest, MinutesTakeTheirSecondsFromTheGridsSelection) {
    cell.Format = "TIMEMM";
    field.Cells(2, 2).Address = "555";
    link.image[555] = 125;
    link.image[100] = 31;
    EXPECT_EQ(request("100", "3"), "single 0 100 185");
}

TEST_F(DownloadRequest, SecondsTakeTheirMinutesFromTheGridsSelectionWhereverTheWalkIs) {
    cell.Format = "timess";
    field.Cells(2, 3).Address = "556";
    selection = {1, 2, 2};
    link.image[556] = 125;
    EXPECT_EQ(request("100", "7"), "single 0 100 127");
}

TEST_F(DownloadRequest, MinutesThatAreNoNumberAreFailure13) {
    cell.Format = "TIMEMM";
    field.Cells(2, 2).Address = "555";
    EXPECT_EQ(failureOf("100", "3m"), 13);
    EXPECT_EQ(failureOf("100", ""), 13);
}

TEST_F(DownloadRequest, SelectionWithoutARegisterIsFailure13) {
    cell.Format = "TIMESS";
    EXPECT_EQ(failureOf("100", "3"), 13);
}

TEST_F(DownloadRequest, SelectionOutsideTheTableIsFailure9) {
    cell.Format = "TIMESS";
    selection = {1, 2, 3};
    EXPECT_EQ(failureOf("100", "3"), 9);
}

// Lists, halves and cells without a register.

TEST_F(DownloadRequest, ListCellSendsItsCodeToTheUnit) {
    readMessages(cell, "(0)Off,(1)On");
    cell.Format = "TIME";
    EXPECT_EQ(request("100", "1"), "single 0 100 1");
    makeBoard();
    EXPECT_EQ(request("100", "1"), "single 0 100 1");
}

TEST_F(DownloadRequest, HighHalfKeepsTheLowByteOfTheImage) {
    link.image[12] = 0x1234;
    EXPECT_EQ(request("12/HI", "5"), "single 7 12 1332"); // 0x0534
    link.image[12] = 0x1235;
    EXPECT_EQ(request("12/HI", "5"), "single 7 12 1333");
}

TEST_F(DownloadRequest, LowHalfKeepsTheHighByteOfTheImage) {
    link.image[12] = 0x1234;
    EXPECT_EQ(request("12/LO", "5"), "single 7 12 4613");   // 0x1205
    EXPECT_EQ(request("12/LO", "300"), "single 7 12 4908"); // not masked: 0x1200 + 300
    link.image[12] = 0x1235;
    EXPECT_EQ(request("12/LO", "5"), "single 7 12 4613");
}

TEST_F(DownloadRequest, HalvesOfARegisterBeyond0x7FFFStayNegative) {
    link.image[12] = 0x8034;
    EXPECT_EQ(request("12/LO", "5"), "single 7 12 -32763"); // -32716 without its low byte, + 5: 0x8005
    EXPECT_EQ(request("12/HI", "128"), "single 7 12 32820");
}

TEST_F(DownloadRequest, AddressWithoutASlashThatIsNoNumberHasNothingToWaitFor) {
    EXPECT_EQ(request("", "5"), "no register");
    EXPECT_EQ(request("abc", "5"), "no register");
}

TEST_F(DownloadRequest, OtherSlashesSendNothing) {
    EXPECT_EQ(request("12/hi", "5"), "nothing");
    EXPECT_EQ(request("abc/HI", "5"), "nothing");
    EXPECT_EQ(request("/", "5"), "nothing");
}

// The board family.

TEST(BoardFamily, HasThreeModelsToTheLetter) {
    EXPECT_TRUE(isBoardFamily("R7702-16"));
    EXPECT_TRUE(isBoardFamily("R7702-32"));
    EXPECT_TRUE(isBoardFamily("R7702-64"));
    EXPECT_FALSE(isBoardFamily("R7702-8"));
    EXPECT_FALSE(isBoardFamily("r7702-16"));
    EXPECT_FALSE(isBoardFamily(""));
}

TEST_F(DownloadRequest, BoardNumberGoesOutInItsWholeBlock) {
    makeBoard();
    addDownloadBlock("100", "103", 0);
    link.image = {{100, 1}, {101, 2}, {102, 65535}, {103, 4}};
    EXPECT_EQ(request("101", "120"), "multiple 7 100 [1 120 65535 4]");
    EXPECT_EQ(request("101", "-1"), "multiple 7 100 [1 65535 65535 4]");
    EXPECT_EQ(request("101", "0"), "multiple 7 100 [1 0 65535 4]");
}

TEST_F(DownloadRequest, BoardFormats) {
    makeBoard();
    addDownloadBlock("100", "100", 0);
    link.image[100] = 125;
    cell.Format = "TIME";
    EXPECT_EQ(request("100", "1:01"), "multiple 7 100 [61]");
    cell.Format = "TIMEMM";
    EXPECT_EQ(request("100", "3"), "multiple 7 100 [185]");
    cell.Format = "TIMESS";
    EXPECT_EQ(request("100", "7"), "multiple 7 100 [127]");
    cell.Format = "NUMERIC_UNSIGNED";
    EXPECT_EQ(request("100", "65535"), "multiple 7 100 [65535]");
}

TEST_F(DownloadRequest, BoardNegativeNumberWithAFormatIsASingleRegister) {
    makeBoard();
    definition.Bits_Negative_Format = "8";
    EXPECT_EQ(request("100", "-5"), "single 0 100 133");
}

TEST_F(DownloadRequest, NumericBlockIsChosenByItsStartAloneAndAnyRegisterPastItsEndIsFailure9) {
    makeBoard();
    addDownloadBlock("100", "103", 0);
    addDownloadBlock("200", "203", 0);
    EXPECT_EQ(failureOf("201", "1"), 9);
}

TEST_F(DownloadRequest, BlocksOfOtherKindsArePassedOver) {
    makeBoard();
    addDownloadBlock("100", "103", 1);
    addDownloadBlock("100", "100", 2);
    addDownloadBlock("100", "101", 0);
    EXPECT_EQ(request("100", "1"), "multiple 7 100 [1 0]");
}

TEST_F(DownloadRequest, BoardRegisterInNoBlockOfItsKindIsFailure13) {
    makeBoard();
    EXPECT_EQ(failureOf("100", "1"), 13);
    addDownloadBlock("200", "203", 0);
    EXPECT_EQ(failureOf("100", "1"), 13);
    EXPECT_EQ(failureOf("200/HI", "1"), 13);
}

TEST_F(DownloadRequest, MalformedBoundOfAnEarlierBlockIsFailure13) {
    makeBoard();
    addDownloadBlock("500", "", 2);
    addDownloadBlock("100", "103", 0);
    EXPECT_EQ(failureOf("100", "1"), 13);
}

TEST_F(DownloadRequest, BoardHalfGoesOutInItsWholeListBlock) {
    makeBoard();
    addDownloadBlock("10", "13", 1);
    link.image = {{10, 65535}, {11, 2}, {12, 0x1234}, {13, 4}};
    EXPECT_EQ(request("12/HI", "5"), "multiple 7 10 [-1 2 1332 4]");
    EXPECT_EQ(request("13/LO", "5"), "multiple 7 10 [-1 2 4660 5]");
    EXPECT_EQ(failureOf("14/LO", "5"), 13);
}

TEST_F(DownloadRequest, BlockOfMoreThanTheAddressSpaceIsFailure6) {
    makeBoard();
    addDownloadBlock("1", "65537", 0);
    EXPECT_EQ(failureOf("100", "1"), 6);
    EXPECT_EQ(registerCount(1, 65536), 65536);
    EXPECT_EQ(registerCount(1, 2), 2);
}

TEST_F(DownloadRequest, BlockThatRunsBackwardsIsFailure9) {
    makeBoard();
    addDownloadBlock("100", "99", 0);
    EXPECT_EQ(failureOf("100", "1"), 9);
}

TEST_F(DownloadRequest, TextOfAPlainModel) {
    cell.Is_Ascii_Range = true;
    readMessages(cell, "(0)Off");
    EXPECT_EQ(request("100", "ABC"), "ascii \"ABC\"");
}

TEST_F(DownloadRequest, BoardTextsGoOutInPairsOfColumns) {
    makeBoard();
    cell.Is_Ascii_Range = true;
    next.Value = "NEXT";
    EXPECT_EQ(request("100", "ABC"), "ascii \"ABC             NEXT            \"");
}

TEST_F(DownloadRequest, BoardTextOfTheLastColumnSendsNothingByItself) {
    makeBoard();
    next.Address = "100";
    next.Is_Ascii_Range = true;
    const Cell_Request built =
        buildRequest(Request_Sources{document, comm.image(), 7, selection, 0}, Cell_Place{1, 1, 3});
    EXPECT_EQ(std::visit(Describe{}, built.order), "nothing");
    EXPECT_FALSE(built.Nothing_Sent);
}

TEST_F(DownloadRequest, NotDownloadableAddressesAreComparedWithoutBlanksAtTheEnds) {
    addNotDownloadable(" 100 ");
    addNotDownloadable("12/HI");
    EXPECT_TRUE(isNotDownloadable(document, "100  "));
    EXPECT_TRUE(isNotDownloadable(document, "12/HI"));
    EXPECT_FALSE(isNotDownloadable(document, "12/hi"));
    EXPECT_FALSE(isNotDownloadable(document, "101"));
}

} // namespace
} // namespace zorvane
