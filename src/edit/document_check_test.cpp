// SPDX-License-Identifier: MIT
#include "edit/document_check.h"
#include "edit/testing/relay.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>

namespace zorvane::edit {
namespace {

struct Document_Check : testing::Test, doubles::Relay {
    /// "line: severity: what [code]" of each finding.
    [[nodiscard]] std::string found(const std::string& text) {
        std::string out;
        for (const checker::Finding& finding : checkDocument(document, text))
            out += std::to_string(finding.line) + ": " +
                   (finding.severity == checker::Severity::Error ? "error: " : "warning: ") + finding.what +
                   " [" + std::string(finding.code) + "]\n";
        return out;
    }
    /// The same of lines below the header of the first page.
    [[nodiscard]] std::string foundInRows(const std::string& rows) {
        return found("[Field_1_Default]\r\n" + rows);
    }
};

TEST_F(Document_Check, FindsNothingInAWholeDocument) {
    EXPECT_EQ(found("[Configuration_Default]\r\n"
                    "FIELD_1=,Regulation\r\n"
                    "FIELD_2=,Timers\r\n"
                    "\r\n"
                    "[Field_1_Default]\r\n"
                    "ROW_1=Set point,1400,,1123\r\n"
                    "ROW_2=Drop X,-12,,\r\n"
                    "ROW_3=Delay,45,,\r\n"
                    "ROW_4=Output,7,,\r\n"
                    "ROW_5=Tag,T-2,,\r\n"
                    "\r\n"
                    "[Field_2_Default]\r\n"
                    "ROW_1=1,2\r\n"
                    "ROW_2=,\r\n"
                    "\r\n"
                    "[Default_1_Columns]\r\n"
                    "COL_1_WIDTH=1100\r\n"),
              "");
    EXPECT_EQ(found(""), "");
}

TEST_F(Document_Check, ValuesOutsideTheirLimits) {
    EXPECT_EQ(
        foundInRows("ROW_1=Set point,1401,,\r\nROW_2=Drop X,32768,,\r\nROW_3=Delay,9:01,,\r\n"),
        "2: error: \"1401\" is outside the limits 800 to 1400 (Regulation/Set point/Value) [value-limits]\n"
        "3: error: \"32768\" is outside the limits -32768 to 32767 (Regulation/Drop X/Value) [value-limits]\n"
        "4: error: \"9:01\" is outside the limits 0:05 to 9:00 (Regulation/Delay/Value) [value-limits]\n");
}

TEST_F(Document_Check, TextsThatNoListHas) {
    EXPECT_EQ(foundInRows("ROW_4=Output,Auto,,\r\n"),
              "2: error: \"Auto\" isn't in the list (Regulation/Output/Value) [value-list]\n");
}

TEST_F(Document_Check, TextsWhereANumberOrATimeMustStand) {
    EXPECT_EQ(foundInRows("ROW_1=Set point,high,,\r\nROW_3=Delay,soon,,\r\n"),
              "2: error: \"high\" is no number (Regulation/Set point/Value) [value-form]\n"
              "3: error: \"soon\" is no time (Regulation/Delay/Value) [value-form]\n");
}

TEST_F(Document_Check, ACommaInATextIsToldAsSuch) {
    EXPECT_EQ(foundInRows("ROW_1=Set point,1125,112,5 V,1123\r\nROW_2=Drop X,-12,,\r\n"),
              "2: error: 5 values, where Regulation has 4 columns: the text \"112,5 V\" has a comma in it "
              "[text-comma]\n");
}

TEST_F(Document_Check, AColumnOfNamesMayHaveAnyType) {
    cell(1, 0, 1).Column_Type = "ASCII";
    EXPECT_EQ(foundInRows("ROW_1=Set point,1125,112,5 V,1123\r\n"),
              "2: error: 5 values, where Regulation has 4 columns: the text \"112,5 V\" has a comma in it "
              "[text-comma]\n");
}

TEST_F(Document_Check, ATextWithACommaMayBeginWithAnything) {
    EXPECT_EQ(
        foundInRows("ROW_1=Set point,1125,high, or low,1123\r\n"),
        "2: error: 5 values, where Regulation has 4 columns: the text \"high, or low\" has a comma in it "
        "[text-comma]\n");
    EXPECT_EQ(foundInRows("ROW_1=Set point,high,low,5 V,1123\r\n"),
              "2: error: 5 values, where Regulation has 4 columns [row-long]\n")
        << "its value fits no more than its text";
}

TEST_F(Document_Check, ATextWithACommaNeedsAFirstColumnThatFits) {
    cell(2, 0, 2).Column_Type = "TEXT";
    EXPECT_EQ(found("[Field_2_Default]\r\nROW_1=1,a, b\r\n"),
              "2: error: 3 values, where Timers has 2 columns: the text \"a, b\" has a comma in it "
              "[text-comma]\n");
    EXPECT_EQ(found("[Field_2_Default]\r\nROW_1=soon,a, b\r\n"),
              "2: error: 3 values, where Timers has 2 columns [row-long]\n");
}

TEST_F(Document_Check, MoreValuesThanColumns) {
    EXPECT_EQ(found("[Field_2_Default]\r\nROW_1=1,2,3\r\n"),
              "2: error: 3 values, where Timers has 2 columns [row-long]\n");
}

TEST_F(Document_Check, ARowThatIsCut) {
    EXPECT_EQ(foundInRows("ROW_1=Set point,1125,agreed; in May,1123\r\n"),
              "2: error: the row ends at its \";\": \"; in May,1123\" is lost [row-cut]\n"
              "2: warning: 3 values, where Regulation has 4 columns [row-short]\n");
    EXPECT_EQ(
        foundInRows("ROW_1=Set point,11"),
        "2: warning: 2 values, where Regulation has 4 columns [row-short]\n"
        "2: error: \"11\" is outside the limits 800 to 1400 (Regulation/Set point/Value) [value-limits]\n");
}

TEST_F(Document_Check, RowsAndPagesThatTheTemplateDoesntHave) {
    EXPECT_EQ(foundInRows("ROW_6=More,1,,\r\n"), "2: error: row 6 of Regulation [row-unknown]\n");
    EXPECT_EQ(found("[Field_3_Default]\r\nROW_1=1\r\n"),
              "2: error: page 3, which the template doesn't have [page-unknown]\n");
}

TEST_F(Document_Check, ATextOfTheUpperGridThatIsCut) {
    EXPECT_EQ(found("[Configuration_Default]\r\nFIELD_1=,Regulation;old\r\n"),
              "2: error: the row ends at its \";\": \";old\" is lost [row-cut]\n");
}

/// Every other call stops there, so a check must not end well.
TEST_F(Document_Check, ALineOnWhichReadingStops) {
    const std::string subscript = "reading stops here: Subscript out of range (failure 9) [reading-stops]\n";
    const std::string overflow = "reading stops here: Overflow (failure 6) [reading-stops]\n";
    EXPECT_EQ(found("[Default_1_Columns]\r\nCOL_9_WIDTH=5\r\n"), "2: error: " + subscript);
    EXPECT_EQ(found("[Default_3_Columns]\r\nCOL_1_WIDTH=5\r\n"), "2: error: " + subscript);
    EXPECT_EQ(found("[Default_1_Columns]\r\nCOL_1_WIDTH=99999\r\n"), "2: error: " + overflow);
    EXPECT_EQ(found("[Configuration_Default]\r\nFIELD_101=a,b\r\n"), "2: error: " + subscript);
    EXPECT_EQ(found("[Field_99999999999_Default]\r\n"), "1: error: " + overflow);
    EXPECT_EQ(found("[FIELD_1_COLUMNS]\r\nCOL_1_WIDTH=wide\r\n"),
              "2: error: reading stops here: Type mismatch (failure 13) [reading-stops]\n");
    EXPECT_EQ(
        found("[Default_1_Columns]\r\nCOL_9_WIDTH=5\r\n[Field_1_Default]\r\nROW_1=a,1401,,\r\n"),
        "2: error: " + subscript +
            "4: error: \"1401\" is outside the limits 800 to 1400 (Regulation/a/Value) [value-limits]\n")
        << "one mistake doesn't hide the others";
    EXPECT_EQ(found("[Field_1_Default]\r\nROW_1=a,1401,,\r\n[Default_1_Columns]\r\nCOL_9_WIDTH=5\r\n"),
              "2: error: \"1401\" is outside the limits 800 to 1400 (Regulation/a/Value) [value-limits]\n"
              "4: error: " +
                  subscript)
        << "nor the stop";
    EXPECT_EQ(found("[Configuration_Default]\r\nFIELD_1=,a;b\r\n[Default_1_Columns]\r\nCOL_9_WIDTH=5\r\n"),
              "2: error: the row ends at its \";\": \";b\" is lost [row-cut]\n4: error: " + subscript)
        << "nor does an error of another line";
}

/// Whoever saves it later has a file that ends in the middle.
TEST_F(Document_Check, TooFewTextsForTheUpperGrid) {
    EXPECT_EQ(found("[Configuration_Default]\r\nFIELD_1=a\r\nFIELD_2=,Timers,more\r\n"),
              "2: error: 1 text, where the upper grid has 2 columns [texts-short]\n");
}

TEST_F(Document_Check, LinesAsSuch) {
    EXPECT_EQ(found("\xEF\xBB\xBF; site 7\r\n[Feld_1_Default]\r\nROW_1=1\r\n"),
              "1: error: a byte order mark in front of the first line [byte-order-mark]\n"
              "1: warning: a line without \"=\" [stray-line]\n"
              "2: warning: unknown section \"FELD_1_DEFAULT\" [section-unknown]\n");
}

TEST_F(Document_Check, OnlyTheFilesOwnValuesAreJudged) {
    cell(1, 1, 2).Value = "9999";
    EXPECT_EQ(foundInRows("ROW_2=Drop X,-12,,\r\n"), "") << "the template's checker tells of its own";
}

TEST_F(Document_Check, TheManualExplainsEveryCodeWithItsSeverity) {
    std::ifstream page(std::string(ZORVANE_ROOT) + "/docs/manual/checker.md");
    const std::string text{std::istreambuf_iterator<char>(page), {}};
    for (const Document_Rule& rule : documentRules()) {
        const std::string severity = rule.severity == checker::Severity::Error ? "error" : "warning";
        EXPECT_NE(text.find("| `" + std::string(rule.code) + "` | " + severity + " |"), std::string::npos)
            << rule.code;
    }
}

} // namespace
} // namespace zorvane::edit
