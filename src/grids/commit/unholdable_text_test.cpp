// SPDX-License-Identifier: MIT
#include "grids/commit/unholdable_text.h"
#include "grids/testing/grid_bench.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

struct Unholdable_Text : testing::Test, doubles::Grid_Bench {
    Unholdable_Text() {
        addTable(2, 2, "");
        document.Fields(1).Description = "Outputs";
        document.Fields(1).Cells(0, 2).Value = "Remark";
    }
    [[nodiscard]] std::string said() {
        const Bar_Line* line = bar().find(unholdableTopic);
        return line == nullptr ? "" : line->text;
    }
    [[nodiscard]] std::string captions() {
        std::string all;
        if (const Bar_Line* line = bar().find(unholdableTopic))
            for (const Bar_Button& button : line->buttons)
                all += "[" + button.caption + "]";
        return all;
    }
    void press(std::size_t button) { bar().find(unholdableTopic)->buttons.at(button).press(); }
    [[nodiscard]] Bar_Lines& bar() { return mainForm.bar; }
};

const std::string loss =
    " A file can't hold a comma or \";\": when it is read again, what stands after it in its row is lost or "
    "in the wrong column.";

TEST_F(Unholdable_Text, a_committed_text_with_a_comma_or_semicolon_is_told) {
    type(1, 1, "plain");
    EXPECT_EQ(said(), "");
    type(1, 1, "left, right");
    EXPECT_EQ(document.Fields(1).Cells(1, 2).Value, "left, right") << "the commit is as ever";
    EXPECT_EQ(said(), "The text \"left, right\" (Outputs, row 1, Remark) has a comma or \";\" in it." + loss);
    EXPECT_EQ(captions(), "[Replace by a blank][Show]");
    type(2, 1, "a;b");
    EXPECT_EQ(said(), "The text \"a;b\" (Outputs, row 2, Remark) has a comma or \";\" in it." + loss);
}

TEST_F(Unholdable_Text, the_line_goes_with_the_text) {
    type(1, 1, "a,b");
    bar().review();
    EXPECT_NE(said(), "");
    document.Fields(1).Cells(1, 2).Value = "ab";
    bar().review();
    EXPECT_EQ(said(), "");
}

TEST_F(Unholdable_Text, replacing_it_puts_blanks_and_marks_the_document) {
    type(1, 1, "a,b;c");
    form.Dirty = false;
    press(0);
    EXPECT_EQ(document.Fields(1).Cells(1, 2).Value, "a b c");
    EXPECT_EQ(ownLower.TextMatrix(1, 1), "a b c");
    EXPECT_TRUE(form.Dirty);
    EXPECT_EQ(said(), "");
}

TEST_F(Unholdable_Text, replacing_on_another_page_leaves_the_grid_alone) {
    type(1, 1, "a,b");
    addTable(2, 2, "");
    ownLower.setTextMatrix(1, 1, "other");
    press(0);
    EXPECT_EQ(document.Fields(1).Cells(1, 2).Value, "a b");
    EXPECT_EQ(ownLower.TextMatrix(1, 1), "other");
}

TEST_F(Unholdable_Text, nothing_is_replaced_online_or_in_a_read_only_document) {
    type(1, 1, "a,b");
    form.Online = true;
    press(0);
    EXPECT_EQ(document.Fields(1).Cells(1, 2).Value, "a,b");
    tellCommittedText(grids, {1, 1, 2});
    EXPECT_EQ(captions(), "[Show]");
    form.Online = false;
    document.Read_Only = true;
    tellSavedTexts(grids);
    EXPECT_EQ(captions(), "[Show]");
}

TEST_F(Unholdable_Text, showing_it_goes_to_the_cell) {
    type(2, 1, "a,b");
    ownLower.setRow(1);
    ownLower.setCol(0);
    press(1);
    EXPECT_EQ(ownLower.Row(), 2);
    EXPECT_EQ(ownLower.Col(), 1);
    EXPECT_EQ(windows.cellsShown, 1);
}

TEST_F(Unholdable_Text, a_saved_document_is_told_of_as_a_whole) {
    tellSavedTexts(grids);
    EXPECT_EQ(said(), "");
    document.Fields(1).Cells(2, 2).Value = "a;b";
    tellSavedTexts(grids);
    EXPECT_EQ(said(),
              "The text \"a;b\" (Outputs, row 2, Remark) was saved with a comma or \";\" in it." + loss);
    document.Fields(1).Cells(1, 1).Value = "c,d";
    tellSavedTexts(grids);
    EXPECT_EQ(said(), "2 texts were saved with a comma or \";\" in them, the first is \"c,d\" (Outputs, row "
                      "1, column 1)." +
                          loss);
    press(0);
    EXPECT_EQ(document.Fields(1).Cells(1, 1).Value, "c d");
    EXPECT_EQ(document.Fields(1).Cells(2, 2).Value, "a b");
    document.Fields(1).Cells(1, 1).Value = "c,d";
    tellSavedTexts(grids);
    document.Fields(1).Cells(1, 1).Value = "c d";
    tellSavedTexts(grids);
    EXPECT_EQ(said(), "") << "a good save takes it back";
}

} // namespace
} // namespace zorvane
