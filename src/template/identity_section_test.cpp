// SPDX-License-Identifier: MIT
#include "template/identity_section.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane {
namespace {

TEST(IdentitySection, ATemplateWithoutItTellsNothing) {
    const Identity_Section section = readIdentity("[HARDWARE]\r\nCONTROLLER=PUMP1\r\nREGISTER_1=5\r\n");
    EXPECT_EQ(section, Identity_Section{});
    EXPECT_FALSE(section.present);
    EXPECT_FALSE(section.tells());
}

TEST(IdentitySection, ReadsEachKey) {
    const Identity_Section section = readIdentity("[IDENTITY]\r\n"
                                                  "REGISTER_1=320-321\r\n"
                                                  "VALUE_1=70000\r\n"
                                                  "WHAT_1= Model number \r\n"
                                                  "REGISTER_2=322\r\n"
                                                  "LOW_2=-3\r\n"
                                                  "HIGH_2=9\r\n"
                                                  "MASK_2=255\r\n"
                                                  "TEXTAT_3=330-337\r\n"
                                                  "IS_3=KVRT207D\r\n"
                                                  "SERIAL=340-343\r\n"
                                                  "FIRMWARE=344\r\n"
                                                  "WRITEONLY=12\r\n"
                                                  "LAST=101, 110-111\r\n"
                                                  "LEAVEOUT=20-29,31\r\n"
                                                  "LINK=unit:116, Baud:115\r\n"
                                                  "OBJECTS=YES\r\n"
                                                  "OBJECT_0=Maker \r\n"
                                                  "OBJECT_1=PUMP\r\n");
    ASSERT_EQ(section.marks.size(), 3U);
    EXPECT_EQ(
        section.marks[0],
        (Identity_Mark{
            .number = 1, .registers = Register_Range{320, 321}, .value = 70000, .what = "Model number"}));
    EXPECT_EQ(section.marks[1],
              (Identity_Mark{
                  .number = 2, .registers = Register_Range{322, 322}, .low = -3, .high = 9, .mask = 255}));
    EXPECT_EQ(section.marks[2],
              (Identity_Mark{.number = 3, .text = Register_Range{330, 337}, .is = "KVRT207D"}));
    EXPECT_EQ(section.serial, (Register_Range{340, 343}));
    EXPECT_EQ(section.firmware, (Register_Range{344, 344}));
    EXPECT_EQ(section.writeOnly, (std::vector<Register_Range>{{12, 12}}));
    EXPECT_EQ(section.last, (std::vector<Register_Range>{{101, 101}, {110, 111}}));
    EXPECT_EQ(section.leaveOut, (std::vector<Register_Range>{{20, 29}, {31, 31}}));
    EXPECT_EQ(section.link, (std::vector<Line_Register>{{"unit", 116}, {"baud", 115}}));
    EXPECT_TRUE(section.objects);
    EXPECT_EQ(section.objectTexts, (std::map<std::int32_t, std::string>{{0, "Maker"}, {1, "PUMP"}}));
    EXPECT_TRUE(section.tells());
}

TEST(IdentitySection, NamesAndKeysAreTheSameInAnyLetterCase) {
    const Identity_Section section = readIdentity("[Identity]\nregister_7=5\nvalue_7=1\nobjects=yes\n");
    ASSERT_EQ(section.marks.size(), 1U);
    EXPECT_EQ(section.marks[0].number, 7);
    EXPECT_TRUE(section.objects);
}

TEST(IdentitySection, AValueEndsAtItsSemicolon) {
    const Identity_Section section =
        readIdentity("[IDENTITY]\nTEXTAT_1=1-4\nIS_1=PUMP ; the old ones too\nLAST=7;8\n; LAST=9\n");
    EXPECT_EQ(section.marks[0].is, "PUMP");
    EXPECT_EQ(section.last, (std::vector<Register_Range>{{7, 7}}));
}

TEST(IdentitySection, TakesTheLongestBeginningThatReadsAsANumber) {
    const Identity_Section section = readIdentity("[IDENTITY]\nREGISTER_1=40001x\nVALUE_1=12abc\n");
    EXPECT_EQ(section.marks[0].registers, (Register_Range{40001, 40001}));
    EXPECT_EQ(section.marks[0].value, 12);
}

TEST(IdentitySection, ABlankBeforeTheEqualsSignBelongsToTheKey) {
    EXPECT_EQ(readIdentity("[IDENTITY]\nLAST =7\n").last, std::vector<Register_Range>{});
}

TEST(IdentitySection, OfAKeyThatComesTwiceTheLaterLineCounts) {
    EXPECT_EQ(readIdentity("[IDENTITY]\nLAST=7\nLAST=8\n").last, (std::vector<Register_Range>{{8, 8}}));
}

TEST(IdentitySection, MarksStandByTheirNumbers) {
    const Identity_Section section =
        readIdentity("[IDENTITY]\nREGISTER_9=90\nREGISTER_2=20\nVALUE_9=1\nVALUE_2=2\n");
    ASSERT_EQ(section.marks.size(), 2U);
    EXPECT_EQ(section.marks[0].registers, (Register_Range{20, 20}));
    EXPECT_EQ(section.marks[1].registers, (Register_Range{90, 90}));
}

TEST(IdentitySection, AMarkWithoutItsValueTellsNothing) {
    EXPECT_FALSE(readIdentity("[IDENTITY]\nREGISTER_1=5\nTEXTAT_2=6\nIS_2=\n").tells());
    EXPECT_FALSE(readIdentity("[IDENTITY]\nVALUE_1=5\n").tells());
    EXPECT_FALSE(readIdentity("[IDENTITY]\nOBJECT_1=PUMP\n").tells()) << "nobody may ask for it";
    EXPECT_TRUE(readIdentity("[IDENTITY]\nREGISTER_1=5\nHIGH_1=7\n").tells());
    EXPECT_TRUE(readIdentity("[IDENTITY]\nOBJECTS=YES\nOBJECT_1=PUMP\n").tells());
}

TEST(IdentitySection, GoesOnAfterLinesThatMakeNoSense) {
    const Identity_Section section = readIdentity("[IDENTITY]\n"
                                                  "REGISTER_1=99999999999\n"
                                                  "REGISTER_99999999999=1\n"
                                                  "LINK=116,baud:115\n"
                                                  "LAST=3,,5\n"
                                                  "NOTHING=1\n"
                                                  "SERIAL=8\n");
    EXPECT_EQ(section.serial, (Register_Range{8, 8}));
    EXPECT_EQ(section.link, (std::vector<Line_Register>{{"baud", 115}}));
    EXPECT_EQ(section.last, (std::vector<Register_Range>{{3, 3}, {5, 5}}));
    EXPECT_FALSE(section.tells());
}

TEST(IdentitySection, StandsAnywhereInTheFileAlsoAfterAHeaderThatEndsTheReader) {
    const Identity_Section section = readIdentity("[IDENTITY]\nLAST=1\n[\nLAST=2\n[HARDWARE]\nLAST=3\n"
                                                  "[IDENTITY]\nSERIAL=4\n");
    EXPECT_EQ(section.last, (std::vector<Register_Range>{{1, 1}}));
    EXPECT_EQ(section.serial, (Register_Range{4, 4}));
}

TEST(IdentitySection, ARegisterLiesInOneOfTheRanges) {
    const std::vector<Register_Range> ranges = {{20, 29}, {31, 31}};
    EXPECT_TRUE(holdsRegister(ranges, 20));
    EXPECT_TRUE(holdsRegister(ranges, 29));
    EXPECT_FALSE(holdsRegister(ranges, 30));
    EXPECT_TRUE(holdsRegister(ranges, 31));
}

} // namespace
} // namespace zorvane
