// SPDX-License-Identifier: MIT
#include "comm/main_form/message_bar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {

namespace {

using testing::ElementsAre;

std::vector<std::string> texts(const Bar_Lines& bar) {
    std::vector<std::string> texts;
    for (const Bar_Line& line : bar.lines())
        texts.push_back(line.text);
    return texts;
}

TEST(MessageBar, shows_the_newest_line_first) {
    Bar_Lines bar;
    bar.tell({"save", Bar_Kind::Warning, "The save failed", {}});
    bar.tell({"limits", Bar_Kind::Warning, "Two values are outside their limits", {}});
    EXPECT_THAT(texts(bar), ElementsAre("Two values are outside their limits", "The save failed"));
}

TEST(MessageBar, keeps_one_line_of_a_topic) {
    Bar_Lines bar;
    bar.tell({"save", Bar_Kind::Warning, "The save failed", {}});
    bar.tell({"limits", Bar_Kind::Warning, "Two values are outside their limits", {}});
    bar.tell({"save", Bar_Kind::Note, "Saved", {}});
    EXPECT_THAT(texts(bar), ElementsAre("Saved", "Two values are outside their limits"));
}

TEST(MessageBar, takes_back_a_line_by_its_topic) {
    Bar_Lines bar;
    bar.tell({"save", Bar_Kind::Warning, "The save failed", {}});
    bar.withdraw("limits");
    EXPECT_NE(bar.find("save"), nullptr);
    bar.withdraw("save");
    EXPECT_EQ(bar.find("save"), nullptr);
}

TEST(MessageBar, loses_the_documents_lines_with_the_document) {
    Bar_Lines bar;
    bar.tell({"copies", Bar_Kind::Note, "Three copies", {}, false});
    bar.tell({"limits", Bar_Kind::Warning, "Two values", {}});
    bar.documentGone();
    EXPECT_THAT(texts(bar), ElementsAre("Three copies"));
}

TEST(MessageBar, lines_that_know_say_what_is_so_by_now_or_go) {
    Bar_Lines bar;
    int changes = 0;
    std::string now = "Two values";
    bar.tell({"copies", Bar_Kind::Note, "Three copies", {}});
    bar.tell({"limits", Bar_Kind::Warning, "Two values", {}, true, [&now] { return now; }});
    bar.changed = [&changes] { ++changes; };
    bar.review();
    EXPECT_EQ(changes, 0) << "it is as it was";
    now = "One value";
    bar.review();
    EXPECT_THAT(texts(bar), ElementsAre("One value", "Three copies"));
    now.clear();
    bar.review();
    EXPECT_THAT(texts(bar), ElementsAre("Three copies"));
    EXPECT_EQ(changes, 2);
}

TEST(MessageBar, tells_of_each_change_and_of_nothing_else) {
    Bar_Lines bar;
    int changes = 0;
    bar.changed = [&] { ++changes; };
    bar.tell({"save", Bar_Kind::Warning, "The save failed", {}});
    bar.withdraw("another");
    EXPECT_EQ(changes, 1);
    bar.withdraw("save");
    bar.documentGone();
    EXPECT_EQ(changes, 2);
}

} // namespace

} // namespace zorvane
