// SPDX-License-Identifier: MIT
#include "template/identity_reads.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace zorvane {
namespace {

using Ranges = std::vector<Register_Range>;

Declara_Zorvane withBlocks(std::initializer_list<Register_Range> blocks) {
    Declara_Zorvane document;
    document.Holding_Blocks.redim(static_cast<std::int32_t>(blocks.size()));
    for (const Register_Range& block : blocks)
        document.Holding_Blocks(++document.Holding_Block_Count) = {block.first, block.last, 3, "NONE"};
    return document;
}

Ranges readsOf(const std::string& lines, std::initializer_list<Register_Range> blocks = {}) {
    return identityReads(withBlocks(blocks), readIdentity("[IDENTITY]\n" + lines));
}

TEST(IdentityReads, AreNoneForATemplateThatTellsNothing) {
    EXPECT_EQ(readsOf("LAST=5\n"), Ranges{});
    EXPECT_EQ(readsOf("REGISTER_1=5\n"), Ranges{}) << "nothing to compare it with";
}

TEST(IdentityReads, AskForMarksSerialNumberAndFirmware) {
    EXPECT_EQ(readsOf("REGISTER_1=5\nVALUE_1=1\nSERIAL=100-103\nFIRMWARE=200\n"),
              (Ranges{{5, 5}, {100, 103}, {200, 200}}));
}

TEST(IdentityReads, AskAgainWithoutTheFirmware) {
    const Identity_Section section =
        readIdentity("[IDENTITY]\nREGISTER_1=5\nVALUE_1=1\nSERIAL=100-103\nFIRMWARE=200\n");
    EXPECT_EQ(identityReadsAgain(withBlocks({}), section), (Ranges{{5, 5}, {100, 103}}));
}

TEST(IdentityReads, JoinNeighboursWhateverTheirOrder) {
    EXPECT_EQ(readsOf("REGISTER_1=12\nVALUE_1=1\nTEXTAT_2=10-11\nIS_2=AB\nSERIAL=13-20\n"),
              (Ranges{{10, 20}}));
}

TEST(IdentityReads, DontReadAcrossRegistersThatTheControllerMayNotHave) {
    EXPECT_EQ(readsOf("REGISTER_1=10\nVALUE_1=1\nSERIAL=12-15\n"), (Ranges{{10, 10}, {12, 15}}));
}

TEST(IdentityReads, ReadAcrossRegistersOfOneBlock) {
    EXPECT_EQ(readsOf("REGISTER_1=10\nVALUE_1=1\nSERIAL=12-15\n", {{8, 20}}), (Ranges{{10, 15}}));
    EXPECT_EQ(readsOf("REGISTER_1=10\nVALUE_1=1\nSERIAL=12-15\n", {{8, 11}, {12, 20}}),
              (Ranges{{10, 10}, {12, 15}}));
}

TEST(IdentityReads, DontReadAcrossRegistersThatCanOnlyBeWritten) {
    EXPECT_EQ(readsOf("REGISTER_1=10\nVALUE_1=1\nSERIAL=14-15\nWRITEONLY=12\n", {{8, 20}}),
              (Ranges{{10, 10}, {14, 15}}));
    EXPECT_EQ(readsOf("REGISTER_1=10\nVALUE_1=1\nSERIAL=14-15\nWRITEONLY=16\n", {{8, 20}}),
              (Ranges{{10, 15}}));
}

TEST(IdentityReads, AreNeverMoreThanThree) {
    EXPECT_EQ(readsOf("REGISTER_1=10\nVALUE_1=1\nREGISTER_2=20\nVALUE_2=1\nREGISTER_3=30\nVALUE_3=1\n"
                      "SERIAL=40-43\nFIRMWARE=31\n"),
              (Ranges{{10, 10}, {20, 20}, {30, 31}}))
        << "the serial number stays out, the firmware is next to a mark";
}

TEST(IdentityReads, LeaveOneOfTheThreeToTheObjects) {
    EXPECT_EQ(readsOf("REGISTER_1=10\nVALUE_1=1\nREGISTER_2=20\nVALUE_2=1\nREGISTER_3=30\nVALUE_3=1\n"
                      "OBJECTS=YES\nOBJECT_1=PUMP\n"),
              (Ranges{{10, 10}, {20, 20}}));
}

TEST(IdentityReads, LeaveOutWhatNoRequestCanRead) {
    EXPECT_EQ(readsOf("TEXTAT_1=1-126\nIS_1=A\nREGISTER_2=9-5\nVALUE_2=1\nSERIAL=1-125\n"),
              (Ranges{{1, 125}}));
    EXPECT_EQ(readsOf("SERIAL=1-125\nFIRMWARE=126\n"), (Ranges{{1, 125}, {126, 126}}));
}

} // namespace
} // namespace zorvane
