// SPDX-License-Identifier: MIT
#include "reports/qt/qt_page_dots.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

/// A page of 200 by 100 dots, each of 10 twips.
struct Dotted_Page : testing::Test {
    void add(Page_Item item) { document.pages.front().items.push_back(std::move(item)); }
    void addText(const std::string& text, int alignment) {
        Text_Style style;
        style.Font.Size = 10;
        style.Alignment = alignment;
        style.VerticalAlignment = Align_Middle;
        add(Text_Item{500, 300, 1000, 400, document.styles.indexOf(style), text});
    }
    /// How many dots of that colour a part of the page has.
    [[nodiscard]] int count(Packed_Colour colour, int left, int right) const {
        Qt_Page_Dots page(document, 144);
        const auto dots = page.of(0);
        int found = 0;
        for (int y = 0; y < 100; ++y)
            for (int x = left; x < right; ++x)
                found +=
                    page.colours().table().at(dots[static_cast<std::size_t>(y * 200 + x)]) == colour ? 1 : 0;
        return found;
    }

    Page_Document document{2000, 1000, {}, {Page{}}, {}};
};

TEST_F(Dotted_Page, ABoxHasItsColour) {
    Text_Style label;
    label.BackStyle = Back_Opaque;
    label.BackColor = 0xC0FFFF;
    static_cast<void>(document.styles.indexOf(label));
    add(Box_Item{100, 200, 300, 400, 0xC0FFFF});
    EXPECT_EQ(count(0xC0FFFF, 0, 200), 30 * 40);
    EXPECT_EQ(count(0xFFFFFF, 0, 200), 200 * 100 - 30 * 40);
}

TEST_F(Dotted_Page, ARuleIsADotWideAndADottedOneHasEveryFourth) {
    static_cast<void>(document.styles.indexOf({}));
    add(Line_Item{100, 500, 1900, 500, 0, Border_Solid});
    EXPECT_EQ(count(0, 0, 200), 180);
    document.pages.front().items.clear();
    add(Line_Item{100, 500, 1900, 500, 0, Border_Dot});
    EXPECT_EQ(count(0, 0, 200), 45);
}

TEST_F(Dotted_Page, ATextStandsWhereItsAlignmentSays) {
    addText("HH", Align_Left);
    EXPECT_GT(count(0, 50, 100), 30);
    EXPECT_EQ(count(0, 100, 200), 0);
    document.pages.front().items.clear();
    addText("HH", Align_Right);
    EXPECT_GT(count(0, 100, 150), 30);
    EXPECT_EQ(count(0, 0, 100), 0);
    EXPECT_EQ(count(cutMarkColour, 0, 200), 0);
}

TEST_F(Dotted_Page, ACutTextHasAMarkWhereItIsCut) {
    addText(std::string(30, 'W'), Align_Right);
    EXPECT_EQ(count(0, 0, 50) + count(0, 150, 200), 0);
    EXPECT_GT(count(cutMarkColour, 50, 58), 30);
    EXPECT_EQ(count(cutMarkColour, 60, 200), 0);
    document.pages.front().items.clear();
    addText(std::string(30, 'W'), Align_Left);
    EXPECT_EQ(count(cutMarkColour, 0, 140), 0);
    EXPECT_GT(count(cutMarkColour, 142, 150), 30);
}

TEST_F(Dotted_Page, APageLeavesNothingToTheNext) {
    addText("HH", Align_Left);
    document.pages.push_back({});
    Qt_Page_Dots page(document, 144);
    static_cast<void>(page.of(0));
    for (const std::uint8_t dot : page.of(1))
        ASSERT_EQ(dot, 0);
}

} // namespace
} // namespace zorvane
