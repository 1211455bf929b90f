// SPDX-License-Identifier: MIT
#include "compare/filter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::compare {
namespace {

Row rowOf(const std::string& page, const std::string& name, Register_Range registers, Sign sign) {
    Row row;
    row.page = page;
    row.name = name;
    row.heading = "Value";
    row.registers = registers;
    row.sign = sign;
    return row;
}

std::vector<Row> someRows() {
    std::vector<Row> rows = {rowOf("Regulation", "Set point", {40010, 40010}, Sign::Differs),
                             rowOf("Regulation", "Bandwidth", {40011, 40011}, Sign::Equal),
                             rowOf("Output Setup", "Label", {40020, 40024}, Sign::Read_Only),
                             rowOf("Output Setup", "R1 function", {40030, 40030}, Sign::One_Side)};
    rows[3].left = {.value = true, .shown = "Raise"};
    rows[3].right = {.value = true,
                     .shown = "\xDC"
                              "berwachung"}; // begins with a U umlaut
    rows.push_back(rowOf("Remarks", "row 1", {}, Sign::Changing));
    rows.back().registers.reset();
    return rows;
}

/// The numbers of the rows, from 0, that a filter lets through.
std::string let(const std::string& words) {
    EXPECT_EQ(Filter::fault(words), "") << words;
    const Filter filter(words);
    std::string text;
    const std::vector<Row> rows = someRows();
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (filter.lets(rows[i])) text += std::to_string(i);
    return text;
}

TEST(Filter, AnEmptyOneLetsEveryRowThrough) {
    EXPECT_EQ(let(""), "01234");
    EXPECT_EQ(let("   "), "01234");
}

TEST(Filter, ChoosesBySign) {
    EXPECT_EQ(let("is:differs"), "0");
    EXPECT_EQ(let("is:missing"), "3");
    EXPECT_EQ(let("is:readonly"), "2");
    EXPECT_EQ(let("is:equal"), "1");
    EXPECT_EQ(let("is:changing"), "4");
    EXPECT_EQ(let("is:one_side"), "3");
    EXPECT_EQ(let("IS:Read_Only"), "2");
    EXPECT_EQ(let("is:differs is:missing"), "03") << "of several signs a row has one";
}

TEST(Filter, ChoosesByRegister) {
    EXPECT_EQ(let("reg:40010"), "0");
    EXPECT_EQ(let("reg:40010-40020"), "012");
    EXPECT_EQ(let("reg:40023-40023"), "2") << "a part of a text";
    EXPECT_EQ(let("reg:40010 reg:40030"), "03");
    EXPECT_EQ(let("reg:1-9"), "");
}

TEST(Filter, ChoosesByPage) {
    EXPECT_EQ(let("page:regulation"), "01");
    EXPECT_EQ(let("page:\"output setup\""), "23");
    EXPECT_EQ(let("page:Out"), "23");
}

TEST(Filter, SearchesNamesAndTexts) {
    EXPECT_EQ(let("set"), "023") << "Set point, and the page Output Setup";
    EXPECT_EQ(let("set point"), "0") << "both words";
    EXPECT_EQ(let("\"r1 function\""), "3");
    EXPECT_EQ(let("raise"), "3");
    EXPECT_EQ(let("\xFC"
                  "ber"),
              "3")
        << "in any letter case";
    EXPECT_EQ(let("value"), "01234") << "the heading";
}

TEST(Filter, AllKindsOfWordsHaveToFit) {
    EXPECT_EQ(let("page:regulation is:differs reg:40010-40020 point"), "0");
    EXPECT_EQ(let("page:regulation is:readonly"), "");
}

TEST(Filter, SaysWhatIsWrongWithAWord) {
    EXPECT_EQ(Filter::fault("is:wrong"), "\"is:wrong\" names no sign. Write is: and one of differs, missing, "
                                         "readonly, equal, changing, not_read or left_out.");
    EXPECT_EQ(Filter::fault("reg:abc"),
              "\"reg:abc\" names no registers. Write reg:40010 or reg:40010-40020.");
    EXPECT_EQ(Filter::fault("reg:20-10"),
              "\"reg:20-10\" names no registers. Write reg:40010 or reg:40010-40020.");
    EXPECT_EQ(Filter::fault("point reg:1-"),
              "\"reg:1-\" names no registers. Write reg:40010 or reg:40010-40020.");
}

TEST(Filter, KnowsWhetherItChoosesSigns) {
    EXPECT_TRUE(Filter("is:equal").choosesSigns());
    EXPECT_FALSE(Filter("page:x").choosesSigns());
}

} // namespace
} // namespace zorvane::compare
