// SPDX-License-Identifier: MIT
// What one code says of different cases.

#include "checker/checker.h"
#include "checker/testing/rule_samples.h"

#include <gtest/gtest.h>

namespace zorvane::checker {
namespace {

using doubles::Edit;
using doubles::edited;
using doubles::goodTemplate;

TEST(Rules, HaveOtherWordsForOtherCasesOfIdentity) {
    const auto told = [](const std::string& lines) {
        std::string text;
        for (const Finding& finding : checkTemplate("ABC.ZTP", goodTemplate() + "[IDENTITY]\n" + lines))
            text += std::string(finding.code) + ": " + finding.what + ". " + finding.instead + "\n";
        return text;
    };
    EXPECT_EQ(told("REGISTER_1=150\nVALUE_1=7\nWHAT_1=Model\nSERIAL=151-154\nFIRMWARE=155\nLAST=101,103\n"
                   "LEAVEOUT=110-113\nLINK=unit:102\nOBJECTS=NO\n"),
              "");
    EXPECT_EQ(told("REGISTR_1=150\n"),
              "key-unknown: unknown key \"REGISTR_1\" in [IDENTITY]. Write REGISTER_1.\n");
    EXPECT_EQ(
        told("TEXTAT_1=150-153 \nIS_1=AB ;x\n"),
        "semicolon: a \";\" in the value, which is \"AB \" now. Put comments on lines of their own, and use "
        "no \";\" in texts.\n");
    EXPECT_EQ(told("REGISTER_1=150-154\nVALUE_1=7\n"),
              "identity-registers: \"150-154\" are 5 registers. Name at most 4.\n");
    EXPECT_EQ(told("SERIAL=model\n"), "identity-registers: \"model\" names no registers. Write a register or "
                                      "first-last, such as 320-327, in digits and without blanks.\n");
    EXPECT_EQ(told("VALUE_1=7\n"),
              "identity-mark: no line says in which register this stands. Write REGISTER_1=.\n");
    EXPECT_EQ(
        told("IS_1=AB\nWHAT_1=Model\n"),
        "identity-mark: no line says in which registers this stands. Write TEXTAT_1=.\n"
        "identity-mark: no line says in which registers this stands. Write REGISTER_1= or TEXTAT_1=.\n");
    EXPECT_EQ(told("TEXTAT_1=150\n"),
              "identity-mark: TEXTAT_1 has nothing to be compared with. Write IS_1=.\n");
    EXPECT_EQ(
        told("TEXTAT_1=150\nIS_1=ABC\n"),
        "identity-fit: \"ABC\" is longer than its registers. Name a register for each two characters.\n");
    EXPECT_EQ(told("REGISTER_1=150\nLOW_1=9\nHIGH_1=3\n"),
              "identity-fit: the lowest value is above the highest. Swap the two.\n");
    EXPECT_EQ(
        told("REGISTER_1=150\nVALUE_1=16\nMASK_1=15\n"),
        "identity-fit: \"16\" has bits that the mask takes away. Write the value as it is under the mask.\n");
    EXPECT_EQ(told("REGISTER_1=150\nVALUE_1=16\nLOW_1=1\n"),
              "identity-fit: a value beside a lowest or highest one. Keep either; the value alone counts.\n");
    EXPECT_EQ(told("LINK=116\n"), "identity-link: \"116\" isn't a word and a register. Write unit:REG or "
                                  "baud:REG, such as unit:116,baud:115.\n");
    EXPECT_EQ(told("LINK=unit:150\n"),
              "identity-link: no cell has register 150. Write the register of the cell "
              "that changes the line.\n");
    EXPECT_EQ(told("LINK=baud:100\n"),
              "identity-link: a text of the list of register 100 is no number. Begin "
              "each text of the list with its number, such as 9600.\n");
    EXPECT_EQ(told("LINK=parity:102\n"),
              "identity-link: \"parity\" is nothing of a line. The known ones are unit or baud.\n");
    EXPECT_EQ(told("OBJECTS=ja\nOBJECT_300=PUMP\n"),
              "yes-no: \"ja\" counts as no. Write YES or NO.\n"
              "identity-objects: there is no object 300. Objects count from 0 to 255.\n");
    EXPECT_EQ(
        told("REGISTER_99999999999=1\n"),
        "key-unknown: unknown key \"REGISTER_99999999999\" in [IDENTITY]. The known ones are "
        "REGISTER_#, VALUE_#, LOW_#, HIGH_#, MASK_#, TEXTAT_#, IS_#, WHAT_#, SERIAL, FIRMWARE, WRITEONLY, "
        "LAST, LEAVEOUT, LINK, OBJECTS or OBJECT_#.\n");
}

TEST(Rules, TellOfANumberThatIdentityPassesOver) {
    const auto told = [](const std::string& lines) {
        std::string text;
        for (const Finding& finding : checkTemplate("ABC.ZTP", goodTemplate() + "[IDENTITY]\n" + lines))
            text += std::string(finding.code) + ": " + finding.what + ". " + finding.instead + "\n";
        return text;
    };
    EXPECT_EQ(told("REGISTER_1=150-153\nVALUE_1=8999999999999999000\n"), "");
    EXPECT_EQ(told("REGISTER_1=150-153\nVALUE_1=9223372036854775808\n"),
              "identity-fit: \"9223372036854775808\" is passed over, being too large. Write a number below "
              "9000000000000000000, or compare fewer registers.\n");
    EXPECT_EQ(told("REGISTER_1=150\nVALUE_1=99999999999999999999\n"),
              "identity-fit: \"99999999999999999999\" is passed over, being too large. Write a number below "
              "9000000000000000000, or compare fewer registers.\n");
}

TEST(Rules, HaveOtherWordsForOtherCasesOfOneCode) {
    const auto told = [](const std::vector<Edit>& edits, std::string_view code) {
        std::string text;
        for (const Finding& finding : checkTemplate("ABC.ZTP", edited(edits)))
            if (finding.code == code) text += finding.what + ". " + finding.instead + "\n";
        return text;
    };
    EXPECT_EQ(told({{"ROW_3=Name,Pump", "ROW_3=Na\rme,Pump"}}, "control-character"),
              "a CR without an LF in the line. End lines with CR LF.\n");
    EXPECT_EQ(told({{"ROW_3=Name,Pump", "ROW_3=Na\x01me,Pump"}}, "control-character"),
              "the control character 0x01 in the line. Use spaces, and none around the \"=\".\n");
    EXPECT_EQ(told({{"[FIELD_1_MESSAGES]", "["}}, "header-end"),
              "a section header without a name: reading stops here. Write the section's name and \"]\" after "
              "it.\n");
    EXPECT_EQ(told({{"ROW_3=Name,Pump", "=Name,Pump"}}, "stray-line"),
              "a value without a key. Write KEY=value, or put a \";\" in the first column.\n");
    EXPECT_EQ(told({{"(1)On", "(1)On\nADDRESS_100=(0)No,(1)Yes"}}, "key-twice"),
              "the same key as in line 32. Keep one of the two lines. The list of the first one counts.\n");
    EXPECT_EQ(
        told({{"FIELD_1_RC=5,2", "FIELD_1_RC=5,2\nFIELD_2_RC=1,1"}}, "field-missing"),
        "field 2 has no FIELD_2_DESC. Name it in [CONFIGURATION_FIELDS], in front of its other lines.\n");
    EXPECT_EQ(told({{"FIELD_1_RC=5,2", "FIELD_1_RC=5,2\nFIELD_2_DESC=Inputs"}}, "field-size"),
              "field 2 has no FIELD_2_RC. Write FIELD_2_RC=rows,columns.\n");
    EXPECT_EQ(
        told({{"ROWADDRESSFORMAT_5=,NUMERIC_UNSIGNED", "ROWADDRESSFORMAT_5=,numeric_unsigned"}},
             "format-word"),
        "\"numeric_unsigned\" in lower case. Write NUMERIC_UNSIGNED: some places ask for it exactly.\n");
    EXPECT_EQ(told({{"ROWASCIIRANGE_3=,110-113", "ROWASCIIRANGE_3=,118-121"}}, "address-unscanned"),
              "register 118-121 lies in scan blocks in part only (field 1, row 3, column 2). Widen a "
              "HOLDINGREGISTERSBLOCK, or correct the address.\n");
    EXPECT_EQ(told({{"ROWADDRESS_5=,103", "ROWADDRESS_5=,102"},
                    {"ROWADDRESSFORMAT_5=,NUMERIC_UNSIGNED", "ROWADDRESSFORMAT_5=,TIMEMM"}},
                   "address-shared"),
              "register 102 is a shared time here (field 1, row 5, column 2) and a number in field 1, row 4, "
              "column 2. Correct the address, or give both cells the same format and list.\n");
    EXPECT_EQ(
        told({{"COL_2_TYPE=NUMERIC", "COL_2_TYPE=NUMERIC\nCOL_2_BITSNEGATIVEFORMAT=8"},
              {"ROWADDRESS_4=,102", "ROWADDRESS_4=102,102"}},
             "address-shared"),
        "register 102 is a number in the negative format 8 here (field 1, row 4, column 2) and a number in "
        "field 1, row 4, column 1. Correct the address, or give both cells the same format and list.\n");
    EXPECT_EQ(
        told({{"[FIELD_1_CONFIGURATION]\n", "[FIELD_1_MESSAGES]\nADDRESS_103=(0)Off\n"
                                            "[FIELD_1_CONFIGURATION]\n"}},
             "message-unused"),
        "the cell at register 103 gets its address further down. Write [FIELD_1_CONFIGURATION] in front "
        "of this section.\n");
    EXPECT_EQ(told({{"(1)On", "(1)"}}, "message-blank"),
              "the text of code 1 is empty. Give the code a text, such as \"-\".\n");
    EXPECT_EQ(told({{"ROWADDRESSNUMERICMINVALUE_4=,10", "ROWADDRESSTIMEMINVALUE_4=,10"}}, "limits-text"),
              "\"10\" is no time (field 1, row 4, column 2). Write m:ss, such as 1:30.\n");
    EXPECT_EQ(
        told({{"ROWADDRESSNUMERICMINVALUE_4=,10", "ROWADDRESSTIMEMINVALUE_4=,"}}, "limits-empty"),
        "the empty item sets 0 (field 1, row 4, column 2). Write the limit, or NUMERIC limits for the row "
        "with the times in seconds.\n");
    EXPECT_EQ(told({{"HOLDINGREGISTERSBLOCK_1=100-119\nHOLDINGREQUESTBLOCK_1=ALWAYS\n", ""}}, "request-word"),
              "no scan block has the request word \"ALWAYS\". Write HOLDINGREQUESTBLOCK_n=ALWAYS.\n");
    EXPECT_EQ(
        told({{"CONTROLLER=ABC", "CONTROLLER=R7702-16\nDOWNLOAD_1_MULTIPLEREGISTERBLOCKNUMERIC=102-110"}},
             "download-missing"),
        "register 101 lies in no DOWNLOAD block (field 1, row 2, column 2). Widen a DOWNLOAD block of the "
        "kind that fits: NUMERIC for numbers and times, MESSAGELIST for halves, ASCII for texts.\n");
}

} // namespace
} // namespace zorvane::checker
