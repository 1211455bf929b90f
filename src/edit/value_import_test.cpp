// SPDX-License-Identifier: MIT
#include "edit/testing/relay.h"
#include "edit/value_export.h"
#include "edit/value_import.h"

#include <gtest/gtest.h>

namespace zorvane::edit {
namespace {

const std::string headings = "field,row,column,page,name,heading,register,value\r\n";

struct Value_Import : testing::Test, doubles::Relay {
    [[nodiscard]] Import_Check checked(const std::string& bytes) const {
        const Value_File file = readValueFile(bytes);
        EXPECT_EQ(file.problem, "");
        return checkImport(document, file.values, {});
    }
    /// "1 1 2 = 1200" of each change, then "line 3: why" of each that is left out.
    [[nodiscard]] static std::string told(const Import_Check& check) {
        std::string out;
        for (const Taken_Value& taken : check.taken)
            if (taken.changes)
                out += std::to_string(taken.place.field) + " " + std::to_string(taken.place.row) + " " +
                       std::to_string(taken.place.column) + " = " + taken.value + "\n";
        for (const Left_Out& left : check.leftOut)
            out += "line " + std::to_string(left.line) + ": " + left.why + "\n";
        return out;
    }
    [[nodiscard]] std::string toldOf(const std::string& bytes) const { return told(checked(bytes)); }
    /// The same of rows under the usual headings.
    [[nodiscard]] std::string toldOfRows(const std::string& rows) const { return toldOf(headings + rows); }
};

TEST_F(Value_Import, WhatWasExportedChangesNothing) {
    cell(1, 1, 3).Value = "=1+1";
    cell(1, 2, 3).Value = "'=1";
    cell(1, 3, 3).Value = "0012";
    cell(1, 4, 3).Value = "\xB0";
    cell(1, 2, 2).Value = "-12.5";
    cell(1, 4, 2).Value = "5";
    cell(1, 1, 2).Value = "9999";
    for (const Csv_Style style : {Csv_Style{',', '.'}, {';', ','}, {'\t', '.'}, {'|', ','}, {',', ','}}) {
        const Import_Check check = checked(exportedValues(document, style));
        EXPECT_EQ(told(check), "") << style.separator << style.decimalSign;
        EXPECT_EQ(check.taken.size(), 14U);
    }
}

TEST_F(Value_Import, TakesValuesByTheirPlaceAlone) {
    EXPECT_EQ(toldOfRows("1,1,2,Elsewhere,whatever,,999,1200\r\n1,4,2,,,,,Trip\r\n1,3,2,,,,,1:30\r\n"),
              "1 1 2 = 1200\n1 4 2 = 7\n1 3 2 = 1:30\n");
}

/// Else all lines after it would be lost without a word.
TEST_F(Value_Import, AQuoteThatIsNeverClosedIsTold) {
    const std::string why =
        "a quote begins in the line that is never closed, and takes the rest of the file\n";
    EXPECT_EQ(toldOfRows("1,1,2,,,,,1200\r\n1,3,2,\"Page,,,,1:30\r\n1,4,2,,,,,Trip\r\n"),
              "1 1 2 = 1200\nline 3: " + why);
    EXPECT_EQ(toldOfRows("1,1,3,,,,,\"North"), "line 2: " + why) << "the file was cut";
    EXPECT_EQ(toldOfRows("1,1,2,,,,,1200\r\n\""), "1 1 2 = 1200\nline 3: " + why);
    EXPECT_EQ(toldOfRows("1,1,3,,,,,\"North\""), "1 1 3 = North\n");
}

TEST_F(Value_Import, HeadingsMayStandInAnyOrder) {
    EXPECT_EQ(toldOf("Value;column;ROW;field\n1200;2;1;1\n"), "1 1 2 = 1200\n");
    EXPECT_EQ(toldOf("sep=;\r\nfield;row;column;value\r\n1;1;2;1200\r\n"), "1 1 2 = 1200\n");
}

TEST_F(Value_Import, LeavesOutWhatItsCellDoesntTakeAndSaysWhy) {
    EXPECT_EQ(toldOfRows("1,1,2,,,,,1401\r\n"
                         "1,4,2,,,,,Auto\r\n"
                         "1,5,2,,,,,T-130\r\n"
                         "1,1,3,,,,,\"112,5 V\"\r\n"
                         "1,1,4,,,,,7\r\n"
                         "9,1,1,,,,,7\r\n"
                         "1,2,2,,,,,\"1,234\"\r\n"),
              "line 2: Regulation/Set point/Value: \"1401\" is above its limit 1400\n"
              "line 3: Regulation/Output/Value: \"Auto\" is not in its list (Off, On, Trip)\n"
              "line 4: Regulation/Tag/Value: \"T-130\" is longer than its 4 characters\n"
              "line 5: Regulation/Set point/Remark: \"112,5 V\" is a text with a comma, which no file holds\n"
              "line 6: Regulation/Set point/Reading: \"7\" is in a column that can't be edited\n"
              "line 7: field 9, row 1, column 1: \"7\" is for a cell that the template doesn't have\n"
              "line 8: Regulation/Drop X/Value: \"1,234\" is readable two ways, as 1.234 or 1234\n");
}

TEST_F(Value_Import, FindsTheDecimalSignByTheNumbers) {
    const Import_Check check = checked("field;row;column;value\n1;1;2;1112,5\n1;2;2;1,234\n1;1;3;5.5\n");
    EXPECT_EQ(told(check), "1 1 2 = 1112.5\n1 2 2 = 1.234\n1 1 3 = 5.5\n")
        << "the text's point proves nothing";
    EXPECT_EQ(check.decimalSign, ',');
}

TEST_F(Value_Import, LinesThatSayNothingForACell) {
    EXPECT_EQ(toldOfRows("\r\n,,,,,,,\r\n1,x,2,,,,,5\r\n1,1\r\n0,1,2,,,,,5\r\n1,1,2,,,,,1200\r\n"),
              "1 1 2 = 1200\n"
              "line 4: field, row and column are no numbers from 1\n"
              "line 5: field, row and column are no numbers from 1\n"
              "line 6: field, row and column are no numbers from 1\n");
    EXPECT_EQ(toldOf("field,row,column,x,value\n1,1,2\n"), "line 2: the line ends before its value\n");
}

TEST_F(Value_Import, ACellThatStandsTwiceTakesTheFirstValue) {
    EXPECT_EQ(toldOfRows("1,1,2,,,,,1200\r\n1,1,2,,,,,1200\r\n1,1,2,,,,,1300\r\n"),
              "1 1 2 = 1200\n1 1 2 = 1200\n"
              "line 4: Regulation/Set point/Value: line 2 has another value for it, \"1200\"\n");
}

TEST_F(Value_Import, ACellThatIsntThereIsToldByItsNumbersEachTime) {
    EXPECT_EQ(toldOfRows("1,1,77,,,,,1200\r\n1,1,77,,,,,1300\r\n"),
              "line 2: field 1, row 1, column 77: \"1200\" is for a cell that the template doesn't have\n"
              "line 3: field 1, row 1, column 77: line 2 has another value for it, \"1200\"\n");
}

/// A comma of a number that cut it in two would else leave half of it, and nobody would know.
TEST_F(Value_Import, ALineWithMoreValuesThanHeadingsIsLeftOut) {
    const std::string why =
        "the line has more values than there are headings: one with the separator in it needs quotes\n";
    EXPECT_EQ(toldOfRows("1,1,2,,,,,1200,5\r\n1,4,2,,,,,Trip\r\n"), "1 4 2 = 7\nline 2: " + why);
    EXPECT_EQ(toldOfRows("1,1,2,Page,a,b,c,100,1200\r\n"), "line 2: " + why) << "cut in front of the value";
    EXPECT_EQ(toldOfRows("1,1,2,,,,,1200,, \r\n"), "1 1 2 = 1200\n") << "a spreadsheet's empty columns";
    EXPECT_EQ(toldOfRows("1,1,2,,,,,\"1200,5\"\r\n"), "1 1 2 = 1200.5\n");
}

TEST_F(Value_Import, EmptyLinesMayStandAboveTheHeadings) {
    EXPECT_EQ(toldOf("\r\n,,\r\nfield,row,column,value\r\n1,1,2,1200\r\n"), "1 1 2 = 1200\n");
    EXPECT_EQ(
        toldOf("\nsep=;\n\nfield;row;column;value\n1;1;2;1200\n1;1;4;7\n"),
        "1 1 2 = 1200\nline 6: Regulation/Set point/Reading: \"7\" is in a column that can't be edited\n");
    EXPECT_NE(readValueFile("\n\n").problem, "");
}

TEST_F(Value_Import, AHeadingThatStandsTwiceDecidesNothing) {
    EXPECT_EQ(readValueFile("field,row,column,value,Value\n1,1,2,1200,1300\n").problem,
              "the heading value stands twice");
    EXPECT_EQ(readValueFile("field,row,column,field,value\n1,1,2,1,1200\n").problem,
              "the heading field stands twice");
    EXPECT_EQ(toldOf("field,row,column,name,name,value\n1,1,2,a,b,1200\n"), "1 1 2 = 1200\n");
}

TEST_F(Value_Import, TextInWindows1252IsKnownByItsBytes) {
    EXPECT_EQ(toldOfRows("1,1,3,,,,,caf\xE9\r\n"), "1 1 3 = caf\xE9\n");
    EXPECT_EQ(toldOfRows("1,1,3,,,,,caf\xC3\xA9\r\n"), "1 1 3 = caf\xE9\n");
    EXPECT_EQ(toldOf("\xEF\xBB\xBF" + headings + "1,1,3,,,,,caf\xC3\xA9\r\n"), "1 1 3 = caf\xE9\n");
    EXPECT_EQ(toldOfRows("1,1,3,,,,,\xCE\xA9\r\n"),
              "line 2: a character of the text is none that a file holds (Windows-1252)\n");
}

TEST_F(Value_Import, AFileThatIsNoneIsToldAsAWhole) {
    const std::string missing = "its first line doesn't have the headings field, row, column and value";
    EXPECT_EQ(readValueFile("").problem, missing);
    EXPECT_EQ(readValueFile("sep=;\n").problem, missing);
    EXPECT_EQ(readValueFile("1,1,2,1200\n").problem, missing);
    EXPECT_EQ(readValueFile("\xFF\xFE"
                            "f\0i\0")
                  .problem,
              "it is UTF-16. Save it as CSV in UTF-8");
}

struct Value_Lines : Value_Import {
    [[nodiscard]] std::string toldOfLines(const std::string& text) const {
        const Value_File file = readValueLines(document, text);
        return told(checkImport(document, file.values, {true, '.', List_Numbers::Entries}));
    }
};

TEST_F(Value_Lines, NamesAndNumbersStandForCells) {
    EXPECT_EQ(toldOfLines("# agreed in May\n"
                          "Regulation/Set point = 1200\r\n"
                          "\n"
                          "; and\n"
                          "1,3,2=1:30\n"
                          "Regulation/Set point/Remark = a = b\n"),
              "1 1 2 = 1200\n1 3 2 = 1:30\n1 1 3 = a = b\n");
}

TEST_F(Value_Lines, APlainNumberIsAnEntrysPlaceAndATextIsAText) {
    EXPECT_EQ(toldOfLines("Regulation/Output = 0"), "1 4 2 = 0\n");
    EXPECT_EQ(toldOfLines("Regulation/Output = Trip"), "1 4 2 = 7\n");
}

TEST_F(Value_Lines, WhatIsWrongIsToldByItsLine) {
    EXPECT_EQ(
        toldOfLines("Regulation/Set point 1200\n"
                    "Timers/row 2 = 5\n"
                    "Regulation/Set point = 1401\n"
                    "7,1,1 = 5\n"
                    "Regulation/Set point/Remark = \xE2\x86\x92\n"),
        "line 1: the line is not NAME = TEXT\n"
        "line 2: \"Timers/row 2\" fits 2 cells: Timers/row 2/Pulse (2 2 1), Timers/row 2/Pause (2 2 2)\n"
        "line 3: Regulation/Set point/Value: \"1401\" is above its limit 1400\n"
        "line 4: field 7, row 1, column 1: \"5\" is for a cell that the template doesn't have\n"
        "line 5: a character of the text is none that a file holds (Windows-1252)\n");
}

} // namespace
} // namespace zorvane::edit
