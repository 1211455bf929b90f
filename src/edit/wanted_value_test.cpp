// SPDX-License-Identifier: MIT
#include "edit/testing/relay.h"
#include "edit/wanted_value.h"
#include "template/sections/messages.h"

#include <gtest/gtest.h>

namespace zorvane::edit {
namespace {

/// What becomes of a text in a cell of "Regulation".
struct Judged : testing::Test, doubles::Relay {
    /// The new value, "= value" where the cell has it already, or "not: why".
    [[nodiscard]] std::string judgedAt(std::int32_t row, std::int32_t column, std::string_view text,
                                       const Reading_Style& style = {}) const {
        return told(judged(document, {1, row, column}, text, style));
    }
    [[nodiscard]] static std::string told(const Verdict& verdict) {
        if (const auto* const refusal = std::get_if<Refusal>(&verdict)) return "not: " + refusal->why;
        const auto& taken = std::get<Taken_Value>(verdict);
        return (taken.changes ? "" : "= ") + taken.value;
    }
    static constexpr std::int32_t setPoint = 1, drop = 2, delay = 3, output = 4, tag = 5;
    static constexpr std::int32_t name = 1, value = 2, remark = 3, reading = 4;
};

TEST_F(Judged, ANumberWithinItsLimits) {
    EXPECT_EQ(judgedAt(setPoint, value, "1200"), "1200");
    EXPECT_EQ(judgedAt(setPoint, value, " 01200 "), "1200");
    EXPECT_EQ(judgedAt(setPoint, value, "800,5"), "800.5");
    EXPECT_EQ(judgedAt(setPoint, value, "1125"), "= 1125");
    EXPECT_EQ(judgedAt(setPoint, value, "1125.0"), "= 1125") << "the same number";
}

TEST_F(Judged, WhatATypedEntryWouldBeReplacedForIsRefused) {
    EXPECT_EQ(judgedAt(setPoint, value, "1401"), "not: above its limit 1400");
    EXPECT_EQ(judgedAt(setPoint, value, "799"), "not: below its limit 800");
    EXPECT_EQ(judgedAt(setPoint, value, "high"), "not: not a number");
    EXPECT_EQ(judgedAt(setPoint, value, ""), "not: empty, where a value must stand");
    EXPECT_EQ(judgedAt(delay, value, "soon"), "not: not a time such as 1:30");
    EXPECT_EQ(judgedAt(delay, value, "45"), "not: not a time such as 1:30");
}

TEST_F(Judged, LimitsThatLeaveNoRoomAreToldAsTheyStand) {
    cell(1, setPoint, value).Min_Value = "1400";
    cell(1, setPoint, value).Max_Value = "800";
    EXPECT_EQ(judgedAt(setPoint, value, "800"), "not: below its limit 1400");
    EXPECT_EQ(judgedAt(setPoint, value, "801"), "not: above its limit 800");
}

TEST_F(Judged, ACellWithoutLimitsHasThoseOfItsRegister) {
    EXPECT_EQ(judgedAt(drop, value, "-32768"), "-32768");
    EXPECT_EQ(judgedAt(drop, value, "40000"), "not: above its limit 32767");
    cell(1, drop, value).Format = "NUMERIC_UNSIGNED";
    EXPECT_EQ(judgedAt(drop, value, "40000"), "40000");
    EXPECT_EQ(judgedAt(drop, value, "-1"), "not: below its limit 0");
    EXPECT_EQ(judgedAt(drop, value, "1e999"), "not: above its limit 65535");
    cell(1, 0, value).Column_Type = "ASCII";
    EXPECT_EQ(judgedAt(drop, value, "70000"), "not: beyond its register (0 to 65535)");
}

TEST_F(Judged, ANumberThatReadsTwoWaysIsNeverGuessed) {
    EXPECT_EQ(judgedAt(drop, value, "1,234", {false, '\0', {}}), "not: readable two ways, as 1.234 or 1234");
    EXPECT_EQ(judgedAt(drop, value, "1,234", {false, '.', {}}), "not: readable two ways, as 1.234 or 1234");
    EXPECT_EQ(judgedAt(drop, value, "1,234", {false, ',', {}}), "1.234") << "other numbers prove the comma";
    EXPECT_EQ(judgedAt(drop, value, "1,234", {true, '.', {}}), "not: not a number");
    cell(1, drop, value).Value = "1.234";
    EXPECT_EQ(judgedAt(drop, value, "1.234", {false, '\0', {}}), "= 1.234") << "as it was";
}

TEST_F(Judged, TimesInAnyWritingThatIsClear) {
    EXPECT_EQ(judgedAt(delay, value, "1:30"), "1:30");
    EXPECT_EQ(judgedAt(delay, value, "00:90"), "1:30");
    EXPECT_EQ(judgedAt(delay, value, "00:45:00"), "= 0:45") << "as a spreadsheet gives it back";
    EXPECT_EQ(judgedAt(delay, value, "00:50:00"), "not: readable two ways, as 0:50 or 50:00");
    EXPECT_EQ(judgedAt(delay, value, "0:04"), "not: below its limit 0:05");
    EXPECT_EQ(judgedAt(delay, value, "9:01"), "not: above its limit 9:00");
}

TEST_F(Judged, ATimeIsNeverCutToWholeSeconds) {
    EXPECT_EQ(judgedAt(delay, value, "1:30.5"), "not: a time with a part of a second");
    EXPECT_EQ(judgedAt(delay, value, "0:45.2"), "not: a time with a part of a second")
        << "it isn't as it was";
    EXPECT_EQ(judgedAt(delay, value, "1:30.5", {true, '\0', {}}), "not: a time with a part of a second");
    EXPECT_EQ(judgedAt(delay, value, "1:30.0"), "1:30");
    EXPECT_EQ(judgedAt(delay, value, "1.5:00"), "1:30") << "a minute and a half";
}

TEST_F(Judged, AListTakesTextsAndCodes) {
    EXPECT_EQ(judgedAt(output, value, "trip"), "7");
    EXPECT_EQ(judgedAt(output, value, "7"), "7");
    EXPECT_EQ(judgedAt(output, value, "On"), "= 1");
    EXPECT_EQ(judgedAt(output, value, "2"), "not: not in its list (Off, On, Trip)");
    EXPECT_EQ(judgedAt(output, value, "Auto"), "not: not in its list (Off, On, Trip)");
    EXPECT_EQ(judgedAt(output, value, ""), "not: not in its list (Off, On, Trip)");
}

TEST_F(Judged, AListTakesThePlacesOfEntriesWhereTheyAreMeant) {
    const Reading_Style typed{true, '.', List_Numbers::Entries};
    EXPECT_EQ(judgedAt(output, value, "2", typed), "2") << "as the window's list stores it";
    EXPECT_EQ(judgedAt(output, value, "3", typed), "not: not in its list (Off, On, Trip)");
    EXPECT_EQ(judgedAt(output, value, "Trip", typed), "7");
}

TEST_F(Judged, AListOfNumbersTakesItsTextsFirst) {
    readMessages(cell(1, output, value), "(0)9600,(1)19200,(9600)fast");
    EXPECT_EQ(judgedAt(output, value, "9600"), "0");
    EXPECT_EQ(judgedAt(output, value, "0"), "0");
}

TEST_F(Judged, TextsThatNoFileHoldsAreRefused) {
    EXPECT_EQ(judgedAt(setPoint, remark, "112.5 V"), "112.5 V");
    EXPECT_EQ(judgedAt(setPoint, remark, ""), "");
    EXPECT_EQ(judgedAt(setPoint, remark, "112,5 V"), "not: a text with a comma, which no file holds");
    EXPECT_EQ(judgedAt(setPoint, remark, "a;b"), "not: a text with a \";\", which no file holds");
    EXPECT_EQ(judgedAt(setPoint, remark, "a\nb"),
              "not: a text with a line end or a tab, which no file holds");
    EXPECT_EQ(judgedAt(setPoint, remark, std::string("a\0b", 3)), "not: a text with a control character");
    EXPECT_EQ(judgedAt(tag, value, "\x1B"), "not: a text with a control character");
    EXPECT_EQ(judgedAt(tag, value, "T-13"), "T-13");
    EXPECT_EQ(judgedAt(tag, value, "T-130"), "not: longer than its 4 characters");
}

TEST_F(Judged, AColumnThatCantBeEditedTakesWhatItHasOnly) {
    EXPECT_EQ(judgedAt(setPoint, reading, "1123"), "= 1123");
    EXPECT_EQ(judgedAt(setPoint, reading, "1124"), "not: in a column that can't be edited");
    EXPECT_EQ(judgedAt(setPoint, name, "Set point"), "= Set point");
    EXPECT_EQ(judgedAt(setPoint, name, "Setpoint"), "not: in a column that can't be edited");
}

TEST_F(Judged, ACellThatIsntThere) {
    for (const Cell_Place& place :
         {Cell_Place{1, 6, 1}, {1, 1, 5}, {3, 1, 1}, {0, 1, 1}, {1, 0, 1}, {101, 1, 1}})
        EXPECT_EQ(told(judged(document, place, "1", {})), "not: for a cell that the template doesn't have");
}

TEST_F(Judged, AppliedValuesBringTheLimitsOfANumberAlong) {
    const Verdict number = judged(document, {1, drop, value}, "-5", {});
    const Verdict same = judged(document, {1, setPoint, value}, "1125", {});
    EXPECT_EQ(apply(document, {std::get<Taken_Value>(number), std::get<Taken_Value>(same)}), 1);
    EXPECT_EQ(cell(1, drop, value).Value, "-5");
    EXPECT_EQ(cell(1, drop, value).Min_Value, "-32768");
    EXPECT_EQ(cell(1, drop, value).Max_Value, "32767");
}

TEST_F(Judged, ACodeWithoutATextIsShownItself) {
    cell(1, output, value).Value = "5";
    EXPECT_EQ(valueText(cell(1, output, value)), "5");
    EXPECT_EQ(judgedAt(output, value, "5"), "= 5") << "as it was";
    cell(1, output, value).Value = "7";
    EXPECT_EQ(valueText(cell(1, output, value)), "Trip");
}

} // namespace
} // namespace zorvane::edit
