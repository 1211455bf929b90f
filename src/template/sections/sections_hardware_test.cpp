// SPDX-License-Identifier: MIT
#include "template/testing/interpreter_bench.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using doubles::documentText;
using doubles::Interpreter_Bench;

TEST(Hardware, TheControllerIsItsTrimmedUpperCase) {
    Interpreter_Bench bench;
    bench.line("HARDWARE", "CONTROLLER", " kvrt\xE4 ");
    EXPECT_EQ(bench.document.Controller_Model, "KVRT\xC4");
}

TEST(DownloadBlocks, StandFromEntry0OnAndTheLastEntryIsAlwaysEmpty) {
    Interpreter_Bench bench;
    bench.line("HARDWARE", "CONTROLLER", "X1");
    bench.line("HARDWARE", "DOWNLOAD_7_MULTIPLEREGISTERBLOCKNUMERIC", "100-109");
    bench.line("HARDWARE", "Download_1_MultipleRegisterBlockMessageList", "200-201");
    bench.line("HARDWARE", "DOWNLOAD_1_MULTIPLEREGISTERBLOCKASCII", " 300 - 310 ");
    EXPECT_EQ(
        documentText(bench.document),
        "Controller_Model X1\n"
        "Download_Blocks(0) Model \"X1\", First_Address \"100\", Last_Address \"109\"\n"
        "Download_Blocks(1) Model \"X1\", First_Address \"200\", Last_Address \"201\", Block_Kind 1\n"
        "Download_Blocks(2) Model \"X1\", First_Address \" 300 \", Last_Address \" 310 \", Block_Kind 2\n"
        "Download_Blocks(3) empty\n");
}

TEST(DownloadBlocks, HaveTheModelAsItStoodWhenTheLineWasRead) {
    Interpreter_Bench bench;
    bench.line("HARDWARE", "DOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC", "1-2");
    bench.line("HARDWARE", "CONTROLLER", "LATE");
    EXPECT_EQ(bench.document.Download_Blocks(0).Model, "");
}

TEST(DownloadBlocks, ARangeIsCutAtItsFirstDash) {
    Interpreter_Bench bench;
    bench.line("HARDWARE", "DOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC", "1-2-3");
    EXPECT_EQ(bench.document.Download_Blocks(0).First_Address, "1");
    EXPECT_EQ(bench.document.Download_Blocks(0).Last_Address, "2-3");
}

TEST(DownloadBlocks, ALineWithoutADashHasNoEffect) {
    Interpreter_Bench bench;
    EXPECT_TRUE(bench.line("HARDWARE", "DOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC", "100"));
    EXPECT_EQ(bench.document.Download_Blocks.upperBound(), 0);
    bench.document.Download_Blocks.erase();
    EXPECT_EQ(bench.failureOf("HARDWARE", 0, "DOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC", "100"), 0);
}

TEST(DownloadBlocks, InATemplateReadAtTheStartTheyFailForNobodyMadeRoom) {
    Interpreter_Bench bench;
    bench.document.Download_Blocks.erase();
    EXPECT_EQ(bench.failureOf("HARDWARE", 0, "DOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC", "1-2"), 9);
}

} // namespace
} // namespace zorvane
