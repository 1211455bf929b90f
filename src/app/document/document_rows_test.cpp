// SPDX-License-Identifier: MIT
// What the message bar says of a document that was opened, saved or filled by an upload.

#include "app/document/document_commands.h"
#include "app/document/document_rows.h"
#include "app/testing/app_bench.h"
#include "template/sections/messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

using doubles::App_Bench;
using doubles::fileText;
using testing::ElementsAre;
using testing::IsEmpty;

struct Document_Rows : testing::Test, App_Bench {
    void open(const std::string& path) {
        choose(path);
        MNU_Open_Click(app);
    }
    [[nodiscard]] std::vector<std::string> said() {
        std::vector<std::string> texts;
        for (const Bar_Line& line : mainForm.messageBar().lines())
            texts.push_back(line.text);
        return texts;
    }
    void press(const std::string& caption) {
        for (const Bar_Line& line : std::vector(mainForm.messageBar().lines()))
            for (const Bar_Button& button : line.buttons)
                if (button.caption == caption) return button.press();
        ADD_FAILURE() << caption;
    }
};

TEST_F(Document_Rows, a_document_that_fits_says_nothing) {
    open("/home/site7.abc");
    EXPECT_THAT(said(), IsEmpty());
}

TEST_F(Document_Rows, a_rejected_line_is_told_with_what_follows_it) {
    files.put("/home/site7.abc", fileText({"[Field_1_Default]", "ROW_1=low,10", "ROW_2=high,20,30",
                                           "[Field_2_Default]", "ROW_1=all,33"}));
    open("/home/site7.abc");
    EXPECT_EQ(mainForm.panel(Panel::Message), "This file fit on the template.") << "as ever";
    EXPECT_THAT(said(),
                ElementsAre("site7.abc was read in part: line 3 stopped it, since it has more values "
                            "than its page has columns. What the file says from there on isn't in the "
                            "document, which has the template's values."));
    press("Show");
    EXPECT_EQ(upper.Row(), 1);
    EXPECT_EQ(lower.Row(), 2);
    press("Open as text");
    EXPECT_THAT(journal.beginningWith("opened as text"), ElementsAre("opened as text /home/site7.abc"));
}

TEST_F(Document_Rows, a_failure_that_nobody_is_told_of_is_told) {
    files.put("/home/site7.abc", fileText({"[Field_1_Default]", "ROW_1=low,10", "[Field_900_Default]",
                                           "ROW_1=x,1", "[Field_2_Default]", "ROW_1=all,33"}));
    open("/home/site7.abc");
    EXPECT_EQ(mainForm.panel(Panel::Message), "") << "as ever";
    EXPECT_EQ(document.Fields(2).Cells(1, 2).Value, "3");
    EXPECT_THAT(said(), ElementsAre("site7.abc was read in part: line 4 stopped it, since it can't be used "
                                    "(Subscript out of range). What the file says from there on isn't in the "
                                    "document, which has the template's values."));
    press("Show");
    EXPECT_EQ(upper.Row(), 2);
}

TEST_F(Document_Rows, after_an_update_the_first_reading_is_what_stays) {
    EXPECT_EQ(
        partlyReadText({"/home/OLD_Updated.KVRT9", false, 7, "", true}),
        "OLD_Updated.KVRT9 was read in part: line 7 stopped it, since it has more values than its page "
        "has columns. What the file says from there on isn't in the document, which keeps the values of "
        "the file before the update.");
    EXPECT_EQ(partlyReadText({"/home/OLD_Updated.KVRT9", true, 90, "", true}), "");
    EXPECT_EQ(
        partlyReadText({"/home/OLD_Updated.KVRT9", false, 0, "", true}),
        "OLD_Updated.KVRT9 couldn't be read; the document keeps the values of the file before the update.");
}

TEST_F(Document_Rows, values_outside_their_limits_and_unlisted_texts_are_counted) {
    open("/home/site7.abc");
    for (const std::int32_t row : {1, 2}) {
        document.Fields(1).Cells(0, 2).Column_Type = "NUMERIC";
        document.Fields(1).Cells(row, 2).Min_Value = "5";
        document.Fields(1).Cells(row, 2).Max_Value = "15";
    }
    tellUploaded(app);
    EXPECT_THAT(said(), ElementsAre("One value is outside its limits: Inputs, row 2, Value (20)."));
    document.Fields(1).Cells(1, 2).Value = "16";
    readMessages(document.Fields(2).Cells(1, 2), "(0)Off,(1)On");
    tellUploaded(app);
    EXPECT_THAT(said(), ElementsAre("2 values are outside their limits. One value isn't in the list of its "
                                    "cell. The first: Inputs, row 1, Value (16)."));
    EXPECT_EQ(upper.Row(), 2);
    press("Show");
    EXPECT_EQ(upper.Row(), 1);
    EXPECT_EQ(lower.Row(), 1);
    document.Fields(1).Cells(1, 2).Value = document.Fields(1).Cells(2, 2).Value = "15";
    document.Fields(2).Cells(1, 2).Value = "1";
    tellUploaded(app);
    EXPECT_THAT(said(), IsEmpty());
}

TEST_F(Document_Rows, the_lines_go_with_their_document) {
    files.put("/home/bad.abc", fileText({"[Field_1_Default]", "ROW_1=low,10,11"}));
    open("/home/bad.abc");
    EXPECT_EQ(said().size(), 1U);
    open("/home/site7.abc");
    EXPECT_THAT(said(), IsEmpty());
    open("/home/bad.abc");
    MNU_Close_Click(app);
    EXPECT_THAT(said(), IsEmpty());
}

TEST_F(Document_Rows, saving_a_text_that_no_file_holds_is_told) {
    open("/home/site7.abc");
    edit(1, "a,b");
    MNU_Save_Click(app);
    ASSERT_THAT(said(),
                ElementsAre(testing::StartsWith(
                    "The text \"a,b\" (Inputs, row 1, Value) was saved with a comma or \";\" in it.")));
    press("Replace by a blank");
    EXPECT_EQ(value(1), "a b");
    MNU_Save_Click(app);
    EXPECT_THAT(said(), IsEmpty());
    edit(1, "c;d");
    choose("/home/other.abc");
    MNU_Saveas_Click(app);
    EXPECT_EQ(said().size(), 1U);
}

} // namespace
} // namespace zorvane::app
