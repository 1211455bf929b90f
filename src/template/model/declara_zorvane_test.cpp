// SPDX-License-Identifier: MIT
#include "template/model/declara_zorvane.h"
#include "template/testing/document_text.h"
#include "template/testing/reading_bench.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::documentText;

TEST(DeclaraZorvane, StartsWithTheDefaultColours) {
    const Declara_Zorvane document;
    EXPECT_EQ(document.Colors.Color_Txt_Modifiable, "BLACK");
    EXPECT_EQ(document.Colors.Color_Txt_Exception, "RED");
    EXPECT_EQ(document.Colors.Color_Txt_Writing, "BLUE");
    EXPECT_EQ(document.Colors.Color_Txt_Error, "RED");
    EXPECT_EQ(document.Colors.Color_Txt_Normal, "BLACK");
    EXPECT_EQ(document.Colors.Color_Back_Modifiable, "YELLOW");
    EXPECT_EQ(document.Colors.Color_Back_Exception, "YELLOW");
    EXPECT_EQ(document.Colors.Color_Back_Writing, "YELLOW");
    EXPECT_EQ(document.Colors.Color_Back_Normal, "WHITE");
    EXPECT_EQ(document.Colors.Color_Back_Error, "YELLOW");
}

TEST(DeclaraZorvane, StartsEmpty) {
    EXPECT_EQ(documentText(Declara_Zorvane{}), "");
    EXPECT_FALSE(Declara_Zorvane{}.Save_Failed);
    EXPECT_FALSE(Declara_Zorvane{}.No_Place);
    EXPECT_EQ(Declara_Zorvane{}.Selected_Field, 0);
    EXPECT_EQ(Declara_Zorvane{}.Forza_Analogas_Ms, 0);
}

TEST(DeclaraZorvane, ClosingADocumentLeavesBlocksTimingsAndColours) {
    doubles::Reading_Bench bench;
    bench.readTemplate("[HARDWARE]\nCONTROLLER=X1\nDOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=1-2\n"
                       "[CONFIGURATION_COLUMNS]\nNUMERIC_ROWS=YES\nCONFIGURATION_NC=2\n"
                       "[CONFIGURATION_FIELDS]\nFIELD_1_DESC=Inputs\nFIELD_1_RC=1,1\n"
                       "[ADDRESS_NOTDOWNLOADABLE]\nADDRESS_1=100\n"
                       "[PORT_CONFIGURATION]\nCOMMUNICATIONS_1_OUT=900\nHOLDINGREGISTERSBLOCK_1=1-9\n"
                       "[COLORS]\nTXT_1_NORMAL=GREEN\n");
    bench.document.File_Stem = "SITE7";
    bench.document.File_Extension = "ABC";
    bench.document.File_Folder = "/home/";
    PRO_Limpia_Modelo(bench.document);
    EXPECT_EQ(documentText(bench.document),
              "Comm_Out_Ms 900\n"
              "Holding_Block_Count 1\n"
              "Download_Blocks(0) Model \"X1\", First_Address \"1\", Last_Address \"2\"\n"
              "Download_Blocks(1) empty\n"
              "Holding_Blocks(0) empty\n"
              "Holding_Blocks(1) First_Address 1, Last_Address 9, Function_Code 3, "
              "Request \"NONE\"\n"
              "Color_Txt_Normal \"GREEN\"\n");
    EXPECT_EQ(bench.document.Fields.upperBound(), 0);
    EXPECT_EQ(bench.document.Config_Columns.upperBound(), 0);
    EXPECT_EQ(bench.document.Not_Downloadable.upperBound(), 0);
    EXPECT_EQ(bench.document.File_Stem + bench.document.File_Extension + bench.document.File_Folder, "");
}

TEST(DeclaraZorvane, OpeningMakesRoomAndKeepsTheScanBlocksArray) {
    Declara_Zorvane document;
    document.Holding_Blocks.redim(2);
    document.Holding_Block_Count = 2;
    PRO_Prepara_Lectura(document);
    EXPECT_EQ(document.Fields.upperBound(), 100);
    EXPECT_EQ(document.Download_Blocks.upperBound(), 0);
    EXPECT_EQ(document.Holding_Block_Count, 0);
    EXPECT_EQ(document.Holding_Blocks.upperBound(), 2);
}

TEST(DocumentMark, HoldsUntilTheFieldsAreEmptied) {
    Declara_Zorvane document;
    PRO_Prepara_Lectura(document);
    const Document_Mark mark(document);
    document.Fields(1).Description = "Outputs";
    EXPECT_TRUE(mark.holds());
    PRO_Limpia_Modelo(document);
    EXPECT_FALSE(mark.holds());
    EXPECT_TRUE(Document_Mark(document).holds());
}

} // namespace
} // namespace zorvane
