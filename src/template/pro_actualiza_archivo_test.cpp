// SPDX-License-Identifier: MIT
#include "template/pro_actualiza_archivo.h"
#include "template/testing/memory_files.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane {
namespace {

using doubles::failureNumber;
using doubles::Memory_Files;

const std::string fixedWidths = "[Default_1_Columns]\r\n"
                                "COL_1_WIDTH=1100\r\n"
                                "COL_2_WIDTH=800\r\n"
                                "COL_3_WIDTH=4415\r\n"
                                "\r\r\n"
                                "[Default_2_Columns]\r\n"
                                "COL_1_WIDTH=345\r\n"
                                "COL_2_WIDTH=555\r\n"
                                "COL_3_WIDTH=495\r\n"
                                "COL_4_WIDTH=495\r\n"
                                "COL_5_WIDTH=495\r\n"
                                "COL_6_WIDTH=555\r\n"
                                "COL_7_WIDTH=1115\r\n"
                                "COL_8_WIDTH=2625\r\n"
                                "\r\r\n"
                                "[Default_3_Columns]\r\n"
                                "COL_1_WIDTH=1100\r\n"
                                "COL_2_WIDTH=800\r\n"
                                "COL_3_WIDTH=4415\r\n"
                                "\r\r\n"
                                "[Default_4_Columns]\r\n"
                                "COL_1_WIDTH=1100\r\n"
                                "COL_2_WIDTH=800\r\n";

const std::string widthsOf207D = fixedWidths + "COL_3_WIDTH=4415\r\n";
const std::string otherWidths = fixedWidths + "COL_3_WIDTH=675\r\nCOL_4_WIDTH=1695\r\n";

/// What the update makes of a file's lines, ahead of the fixed block.
std::string updated(const std::string& text, const std::string& extension = "KVRT207D") {
    Memory_Files files;
    files.put("/home/SITE7." + extension, text);
    PRO_Actualiza_Archivo(files, "/home/SITE7", extension);
    EXPECT_EQ(files.text("/home/SITE7." + extension), text) << "the old file is left alone";
    const std::string output = files.text("/home/SITE7_Updated." + extension).value_or("no file");
    const std::string& block = extension == "KVRT207D" ? widthsOf207D : otherWidths;
    EXPECT_TRUE(output.ends_with(block)) << output;
    return output.substr(0, output.size() - std::min(output.size(), block.size()));
}

TEST(ActualizaArchivo, SwapsTheHeadersOfTheFirstTwoFieldsAndKeepsTheirRows) {
    EXPECT_EQ(updated("[FIELD_1_DEFAULT]\r\nROW_1=1,2\r\n\r\n[FIELD_2_DEFAULT]\r\nROW_1=3\r\n"),
              "[FIELD_2_DEFAULT]\r\nROW_1=1,2\r\n\r\n[FIELD_1_DEFAULT]\r\nROW_1=3\r\n");
    EXPECT_EQ(updated("[FIELD_1_COLUMNS]\n[FIELD_2_COLUMNS]\n"),
              "[FIELD_2_COLUMNS]\r\n[FIELD_1_COLUMNS]\r\n");
}

TEST(ActualizaArchivo, AHeaderIsFoundAnywhereInTheLineInAnyLetterCase) {
    EXPECT_EQ(updated("  [Field_1_Default] ; old\n"), "[FIELD_2_DEFAULT]\r\n");
    EXPECT_EQ(updated("x[field_2_columns]y=1\n"), "[FIELD_1_COLUMNS]\r\n");
}

TEST(ActualizaArchivo, TheFirstTestThatHoldsDecides) {
    EXPECT_EQ(updated("[FIELD_2_DEFAULT][FIELD_1_DEFAULT]\n"), "[FIELD_2_DEFAULT]\r\n");
    EXPECT_EQ(updated("[FIELD_1_COLUMNS]_WIDTH\n"), "[FIELD_2_COLUMNS]\r\n");
}

TEST(ActualizaArchivo, SwapsTheTwoDescriptiveLines) {
    EXPECT_EQ(updated("FIELD_1=,Channel Setup,Yes,Descriptions are stored offline only\r\n"
                      "field_2=,output setup,yes,descriptions are stored offline only\r\n"),
              "FIELD_2=,Channel Setup,Yes,Descriptions are stored offline only\r\n"
              "FIELD_1=,Output Setup,Yes,Descriptions are stored offline only\r\n");
}

TEST(ActualizaArchivo, ADescriptiveLineWithOtherTextIsCopied) {
    EXPECT_EQ(
        updated(
            "FIELD_1=,Channel Setup,No,Other\r\nFIELD_2=,Channel Setup,Yes,Descriptions are stored offline "
            "only\r\n"),
        "FIELD_1=,Channel Setup,No,Other\r\nFIELD_2=,Channel Setup,Yes,Descriptions are stored offline "
        "only\r\n");
}

TEST(ActualizaArchivo, DropsOldWidthsAndDefaultHeadersWhereverTheyStand) {
    EXPECT_EQ(
        updated(
            "[Default_1_Columns]\r\nCOL_1_WIDTH=5\r\ncol_2_width=6\r\nROW_1=a,my_width\r\n; default_ x\r\n"
            "ROW_2=b\r\n"),
        "ROW_2=b\r\n");
}

TEST(ActualizaArchivo, TheUpperGridsHeaderStays) {
    EXPECT_EQ(updated("[Configuration_Default]\n"), "[Configuration_Default]\r\n");
}

TEST(ActualizaArchivo, BlankLinesStandAsTheyAre) {
    EXPECT_EQ(updated("\r\n   \n\r\r\n"), "\r\n   \r\n\r\r\n");
}

TEST(ActualizaArchivo, OtherFieldsPassThrough) {
    EXPECT_EQ(updated("[Field_3_Default]\r\nROW_1=1\r\n[Field_12_Default]\r\nROW_1=2"),
              "[Field_3_Default]\r\nROW_1=1\r\n[Field_12_Default]\r\nROW_1=2\r\n");
}

TEST(ActualizaArchivo, AnotherModelHasOneColumnMoreInItsField4) {
    EXPECT_EQ(updated("ROW_1=1\n", "KVRT100"), "ROW_1=1\r\n");
    EXPECT_EQ(updated("ROW_1=1\n", "KVRT207D2"), "ROW_1=1\r\n");
}

TEST(ActualizaArchivo, TheModelIsTheTrimmedUpperCaseOfTheExtension) {
    Memory_Files files;
    files.put("SITE7. kvrt207d ", "");
    PRO_Actualiza_Archivo(files, "SITE7", " kvrt207d ");
    EXPECT_EQ(files.text("SITE7_Updated. kvrt207d "), widthsOf207D);
}

TEST(ActualizaArchivo, AnUpdatedFileGetsTheMarkASecondTime) {
    EXPECT_EQ(updatedPath("/home/SITE7_Updated", "KVRT"), "/home/SITE7_Updated_Updated.KVRT");
}

TEST(ActualizaArchivo, OverwritesAnEarlierUpdate) {
    Memory_Files files;
    files.put("SITE7.KVRT", "ROW_1=1\n");
    files.put("SITE7_Updated.KVRT", "something older and longer than the rest" + otherWidths);
    PRO_Actualiza_Archivo(files, "SITE7", "KVRT");
    EXPECT_EQ(files.text("SITE7_Updated.KVRT"), "ROW_1=1\r\n" + otherWidths);
}

TEST(ActualizaArchivo, CreatesTheOutputBeforeItMissesTheInput) {
    Memory_Files files;
    EXPECT_EQ(failureNumber([&] { PRO_Actualiza_Archivo(files, "SITE7", "KVRT"); }), 53);
    EXPECT_EQ(files.text("SITE7_Updated.KVRT"), "");
}

TEST(ActualizaArchivo, AFailureOfTheOutputGoesToTheCaller) {
    Memory_Files files;
    files.put("SITE7.KVRT", "ROW_1=1\n");
    files.failAfter(4);
    EXPECT_EQ(failureNumber([&] { PRO_Actualiza_Archivo(files, "SITE7", "KVRT"); }), 61);
    EXPECT_EQ(files.text("SITE7_Updated.KVRT"), "ROW_");
}

TEST(ActualizaArchivo, AnOutputThatCannotBeClosedIsAFailureToo) {
    Memory_Files files;
    files.put("SITE7.KVRT", "ROW_1=1\n");
    files.failOnClose();
    EXPECT_EQ(failureNumber([&] { PRO_Actualiza_Archivo(files, "SITE7", "KVRT"); }), 61);
}

} // namespace
} // namespace zorvane
