// SPDX-License-Identifier: MIT
#include "compare/comparison.h"
#include "compare/testing/pump.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>

namespace zorvane::compare {
namespace {

using doubles::pumpRegisters;
using doubles::pumpTemplate;
using zorvane::doubles::Reading_Bench;

/// "Settings, Level: 11 [-5 | 7] differs" for each row that isn't equal, then the counts that aren't 0.
std::string textOf(const Comparison& comparison) {
    std::string text;
    for (const Row& row : comparison.rows) {
        if (row.sign == Sign::Equal) continue;
        text += row.page + ", " + row.name + ", " + row.heading + ": " + row.address + " [" +
                (row.left.value ? row.left.shown : "none") + " | " +
                (row.right.value ? row.right.shown : "none") + "] " + std::string(signWord(row.sign)) + "\n";
    }
    for (const Sign sign : allSigns)
        if (comparison.counts.of(sign) > 0)
            text += std::string(signWord(sign)) + " " + std::to_string(comparison.counts.of(sign)) + " ";
    return text + "of " + std::to_string(comparison.counts.rows());
}

class ComparisonTest : public testing::Test {
  protected:
    ComparisonTest() { ours.readTemplate(pumpTemplate); }

    [[nodiscard]] Comparison withController(const Controller_Registers::Values& now) {
        registers = Controller_Registers(now);
        return withController();
    }
    [[nodiscard]] Comparison withController(const Controller_Registers* earlier = nullptr) {
        const Document_Side left(ours.document);
        const Controller_Side right(ours.document, identity, registers, earlier);
        return comparisonOf({ours.document, identity, left, right, leftOut});
    }
    [[nodiscard]] Comparison withFile(const std::string& changed) {
        theirs.readTemplate(pumpTemplate + changed);
        const Document_Side left(ours.document);
        const Document_Side right(theirs.document);
        return comparisonOf({ours.document, identity, left, right, leftOut});
    }

    Reading_Bench ours;
    Reading_Bench theirs;
    Identity_Section identity;
    Controller_Registers registers;
    std::set<Cell_Place> leftOut;
};

TEST_F(ComparisonTest, AControllerAfterADownloadIsEqual) {
    EXPECT_EQ(textOf(withController(pumpRegisters())), "equal 12 of 12");
}

TEST_F(ComparisonTest, AgainstAControllerARowIsACellWithARegister) {
    const Comparison comparison = withController(pumpRegisters());
    ASSERT_EQ(comparison.rows.size(), 12U);
    EXPECT_EQ(comparison.rows[3].place, (Cell_Place{1, 4, 2}));
    EXPECT_EQ(comparison.rows[3].address, "13-15");
    EXPECT_EQ(comparison.rows[3].registers, (Register_Range{13, 15}));
    EXPECT_EQ(comparison.rows[4].address, "16/HI");
    EXPECT_EQ(comparison.rows[4].left.held, Held{7});
    EXPECT_EQ(comparison.rows[6].right.held, Held{2}) << "the minutes of 125 seconds";
    EXPECT_EQ(comparison.rows[7].right.shown, "05");
}

TEST_F(ComparisonTest, ShowsWhatTheGridsShowAndComparesWhatTheRegistersHold) {
    auto values = pumpRegisters();
    values[10] = 1;
    values[11] = 7;
    values[12] = 91;
    values[13] = 0x4C55; // LUMP
    values[18] = 39999;
    values[20] = 5;
    EXPECT_EQ(textOf(withController(values)), "Settings, Mode, Value: 10 [Auto | On] differs\n"
                                              "Settings, Level, Value: 11 [-5 | 7] differs\n"
                                              "Settings, Delay, Value: 12 [1:30 | 1:31] differs\n"
                                              "Settings, Name, Value: 13-15 [PUMP | LUMP  ] differs\n"
                                              "Settings, Starts, Value: 18 [40000 | 39999] differs\n"
                                              "Readings, Bearing, Offset: 20 [-3 | 5] differs\n"
                                              "equal 6 differs 6 of 12");
}

TEST_F(ComparisonTest, PartsOfARegisterAreComparedByThemselves) {
    auto values = pumpRegisters();
    values[16] = 0x0709;
    values[17] = 65;
    EXPECT_EQ(textOf(withController(values)), "Settings, Lower, Value: 16/LO [8 | 9] differs\n"
                                              "Settings, Minutes, Value: 17 [2 | 1] differs\n"
                                              "equal 10 differs 2 of 12");
}

TEST_F(ComparisonTest, AControllersNegativeNumberIsShownInItsColumnsFormat) {
    auto values = pumpRegisters();
    values[20] = 133; // the sign bit of 8 bits, and 5
    EXPECT_EQ(textOf(withController(values)),
              "Readings, Bearing, Offset: 20 [-3 | -5] differs\nequal 11 differs 1 of 12");
}

TEST_F(ComparisonTest, WhatADownloadWouldNotWriteIsReadOnly) {
    auto values = pumpRegisters();
    values[19] = 17;
    values[30] = 22;
    EXPECT_EQ(textOf(withController(values)), "Settings, Unit, Value: 19 [1 | 17] read_only\n"
                                              "Readings, Bearing, Now: 30 [21 | 22] read_only\n"
                                              "equal 10 read_only 2 of 12");
}

TEST_F(ComparisonTest, ARegisterWithoutAValueWasNotRead) {
    auto values = pumpRegisters();
    values.erase(14);
    values.erase(16);
    EXPECT_EQ(textOf(withController(values)), "Settings, Name, Value: 13-15 [PUMP | none] not_read\n"
                                              "Settings, Upper, Value: 16/HI [7 | none] not_read\n"
                                              "Settings, Lower, Value: 16/LO [8 | none] not_read\n"
                                              "not_read 3 equal 9 of 12");
}

TEST_F(ComparisonTest, ABlankNumberIsNoValueAndABlankListItsCode0) {
    ours.cell(1, 1, 2).Value = "";
    ours.cell(1, 2, 2).Value = " ";
    ours.cell(1, 3, 2).Value = "";
    ours.cell(1, 5, 2).Value = "";
    EXPECT_EQ(textOf(withController(pumpRegisters())), "Settings, Mode, Value: 10 [Off | Auto] differs\n"
                                                       "Settings, Level, Value: 11 [none | -5] one_side\n"
                                                       "Settings, Delay, Value: 12 [none | 1:30] one_side\n"
                                                       "Settings, Upper, Value: 16/HI [none | 7] one_side\n"
                                                       "one_side 3 equal 8 differs 1 of 12");
}

TEST_F(ComparisonTest, CharactersThatDifferOnlyInBlanksAtTheirEndAreEqual) {
    for (const int end : {0x0000, 0x2020, 0x2D2D, 0x2000, 0x002D}) {
        auto values = pumpRegisters();
        values[15] = static_cast<std::uint16_t>(end);
        EXPECT_EQ(textOf(withController(values)), "equal 12 of 12") << end;
    }
    ours.cell(1, 4, 2).Value = "PUMP--";
    EXPECT_EQ(textOf(withController(pumpRegisters())), "equal 12 of 12");
    ours.cell(1, 4, 2).Value = "";
    auto values = pumpRegisters();
    values[13] = values[14] = values[15] = 0;
    EXPECT_EQ(textOf(withController(values)), "equal 12 of 12");
    values[14] = 0x2041;
    EXPECT_EQ(textOf(withController(values)), "Settings, Name, Value: 13-15 [ | -- A--] differs\n"
                                              "equal 11 differs 1 of 12");
}

TEST_F(ComparisonTest, ATextThatIsTooLongIsComparedAsItGoesOut) {
    ours.cell(1, 4, 2).Value = "PUMPS NORTH";
    auto values = pumpRegisters();
    values[15] = 0x5320; // "S "
    EXPECT_EQ(textOf(withController(values)), "equal 12 of 12");
}

TEST_F(ComparisonTest, ANumberThatNoRegisterHoldsDiffers) {
    ours.cell(1, 2, 2).Value = "70000";
    ours.cell(1, 5, 2).Value = "300";
    ours.cell(1, 12 - 3, 2).Value = "99999999999";
    auto values = pumpRegisters();
    values[11] = 4464; // what is left of 70000
    const Comparison comparison = withController(values);
    EXPECT_EQ(textOf(comparison), "Settings, Level, Value: 11 [70000 | 4464] differs\n"
                                  "Settings, Upper, Value: 16/HI [300 | 7] differs\n"
                                  "Settings, Starts, Value: 18 [99999999999 | 40000] differs\n"
                                  "equal 9 differs 3 of 12");
    EXPECT_EQ(comparison.rows[1].left.held, std::nullopt);
}

TEST_F(ComparisonTest, ACodeThatNoListHasShowsNothingAndIsCompared) {
    auto values = pumpRegisters();
    values[10] = 9;
    const Comparison comparison = withController(values);
    EXPECT_EQ(textOf(comparison), "Settings, Mode, Value: 10 [Auto | ] differs\nequal 11 differs 1 of 12");
    EXPECT_EQ(comparison.rows[0].right.held, Held{9});
}

TEST_F(ComparisonTest, WhatDifferedBetweenTwoReadingsChanges) {
    const Controller_Registers earlier(pumpRegisters());
    auto values = pumpRegisters();
    values[11] = 3;      // a setting
    values[16] = 0x0A08; // one half of two
    values[30] = 23;
    registers = Controller_Registers(values);
    EXPECT_EQ(textOf(withController(&earlier)), "Settings, Level, Value: 11 [-5 | 3] changing\n"
                                                "Settings, Upper, Value: 16/HI [7 | 10] changing\n"
                                                "Readings, Bearing, Now: 30 [21 | 23] changing\n"
                                                "equal 9 changing 3 of 12");
}

TEST_F(ComparisonTest, WhatChangedAndIsEqualNowIsEqual) {
    auto values = pumpRegisters();
    values[11] = 3;
    const Controller_Registers earlier(values);
    registers = Controller_Registers(pumpRegisters());
    EXPECT_EQ(textOf(withController(&earlier)), "equal 12 of 12");
}

TEST_F(ComparisonTest, WhatIsLeftOutComesFirst) {
    identity = readIdentity("[IDENTITY]\nLEAVEOUT=11,14\n");
    leftOut.insert({1, 9, 2});
    auto values = pumpRegisters();
    values[11] = 3;
    values.erase(13);
    EXPECT_EQ(textOf(withController(values)), "Settings, Level, Value: 11 [-5 | 3] left_out\n"
                                              "Settings, Name, Value: 13-15 [PUMP | none] left_out\n"
                                              "Settings, Starts, Value: 18 [40000 | 40000] left_out\n"
                                              "left_out 3 equal 9 of 12");
}

TEST_F(ComparisonTest, WhatCanOnlyBeWrittenIsNeverRead) {
    identity = readIdentity("[IDENTITY]\nWRITEONLY=12\n");
    EXPECT_EQ(textOf(withController(pumpRegisters())),
              "Settings, Delay, Value: 12 [1:30 | none] not_read\nnot_read 1 equal 11 of 12");
}

TEST_F(ComparisonTest, BetweenFilesARowIsACellWithAValue) {
    const Comparison comparison = withFile("");
    EXPECT_EQ(textOf(comparison), "equal 24 of 24") << "11 names, 12 values and a remark";
}

TEST_F(ComparisonTest, FilesDifferInRemarksAndNamesToo) {
    EXPECT_EQ(textOf(withFile("[FIELD_1_DEFAULT]\n"
                              "ROW_1=Mode,2,\n"
                              "ROW_2=Pressure,-5,\n"
                              "ROW_3=Delay,90,slow\n"
                              "ROW_5=Upper,,\n"
                              "ROW_9=Starts,4e4,\n"
                              "ROW_10=Unit,3,\n")),
              "Settings, row 2, Setting:  [Level | Pressure] read_only\n"
              "Settings, Level, Remark:  [in % | none] one_side\n"
              "Settings, Delay, Remark:  [none | slow] one_side\n"
              "Settings, Upper, Value: 16/HI [7 | none] one_side\n"
              "Settings, Unit, Value: 19 [1 | 3] read_only\n"
              "one_side 3 equal 20 read_only 2 of 25");
}

TEST_F(ComparisonTest, ThePlaceOfEachRowIsKnown) {
    const Comparison comparison = withFile("[FIELD_2_DEFAULT]\nROW_1=Bearing,-4,21\n");
    for (const Row& row : comparison.rows)
        if (row.sign == Sign::Differs) {
            EXPECT_EQ(row.place, (Cell_Place{2, 1, 2}));
            EXPECT_EQ(row.left.held, Held{131});
            EXPECT_EQ(row.right.held, Held{132});
        }
    EXPECT_EQ(comparison.counts.of(Sign::Differs), 1U);
}

TEST_F(ComparisonTest, EachSignHasItsWordAndItsMark) {
    std::string text;
    for (const Sign sign : allSigns)
        text += std::string(signMark(sign)) + " " + std::string(signWord(sign)) + "\n";
    EXPECT_EQ(text,
              "x left_out\n? not_read\n! one_side\n= equal\n~ changing\nR read_only\n\xE2\x89\xA0 differs\n");
}

TEST(Comparison, OfATemplateThatWasNotReadHasNoRows) {
    const Declara_Zorvane document;
    const Document_Side side(document);
    EXPECT_EQ(comparisonOf({document, {}, side, side}).counts.rows(), 0U);
}

TEST(Comparison, PassesOverAddressesThatNoWireHas) {
    Reading_Bench bench;
    bench.readTemplate("[CONFIGURATION_FIELDS]\nFIELD_1_DESC=A\nFIELD_1_RC=5,1\n"
                       "[FIELD_1_CONFIGURATION]\nROWADDRESS_1=99999999999\nROWASCIIRANGE_2=5-1\n"
                       "ROWASCIIRANGE_3=0-2147483647\nROWADDRESS_4=5/hi\nROWADDRESS_5=7\n"
                       "[FIELD_1_DEFAULT]\nROW_1=1\nROW_2=2\nROW_3=3\nROW_4=4\nROW_5=5\n");
    const Identity_Section none;
    const Controller_Registers registers(Controller_Registers::Values{{7, 5}});
    const Document_Side left(bench.document);
    const Controller_Side right(bench.document, none, registers);
    EXPECT_EQ(textOf(comparisonOf({bench.document, none, left, right})), "equal 1 of 1");
    EXPECT_EQ(textOf(comparisonOf({bench.document, none, left, left})), "equal 5 of 5");
}

TEST_F(ComparisonTest, CodesThatNoListHasAreValuesThoughTheyShowNothing) {
    ours.document.Fields(1).Cells(1, 2).Value = "77";
    const Comparison comparison = withFile("");
    theirs.document.Fields(1).Cells(1, 2).Value = "78";
    const Document_Side left(ours.document);
    const Document_Side right(theirs.document);
    const Comparison codes = comparisonOf({ours.document, identity, left, right});
    EXPECT_EQ(codes.counts.rows(), comparison.counts.rows());
    EXPECT_EQ(codes.rows[1].sign, Sign::Differs);
    EXPECT_EQ(codes.rows[1].left.shown, "");
    EXPECT_EQ(codes.rows[1].left.text, "77");
    EXPECT_EQ(codes.rows[1].right.held, Held{78});
}

} // namespace
} // namespace zorvane::compare
