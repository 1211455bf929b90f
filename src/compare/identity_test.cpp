// SPDX-License-Identifier: MIT
#include "compare/identity.h"
#include "compare/testing/pump.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane::compare {
namespace {

using doubles::pumpRegisters;
using doubles::pumpTemplate;
using zorvane::doubles::Reading_Bench;

/// "is: 5 [1] 1 fits; ..." with the serial number and the firmware in front where there are some.
std::string textOf(const Identity& identity) {
    std::string text = verdictWord(identity.verdict);
    if (identity.serial) text += ", serial " + *identity.serial;
    if (identity.firmware) text += ", firmware " + *identity.firmware;
    for (const Evidence& each : identity.evidence)
        text += "; " + each.registers + (each.what.empty() ? "" : " " + each.what) + " [" + each.expected +
                "] " + (each.result == Fit::Not_Read ? "" : each.found + " ") + fitWord(each.result) +
                (each.unread ? ", " + each.unread->text() : "");
    return text;
}

std::string byMarks(const std::string& lines, const Controller_Registers& registers,
                    std::optional<std::map<std::int32_t, std::string>> objects = {}) {
    return textOf(
        identityByMarks(readIdentity("[IDENTITY]\n" + lines), "PUMP", 1, {registers, std::move(objects)}));
}

std::string byValues(const std::string& lines, const Controller_Registers::Values& values) {
    return byMarks(lines, Controller_Registers(values));
}

TEST(Identity, OneRegisterTells) {
    EXPECT_EQ(byValues("REGISTER_1=5\nVALUE_1=207\nWHAT_1=Model\n", {{5, 207}}),
              "is; 5 Model [207] 207 fits");
    EXPECT_EQ(byValues("REGISTER_1=5\nVALUE_1=207\n", {{5, 100}}), "isn't; 5 [207] 100 doesn't fit");
}

TEST(Identity, ANumberOfTwoRegistersHasItsUpperOneFirst) {
    EXPECT_EQ(byValues("REGISTER_1=5-6\nVALUE_1=70000\n", {{5, 1}, {6, 4464}}), "is; 5-6 [70000] 70000 fits");
}

TEST(Identity, BoundsMayStandAlone) {
    EXPECT_EQ(byValues("REGISTER_1=5\nLOW_1=3\nHIGH_1=4\n", {{5, 4}}), "is; 5 [3 to 4] 4 fits");
    EXPECT_EQ(byValues("REGISTER_1=5\nLOW_1=3\n", {{5, 2}}), "isn't; 5 [at least 3] 2 doesn't fit");
    EXPECT_EQ(byValues("REGISTER_1=5\nHIGH_1=4\n", {{5, 40000}}), "isn't; 5 [at most 4] 40000 doesn't fit");
}

TEST(Identity, ANegativeBoundMakesTheNumberOneWithASign) {
    EXPECT_EQ(byValues("REGISTER_1=5\nLOW_1=-2\nHIGH_1=2\n", {{5, 65535}}), "is; 5 [-2 to 2] -1 fits");
    EXPECT_EQ(byValues("REGISTER_1=5-6\nVALUE_1=-2\n", {{5, 65535}, {6, 65534}}), "is; 5-6 [-2] -2 fits");
}

TEST(Identity, TheMaskIsTakenFirst) {
    EXPECT_EQ(byValues("REGISTER_1=5\nVALUE_1=2\nMASK_1=15\n", {{5, 0xAB02}}),
              "is; 5 [2 under the mask 15] 2 fits");
}

TEST(Identity, ATextIsComparedWithoutBlanksAtItsEndsAndInAnyLetterCase) {
    const Controller_Registers::Values values = {
        {5, 0x204B}, {6, 0x7672}, {7, 0x5400}, {8, 0x0000}}; // " Kvr" "T"
    EXPECT_EQ(byValues("TEXTAT_1=5-8\nIS_1=KVRT\n", values), "is; 5-8 [KVRT] KvrT fits");
    EXPECT_EQ(byValues("TEXTAT_1=5-8\nIS_1=KVRT1\n", values), "isn't; 5-8 [KVRT1] KvrT doesn't fit");
}

TEST(Identity, WhatWasNotReadCantBeTold) {
    EXPECT_EQ(byValues("REGISTER_1=5\nVALUE_1=1\nREGISTER_2=6\nVALUE_2=1\n", {{5, 1}}),
              "can't tell; 5 [1] 1 fits; 6 [1] not read");
    EXPECT_EQ(byValues("REGISTER_1=5\nVALUE_1=1\nREGISTER_2=6\nVALUE_2=1\n", {{5, 2}}),
              "isn't; 5 [1] 2 doesn't fit; 6 [1] not read")
        << "one that doesn't fit is enough";
    EXPECT_EQ(byValues("", Controller_Registers::Values{}), "can't tell");
}

TEST(Identity, SaysWhyARegisterWasNotRead) {
    Controller_Registers registers;
    registers.fail({5, 5}, {2});
    registers.fail({6, 7}, {});
    EXPECT_EQ(byMarks("REGISTER_1=5\nVALUE_1=1\nTEXTAT_2=6-7\nIS_2=A\n", registers),
              "can't tell; 5 [1] not read, Illegal data address (exception 2); 6-7 [A] not read, no answer");
}

TEST(Identity, ObjectsTellTooWhereTheyMayBeAskedFor) {
    const Controller_Registers none;
    const std::map<std::int32_t, std::string> pump = {{1, " pump "}};
    const std::map<std::int32_t, std::string> nothing;
    EXPECT_EQ(byMarks("OBJECTS=YES\nOBJECT_1=PUMP\n", none, pump), "is; object 1 [PUMP] pump fits");
    EXPECT_EQ(byMarks("OBJECTS=YES\nOBJECT_1=FAN\n", none, pump), "isn't; object 1 [FAN] pump doesn't fit");
    EXPECT_EQ(byMarks("OBJECTS=YES\nOBJECT_1=PUMP\n", none, nothing), "can't tell; object 1 [PUMP] not read");
    EXPECT_EQ(byMarks("OBJECT_1=PUMP\n", none, pump), "can't tell");
}

TEST(Identity, ObjectsThatWereNotAskedForTellNothing) {
    EXPECT_EQ(byValues("REGISTER_1=5\nVALUE_1=1\nOBJECTS=YES\nOBJECT_1=PUMP\n", {{5, 1}}),
              "is; 5 [1] 1 fits");
}

TEST(Identity, TheSerialNumberIsCharactersOrANumber) {
    EXPECT_EQ(byValues("SERIAL=1-3\nFIRMWARE=4\n", {{1, 0x534E}, {2, 0x3137}, {3, 0}, {4, 1041}}),
              "can't tell, serial SN17, firmware 1041");
    EXPECT_EQ(byValues("SERIAL=1-2\n", {{1, 0}, {2, 12345}}), "can't tell, serial 12345");
    EXPECT_EQ(byValues("SERIAL=1-2\n", {{1, 0}, {2, 0}}), "can't tell") << "none was ever set";
    EXPECT_EQ(byValues("SERIAL=1-2\n", {{1, 5}}), "can't tell") << "one register wasn't read";
    EXPECT_EQ(byValues("SERIAL=1-5\n", {{1, 0x534E}, {2, 0x0117}, {3, 0x3431}, {4, 0x3731}, {5, 0x3700}}),
              "can't tell, serial SN--41717")
        << "what is too long for a number shows what can't be printed as \"-\"";
}

TEST(Identity, OfACellsJudgementTellsWhoseItIs) {
    Declara_Zorvane document;
    document.Controller_Model = "PUMP";
    const Identity identity = identityByCells(document, 7, {});
    EXPECT_EQ(identity.model, "PUMP");
    EXPECT_EQ(identity.unit, 7);
}

TEST(Identity, AMarkThatFittedAndIsGoneDoesntFitAnyMore) {
    const Identity_Section section = readIdentity("[IDENTITY]\nREGISTER_1=5\nVALUE_1=1\n");
    const Identity first =
        identityByMarks(section, "PUMP", 1, {Controller_Registers(Controller_Registers::Values{{5, 1}})});
    Controller_Registers gone;
    gone.fail({5, 5}, {2});
    const Identity later = identityByMarks(section, "PUMP", 1, {gone});
    EXPECT_EQ(
        textOf(identityAgain(first, later)),
        "isn't; 5 [1] Illegal data address (exception 2) doesn't fit, Illegal data address (exception 2)");
    EXPECT_EQ(identityAgain(later, later).verdict, Verdict::Cant_Tell);
    Controller_Registers busy;
    busy.fail({5, 5}, {});
    EXPECT_EQ(identityAgain(first, identityByMarks(section, "PUMP", 1, {busy})).verdict, Verdict::Cant_Tell);
}

class IdentityByCells : public testing::Test {
  protected:
    IdentityByCells() { bench.readTemplate(pumpTemplate); }
    [[nodiscard]] std::string of(const Controller_Registers::Values& held) {
        return textOf(identityByCells(bench.document, 1, Controller_Registers(held)));
    }
    Reading_Bench bench;
    Controller_Registers::Values values = pumpRegisters();
};

TEST_F(IdentityByCells, TheRightControllerCantBeTold) { EXPECT_EQ(of(values), "can't tell"); }

TEST_F(IdentityByCells, TwoOddValuesAmongElevenCellsCantTell) {
    values[10] = 9;
    values[11] = 91;
    EXPECT_EQ(of(values), "can't tell; 10 Settings, Mode [a code of the list] 9 doesn't fit; "
                          "11 Settings, Level [-20 to 90] 91 doesn't fit");
}

TEST_F(IdentityByCells, ThreeOddValuesTell) {
    values[10] = 9;
    values[11] = 91;
    values[12] = 40000;
    EXPECT_EQ(of(values), "isn't; 10 Settings, Mode [a code of the list] 9 doesn't fit; "
                          "11 Settings, Level [-20 to 90] 91 doesn't fit; "
                          "12 Settings, Delay [a time] -425:-36 doesn't fit");
}

TEST_F(IdentityByCells, ColumnsThatArePolledAreLeftAlone) {
    bench.cell(2, 1, 3).Min_Value = "0";
    bench.cell(2, 1, 3).Max_Value = "1";
    EXPECT_EQ(of(values), "can't tell");
}

TEST_F(IdentityByCells, AFifthOfTheCellsTells) {
    Reading_Bench small;
    small.readTemplate("[CONFIGURATION_FIELDS]\nFIELD_1_DESC=A\nFIELD_1_RC=5,1\n"
                       "[FIELD_1_CONFIGURATION]\nROWADDRESS_1=1\nROWADDRESS_2=2\nROWADDRESS_3=3\n"
                       "ROWADDRESS_4=4\nROWADDRESS_5=5\nROWADDRESSNUMERICMAXVALUE_1=9\n");
    const Controller_Registers registers({{1, 10}, {2, 0}, {3, 0}, {4, 0}, {5, 0}});
    EXPECT_EQ(textOf(identityByCells(small.document, 1, registers)),
              "isn't; 1 A, row 1 [at most 9] 10 doesn't fit");
    EXPECT_EQ(textOf(identityByCells(small.document, 1,
                                     Controller_Registers(Controller_Registers::Values{{1, 9}}))),
              "can't tell");
}

TEST_F(IdentityByCells, BlocksThatTheControllerDoesntHaveSpeakAgainstIt) {
    Controller_Registers registers;
    registers.fail({10, 20}, {2});
    registers.fail({30, 30}, {});
    EXPECT_EQ(textOf(identityByCells(bench.document, 1, registers)),
              "can't tell; 10-20 block 1 [registers that can be read] Illegal data address (exception 2) "
              "doesn't fit");
}

TEST_F(IdentityByCells, WhereTheMarksCantTellTheCellsMay) {
    const Identity_Section section = readIdentity("[IDENTITY]\nREGISTER_1=99\nVALUE_1=1\n");
    values[10] = 9;
    values[11] = 91;
    EXPECT_EQ(identityOf(bench.document, section, 1, {Controller_Registers(values)}).verdict,
              Verdict::Cant_Tell);
    values[12] = 40000;
    const Identity identity = identityOf(bench.document, section, 1, {Controller_Registers(values)});
    EXPECT_EQ(identity.verdict, Verdict::Isnt);
    EXPECT_EQ(identity.evidence.size(), 4U);
    values[99] = 1;
    EXPECT_EQ(identityOf(bench.document, section, 1, {Controller_Registers(values)}).verdict, Verdict::Is)
        << "the marks alone count";
}

} // namespace
} // namespace zorvane::compare
