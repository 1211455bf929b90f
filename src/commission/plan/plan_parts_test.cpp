// SPDX-License-Identifier: MIT
#include "commission/plan/cell_registers.h"
#include "compare/testing/pump.h"

#include <gtest/gtest.h>

namespace zorvane::commission {
namespace {

TEST(PlanParts, OfARegisterOnlyThePartIsReplaced) {
    EXPECT_EQ(composed(Part::Kept, 0x1234, 0x5678), 0x5678);
    EXPECT_EQ(composed(Part::Whole, 0x1234, 0x5678), 0x1234);
    EXPECT_EQ(composed(Part::High, 0x1234, 0x5678), 0x1278);
    EXPECT_EQ(composed(Part::Low, 0x1234, 0x5678), 0x5634);
    EXPECT_EQ(composed(Part::Minutes, 3 * 60 + 10, 2 * 60 + 5), 3 * 60 + 5);
    EXPECT_EQ(composed(Part::Seconds, 3 * 60 + 10, 2 * 60 + 5), 2 * 60 + 10);
}

TEST(PlanParts, TwoRegistersAreTheSameWhenTheirPartIs) {
    EXPECT_TRUE(samePart(Part::High, 0x1234, 0x12FF));
    EXPECT_FALSE(samePart(Part::High, 0x1234, 0x1334));
    EXPECT_TRUE(samePart(Part::Kept, 1, 2));
    EXPECT_FALSE(samePart(Part::Whole, 1, 2));
}

TEST(PlanParts, WhatIsntAWholeRegisterIsComposedFromAReading) {
    const Plan_Write halves{Function_Code::PresetMultipleRegisters,
                            16,
                            {0x0900, 65, 40000},
                            {Part::High, Part::Kept, Part::Whole},
                            {}};
    EXPECT_TRUE(halves.composedFromReading());
    EXPECT_EQ(composedWrite(halves, compare::Controller_Registers({{16, 0x0708}, {17, 125}})),
              (std::vector<std::uint16_t>{0x0908, 125, 40000}));
    EXPECT_EQ(composedWrite(halves, compare::Controller_Registers({{16, 0x0708}})), std::nullopt);
    const Plan_Write whole{Function_Code::PresetSingleRegister, 11, {50}, {Part::Whole}, {}};
    EXPECT_FALSE(whole.composedFromReading());
    EXPECT_EQ(composedWrite(whole, {}), std::vector<std::uint16_t>{50});
}

/// "16/HI 16-16 high".
std::string textOf(const Cell_Registers& cell) {
    static constexpr std::array words = {"kept", "whole", "high", "low", "minutes", "seconds"};
    return cell.address + " " + std::to_string(cell.range.first) + "-" + std::to_string(cell.range.last) +
           " " + words.at(static_cast<std::size_t>(cell.part));
}

TEST(CellRegisters, AreWhatACellSets) {
    zorvane::doubles::Reading_Bench bench;
    bench.readTemplate(compare::doubles::pumpTemplate);
    std::vector<std::string> texts;
    for (std::int32_t row = 1; row <= 10; ++row)
        texts.push_back(textOf(registersOf(bench.document, {1, row, 2})));
    EXPECT_EQ(texts, (std::vector<std::string>{"10 10-10 whole", "11 11-11 whole", "12 12-12 whole",
                                               "13-15 13-15 whole", "16/HI 16-16 high", "16/LO 16-16 low",
                                               "17 17-17 minutes", "17 17-17 seconds", "18 18-18 whole",
                                               "19 19-19 whole"}));
    EXPECT_EQ(textOf(registersOf(bench.document, {1, 1, 3})), " 0--1 whole") << "none";
}

TEST(CellRegisters, TheTwoHalvesAndTheTwoPartsOfATimeDontMeet) {
    EXPECT_FALSE(partsMeet(Part::High, Part::Low));
    EXPECT_FALSE(partsMeet(Part::Low, Part::High));
    EXPECT_FALSE(partsMeet(Part::Minutes, Part::Seconds));
    EXPECT_FALSE(partsMeet(Part::Seconds, Part::Minutes));
    EXPECT_TRUE(partsMeet(Part::High, Part::High));
    EXPECT_TRUE(partsMeet(Part::Minutes, Part::Minutes));
    EXPECT_TRUE(partsMeet(Part::Whole, Part::Low));
    EXPECT_TRUE(partsMeet(Part::High, Part::Seconds));
    EXPECT_EQ(joinedPart(Part::High, Part::High), Part::High);
    EXPECT_EQ(joinedPart(Part::High, Part::Low), Part::Whole);
}

TEST(CellRegisters, RangesMeetInOneRegister) {
    EXPECT_TRUE(meet({10, 12}, {12, 14}));
    EXPECT_TRUE(meet({12, 14}, {10, 12}));
    EXPECT_FALSE(meet({10, 12}, {13, 14}));
    EXPECT_FALSE(meet({13, 14}, {10, 12}));
    EXPECT_FALSE(meet({10, 12}, {0, -1})) << "no register";
    EXPECT_FALSE(meet({12, 10}, {10, 12})) << "no register";
}

TEST(CellRegisters, WhatChangesTheLineGoesAfterWhatStopsAProcess) {
    Identity_Section section;
    section.last = {{10, 11}};
    section.link = {{"unit", 11}, {"baud", 20}};
    EXPECT_EQ(stageOf(section, {9, 9}), Stage::Usual);
    EXPECT_EQ(stageOf(section, {9, 10}), Stage::Last);
    EXPECT_EQ(stageOf(section, {10, 11}), Stage::Link);
    EXPECT_EQ(stageOf(section, {19, 21}), Stage::Link);
}

} // namespace
} // namespace zorvane::commission
