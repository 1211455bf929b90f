// SPDX-License-Identifier: MIT
#include "grids/rules/value_findings.h"
#include "template/sections/messages.h"
#include "template/testing/interpreter_bench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A page "Regulation" of a name, a number from 800 to 1400, a time from 0:05 to 9:00 and a list.
struct Value_Findings : testing::Test, doubles::Interpreter_Bench {
    Value_Findings() {
        makeField(1, "2,4");
        document.Field_Count = 1;
        Field_Rec& field = document.Fields(1);
        field.Description = "Regulation";
        field.Cells(0, 2).Value = "Set point";
        field.Cells(0, 2).Column_Type = "NUMERIC";
        field.Cells(0, 3).Column_Type = "TIME";
        for (std::int32_t c = 1; c <= 4; ++c)
            field.Cells(0, c).Modifiable = true;
        for (std::int32_t r = 1; r <= 2; ++r) {
            field.Cells(r, 2).Min_Value = "800";
            field.Cells(r, 2).Max_Value = "1400";
            field.Cells(r, 3).Format = "TIME";
            field.Cells(r, 3).Min_Value = "5";
            field.Cells(r, 3).Max_Value = "540";
            readMessages(field.Cells(r, 4), "(1)Off,(3)On");
        }
        read("a,800,0:05,Off");
    }
    void read(const char* row) { (void)line("FIELD_#_DEFAULT", 1, "ROW_1", row); }
    /// "1,1,2 1500 outside" of each.
    [[nodiscard]] std::vector<std::string> strays() const {
        std::vector<std::string> lines;
        for (const Stray_Value& stray : strayValues(document))
            lines.push_back(std::to_string(stray.place.row) + "," + std::to_string(stray.place.column) + " " +
                            stray.text + (stray.outside ? " outside" : " unlisted"));
        return lines;
    }
};

TEST_F(Value_Findings, values_at_their_limits_and_no_values_are_no_strays) {
    EXPECT_THAT(strays(), IsEmpty());
    read("a,1400,9:00,on");
    EXPECT_THAT(strays(), IsEmpty());
    for (std::int32_t c = 1; c <= 4; ++c)
        document.Fields(1).Cells(1, c).Value = "";
    EXPECT_THAT(strays(), IsEmpty());
}

TEST_F(Value_Findings, a_reading_has_no_limits_to_keep) {
    document.Fields(1).Cells(0, 2).Modifiable = false;
    read("a,41980,0:05,Off");
    EXPECT_THAT(strays(), IsEmpty());
}

TEST_F(Value_Findings, numbers_and_times_outside_their_limits_are_strays) {
    read("a,1401,9:01,Off");
    EXPECT_THAT(strays(), ElementsAre("1,2 1401 outside", "1,3 9:01 outside"));
    read("a,799.5,0:04,Off");
    EXPECT_THAT(strays(), ElementsAre("1,2 799.5 outside", "1,3 0:04 outside"));
}

TEST_F(Value_Findings, a_cell_without_limits_has_those_of_its_register) {
    Cell_Rec& cell = document.Fields(1).Cells(1, 2);
    cell.Min_Value = cell.Max_Value = "";
    read("a,32767,0:05,Off");
    EXPECT_THAT(strays(), IsEmpty());
    read("a,32768,0:05,Off");
    EXPECT_THAT(strays(), ElementsAre("1,2 32768 outside"));
    cell.Format = "NUMERIC_UNSIGNED";
    EXPECT_THAT(strays(), IsEmpty());
    read("a,1e999,0:05,Off");
    EXPECT_THAT(strays(), ElementsAre("1,2 1e999 outside"));
}

TEST_F(Value_Findings, codes_without_an_entry_are_strays) {
    document.Fields(1).Cells(1, 4).Value = "2";
    EXPECT_THAT(strays(), ElementsAre("1,4 2 unlisted"));
}

TEST_F(Value_Findings, a_text_that_is_in_no_list_is_told_as_the_file_had_it) {
    read("a,800,0:05,Broken");
    EXPECT_THAT(strays(), ElementsAre("1,4 Broken unlisted"));
    readMessages(document.Fields(1).Cells(1, 4), "(0)Off,(1)On");
    document.Unlisted.clear();
    read("a,800,0:05,Broken");
    EXPECT_EQ(document.Fields(1).Cells(1, 4).Value, "0") << "which looks like Off";
    EXPECT_THAT(strays(), ElementsAre("1,4 Broken unlisted"));
}

TEST_F(Value_Findings, a_place_has_a_name_for_people) {
    EXPECT_EQ(placeText(document, {1, 2, 2}), "Regulation, row 2, Set point");
    EXPECT_EQ(placeText(document, {1, 2, 1}), "Regulation, row 2, column 1");
    document.Fields(1).Description = " ";
    EXPECT_EQ(placeText(document, {1, 2, 2}), "page 1, row 2, Set point");
}

TEST_F(Value_Findings, texts_with_a_comma_or_a_semicolon_are_held_by_no_file) {
    EXPECT_THAT(cellsThatNoFileHolds(document), IsEmpty());
    document.Fields(1).Cells(2, 1).Value = "a; b";
    document.Fields(1).Cells(1, 1).Value = "a, b";
    EXPECT_THAT(cellsThatNoFileHolds(document), ElementsAre(Cell_Place{1, 1, 1}, Cell_Place{1, 2, 1}));
}

TEST_F(Value_Findings, a_line_of_a_file_leads_to_its_row_or_the_next_one) {
    const std::string file = "[Configuration_Default]\r\nFIELD_1=,a\r\n\r\n[Field_1_Default]\r\nROW_1=a,1\r\n"
                             "ROW_2=b,2\r\nROW_3=c,3\r\n";
    EXPECT_EQ(rowFromLine(document, file, 1), (Cell_Place{1, 1, 1}));
    EXPECT_EQ(rowFromLine(document, file, 5), (Cell_Place{1, 1, 1}));
    EXPECT_EQ(rowFromLine(document, file, 6), (Cell_Place{1, 2, 1}));
    EXPECT_EQ(rowFromLine(document, file, 7), std::nullopt) << "the page has two rows";
    EXPECT_EQ(rowFromLine(document, file, 99), std::nullopt);
}

TEST_F(Value_Findings, a_document_without_fields_has_none) {
    PRO_Limpia_Modelo(document);
    document.Unlisted = {{{1, 1, 1}, "x"}};
    EXPECT_THAT(strays(), IsEmpty());
    EXPECT_THAT(cellsThatNoFileHolds(document), IsEmpty());
    EXPECT_FALSE(hasCell(document, {1, 1, 1}));
}

} // namespace
} // namespace zorvane
