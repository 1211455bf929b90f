// SPDX-License-Identifier: MIT
#include "template/pro_leer_archivo.h"
#include "template/testing/document_text.h"
#include "template/testing/reading_bench.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

#include <cctype>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane {
namespace {

using doubles::documentText;
using doubles::failureNumber;
using doubles::Reading_Bench;

using Texts = std::vector<std::string>;

const std::string smallTemplate = "[HARDWARE]\r\n"
                                  "CONTROLLER=abc\r\n"
                                  "[CONFIGURATION_FIELDS]\r\n"
                                  "FIELD_1_DESC=Inputs\r\n"
                                  "FIELD_1_RC=2,2\r\n"
                                  "[FIELD_1_COLUMNS]\r\n"
                                  "COL_1_DESC=Set point; in bar\r\n"
                                  "[FIELD_1_DEFAULT]\r\n"
                                  "ROW_1=1,2\r\n";

TEST(LeerINIFIle, BuildsTheDocument) {
    Reading_Bench bench;
    bench.readTemplate(smallTemplate);
    EXPECT_EQ(documentText(bench.document), "Controller_Model ABC\n"
                                            "Field_Count 1\n"
                                            "Fields(1) Description \"Inputs\", Rows 2, Columns 2\n"
                                            "Fields(1).Cells(0,1) Column 1, Value \"Set point\"\n"
                                            "Fields(1).Cells(1,1) Value \"1\"\n"
                                            "Fields(1).Cells(1,2) Value \"2\"\n");
    EXPECT_FALSE(bench.document.Load_Failed);
    EXPECT_TRUE(bench.asker.messages.empty());
}

TEST(LeerINIFIle, AMissingTemplateIsToldAndTheDocumentStays) {
    Reading_Bench bench;
    bench.document.Controller_Model = "KEPT";
    bench.document.Always_Block_Count = 3;
    bench.document.Last_Line = 12;
    PRO_Leer_INIFIle(bench.document, bench.services(), "/app/NONE.ZTP");
    EXPECT_EQ(bench.document.Last_Line, 0);
    EXPECT_EQ(bench.asker.messages,
              (Texts{"16 [Zorvane] The ZTP file (/app/NONE.ZTP) was not found in: \r\n/app"}));
    EXPECT_TRUE(bench.document.Load_Failed);
    EXPECT_EQ(bench.document.Controller_Model, "KEPT");
    EXPECT_EQ(bench.document.Always_Block_Count, 3);
}

TEST(LeerINIFIle, AFileReadWellClearsLoadFailed) {
    Reading_Bench bench;
    bench.document.Load_Failed = true;
    bench.readTemplate("");
    EXPECT_FALSE(bench.document.Load_Failed);
}

TEST(LeerINIFIle, ATemplateIsNeverRejected) {
    Reading_Bench bench;
    bench.readTemplate(smallTemplate + "ROW_1=7,8,9\r\nROW_2=3,4\r\n");
    EXPECT_EQ(bench.cell(1, 1, 2).Value, "8");
    EXPECT_EQ(bench.cell(1, 2, 2).Value, "4") << "reading went on";
}

TEST(LeerINIFIle, KeyLinesAheadOfAnyHeaderAreIgnored) {
    Reading_Bench bench;
    bench.readTemplate("CONTROLLER=X\n[HARDWARE]\n");
    EXPECT_EQ(bench.document.Controller_Model, "");
}

TEST(LeerINIFIle, ASectionMayHaveAnyLetterCase) {
    for (const char* header :
         {"[FIELD_1_COLUMNS]", "[field_1_columns]", "[field_1_COLUMNS]", "[Field_1_Columns]"}) {
        Reading_Bench bench;
        bench.readTemplate(std::string("[Configuration_Fields]\nField_1_Rc=1,1\n") + header +
                           "\nCOL_1_DESC=x\n");
        EXPECT_EQ(bench.cell(1, 0, 1).Value, "x") << header;
    }
}

TEST(LeerINIFIle, IndentedAndSpacedKeysAreIgnored) {
    Reading_Bench bench;
    bench.readTemplate("[HARDWARE]\n CONTROLLER=A\nCONTROLLER =B\n ;CONTROLLER=C\n");
    EXPECT_EQ(bench.document.Controller_Model, "");
}

TEST(LeerINIFIle, CountsTheAlwaysBlocks) {
    Reading_Bench bench;
    bench.readTemplate(
        "[PORT_CONFIGURATION]\n"
        "HOLDINGREGISTERSBLOCK_1=1-9\nHOLDINGREGISTERSBLOCK_2=10-19\nHOLDINGREGISTERSBLOCK_3=20-29\n"
        "HOLDINGREQUESTBLOCK_1=ALWAYS\nHOLDINGREQUESTBLOCK_2=ALWAYS2\nHOLDINGREQUESTBLOCK_3=always\n");
    EXPECT_EQ(bench.document.Always_Block_Count, 2) << "the word is compared as a whole";
}

TEST(LeerINIFIle, CountsWhateverBlocksAreThereEvenWithoutALineOfItsOwn) {
    Reading_Bench bench;
    bench.document.Holding_Blocks.redim(2);
    bench.document.Holding_Blocks(0).Request = "ALWAYS";
    bench.document.Holding_Blocks(2).Request = "ALWAYS";
    bench.document.Holding_Blocks(1).Request = "Always";
    bench.readTemplate("");
    EXPECT_EQ(bench.document.Always_Block_Count, 2);
}

TEST(LeerINIFIle, WithoutAnyBlockEverTheCountItselfIsFailure9) {
    Reading_Bench bench;
    bench.document.Holding_Blocks.erase();
    bench.document.Always_Block_Count = 3;
    EXPECT_EQ(failureNumber([&] { bench.readTemplate(smallTemplate); }), 9);
    EXPECT_EQ(bench.document.Controller_Model, "ABC") << "the file is read by then";
    EXPECT_EQ(bench.document.Always_Block_Count, 0);
    EXPECT_EQ(bench.document.Last_Line, 0);
}

/// A template that fails in its line 3; the two before it count, the one after it doesn't.
struct Failing_Template {
    const char* line;
    int failure;
};

/// The name of the test among those that ctest lists.
void PrintTo(const Failing_Template& failing, std::ostream* out) {
    for (const char c : std::string_view(failing.line))
        *out << (std::isalnum(static_cast<unsigned char>(c)) != 0 ? c : '_');
}

class LeerINIFIleFails : public testing::TestWithParam<Failing_Template> {};

TEST_P(LeerINIFIleFails, LeavesWhatWasReadAndTheRestUnread) {
    Reading_Bench bench;
    const std::string text =
        std::string("[HARDWARE]\nCONTROLLER=FIRST\n") + GetParam().line + "\n[HARDWARE]\nCONTROLLER=SECOND\n";
    EXPECT_EQ(failureNumber([&] { bench.readTemplate(text); }), GetParam().failure);
    EXPECT_EQ(bench.document.Controller_Model, "FIRST");
    EXPECT_EQ(bench.document.Last_Line, GetParam().line[0] == '[' && GetParam().line[1] != '\0' ? 4 : 3);
    EXPECT_TRUE(bench.asker.messages.empty());
    EXPECT_FALSE(bench.document.Load_Failed);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, LeerINIFIleFails,
    testing::Values(Failing_Template{"[", 5}, Failing_Template{"[CONFIGURATION_FIELDS]\nFIELD_101_DESC=x", 9},
                    Failing_Template{"[CONFIGURATION_FIELDS]\nFIELD_1_RC=40000,1", 6},
                    Failing_Template{"[FIELD_1_COLUMNS]\nCOL_1_DESC=x", 9},
                    Failing_Template{"[FIELD_1_CONFIGURATION]\nROWADDRESS_1=1", 9},
                    Failing_Template{"[CONFIGURATION_COLUMNS]\nCOL_1_WIDTH=abc", 13},
                    Failing_Template{"[PORT_CONFIGURATION]\nHOLDINGREQUESTBLOCK_1=ALWAYS", 9},
                    Failing_Template{"[DEFAULT_101_COLUMNS]\nCOL_1_WIDTH=1", 9}));

TEST(LeerINIFIle, AFileThatCantBeReadIsAFailureOfTheCaller) {
    Reading_Bench bench;
    bench.files.put("/app/ABC.ZTP", "");
    bench.files.refuse("/app/ABC.ZTP");
    EXPECT_EQ(failureNumber([&] { PRO_Leer_INIFIle(bench.document, bench.services(), "/app/ABC.ZTP"); }), 70);
    EXPECT_TRUE(bench.asker.messages.empty());
}

TEST(LeerINIFIle, FindsTheFileInAnyLetterCase) {
    Reading_Bench bench;
    bench.files.put("/app/abc.ztp", smallTemplate);
    PRO_Leer_INIFIle(bench.document, bench.services(), "/app/ABC.ZTP");
    EXPECT_EQ(bench.document.Controller_Model, "ABC");
}

TEST(LeerDefaultFIle, PutsItsValuesOverTheTemplates) {
    Reading_Bench bench;
    bench.readTemplate(smallTemplate);
    EXPECT_TRUE(bench.readConfiguration(
        "[Field_1_Default]\r\nROW_1=9,8\r\n[Default_1_Columns]\r\nCOL_2_WIDTH=55\r\n"));
    EXPECT_EQ(bench.cell(1, 1, 1).Value, "9");
    EXPECT_EQ(bench.cell(1, 0, 2).Width, 55);
    EXPECT_FALSE(bench.document.Load_Failed);
}

TEST(LeerDefaultFIle, AMissingFileIsTold) {
    Reading_Bench bench;
    bool ok = true;
    bench.document.Last_Line = 7;
    PRO_Leer_DefaultFIle(bench.document, bench.services(), "/home/none.ABC", ok);
    EXPECT_EQ(bench.document.Last_Line, 0) << "no line of an earlier file";
    EXPECT_EQ(bench.asker.messages, (Texts{"64 [Zorvane] The default file was not found in: \r\n/app"}));
    EXPECT_FALSE(ok);
    EXPECT_TRUE(bench.document.Load_Failed);
}

TEST(LeerDefaultFIle, StopsAtTheFirstRejectedLine) {
    Reading_Bench bench;
    bench.readTemplate(smallTemplate);
    EXPECT_FALSE(bench.readConfiguration("[Configuration_Default]\nFIELD_1=,Kept\n"
                                         "[Field_1_Default]\nROW_1=3,4,5\nROW_2=6,7\n"));
    EXPECT_EQ(bench.document.Fields(1).Config_Values(2), "Kept") << "the lines before it are in";
    EXPECT_EQ(bench.cell(1, 1, 1).Value, "3");
    EXPECT_EQ(bench.cell(1, 1, 2).Value, "4");
    EXPECT_EQ(bench.cell(1, 2, 1).Value, "") << "those after it aren't";
    EXPECT_EQ(bench.document.Last_Line, 4);
    EXPECT_TRUE(bench.asker.messages.empty());
    EXPECT_FALSE(bench.document.Load_Failed);
}

TEST(LeerDefaultFIle, AFailureLeavesTheCallersResultAsItWas) {
    Reading_Bench bench;
    bench.files.put("/home/site7.ABC", "[Default_101_Columns]\nCOL_1_WIDTH=1\n");
    for (const bool before : {true, false}) {
        bool ok = before;
        EXPECT_EQ(failureNumber(
                      [&] { PRO_Leer_DefaultFIle(bench.document, bench.services(), "/home/site7.ABC", ok); }),
                  9);
        EXPECT_EQ(ok, before);
    }
}

TEST(LeerDefaultFIle, DoesNotCountTheAlwaysBlocks) {
    Reading_Bench bench;
    EXPECT_TRUE(bench.readConfiguration("[PORT_CONFIGURATION]\nHOLDINGREGISTERSBLOCK_1=1-2\n"
                                        "HOLDINGREQUESTBLOCK_1=ALWAYS\n"));
    EXPECT_EQ(bench.document.Always_Block_Count, 0);
}

TEST(LeerDefaultFIle, MayHoldTheOlderWidthSectionsAndAnyOther) {
    Reading_Bench bench;
    bench.readTemplate(smallTemplate);
    EXPECT_TRUE(bench.readConfiguration(
        "; a comment\n[FIELD_1_COLUMNS]\nCOL_1_WIDTH=77\n[COLORS]\nTXT_1_NORMAL=RED\n"));
    EXPECT_EQ(bench.cell(1, 0, 1).Width, 77);
    EXPECT_EQ(bench.document.Colors.Color_Txt_Normal, "RED");
}

TEST(LeerDefaultFIle, AnEmptyFileIsReadWell) {
    Reading_Bench bench;
    EXPECT_TRUE(bench.readConfiguration(""));
}

TEST(LeerDefaultFIle, LinesMayEndInCrLfOrLfAndTheLastInNothing) {
    for (const char* text :
         {"[Field_1_Default]\r\nROW_1=5,6\r\nROW_2=7,8", "[Field_1_Default]\nROW_1=5,6\nROW_2=7,8"}) {
        Reading_Bench bench;
        bench.readTemplate(smallTemplate);
        EXPECT_TRUE(bench.readConfiguration(text));
        EXPECT_EQ(bench.cell(1, 1, 2).Value + bench.cell(1, 2, 2).Value, "68");
    }
}

TEST(LeerDefaultFIle, ALoneCrIsACharacterOfAValue) {
    Reading_Bench bench;
    bench.readTemplate(smallTemplate);
    EXPECT_TRUE(bench.readConfiguration("[Field_1_Default]\nROW_1=5\rROW_2=7\n"));
    EXPECT_EQ(bench.cell(1, 1, 1).Value, "5\rROW_2=7");
}

} // namespace
} // namespace zorvane
