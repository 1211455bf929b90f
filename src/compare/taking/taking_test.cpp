// SPDX-License-Identifier: MIT
#include "compare/taking/taking.h"
#include "compare/testing/pump.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <random>
#include <string>

namespace zorvane::compare {
namespace {

using doubles::pumpRegisters;
using doubles::pumpTemplate;
using zorvane::doubles::Reading_Bench;

class TakingTest : public ::testing::Test {
  protected:
    TakingTest() {
        ours.readTemplate(pumpTemplate);
        values = pumpRegisters();
    }

    [[nodiscard]] Taking takeAll() {
        registers = Controller_Registers(values);
        const Document_Side left(ours.document);
        const Controller_Side right(ours.document, identity, registers);
        comparison = comparisonOf({ours.document, identity, left, right});
        return judged(Taken_Side::Right);
    }
    [[nodiscard]] Taking takeFile(const std::string& changed) {
        theirs.readTemplate(pumpTemplate + changed);
        const Document_Side left(ours.document);
        const Document_Side right(theirs.document);
        comparison = comparisonOf({ours.document, identity, left, right});
        return judged(Taken_Side::Right);
    }
    [[nodiscard]] Taking judged(Taken_Side from) {
        std::vector<const Row*> rows;
        for (const Row& row : comparison.rows)
            if (row.sign != Sign::Equal) rows.push_back(&row);
        return judgedTaking(ours.document, rows, from);
    }
    [[nodiscard]] const std::string& value(std::int32_t field, std::int32_t row, std::int32_t column) {
        return ours.document.Fields(field).Cells(row, column).Value;
    }

    Reading_Bench ours;
    Reading_Bench theirs;
    Identity_Section identity;
    Controller_Registers::Values values;
    Controller_Registers registers;
    Comparison comparison;
};

TEST_F(TakingTest, TakesWhatAnUploadWouldPutThere) {
    values[10] = 1;
    values[11] = 7;
    values[12] = 91;
    values[13] = 0x4C55; // LUMP
    values[16] = 0x0709;
    values[20] = 5;
    const Taking taking = takeAll();
    EXPECT_EQ(takingText(taking), "6 values were taken.");
    EXPECT_EQ(taking.changes(), 6U);
    EXPECT_EQ(value(1, 1, 2), "2") << "the document stays as it is until the values are applied";
    EXPECT_EQ(edit::apply(ours.document, taking.taken), 6);
    EXPECT_EQ(value(1, 1, 2), "1") << "a list's code";
    EXPECT_EQ(value(1, 2, 2), "7");
    EXPECT_EQ(value(1, 3, 2), "1:31");
    EXPECT_EQ(value(1, 4, 2), "LUMP  ");
    EXPECT_EQ(value(1, 6, 2), "9");
    EXPECT_EQ(value(2, 1, 2), "5");
}

TEST_F(TakingTest, AValueOutsideItsLimitsIsLeftOutAndNeverReplaced) {
    values[11] = 91;
    const Taking taking = takeAll();
    EXPECT_TRUE(taking.taken.empty());
    EXPECT_EQ(takingText(taking), "No value was taken. 1 was left out:\r\n"
                                  "Settings, Level, Value: above its limit 90");
}

TEST_F(TakingTest, ACodeThatTheListLacksIsLeftOut) {
    values[10] = 77;
    values[18] = 39999;
    const Taking taking = takeAll();
    EXPECT_EQ(takingText(taking), "1 value was taken. 1 was left out:\r\n"
                                  "Settings, Mode, Value: its code 77 isn't in the list (Off, On, Auto)");
}

TEST_F(TakingTest, AnEntryWhoseTextIsANumberIsntTakenForACode) {
    for (Reading_Bench* bench : {&ours, &theirs})
        bench->readTemplate(pumpTemplate + "[FIELD_1_MESSAGES]\nADDRESS_10=(1)2,(2)3,(3)1\n");
    Cell_Rec& cell = ours.document.Fields(1).Cells(1, 2);
    ASSERT_TRUE(cell.Has_Messages);
    values[10] = 1;
    const Taking taking = takeAll();
    ASSERT_EQ(taking.taken.size(), 1U);
    EXPECT_EQ(taking.taken[0].value, "1");
}

TEST_F(TakingTest, WhatCantBeEditedIsLeftOut) {
    values[30] = 55;
    const Taking taking = takeAll();
    EXPECT_EQ(takingText(taking), "No value was taken. 1 was left out:\r\n"
                                  "Readings, Bearing, Now: in a column that can't be edited");
}

TEST_F(TakingTest, WhatNoTextSaysIsLeftOut) {
    values[14] = 0x004D; // an empty byte inside the name
    EXPECT_EQ(takingText(takeAll()), "No value was taken. 1 was left out:\r\n"
                                     "Settings, Name, Value: no text says what its registers hold");
}

TEST_F(TakingTest, WhatWasntReadOrHasNoValueIsLeftOut) {
    values.erase(11);
    values.erase(12);
    EXPECT_EQ(takingText(takeAll()), "No value was taken. 2 were left out:\r\n"
                                     "Settings, Level, Value: not read\r\n"
                                     "Settings, Delay, Value: not read");
    EXPECT_EQ(takingText(takeFile("[FIELD_1_DEFAULT]\nROW_2=Level,,in %\n")),
              "No value was taken. 1 was left out:\r\nSettings, Level, Value: no value to take");
}

TEST_F(TakingTest, TakesTextsOfAFile) {
    const Taking taking = takeFile("[FIELD_1_DEFAULT]\nROW_2=Level,-5,in litres\n");
    EXPECT_EQ(takingText(taking), "1 value was taken.");
    edit::apply(ours.document, taking.taken);
    EXPECT_EQ(value(1, 2, 3), "in litres");
}

TEST_F(TakingTest, TakesFromTheLeftSideToo) {
    values[11] = 7;
    (void)takeAll();
    const Taking taking = judged(Taken_Side::Left);
    ASSERT_EQ(taking.taken.size(), 1U);
    EXPECT_FALSE(taking.taken[0].changes) << "the document has it already";
}

TEST_F(TakingTest, ListsTheFirstTwentyOfWhatItLeftOut) {
    Row row;
    row.page = "Page";
    row.name = "Name";
    Taking taking;
    taking.leftOut.assign(22, {&row, "not read"});
    const std::string text = takingText(taking);
    EXPECT_TRUE(text.ends_with("Page, Name: not read\r\nand 2 more")) << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 21);
}

/// What was taken from a controller differs from it no more; what was left out still does.
TEST_F(TakingTest, AfterTakingOnlyWhatWasLeftOutDiffers) {
    std::mt19937 dice(8);
    std::map<Cell_Place, std::string> factory;
    (void)takeAll();
    for (const Row& row : comparison.rows)
        factory[row.place] = value(row.place.field, row.place.row, row.place.column);
    for (int run = 0; run < 500; ++run) {
        SCOPED_TRACE(run);
        for (const auto& [place, text] : factory)
            ours.document.Fields(place.field).Cells(place.row, place.column).Value = text;
        for (auto& [number, held] : values)
            if (dice() % 3 == 0) held = static_cast<std::uint16_t>(dice());
        const Taking taking = takeAll();
        std::size_t rows = 0;
        for (const Row& row : comparison.rows)
            if (row.sign != Sign::Equal) ++rows;
        ASSERT_EQ(taking.taken.size() + taking.leftOut.size(), rows);
        edit::apply(ours.document, taking.taken);
        const std::size_t left = taking.leftOut.size();
        const Taking again = takeAll();
        ASSERT_EQ(again.taken.size(), 0U);
        ASSERT_EQ(again.leftOut.size(), left);
    }
}

} // namespace
} // namespace zorvane::compare
