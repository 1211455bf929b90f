// SPDX-License-Identifier: MIT
#include "template/pro_escribe_archivo.h"
#include "template/testing/document_text.h"
#include "template/testing/reading_bench.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane {
namespace {

using doubles::fieldText;
using doubles::Reading_Bench;

/// A text with lone LF as a written file has it.
std::string crLf(const std::string& text) {
    std::string result;
    for (const char c : text)
        result += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return result;
}

/// One field of two rows and two columns, column 2 a list, and two texts for the upper grid.
const std::string listTemplate = "[CONFIGURATION_COLUMNS]\nCONFIGURATION_NC=3\n"
                                 "[CONFIGURATION_FIELDS]\nFIELD_1_DESC=Channels\nFIELD_1_RC=2,2\n"
                                 "[FIELD_1_COLUMNS]\nCOL_1_WIDTH=1100\nCOL_2_WIDTH=800\n"
                                 "[FIELD_1_CONFIGURATION]\nROWADDRESS_1=10,20\nROWADDRESS_2=11,21\n"
                                 "ROWADDRESSFORMAT_2=TIME\n"
                                 "[FIELD_1_MESSAGES]\nADDRESS_20=(0)Off,(1)On\nADDRESS_21=(0)Off,(1)On\n"
                                 "[FIELD_1_DEFAULT]\nROW_1=10,1\nROW_2=90,Off\n"
                                 "[CONFIGURATION_DEFAULT]\nFIELD_1=,Channel Setup,Yes\n";

struct Writing : testing::Test {
    explicit Writing(const std::string& text = listTemplate) { bench.readTemplate(text); }

    std::string write() {
        bench.files.addFolder("/home");
        std::string result = "old";
        PRO_Escribe_Archivo(bench.document, bench.files, "/home/SITE7.ABC", result);
        return result;
    }
    std::string written() {
        EXPECT_EQ(write(), "");
        return bench.files.text("/home/SITE7.ABC").value_or("no file");
    }

    Reading_Bench bench;
};

TEST_F(Writing, AWholeFile) {
    EXPECT_EQ(written(), crLf("[Configuration_Default]\n"
                              "FIELD_1=,Channel Setup,Yes\n"
                              "\n"
                              "[Field_1_Default]\n"
                              "ROW_1=10,On\n"
                              "ROW_2=1:30,Off\n"
                              "\n"
                              "[Default_1_Columns]\n"
                              "COL_1_WIDTH=1100\n"
                              "COL_2_WIDTH=800\n"
                              "\n"));
    EXPECT_FALSE(bench.document.Save_Failed);
}

TEST(WritingNothing, ADocumentWithoutFieldsIsAHeaderAndAnEmptyLine) {
    Reading_Bench bench;
    std::string result;
    PRO_Escribe_Archivo(bench.document, bench.files, "SITE7.ABC", result);
    EXPECT_EQ(result, "");
    EXPECT_EQ(bench.files.text("SITE7.ABC"), "[Configuration_Default]\r\n\r\n");
}

TEST(WritingFields, AllValuesComeBeforeAllWidths) {
    Reading_Bench bench;
    bench.readTemplate(
        "[CONFIGURATION_FIELDS]\nFIELD_1_DESC=a\nFIELD_1_RC=0,1\nFIELD_2_DESC=b\nFIELD_2_RC=1,0\n"
        "[FIELD_1_COLUMNS]\nCOL_1_WIDTH=-7\n");
    std::string result;
    PRO_Escribe_Archivo(bench.document, bench.files, "SITE7.ABC", result);
    EXPECT_EQ(bench.files.text("SITE7.ABC"), crLf("[Configuration_Default]\nFIELD_1=\nFIELD_2=\n\n"
                                                  "[Field_1_Default]\n\n"
                                                  "[Field_2_Default]\nROW_1=\n\n"
                                                  "[Default_1_Columns]\nCOL_1_WIDTH=-7\n\n"
                                                  "[Default_2_Columns]\n\n"))
        << "a field without rows has its header and the empty line";
}

TEST_F(Writing, AnEmptyListValueWritesTheTextOfCode0) {
    bench.cell(1, 1, 2).Value = "";
    EXPECT_NE(written().find("\r\nROW_1=10,Off\r\n"), std::string::npos);
}

TEST_F(Writing, AnEmptyListValueWithoutACode0WritesAnEmptyItem) {
    bench.cell(1, 1, 2).Messages(1).Code = 5;
    bench.cell(1, 1, 2).Value = "";
    EXPECT_NE(written().find("\r\nROW_1=10,\r\nROW_2=1:30,Off\r\n"), std::string::npos);
}

TEST_F(Writing, AnUnknownCodeWritesAnEmptyItem) {
    bench.cell(1, 1, 2).Value = "9";
    bench.cell(1, 2, 2).Value = "1.4x";
    EXPECT_NE(written().find("\r\nROW_1=10,\r\nROW_2=1:30,On\r\n"), std::string::npos)
        << "a code is the rounded number at its beginning";
}

TEST_F(Writing, ReadingItBackGivesTheSameDocumentAndTheSameFile) {
    const std::string first = written();
    const std::string before = fieldText(bench.document, 1);
    Reading_Bench again;
    again.readTemplate(listTemplate);
    EXPECT_TRUE(again.readConfiguration(first));
    EXPECT_EQ(fieldText(again.document, 1), before);
    std::string result;
    PRO_Escribe_Archivo(again.document, again.files, "SITE7.ABC", result);
    EXPECT_EQ(again.files.text("SITE7.ABC"), first);
}

TEST_F(Writing, AListTextThatOccursTwiceReadsBackAsTheFirstCode) {
    Cell_Rec& cell = bench.cell(1, 1, 2);
    cell.Messages(2).Text = "Off";
    cell.Value = "1";
    EXPECT_TRUE(bench.readConfiguration(written()));
    EXPECT_EQ(bench.cell(1, 1, 2).Value, "0");
}

TEST_F(Writing, ASemicolonInAValueCutsItWhenReadBack) {
    bench.cell(1, 1, 1).Value = "a;b";
    const std::string text = written();
    EXPECT_NE(text.find("\r\nROW_1=a;b,On\r\n"), std::string::npos) << "written as it stands";
    bench.cell(1, 1, 2).Value = "0";
    EXPECT_TRUE(bench.readConfiguration(text));
    EXPECT_EQ(bench.cell(1, 1, 1).Value, "a");
    EXPECT_EQ(bench.cell(1, 1, 2).Value, "0") << "the rest of the line is gone";
}

TEST_F(Writing, ACommaInAValuePushesTheNextColumnsAndRejectsTheFile) {
    bench.cell(1, 1, 1).Value = "a,b";
    const std::string text = written();
    EXPECT_FALSE(bench.readConfiguration(text));
    EXPECT_EQ(bench.cell(1, 1, 1).Value, "a");
    EXPECT_EQ(bench.cell(1, 1, 2).Value, "0") << "b is no text of its list";
}

TEST_F(Writing, ALineEndThatAControllerHeldIsWrittenAsItStands) {
    bench.document.Fields(1).Cells(1, 1).Value = "Tank\nNorth";
    EXPECT_NE(written().find("\r\nROW_1=Tank\nNorth,On\r\n"), std::string::npos);
}

TEST_F(Writing, AFileOfATemplateWithMoreColumnsIsRejectedAtItsFirstRow) {
    const std::string text = written();
    Reading_Bench narrow;
    narrow.readTemplate("[CONFIGURATION_FIELDS]\nFIELD_1_DESC=Channels\nFIELD_1_RC=2,1\n");
    EXPECT_FALSE(narrow.readConfiguration(text));
    EXPECT_EQ(narrow.document.Last_Line, 5);
}

TEST_F(Writing, AShorterListOfUpperTextsEndsTheSaveWithFailure9) {
    bench.document.Fields(1).Config_Values.redim(2);
    EXPECT_EQ(write(), "Subscript out of range");
    EXPECT_TRUE(bench.document.Save_Failed);
    EXPECT_EQ(bench.files.text("/home/SITE7.ABC"), "[Configuration_Default]\r\n")
        << "as far as it was written";
}

TEST_F(Writing, AFailureMidwayLeavesTheFileAsFarAsItWasWritten) {
    bench.files.put("/home/SITE7.ABC", "the old file");
    bench.files.failAfter(30);
    EXPECT_EQ(write(), "Disk full");
    EXPECT_TRUE(bench.document.Save_Failed);
    EXPECT_EQ(bench.files.text("/home/SITE7.ABC"), "[Configuration_Default]\r\nFIELD")
        << "the old contents are gone";
}

TEST_F(Writing, AFailureAtEachByteIsReported) {
    const std::size_t whole = written().size();
    for (std::size_t bytes = 0; bytes < whole; ++bytes) {
        bench.document.Save_Failed = false;
        bench.files.failAfter(bytes, Failure::PathFileAccess);
        ASSERT_EQ(write(), "Path/File access error") << bytes;
        ASSERT_TRUE(bench.document.Save_Failed) << bytes;
        ASSERT_EQ(bench.files.text("/home/SITE7.ABC")->size(), bytes);
    }
    bench.files.failAfter(whole);
    EXPECT_EQ(write(), "");
}

TEST_F(Writing, AFailureAtTheEndIsReported) {
    bench.files.failOnClose();
    EXPECT_EQ(write(), "Disk full");
    EXPECT_TRUE(bench.document.Save_Failed);
}

TEST_F(Writing, AReadOnlyPathOrAMissingFolderIsReported) {
    bench.files.refuse("/home/SITE7.ABC");
    EXPECT_EQ(write(), "Permission denied");
    EXPECT_TRUE(bench.document.Save_Failed);
    std::string result;
    PRO_Escribe_Archivo(bench.document, bench.files, "/nowhere/SITE7.ABC", result);
    EXPECT_EQ(result, "Path not found");
}

TEST_F(Writing, SuccessLeavesAnEarlierSaveFailedAlone) {
    bench.document.Save_Failed = true;
    EXPECT_EQ(write(), "");
    EXPECT_TRUE(bench.document.Save_Failed) << "its reader clears it";
}

TEST_F(Writing, OverwritesTheFileThatExistsInAnotherLetterCase) {
    bench.files.put("/home/site7.abc", "old");
    EXPECT_EQ(write(), "");
    EXPECT_FALSE(bench.files.text("/home/SITE7.ABC"));
    EXPECT_TRUE(bench.files.text("/home/site7.abc")->starts_with("[Configuration_Default]"));
}

TEST_F(Writing, WhatHoldsIsWrittenWithoutTheLinesThatCantBeMade) {
    const auto whole = bench.files.create("whole");
    writeConfiguration(bench.document, *whole);
    bench.document.Fields(1).Cells(1, 2).Value = "99999999999"; // a code beyond 32 bits
    bench.document.Config_Column_Count = 90;
    EXPECT_EQ(doubles::failureNumber([&] { writeConfiguration(bench.document, *bench.files.create("no")); }),
              9);
    const auto holding = bench.files.create("holding");
    writeWhatHolds(bench.document, *holding);
    std::string expected = *bench.files.text("whole");
    for (const std::string beginning : {"FIELD_1=", "ROW_1="}) {
        const std::size_t start = expected.find(beginning);
        expected.erase(start, expected.find('\n', start) + 1 - start);
    }
    EXPECT_EQ(bench.files.text("holding"), expected);
}

} // namespace
} // namespace zorvane
