// SPDX-License-Identifier: MIT
#include "edit/text_block.h"

#include <gtest/gtest.h>

namespace zorvane::edit {
namespace {

TEST(TextBlock, TabsAndLineEndsCutTheClipboard) {
    EXPECT_EQ(textRows("a\tb\r\nc\td\r\n"), (Text_Rows{{"a", "b"}, {"c", "d"}}));
    EXPECT_EQ(textRows("a"), (Text_Rows{{"a"}}));
    EXPECT_EQ(textRows("\n\t\n"), (Text_Rows{{""}, {"", ""}})) << "an empty cell in a row of its own";
    EXPECT_EQ(textRows("\"two\nlines\"\tb"), (Text_Rows{{"two\nlines", "b"}}));
    EXPECT_TRUE(textRows("").empty());
}

TEST(TextBlock, WhatIsCopiedComesBack) {
    const Text_Rows rows = {{"Set point", "1125", ""}, {"say \"x\"", "a\tb", "c;d,e"}};
    EXPECT_EQ(textRows(tabbedText(rows)), rows);
    EXPECT_EQ(tabbedText({{"Set point", "1125"}, {"Drop X", "-12"}}), "Set point\t1125\r\nDrop X\t-12\r\n");
}

TEST(TextBlock, TheTableKeepsTextsAsTexts) {
    EXPECT_EQ(htmlTable({{"1125", "0:45"}, {"<b> & \"c\"", "0.1\xB0"}}),
              "<table>\n"
              "<tr><td>1125</td><td style=\"mso-number-format:'\\@'\">0:45</td></tr>\n"
              "<tr><td style=\"mso-number-format:'\\@'\">&#60;b&#62; &#38; &#34;c&#34;</td>"
              "<td style=\"mso-number-format:'\\@'\">0.1&#176;</td></tr>\n"
              "</table>\n");
}

} // namespace
} // namespace zorvane::edit
