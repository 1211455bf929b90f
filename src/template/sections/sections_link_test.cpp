// SPDX-License-Identifier: MIT
#include "template/testing/interpreter_bench.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane {
namespace {

using doubles::documentText;
using doubles::Interpreter_Bench;

using Calls = std::vector<std::string>;

TEST(NotDownloadable, EachLineIsAnEntryAsItStands) {
    Interpreter_Bench bench;
    EXPECT_TRUE(bench.line("ADDRESS_NOTDOWNLOADABLE", "ADDRESS_7", "40100"));
    EXPECT_TRUE(bench.line("ADDRESS_NOTDOWNLOADABLE", "address_7", " 40200/HI "));
    EXPECT_EQ(documentText(bench.document), "Not_Downloadable_Count 2\n"
                                            "Not_Downloadable(1) 40100\n"
                                            "Not_Downloadable(2)  40200/HI \n");
}

TEST(NotDownloadable, MoreThan32767AreFailure6) {
    Interpreter_Bench bench;
    bench.document.Not_Downloadable_Count = 32767;
    EXPECT_EQ(bench.failureOf("ADDRESS_NOTDOWNLOADABLE", 0, "ADDRESS_1", "40100"), 6);
    EXPECT_EQ(bench.document.Not_Downloadable_Count, 32767);
}

TEST(NotDownloadable, AKeyWithASecondUnderscoreIsAnotherKey) {
    Interpreter_Bench bench;
    bench.line("ADDRESS_NOTDOWNLOADABLE", "ADDRESS_1_X", "40100");
    EXPECT_EQ(bench.document.Not_Downloadable_Count, 0);
}

TEST(PortConfiguration, TheLinksOwnPortSettingsWin) {
    Interpreter_Bench bench;
    const std::string before = documentText(bench.document);
    EXPECT_TRUE(bench.line("PORT_CONFIGURATION", "PORT", "3"));
    EXPECT_TRUE(bench.line("PORT_CONFIGURATION", "SETTINGS", "9600,n,8,1"));
    EXPECT_TRUE(bench.line("PORT_CONFIGURATION", "RTU", "YES"));
    EXPECT_TRUE(bench.line("PORT_CONFIGURATION", "RETRIES", "5"));
    EXPECT_EQ(documentText(bench.document), before);
    EXPECT_TRUE(bench.link.calls.empty());
}

TEST(PortConfiguration, TimingsGoToTheLinkTogetherEachTime) {
    Interpreter_Bench bench;
    bench.line("PORT_CONFIGURATION", "COMMUNICATIONS_1_REQUEST", "50");
    bench.line("PORT_CONFIGURATION", "communications_1_out", "1000 ms");
    bench.line("PORT_CONFIGURATION", "COMMUNICATIONS_9_SIZE", "64");
    EXPECT_EQ(bench.link.calls, (Calls{"SetTimings 50 0", "SetTimings 50 1000"}));
    EXPECT_EQ(documentText(bench.document), "Comm_Request_Ms 50\nComm_Out_Ms 1000\nComm_Size 64\n"
                                            "Forza_Analogas_Ms 200\n");
}

TEST(PortConfiguration, MalformedTimingsAre0) {
    Interpreter_Bench bench;
    bench.line("PORT_CONFIGURATION", "COMMUNICATIONS_1_REQUEST", "soon");
    EXPECT_EQ(bench.link.calls, (Calls{"SetTimings 0 0"}));
    EXPECT_EQ(bench.failureOf("PORT_CONFIGURATION", 0, "COMMUNICATIONS_1_OUT", "99999999999"), 6);
}

TEST(PortConfiguration, APauseWhoseFourfoldIsBeyond32BitsIsToldToTheLinkAndThenFails) {
    Interpreter_Bench bench;
    bench.line("PORT_CONFIGURATION", "COMMUNICATIONS_1_REQUEST", "536870911");
    EXPECT_EQ(bench.document.Forza_Analogas_Ms, 2147483644);
    EXPECT_EQ(bench.failureOf("PORT_CONFIGURATION", 0, "COMMUNICATIONS_1_REQUEST", "536870912"), 6);
    EXPECT_EQ(bench.document.Comm_Request_Ms, 536870912);
    EXPECT_EQ(bench.link.calls, (Calls{"SetTimings 536870911 0", "SetTimings 536870912 0"}));
}

TEST(PortConfiguration, TheImageSizeGoesToTheLink) {
    Interpreter_Bench bench;
    bench.line("PORT_CONFIGURATION", "HOLDINGREGISTERS", "9999");
    EXPECT_EQ(bench.link.calls, (Calls{"SetHoldingRegisters 1 9999 True 1"}));
}

TEST(PortConfiguration, TheImageSizeIsNoWholeNumberOf32Bits) {
    Interpreter_Bench bench;
    bench.line("PORT_CONFIGURATION", "HOLDINGREGISTERS", "2.5");
    bench.line("PORT_CONFIGURATION", "HOLDINGREGISTERS", "3000000000 registers");
    EXPECT_EQ(bench.link.calls,
              (Calls{"SetHoldingRegisters 1 2.5 True 1", "SetHoldingRegisters 1 3000000000 True 1"}));
    EXPECT_EQ(bench.failureOf("PORT_CONFIGURATION", 0, "HOLDINGREGISTERS", "1e999"), 6);
}

TEST(PortConfiguration, TheAddressBaseGoesToTheLink) {
    Interpreter_Bench bench;
    bench.line("PORT_CONFIGURATION", "ADDRESSBASE", "40001");
    EXPECT_EQ(bench.link.calls, (Calls{"SetAddressBase 40001"}));
}

TEST(ScanBlocks, EachLineAppendsABlockWithoutARequestWord) {
    Interpreter_Bench bench;
    bench.line("PORT_CONFIGURATION", "HOLDINGREGISTERSBLOCK_9", "100-163");
    bench.line("PORT_CONFIGURATION", "HoldingRegistersBlock_9", " 200 - 210x");
    EXPECT_EQ(documentText(bench.document),
              "Holding_Block_Count 2\n"
              "Holding_Blocks(0) empty\n"
              "Holding_Blocks(1) First_Address 100, Last_Address 163, Function_Code 3, Request \"NONE\"\n"
              "Holding_Blocks(2) First_Address 200, Last_Address 210, Function_Code 3, Request \"NONE\"\n");
}

TEST(ScanBlocks, AMalformedRangeRaisesTheCountAndLeavesAnEmptyBlock) {
    Interpreter_Bench bench;
    EXPECT_TRUE(bench.line("PORT_CONFIGURATION", "HOLDINGREGISTERSBLOCK_1", "100"));
    EXPECT_EQ(documentText(bench.document), "Holding_Block_Count 1\n"
                                            "Holding_Blocks(0) empty\n"
                                            "Holding_Blocks(1) empty\n");
    EXPECT_EQ(bench.document.Holding_Blocks(1).Request, "");
}

TEST(ScanBlocks, ARangeIsCutAtItsFirstDash) {
    Interpreter_Bench bench;
    bench.line("PORT_CONFIGURATION", "HOLDINGREGISTERSBLOCK_1", "100-200-300");
    bench.line("PORT_CONFIGURATION", "HOLDINGREGISTERSBLOCK_2", "-5-10");
    EXPECT_EQ(documentText(bench.document),
              "Holding_Block_Count 2\n"
              "Holding_Blocks(0) empty\n"
              "Holding_Blocks(1) First_Address 100, Last_Address 200, Function_Code 3, Request \"NONE\"\n"
              "Holding_Blocks(2) Last_Address 5, Function_Code 3, Request \"NONE\"\n");
}

TEST(ScanBlocks, MoreThan32767AreFailure6) {
    Interpreter_Bench bench;
    bench.document.Holding_Block_Count = 32767;
    EXPECT_EQ(bench.failureOf("PORT_CONFIGURATION", 0, "HOLDINGREGISTERSBLOCK_1", "1-2"), 6);
    EXPECT_EQ(bench.document.Holding_Block_Count, 32767);
}

TEST(ScanBlocks, TheFirstOneMakesTheArrayIfNobodyDid) {
    Interpreter_Bench bench;
    bench.document.Holding_Blocks.erase();
    bench.line("PORT_CONFIGURATION", "HOLDINGREGISTERSBLOCK_1", "1-2");
    EXPECT_EQ(bench.document.Holding_Blocks.upperBound(), 1);
}

TEST(ScanBlocks, ARangeBeyond32BitsIsFailure6AndTheBlockIsCounted) {
    Interpreter_Bench bench;
    EXPECT_EQ(bench.failureOf("PORT_CONFIGURATION", 0, "HOLDINGREGISTERSBLOCK_1", "1-99999999999"), 6);
    EXPECT_EQ(bench.document.Holding_Block_Count, 1);
    EXPECT_EQ(bench.document.Holding_Blocks(1).First_Address, 1);
}

TEST(ScanRequests, NameABlockByItsNumber) {
    Interpreter_Bench bench;
    bench.line("PORT_CONFIGURATION", "HOLDINGREGISTERSBLOCK_1", "1-2");
    bench.line("PORT_CONFIGURATION", "HOLDINGREGISTERSBLOCK_2", "3-4");
    bench.line("PORT_CONFIGURATION", "HOLDINGREQUESTBLOCK_2", " always ");
    EXPECT_EQ(bench.document.Holding_Blocks(1).Request, "NONE");
    EXPECT_EQ(bench.document.Holding_Blocks(2).Request, "ALWAYS");
}

TEST(ScanRequests, AheadOfTheirBlockTheyAreFailure9) {
    Interpreter_Bench bench;
    EXPECT_EQ(bench.failureOf("PORT_CONFIGURATION", 0, "HOLDINGREQUESTBLOCK_1", "ALWAYS"), 9);
    bench.line("PORT_CONFIGURATION", "HOLDINGREGISTERSBLOCK_1", "1-2");
    EXPECT_EQ(bench.failureOf("PORT_CONFIGURATION", 0, "HOLDINGREQUESTBLOCK_2", "ALWAYS"), 9);
    EXPECT_EQ(bench.failureOf("PORT_CONFIGURATION", 0, "HOLDINGREQUESTBLOCK_-1", "ALWAYS"), 9);
}

TEST(ScanRequests, BlocksThatAnotherTemplateLeftDontCount) {
    Interpreter_Bench bench;
    bench.document.Holding_Blocks.redim(5);
    EXPECT_EQ(bench.failureOf("PORT_CONFIGURATION", 0, "HOLDINGREQUESTBLOCK_3", "ALWAYS"), 9);
}

TEST(ScanRequests, WithoutANumberTheyMeanBlock0) {
    Interpreter_Bench bench;
    bench.line("PORT_CONFIGURATION", "HOLDINGREQUESTBLOCK_", "always");
    EXPECT_EQ(bench.document.Holding_Blocks(0).Request, "ALWAYS");
}

} // namespace
} // namespace zorvane
