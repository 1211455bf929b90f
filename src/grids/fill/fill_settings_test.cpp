// SPDX-License-Identifier: MIT
#include "grids/fill/fill_settings.h"
#include "grids/rules/cell_fill.h"
#include "grids/testing/grid_bench.h"
#include "template/sections/messages.h"
#include "values/colours.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using std::nullopt;

Cell_Rec cellAt(const std::string& address, const std::string& value = "0", const std::string& format = "") {
    Cell_Rec cell;
    cell.Address = address;
    cell.Value = value;
    cell.Format = format;
    return cell;
}

Cell_Rec listAt(const std::string& address, const std::string& value) {
    Cell_Rec cell = cellAt(address, value);
    readMessages(cell, "(0)Off,(1)On");
    return cell;
}

int failureNumber(const std::function<void()>& statement) {
    try {
        statement();
    } catch (const Run_Time_Failure& failure) {
        return failure.number();
    }
    return 0;
}

// Offline.

TEST(Offline_Fill_Test, AWholeRegisterShowsTheDocumentsText) {
    EXPECT_EQ(offlineFill(cellAt("100", "1:30", "TIME")), (Cell_Fill{"1:30", nullopt}));
    EXPECT_EQ(offlineFill(cellAt("100", "what it says")), (Cell_Fill{"what it says", nullopt}));
}

TEST(Offline_Fill_Test, AListShowsTheTextOfItsCode) {
    EXPECT_EQ(offlineFill(listAt("100", "1")), (Cell_Fill{"On", nullopt}));
    EXPECT_EQ(offlineFill(listAt("100", "7")), (Cell_Fill{"", nullopt})) << "no such code";
    EXPECT_EQ(offlineFill(listAt("100", "1.4x")), (Cell_Fill{"On", nullopt})) << "read leniently";
}

TEST(Offline_Fill_Test, ACellWithoutARegisterShowsTheDocumentsText) {
    EXPECT_EQ(offlineFill(cellAt("", "note")), (Cell_Fill{"note", nullopt}));
    EXPECT_EQ(offlineFill(listAt("none", "1")), (Cell_Fill{"1", nullopt})) << "even its code";
}

TEST(Offline_Fill_Test, AHalfRegisterIsBroughtToAPlainInteger) {
    EXPECT_EQ(offlineFill(cellAt("1234/HI", " 007 ")), (Cell_Fill{"7", "7"}));
    EXPECT_EQ(offlineFill(cellAt("1234/LO", "2.5")), (Cell_Fill{"2", "2"}));
    EXPECT_EQ(offlineFill(listAt("1234/LO", "1.0")), (Cell_Fill{"On", "1"}));
}

TEST(Offline_Fill_Test, AHalfRegisterWithoutANumberIsATypeMismatch) {
    EXPECT_EQ(failureNumber([] { static_cast<void>(offlineFill(cellAt("1234/HI", "abc"))); }), 13);
    EXPECT_EQ(failureNumber([] { static_cast<void>(offlineFill(cellAt("1234/HI", ""))); }), 13);
}

TEST(Offline_Fill_Test, TheSuffixMustBeUpperCase) {
    EXPECT_EQ(offlineFill(cellAt("1234/hi", "7")), (Cell_Fill{nullopt, nullopt}));
    EXPECT_EQ(offlineFill(cellAt("1234/HI ", "7")), (Cell_Fill{nullopt, nullopt}));
    EXPECT_EQ(offlineFill(cellAt("abc/HI", "7")), (Cell_Fill{nullopt, nullopt}));
}

// Online, on an image, for the request word "ALWAYS".

class Online_Fill_Test : public testing::Test {
  protected:
    Cell_Fill fill(Cell_Rec cell) {
        cell.Modbus_Request = request;
        return onlineFill(cell, Online_View{Register_Image(link, 3), "ALWAYS", [this] { return link.lost; }});
    }

    std::string request = "ALWAYS";
    doubles::Journal journal;
    doubles::Scripted_Link link{journal};
};

TEST_F(Online_Fill_Test, ACellOfAnotherBlockShowsItsValueEvenWhileTheLinkIsLost) {
    request = "NONE";
    link.image[100] = 5;
    EXPECT_EQ(fill(cellAt("100", "12")), (Cell_Fill{"12", nullopt}));
    link.lost = true;
    EXPECT_EQ(fill(cellAt("100", "12")), (Cell_Fill{"12", nullopt}));
}

TEST_F(Online_Fill_Test, ACellOfTheScannedBlockShowsQuestionMarksWhenTheLinkIsLost) {
    link.lost = true;
    EXPECT_EQ(fill(cellAt("100", "12")), (Cell_Fill{"???", nullopt}));
    EXPECT_EQ(fill(listAt("100", "1")), (Cell_Fill{"???", nullopt}));
}

TEST_F(Online_Fill_Test, AHalfRegisterShowsTheImageWhateverIsScanned) {
    request = "NONE";
    link.image[1234] = 0x1234;
    EXPECT_EQ(fill(cellAt("1234/HI")), (Cell_Fill{"18", "18"}));
    EXPECT_EQ(fill(cellAt("1234/LO")), (Cell_Fill{"52", "52"}));
    link.lost = true;
    EXPECT_EQ(fill(cellAt("1234/HI")), (Cell_Fill{"18", "18"}));
    link.image[1234] = 0x0100;
    EXPECT_EQ(fill(listAt("1234/HI", "0")), (Cell_Fill{"On", "1"}));
}

TEST_F(Online_Fill_Test, AHighHalfOfANegativeRegisterIsCutTowardZero) {
    link.image[1234] = 0xFF01;
    EXPECT_EQ(fill(cellAt("1234/HI")), (Cell_Fill{"0", "0"}));
    link.image[1234] = 0x8000;
    EXPECT_EQ(fill(cellAt("1234/HI")), (Cell_Fill{"-128", "-128"}));
}

TEST_F(Online_Fill_Test, AnAddressBeyond32BitsIsAnOverflowWhateverIsScanned) {
    request = "NONE";
    EXPECT_EQ(fill(cellAt("2147483647", "12")), (Cell_Fill{"12", nullopt}));
    EXPECT_EQ(failureNumber([&] { static_cast<void>(fill(cellAt("2147483648", "12"))); }), 6);
    EXPECT_EQ(failureNumber([&] { static_cast<void>(fill(cellAt("1e10/LOW", "12"))); }), 6);
    EXPECT_EQ(offlineFill(cellAt("2147483648", "12")), (Cell_Fill{"12", nullopt}));
}

TEST_F(Online_Fill_Test, TakesTimesByTheirFormat) {
    link.image[100] = 3725;
    EXPECT_EQ(fill(cellAt("100", "0", "TIME")), (Cell_Fill{"62:05", "62:05"}));
    EXPECT_EQ(fill(cellAt("100", "0", "TIMEMM")), (Cell_Fill{"62", "62"}));
    EXPECT_EQ(fill(cellAt("100", "0", "TIMESS")), (Cell_Fill{"05", "05"}));
}

TEST_F(Online_Fill_Test, ReadsTheFormatInAnyLetterCaseAndTrimmed) {
    link.image[100] = 3725;
    EXPECT_EQ(fill(cellAt("100", "0", " timess ")), (Cell_Fill{"05", "05"}));
}

TEST_F(Online_Fill_Test, ANegativeRestKeepsItsSignInTwoDigits) {
    link.image[100] = 0x10000 - 65;
    EXPECT_EQ(fill(cellAt("100", "0", "TIMESS")), (Cell_Fill{"-05", "-05"}));
}

TEST_F(Online_Fill_Test, ReadsUnsignedNumbers) {
    link.image[100] = 0xFFFF;
    EXPECT_EQ(fill(cellAt("100", "0", "NUMERIC_UNSIGNED")), (Cell_Fill{"65535", "65535"}));
}

TEST_F(Online_Fill_Test, ShowsAPlainNumberWithoutTakingIt) {
    link.image[100] = 0xFFFF;
    EXPECT_EQ(fill(cellAt("100", "12")), (Cell_Fill{"-1", nullopt}));
}

TEST_F(Online_Fill_Test, ShowsAnAsciiRangeWithoutTakingIt) {
    Cell_Rec cell = cellAt("200", "old");
    cell.Address_End = "201";
    cell.Is_Ascii_Range = true;
    link.image[200] = 0x4142;
    link.image[201] = 0x4300;
    EXPECT_EQ(fill(cell), (Cell_Fill{"ABC-", nullopt}));
}

TEST_F(Online_Fill_Test, TakesTheCodeOfAList) {
    link.image[100] = 1;
    EXPECT_EQ(fill(listAt("100", "0")), (Cell_Fill{"On", "1"}));
    link.image[100] = 9;
    EXPECT_EQ(fill(listAt("100", "0")), (Cell_Fill{"", "9"}));
}

TEST_F(Online_Fill_Test, OtherAddressesAreAsOffline) {
    EXPECT_EQ(fill(cellAt("", "note")), (Cell_Fill{"note", nullopt}));
    EXPECT_EQ(fill(cellAt("1234/hi", "7")), (Cell_Fill{nullopt, nullopt}));
}

// The whole grid.

class Fill_Settings_Test : public testing::Test, protected doubles::Grid_Bench {};

TEST_F(Fill_Settings_Test, BuildsTheTable) {
    Field_Rec& field = addTable(2, 2);
    field.Cells(0, 1).Value = "Point";
    field.Cells(0, 1).Width = 1100;
    field.Cells(0, 2).Value = "Limit";
    field.Cells(2, 2).Value = "120";
    ownLower.setFixedRows(0);
    PRO_Llena_Settings(grids, 1, true);
    EXPECT_EQ(ownLower.Rows(), 3);
    EXPECT_EQ(ownLower.Cols(), 2);
    EXPECT_EQ(ownLower.FixedRows(), 1);
    EXPECT_EQ(ownLower.TextMatrix(0, 0), "Point");
    EXPECT_EQ(ownLower.TextMatrix(0, 1), "Limit");
    EXPECT_EQ(ownLower.TextMatrix(2, 1), "120");
    EXPECT_EQ(ownLower.ColWidth(0), 1100);
    EXPECT_EQ(ownLower.FixedAlignment(0), 4);
    EXPECT_EQ(ownLower.FixedAlignment(1), 4);
    EXPECT_EQ(ownLower.RowHeight(0), 285);
    EXPECT_EQ(ownLower.RowHeight(2), 285);
    EXPECT_TRUE(ownLower.Visible());
    EXPECT_EQ(ownLower.Row(), 2) << "the last cell visited is current";
    EXPECT_EQ(ownLower.Col(), 1);
}

TEST_F(Fill_Settings_Test, TrimsAlignmentWords) {
    Field_Rec& field = addTable(1, 5);
    const char* const words[] = {" right ", "RIGTH", " Center", "left", "none"};
    for (std::int32_t c = 0; c < 5; ++c)
        field.Cells(0, c + 1).Alignment = words[c];
    PRO_Llena_Settings(grids, 1, false);
    EXPECT_EQ(ownLower.ColAlignment(0), 6);
    EXPECT_EQ(ownLower.ColAlignment(1), 6);
    EXPECT_EQ(ownLower.ColAlignment(2), 3);
    EXPECT_EQ(ownLower.ColAlignment(3), 0);
    EXPECT_EQ(ownLower.ColAlignment(4), 0);
}

TEST_F(Fill_Settings_Test, ColoursAColumnByItsDefinition) {
    Field_Rec& field = addTable(1, 2);
    field.Cells(0, 2).Modifiable = false;
    field.Cells(1, 2).Modifiable = true; // a single cell can't be opened by itself
    document.Colors.Color_Back_Normal = "GREEN";
    document.Colors.Color_Txt_Normal = "purple";
    PRO_Llena_Settings(grids, 1, false);
    EXPECT_EQ(ownLower.CellBackColor(), colourOf("GREEN"));
    EXPECT_EQ(ownLower.CellForeColor(), colourOf("PURPLE"));
    ownLower.setCol(0);
    EXPECT_EQ(ownLower.CellBackColor(), colourOf("YELLOW"));
    EXPECT_EQ(ownLower.CellForeColor(), colourOf("BLACK"));
    ownLower.setRow(0);
    EXPECT_EQ(ownLower.CellBackColor(), 0) << "headings have no colour of their own";
}

TEST_F(Fill_Settings_Test, AFieldWithoutColumnsShowsTheFixedRowAlone) {
    addTable(0, 0);
    PRO_Llena_Settings(grids, 1, true);
    EXPECT_EQ(ownLower.Rows(), 1);
    EXPECT_EQ(ownLower.Cols(), 0);
    EXPECT_TRUE(ownLower.Visible());
    addTable(3, 0);
    PRO_Llena_Settings(grids, 2, true);
    EXPECT_EQ(ownLower.Rows(), 4);
}

TEST_F(Fill_Settings_Test, PrimeraMakesNoDifference) {
    addTable(1, 1).Cells(1, 1).Value = "5";
    PRO_Llena_Settings(grids, 1, true);
    EXPECT_EQ(ownLower.TextMatrix(1, 0), "5");
    PRO_Llena_Settings(grids, 1, false);
    EXPECT_EQ(ownLower.TextMatrix(1, 0), "5");
}

TEST_F(Fill_Settings_Test, ACellOfUnknownFormIsEmptyWhateverStoodThere) {
    addTable(1, 1).Cells(1, 1).Value = "first field";
    addTable(1, 1).Cells(1, 1).Address = "1234/hi";
    PRO_Llena_Settings(grids, 1, false);
    PRO_Llena_Settings(grids, 2, false);
    EXPECT_EQ(ownLower.TextMatrix(1, 0), "");
    EXPECT_EQ(document.Fields(2).Cells(1, 1).Value, "0");
}

TEST_F(Fill_Settings_Test, StaysHiddenWhenAFailureEndsTheFill) {
    Field_Rec& field = addTable(1, 2);
    field.Cells(1, 1).Address = "5/LO";
    field.Cells(1, 1).Value = "3.0";
    field.Cells(1, 2).Address = "5/HI";
    field.Cells(1, 2).Value = "abc";
    EXPECT_EQ(failureNumber([this] { PRO_Llena_Settings(grids, 1, true); }), 13);
    EXPECT_FALSE(ownLower.Visible());
    EXPECT_EQ(ownLower.TextMatrix(1, 0), "3");
    EXPECT_EQ(field.Cells(1, 1).Value, "3") << "what came before the failure stays";
}

TEST_F(Fill_Settings_Test, AFieldThatIsNotThereIsASubscriptFailure) {
    EXPECT_EQ(failureNumber([this] { PRO_Llena_Settings(grids, 101, true); }), 9);
    EXPECT_FALSE(ownLower.Visible());
}

TEST_F(Fill_Settings_Test, OnlineTakesTheImageAndDoesNotMarkTheDocument) {
    Field_Rec& field = addTable(1, 2);
    field.Cells(1, 1).Address = "100";
    field.Cells(1, 1).Format = "TIME";
    field.Cells(1, 1).Modbus_Request = "ALWAYS";
    field.Cells(1, 2).Address = "101";
    field.Cells(1, 2).Value = "12";
    link.image[100] = 90;
    link.image[101] = 13;
    form.Online = true;
    form.Current_Request = "ALWAYS";
    PRO_Llena_Settings(grids, 1, true);
    EXPECT_EQ(ownLower.TextMatrix(1, 0), "1:30");
    EXPECT_EQ(field.Cells(1, 1).Value, "1:30");
    EXPECT_EQ(ownLower.TextMatrix(1, 1), "12") << "its own request word differs";
    EXPECT_EQ(form.Poll_Request, "ALWAYS");
    EXPECT_FALSE(form.Dirty);
}

TEST_F(Fill_Settings_Test, LeavesTheCurrentCellOnTheLastOneVisited) {
    Field_Rec& field = addTable(3, 2);
    PRO_Llena_Settings(grids, 1, true);
    EXPECT_EQ(ownLower.Row(), 3);
    EXPECT_EQ(ownLower.Col(), 1);
    field.Cells(2, 1).Address = "5/LO";
    field.Cells(2, 1).Value = "abc";
    EXPECT_EQ(failureNumber([this] { PRO_Llena_Settings(grids, 1, true); }), 13);
    EXPECT_EQ(ownLower.Row(), 2) << "a failure leaves it on its cell";
    EXPECT_EQ(ownLower.Col(), 0);
}

TEST_F(Fill_Settings_Test, OfflineDoesNotMarkTheDocument) {
    form.Current_Request = "NONE";
    Field_Rec& field = addTable(1, 1);
    field.Cells(1, 1).Address = "5/LO";
    field.Cells(1, 1).Value = "3.0";
    PRO_Llena_Settings(grids, 1, true);
    EXPECT_EQ(field.Cells(1, 1).Value, "3");
    EXPECT_EQ(form.Poll_Request, "") << "only an online fill looks at the request word";
    EXPECT_FALSE(form.Dirty);
}

// The mouse over the heading row: the grid at 90, 210 in a frame at 4, 134 pixels, 15 twips a pixel.

Mouse_Place mouseAt(double x, double y) {
    Mouse_Place place;
    place.formX = 100;
    place.formY = 50;
    place.frameLeft = 4;
    place.frameTop = 134;
    place.gridLeft = 90;
    place.gridTop = 210;
    place.gridWidth = 6495;
    place.cursorX = place.formX + place.frameLeft + x / 15;
    place.cursorY = place.formY + place.frameTop + y / 15;
    return place;
}

TEST(Mouse_Over_Heading_Test, TheEdgesBelongToIt) {
    EXPECT_TRUE(mouseOverHeading(mouseAt(90, 210), 285));
    EXPECT_TRUE(mouseOverHeading(mouseAt(6585, 495), 285));
    EXPECT_FALSE(mouseOverHeading(mouseAt(75, 210), 285));
    EXPECT_FALSE(mouseOverHeading(mouseAt(6600, 210), 285));
    EXPECT_FALSE(mouseOverHeading(mouseAt(90, 195), 285));
    EXPECT_FALSE(mouseOverHeading(mouseAt(90, 510), 285));
}

TEST_F(Fill_Settings_Test, TellsWhetherTheMouseIsOverTheHeading) {
    addTable(1, 1);
    PRO_Llena_Settings(grids, 1, true);
    ownLower.setRowHeight(1, 1000);
    bool over = false;
    windows.place = mouseAt(300, 400);
    PRO_Mouse_En_Encabezado(grids, over);
    EXPECT_TRUE(over);
    windows.place = mouseAt(300, 600);
    PRO_Mouse_En_Encabezado(grids, over);
    EXPECT_FALSE(over);
}

TEST_F(Fill_Settings_Test, HidesItsTextEditor) {
    editors.EDT_Modifica_Settings.Text = "typed";
    editors.EDT_Modifica_Settings.Visible = true;
    PRO_Oculta_EDT_Settings(editors);
    EXPECT_EQ(editors.EDT_Modifica_Settings.Text, "");
    EXPECT_FALSE(editors.EDT_Modifica_Settings.Visible);
}

} // namespace
} // namespace zorvane
