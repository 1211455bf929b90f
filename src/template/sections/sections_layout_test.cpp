// SPDX-License-Identifier: MIT
#include "template/testing/interpreter_bench.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::documentText;
using doubles::failureNumber;
using doubles::fieldText;
using doubles::Interpreter_Bench;

// The upper grid's columns.

TEST(NumericRows, IsYesInAnyLetterCaseAndNothingElse) {
    Interpreter_Bench bench;
    const auto read = [&](const std::string& value) {
        bench.readTemplate("[CONFIGURATION_COLUMNS]\nNUMERIC_ROWS=" + value + "\n");
        return bench.document.Numeric_Rows;
    };
    EXPECT_TRUE(read("yes"));
    EXPECT_FALSE(read("no"));
    EXPECT_TRUE(read(" YES")) << "the scanner trims";
    EXPECT_FALSE(read("YES ; note")) << "which leaves a blank at the end";
    EXPECT_TRUE(read("YES; note"));
    EXPECT_FALSE(read("TRUE"));
    EXPECT_FALSE(read(""));
}

TEST(ConfigurationColumns, AreCreatedAnewByTheirCount) {
    Interpreter_Bench bench;
    bench.line("CONFIGURATION_COLUMNS", "CONFIGURATION_NC", "2");
    bench.line("CONFIGURATION_COLUMNS", "COL_1_DESC", " Name ");
    bench.line("CONFIGURATION_COLUMNS", "COL_1_WIDTH", "1500");
    bench.line("CONFIGURATION_COLUMNS", "COL_2_ALIGNMENT", "RIGTH");
    bench.line("CONFIGURATION_COLUMNS", "COL_2_TYPE", "ascii");
    EXPECT_EQ(documentText(bench.document), "Config_Column_Count 2\n"
                                            "Config_Columns(1) Description \" Name \", Width 1500\n"
                                            "Config_Columns(2) Alignment \"RIGTH\", Column_Type \"ascii\"\n");
    bench.line("CONFIGURATION_COLUMNS", "CONFIGURATION_NC", "3");
    EXPECT_EQ(documentText(bench.document), "Config_Column_Count 3\n");
    EXPECT_EQ(bench.document.Config_Columns.upperBound(), 3);
}

TEST(ConfigurationColumns, TheirCountIsTakenLeniently) {
    Interpreter_Bench bench;
    bench.line("CONFIGURATION_COLUMNS", "CONFIGURATION_NC", "2x");
    EXPECT_EQ(bench.document.Config_Column_Count, 2);
    bench.line("CONFIGURATION_COLUMNS", "CONFIGURATION_NC", "abc");
    EXPECT_EQ(bench.document.Config_Column_Count, 0);
}

TEST(ConfigurationColumns, ACountOrWidthAbove16BitsIsFailure6) {
    Interpreter_Bench bench;
    EXPECT_EQ(bench.failureOf("CONFIGURATION_COLUMNS", 0, "CONFIGURATION_NC", "32768"), 6);
    bench.line("CONFIGURATION_COLUMNS", "CONFIGURATION_NC", "1");
    EXPECT_EQ(bench.failureOf("CONFIGURATION_COLUMNS", 0, "COL_1_WIDTH", "32768"), 6);
}

TEST(ConfigurationColumns, AWidthThatIsNoNumberIsFailure13) {
    Interpreter_Bench bench;
    bench.line("CONFIGURATION_COLUMNS", "CONFIGURATION_NC", "1");
    EXPECT_EQ(bench.failureOf("CONFIGURATION_COLUMNS", 0, "COL_1_WIDTH", "wide"), 13);
    EXPECT_EQ(bench.failureOf("CONFIGURATION_COLUMNS", 0, "COL_1_WIDTH", ""), 13);
    EXPECT_EQ(bench.failureOf("CONFIGURATION_COLUMNS", 0, "COL_1_WIDTH", "12a"), 13);
}

TEST(ConfigurationColumns, AColumnBeyondTheCountIsFailure9) {
    Interpreter_Bench bench;
    EXPECT_EQ(bench.failureOf("CONFIGURATION_COLUMNS", 0, "COL_1_DESC", "x"), 9) << "the count comes first";
    bench.line("CONFIGURATION_COLUMNS", "CONFIGURATION_NC", "1");
    EXPECT_EQ(bench.failureOf("CONFIGURATION_COLUMNS", 0, "COL_2_DESC", "x"), 9);
    EXPECT_EQ(bench.failureOf("CONFIGURATION_COLUMNS", 0, "COL_-1_DESC", "x"), 9);
    EXPECT_EQ(bench.failureOf("CONFIGURATION_COLUMNS", 0, "CONFIGURATION_NC", "-1"), 9);
}

TEST(ConfigurationColumns, ANegativeCountIsStoredBeforeItFails) {
    Interpreter_Bench bench;
    EXPECT_EQ(bench.failureOf("CONFIGURATION_COLUMNS", 0, "CONFIGURATION_NC", "-1"), 9);
    EXPECT_EQ(bench.document.Config_Column_Count, -1);
}

TEST(ConfigurationColumns, TheirWordsStandAsTheyAre) {
    Interpreter_Bench bench;
    bench.readTemplate("[CONFIGURATION_COLUMNS]\nCONFIGURATION_NC=1\nCOL_1_DESC=Name ; x\n"
                       "COL_1_ALIGNMENT=left ; x\nCOL_1_TYPE=Ascii ; x\n");
    EXPECT_EQ(documentText(bench.document),
              "Config_Column_Count 1\n"
              "Config_Columns(1) Description \"Name \", Alignment \"left \", Column_Type \"Ascii \"\n");
}

TEST(ConfigurationColumns, AKeyWithoutANumberGoesToColumn0) {
    Interpreter_Bench bench;
    bench.line("CONFIGURATION_COLUMNS", "CONFIGURATION_NC", "1");
    EXPECT_TRUE(bench.line("CONFIGURATION_COLUMNS", "COL__DESC", "x"));
    EXPECT_EQ(bench.document.Config_Columns(0).Description, "x");
}

// The fields.

TEST(Fields, ADescriptionWrittenTwiceCountsTwoFields) {
    Interpreter_Bench bench;
    bench.line("CONFIGURATION_FIELDS", "FIELD_1_DESC", "Inputs");
    bench.line("CONFIGURATION_FIELDS", "FIELD_1_DESC", "Outputs");
    EXPECT_EQ(documentText(bench.document), "Field_Count 2\nFields(1) Description \"Outputs\"\n");
}

TEST(Fields, TheCountGoesUpWhateverTheNumber) {
    Interpreter_Bench bench;
    bench.line("CONFIGURATION_FIELDS", "FIELD_50_DESC", "Last");
    EXPECT_EQ(bench.document.Field_Count, 1);
    EXPECT_EQ(bench.document.Fields(50).Description, "Last");
}

TEST(Fields, TheCountGoesUpBeforeTheNumberIsLookedAt) {
    Interpreter_Bench bench;
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_101_DESC", "x"), 9);
    EXPECT_EQ(bench.document.Field_Count, 1);
    bench.document.Field_Count = 32767;
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_1_DESC", "x"), 6);
    EXPECT_EQ(bench.document.Field_Count, 32767);
}

TEST(Fields, ANumberAbove100IsFailure9) {
    Interpreter_Bench bench;
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_101_DESC", "x"), 9);
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_101_RC", "1,1"), 9);
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_100_DESC", "x"), 0);
}

TEST(FieldSize, CreatesTheTable) {
    Interpreter_Bench bench;
    bench.line("CONFIGURATION_FIELDS", "FIELD_2_RC", "3,4");
    EXPECT_EQ(fieldText(bench.document, 2), "Fields(2) Rows 3, Columns 4\n");
    EXPECT_EQ(bench.document.Fields(2).Cells.rows(), 3);
    EXPECT_EQ(bench.document.Fields(2).Cells.columns(), 4);
}

TEST(FieldSize, WithoutACommaIsIgnored) {
    Interpreter_Bench bench;
    EXPECT_TRUE(bench.line("CONFIGURATION_FIELDS", "FIELD_2_RC", "3"));
    EXPECT_FALSE(bench.document.Fields(2).Cells.dimensioned());
}

TEST(FieldSize, WithoutACommaItLeavesTheTableAlone) {
    Interpreter_Bench bench;
    bench.makeField(2, "3,4");
    EXPECT_TRUE(bench.line("CONFIGURATION_FIELDS", "FIELD_2_RC", "5"));
    EXPECT_EQ(fieldText(bench.document, 2), "Fields(2) Rows 3, Columns 4\n");
    EXPECT_EQ(bench.document.Fields(2).Cells.rows(), 3);
}

TEST(FieldSize, OneRefusedHalfwayKeepsItsRows) {
    Interpreter_Bench bench;
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_1_RC", "7,32768"), 6);
    EXPECT_EQ(bench.document.Fields(1).Rows, 7);
    EXPECT_EQ(bench.document.Fields(1).Columns, 0);
    EXPECT_FALSE(bench.document.Fields(1).Cells.dimensioned());
}

TEST(FieldSize, ReadsTheNumericBeginnings) {
    Interpreter_Bench bench;
    bench.line("CONFIGURATION_FIELDS", "FIELD_2_RC", "3 rows,4 columns,5");
    EXPECT_EQ(fieldText(bench.document, 2), "Fields(2) Rows 3, Columns 4\n");
    bench.line("CONFIGURATION_FIELDS", "FIELD_2_RC", "x,");
    EXPECT_EQ(bench.document.Fields(2).Rows, 0);
    EXPECT_EQ(bench.document.Fields(2).Columns, 0);
}

TEST(FieldSize, TheSecondNumberEndsAtASemicolon) {
    Interpreter_Bench bench;
    bench.line("CONFIGURATION_FIELDS", "FIELD_2_RC", "3,4;5");
    EXPECT_EQ(fieldText(bench.document, 2), "Fields(2) Rows 3, Columns 4\n");
}

TEST(FieldSize, ARepeatedOneWipesTheField) {
    Interpreter_Bench bench;
    bench.makeField(1, "1,1");
    bench.line("FIELD_#_CONFIGURATION", 1, "ROWADDRESS_1", "100");
    bench.makeField(1, "1,1");
    EXPECT_EQ(bench.cellTextOf(1, 1, 1), "");
}

TEST(FieldSize, Beyond16BitsIsFailure6AndBelow0Failure9) {
    Interpreter_Bench bench;
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_1_RC", "32768,1"), 6);
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_1_RC", "1,32768"), 6);
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_1_RC", "-1,1"), 9);
    EXPECT_EQ(bench.failureOf("CONFIGURATION_FIELDS", 0, "FIELD_1_RC", "1,-1"), 9);
}

TEST(FieldSize, TheLargestIsCheap) {
    Interpreter_Bench bench;
    for (std::int32_t field = 1; field <= 100; ++field)
        bench.makeField(field, "32767,32767");
    EXPECT_EQ(bench.document.Fields(100).Columns, 32767);
}

// The lower grid's columns.

TEST(FieldColumns, DefineTheColumnInRow0) {
    Interpreter_Bench bench;
    bench.makeField(2, "1,3");
    bench.line("FIELD_#_COLUMNS", 2, "COL_3_DESC", "Set point ");
    bench.line("FIELD_#_COLUMNS", 2, "COL_3_WIDTH", "1100 ");
    bench.line("FIELD_#_COLUMNS", 2, "COL_3_ALIGNMENT", "rigth ");
    bench.line("FIELD_#_COLUMNS", 2, "COL_3_TYPE", "Numeric ");
    bench.line("FIELD_#_COLUMNS", 2, "COL_3_MODIFIABLE", "yes ");
    bench.line("FIELD_#_COLUMNS", 2, "COL_3_MDBUSREQUEST", "always ");
    bench.line("FIELD_#_COLUMNS", 2, "COL_3_BITSNEGATIVEFORMAT", "8 ");
    EXPECT_EQ(
        fieldText(bench.document, 2),
        "Fields(2) Rows 1, Columns 3\n"
        "Fields(2).Cells(0,3) Column 3, Modifiable, Value \"Set point\", Width 1100, Alignment \"rigth\", "
        "Column_Type \"Numeric\", Modbus_Request \"ALWAYS\", Bits_Negative_Format \"8\"\n");
}

TEST(FieldColumns, AnEmptyDescriptionIsAnEmptyHeading) {
    Interpreter_Bench bench;
    bench.makeField(1, "1,2");
    bench.cell(1, 0, 2).Value = "old";
    bench.line("FIELD_#_COLUMNS", 1, "COL_2_DESC", "");
    EXPECT_EQ(bench.cellTextOf(1, 0, 2), "Column 2");
}

TEST(FieldColumns, AnythingButYesIsNotModifiable) {
    Interpreter_Bench bench;
    bench.makeField(1, "1,1");
    for (const char* value : {"YES", "NO", "TRUE", ""}) {
        bench.line("FIELD_#_COLUMNS", 1, "COL_1_MODIFIABLE", value);
        EXPECT_EQ(bench.cell(1, 0, 1).Modifiable, std::string(value) == "YES") << value;
    }
}

TEST(FieldColumns, AheadOfTheFieldsSizeTheyAreFailure9) {
    Interpreter_Bench bench;
    EXPECT_EQ(failureNumber([&] {
                  bench.readTemplate("[FIELD_3_COLUMNS]\nCOL_1_DESC=Name\n"
                                     "[CONFIGURATION_FIELDS]\nFIELD_3_RC=1,1\n");
              }),
              9);
    EXPECT_EQ(bench.document.Last_Line, 2);
    EXPECT_FALSE(bench.document.Fields(3).Cells.dimensioned()) << "the rest of the file is unread";
}

TEST(FieldColumns, AColumnBeyondTheFieldIsFailure9) {
    Interpreter_Bench bench;
    bench.makeField(1, "1,2");
    EXPECT_EQ(bench.failureOf("FIELD_#_COLUMNS", 1, "COL_3_DESC", "x"), 9);
    EXPECT_EQ(bench.failureOf("FIELD_#_COLUMNS", 101, "COL_1_DESC", "x"), 9);
}

TEST(FieldColumns, AWidthThatIsNoNumberIsFailure13) {
    Interpreter_Bench bench;
    bench.makeField(1, "1,1");
    EXPECT_EQ(bench.failureOf("FIELD_#_COLUMNS", 1, "COL_1_WIDTH", "12 abc"), 13);
    EXPECT_EQ(bench.failureOf("FIELD_#_COLUMNS", 1, "COL_1_WIDTH", ""), 13);
    EXPECT_EQ(bench.failureOf("FIELD_#_COLUMNS", 1, "COL_1_WIDTH", "40000"), 6);
    EXPECT_EQ(bench.failureOf("FIELD_#_COLUMNS", 1, "COL_1_WIDTH", " -5.5 "), 0);
    EXPECT_EQ(bench.cell(1, 0, 1).Width, -6);
}

TEST(FieldColumns, AHeaderWithoutANumberMeansField0) {
    Interpreter_Bench bench;
    bench.makeField(0, "1,1");
    bench.readTemplate("[FIELD_x_COLUMNS]\nCOL_1_DESC=zero\nCOL__DESC=corner\n");
    EXPECT_EQ(bench.cell(0, 0, 1).Value, "zero");
    EXPECT_EQ(bench.cell(0, 0, 0).Value, "corner");
}

// Widths of a configuration file.

TEST(DefaultColumns, SetWidthsLeniently) {
    Interpreter_Bench bench;
    bench.makeField(2, "1,2");
    bench.line("DEFAULT_#_COLUMNS", 2, "COL_1_WIDTH", "800");
    bench.line("DEFAULT_#_COLUMNS", 2, "COL_2_WIDTH", "12abc");
    EXPECT_EQ(bench.cell(2, 0, 1).Width, 800);
    EXPECT_EQ(bench.cell(2, 0, 2).Width, 12);
    bench.line("DEFAULT_#_COLUMNS", 2, "COL_2_WIDTH", "wide");
    EXPECT_EQ(bench.cell(2, 0, 2).Width, 0);
    EXPECT_EQ(bench.failureOf("DEFAULT_#_COLUMNS", 2, "COL_2_WIDTH", "32768"), 6);
    EXPECT_EQ(bench.failureOf("DEFAULT_#_COLUMNS", 2, "COL_3_WIDTH", "1"), 9);
}

TEST(DefaultColumns, SetNothingButWidths) {
    Interpreter_Bench bench;
    bench.makeField(1, "1,1");
    EXPECT_TRUE(bench.line("DEFAULT_#_COLUMNS", 1, "COL_1_DESC", "x"));
    EXPECT_EQ(bench.cellTextOf(1, 0, 1), "");
}

} // namespace
} // namespace zorvane
