// SPDX-License-Identifier: MIT
#include "template/sections/messages.h"
#include "template/testing/document_text.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::cellText;
using doubles::failureNumber;

Cell_Rec listCell(std::string_view list) {
    Cell_Rec cell;
    readMessages(cell, list);
    return cell;
}

TEST(ReadMessages, EachItemHasACodeAndAText) {
    EXPECT_EQ(cellText(listCell("(0)Off,(1)On")), R"(Has_Messages, Messages 0="Off" 1="On")");
    EXPECT_EQ(cellText(listCell("(-5) Low ,(2.5)Half")), R"(Has_Messages, Messages -5=" Low " 2="Half")")
        << "the text stands as it is, the code is rounded";
}

TEST(ReadMessages, StopsAtAnItemWithoutBrackets) {
    EXPECT_EQ(cellText(listCell("(0)Off,Broken,(2)On")), R"(Has_Messages, Messages 0="Off")");
    EXPECT_EQ(cellText(listCell("(0)Off,(1On,(2)On")), R"(Has_Messages, Messages 0="Off")");
    EXPECT_EQ(cellText(listCell("(0)Off,1)On,(2)On")), R"(Has_Messages, Messages 0="Off")");
    EXPECT_EQ(cellText(listCell("")), "Has_Messages, Messages");
}

TEST(ReadMessages, ATextHoldingACommaCantBeExpressed) {
    EXPECT_EQ(cellText(listCell("(0)Off, really,(1)On")), R"(Has_Messages, Messages 0="Off")");
}

TEST(ReadMessages, ATextMayHoldBracketsAfterTheCode) {
    EXPECT_EQ(cellText(listCell("(3)High (alarm)")), "Has_Messages, Messages 3=\"High (alarm)\"");
    EXPECT_EQ(cellText(listCell("x(3)y")), R"(Has_Messages, Messages 3="y")");
    EXPECT_EQ(cellText(listCell("()y")), R"(Has_Messages, Messages 0="y")");
}

TEST(ReadMessages, AClosingBracketBeforeTheOpeningOneIsFailure5) {
    Cell_Rec cell;
    EXPECT_EQ(failureNumber([&] { readMessages(cell, "(0)Off,)1(On"); }), 5);
    EXPECT_TRUE(cell.Has_Messages);
    EXPECT_EQ(messageText(cell, 0), "Off") << "what was read so far stands";
}

TEST(ReadMessages, AnItemThatFailsLeavesAnEmptyEntry) {
    for (const char* list : {"(0)Off,)1(On", "(0)Off,(99999999999)On"}) {
        Cell_Rec cell;
        EXPECT_NE(failureNumber([&] { readMessages(cell, list); }), 0);
        EXPECT_EQ(cellText(cell), R"(Has_Messages, Messages 0="Off" 0="")") << list;
    }
}

TEST(ReadMessages, ACodeBeyond32BitsIsFailure6) {
    EXPECT_EQ(failureNumber([] { (void)listCell("(99999999999)On"); }), 6);
}

TEST(ReadMessages, Entry0StaysEmpty) {
    const Cell_Rec cell = listCell("(7)On");
    EXPECT_EQ(cell.Messages.upperBound(), 1);
    EXPECT_EQ(cell.Messages(0).Code, 0);
    EXPECT_EQ(cell.Messages(0).Text, "");
}

TEST(MessageCode, BlanksAndLetterCaseOfATextDontMatter) {
    const Cell_Rec cell = listCell("(4)Off,(9) Slow \xF1 ");
    EXPECT_EQ(messageCode(cell, "off"), 4);
    EXPECT_EQ(messageCode(cell, " OFF "), 4);
    EXPECT_EQ(messageCode(cell, "SLOW \xD1"), 9);
}

TEST(MessageCode, ANumberStandsForItsCode) {
    const Cell_Rec cell = listCell("(4)Off,(9)On");
    EXPECT_EQ(messageCode(cell, "9"), 9);
    EXPECT_EQ(messageCode(cell, " 9.0 "), 9);
    EXPECT_EQ(messageCode(cell, "9.4"), 0) << "the number isn't rounded";
    EXPECT_EQ(messageCode(cell, "9x"), 0) << "and must be one as a whole";
}

TEST(MessageCode, AnUnknownTextIs0) {
    EXPECT_EQ(messageCode(listCell("(4)Off"), "Broken"), 0);
    EXPECT_EQ(messageCode(listCell("(4)Off"), ""), 0);
    EXPECT_EQ(messageCode(listCell("(4)"), ""), 4) << "an entry with an empty text has one, though";
}

TEST(MessageCode, TheFirstEntryThatMatchesEitherWayWins) {
    EXPECT_EQ(messageCode(listCell("(2)On,(3)2"), "2"), 2) << "its code comes before the other's text";
    EXPECT_EQ(messageCode(listCell("(3)2,(2)On"), "2"), 3) << "its text comes before the other's code";
    EXPECT_EQ(messageCode(listCell("(5)On,(6)On"), "On"), 5);
}

TEST(MessageText, IsThatOfTheFirstEntryWithTheCode) {
    const Cell_Rec cell = listCell("(1)One,(1)Two,(2)Three");
    EXPECT_EQ(messageText(cell, 1), "One");
    EXPECT_EQ(messageText(cell, 2), "Three");
    EXPECT_EQ(messageText(cell, 3), "");
}

TEST(Messages, TheProceduresTakeACellByItsPlace) {
    Declara_Zorvane document;
    document.Fields.redim(highestField);
    document.Fields(2).Cells.redim(3, 4);
    readMessages(document.Fields(2).Cells(3, 4), "(1)On");
    std::int32_t code = 9;
    PRO_Codigo_Mensaje(document, 2, 3, 4, "on", code);
    EXPECT_EQ(code, 1);
    PRO_Codigo_Mensaje(document, 2, 3, 4, "?", code);
    EXPECT_EQ(code, 0);
    std::string text = "old";
    PRO_Texto_Mensaje(document, 2, 3, 4, 1, text);
    EXPECT_EQ(text, "On");
    PRO_Texto_Mensaje(document, 2, 3, 4, 2, text);
    EXPECT_EQ(text, "");
    EXPECT_EQ(failureNumber([&] { PRO_Texto_Mensaje(document, 2, 4, 4, 1, text); }), 9);
}

TEST(Messages, ACellThatHasNoListIsFailure9) {
    const Cell_Rec cell;
    EXPECT_EQ(failureNumber([&] { (void)messageCode(cell, "On"); }), 9);
    EXPECT_EQ(failureNumber([&] { (void)messageText(cell, 1); }), 9);
}

} // namespace
} // namespace zorvane
