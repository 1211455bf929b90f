// SPDX-License-Identifier: MIT
#include "compare/other_version.h"
#include "compare/testing/pump.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane::compare {
namespace {

using doubles::pumpTemplate;
using zorvane::doubles::Reading_Bench;

/// The next version of the pump: its first page is the second now, the level stands in the first row under
/// another name, the delay is plain seconds, and the mode is gone.
const std::string nextPump = "[HARDWARE]\n"
                             "CONTROLLER=PUMP2\n"
                             "[PORT_CONFIGURATION]\n"
                             "HOLDINGREGISTERSBLOCK_1=10-20\n"
                             "HOLDINGREQUESTBLOCK_1=CONFIG\n"
                             "[CONFIGURATION_FIELDS]\n"
                             "FIELD_1_DESC=New\n"
                             "FIELD_1_RC=1,2\n"
                             "FIELD_2_DESC=Settings\n"
                             "FIELD_2_RC=3,3\n"
                             "[FIELD_1_COLUMNS]\n"
                             "COL_1_DESC=Setting\n"
                             "COL_2_DESC=Value\n"
                             "[FIELD_2_COLUMNS]\n"
                             "COL_1_DESC=Setting\n"
                             "COL_2_DESC=Value\n"
                             "COL_2_MODIFIABLE=YES\n"
                             "COL_3_DESC=Remark\n"
                             "COL_3_MODIFIABLE=YES\n"
                             "[FIELD_2_CONFIGURATION]\n"
                             "ROWADDRESS_1=,11,\n"
                             "ROWADDRESS_2=,12,\n"
                             "ROWASCIIRANGE_3=,13-15,\n"
                             "[FIELD_2_DEFAULT]\n"
                             "ROW_1=Fill level,7,\n"
                             "ROW_2=Delay,91,after start\n"
                             "ROW_3=Name,PIPE,\n";

class OtherVersion : public ::testing::Test {
  protected:
    OtherVersion() {
        ours.readTemplate(pumpTemplate);
        theirs.readTemplate(nextPump);
    }
    [[nodiscard]] Cell_Side at(std::int32_t field, std::int32_t row, std::int32_t column) const {
        return Other_Version_Side(ours.document, theirs.document).at({field, row, column});
    }

    Reading_Bench ours;
    Reading_Bench theirs;
};

TEST_F(OtherVersion, MatchesByRegisterWhereverTheCellStands) {
    EXPECT_EQ(at(1, 2, 2).shown, "7");
    EXPECT_EQ(at(1, 4, 2).shown, "PIPE");
}

TEST_F(OtherVersion, AnotherFormatIsAnotherSetting) {
    EXPECT_FALSE(at(1, 3, 2).value) << "a time here, seconds there";
}

TEST_F(OtherVersion, AnotherWayWithNegativeNumbersIsAnotherSetting) {
    theirs.cell(2, 0, 2).Bits_Negative_Format = "16";
    EXPECT_FALSE(at(1, 2, 2).value);
}

TEST_F(OtherVersion, WhatTheOtherVersionLacksHasNoValue) {
    EXPECT_FALSE(at(1, 1, 2).value);
    EXPECT_TRUE(at(1, 1, 2).read);
}

TEST_F(OtherVersion, CellsWithoutARegisterAreMatchedByTheirNames) {
    EXPECT_EQ(at(1, 3, 3).shown, "after start");
    EXPECT_FALSE(at(1, 2, 3).value) << "the row has another name there";
}

TEST_F(OtherVersion, IsASideLikeAnyOther) {
    const Document_Side left(ours.document);
    const Other_Version_Side right(ours.document, theirs.document);
    const Comparison comparison = comparisonOf({ours.document, {}, left, right});
    std::string text;
    for (const Row& row : comparison.rows)
        if (row.sign == Sign::Differs) text += row.name + " " + row.heading + "; ";
    EXPECT_EQ(text, "Level Value; Name Value; ");
}

} // namespace
} // namespace zorvane::compare
