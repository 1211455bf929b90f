// SPDX-License-Identifier: MIT
#include "edit/csv_text.h"

#include <gtest/gtest.h>

namespace zorvane::edit {
namespace {

/// "line: field|field" of each record.
std::string read(std::string_view text, char separator = ',') {
    std::string out;
    for (const Csv_Record& record : csvRecords(text, separator)) {
        out += std::to_string(record.line) + ":";
        for (const std::string& field : record.fields)
            out += field + "|";
        out += "\n";
    }
    return out;
}

TEST(CsvText, LinesEndInAnyWay) {
    EXPECT_EQ(read("a,b\r\nc\nd\re"), "1:a|b|\n2:c|\n3:d|\n4:e|\n");
    EXPECT_EQ(read(""), "");
    EXPECT_EQ(read("\r\n\r\na"), "1:|\n2:|\n3:a|\n");
    EXPECT_EQ(read("a,\n,"), "1:a||\n2:||\n");
}

TEST(CsvText, QuotesKeepSeparatorsAndLineEnds) {
    EXPECT_EQ(read("\"a,b\",\"say \"\"x\"\"\"\nc"), "1:a,b|say \"x\"|\n2:c|\n");
    EXPECT_EQ(read("\"a\nb\",c\nd"), "1:a\nb|c|\n3:d|\n") << "the line where a record begins";
    EXPECT_EQ(read("\"\";x", ';'), "1:|x|\n");
    EXPECT_EQ(read("\"never closed,\nb"), "1:never closed,\nb|\n");
    EXPECT_EQ(read("\"a\"b,c"), "1:ab|c|\n");
    EXPECT_EQ(read("5\" pipe,c"), "1:5\" pipe|c|\n") << "a quote within a field is one";
}

TEST(CsvText, FieldsAreQuotedWhereTheyHaveToBe) {
    EXPECT_EQ(csvLine({"a", "b;c", "say \"x\"", "", "1,5"}, ';'), "a;\"b;c\";\"say \"\"x\"\"\";;\"1,5\"");
    for (const std::vector<std::string>& fields :
         {std::vector<std::string>{"a\nb", "\"", ",;\t|", ""}, {"\"\"", "\r", "x"}}) {
        const auto records = csvRecords(csvLine(fields, ','), ',');
        ASSERT_EQ(records.size(), 1U);
        EXPECT_EQ(records[0].fields, fields);
    }
}

TEST(CsvText, WhatASpreadsheetWouldRunIsGuarded) {
    EXPECT_EQ(guarded("=1+1"), "'=1+1");
    EXPECT_EQ(guarded("+10 V"), "'+10 V");
    EXPECT_EQ(guarded("-x"), "'-x");
    EXPECT_EQ(guarded("@SUM(A1)"), "'@SUM(A1)");
    EXPECT_EQ(guarded("Set = 5"), "Set = 5");
    EXPECT_EQ(harmless("=1"), "'=1");
    EXPECT_EQ(harmless("2019-06"), "2019-06");
}

TEST(CsvText, WhatASpreadsheetWouldWriteAnewIsGuarded) {
    for (const char* text : {"0012", "1e3", "2019-06", "1/2", "0:45", "1.50", "10%", "12 ",
                             "1234567890123456", "3 May", "Dez 24", "true", "9:00 am"})
        EXPECT_EQ(guarded(text), std::string("'") + text);
    for (const char* text : {"12", "0", "123456789012345", "0.1 V to either side", "%", "Busbar 2", "",
                             "SN 0207-04417", "10 A", "May", "Row 3 Mayor", "5 E1x"})
        EXPECT_EQ(guarded(text), text);
}

TEST(CsvText, EveryTextComesBackFromItsGuard) {
    for (const char* text :
         {"=1", "'=1", "''=1", "'", "''", "'a", "0012", "'0012", "12", "'12", "", "a'=", "-5"})
        EXPECT_EQ(unguarded(guarded(text)), text);
    EXPECT_EQ(unguarded("=1"), "=1") << "a spreadsheet may take the apostrophe off";
}

} // namespace
} // namespace zorvane::edit
