// SPDX-License-Identifier: MIT
#include "reports/bands/page_layout.h"
#include "reports/testing/page_text.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using doubles::pageText;
using doubles::textsOf;
using testing::ElementsAre;
using testing::IsEmpty;

using Lines = std::vector<std::string>;

/// Paper with room for 100 twips of bands between header and footer.
constexpr Page_Settings smallPaper{10, 10, 10, 10, 0, false, 300, 140};

Printed_Band band(Band_Role role, double height, const std::string& text) {
    Printed_Band made{role, height, {}, {}, {}, {}, {}};
    if (!text.empty()) made.texts.push_back({0, 0, 50, height, 0, text, false});
    return made;
}
Printed_Band row(const std::string& text, double height = 30) { return band(Band_Role::Row, height, text); }
Printed_Band head(const std::string& text) { return band(Band_Role::Head, 30, text); }
Printed_Band emptyFoot(double height) { return band(Band_Role::Foot, height, ""); }

Page_Band pageBand(const std::string& text) {
    return {10, [text](std::int32_t page, Style_Table&) {
                Printed_Band made = band(Band_Role::Text, 10, text + std::to_string(page));
                made.texts.push_back({60, 0, 50, 10, 0, "", true});
                return made;
            }};
}

Page_Document laidOut(std::vector<Printed_Band> bands, const Page_Settings& paper = smallPaper) {
    Printed_Report report;
    static_cast<void>(report.styles.indexOf({}));
    report.bands = std::move(bands);
    return layoutPages(std::move(report), paper, pageBand("h"), pageBand("f"));
}

Lines bodyOf(const Page_Document& document, std::size_t page) {
    Lines texts = textsOf(document, page);
    texts.resize(texts.size() - 4); // header and footer with the number of pages
    return texts;
}

TEST(PageLayout, PutsBandsBetweenHeaderAndFooter) {
    const Page_Document document = laidOut({row("a"), row("b")});
    ASSERT_EQ(document.pages.size(), 1U);
    EXPECT_THAT(pageText(document, 0),
                ElementsAre("text 10,20 50x30 \"a\" 8.5", //
                            "text 10,50 50x30 \"b\" 8.5", //
                            "text 10,10 50x10 \"h1\" 8.5", "text 70,10 50x10 \"1\" 8.5",
                            "text 10,120 50x10 \"f1\" 8.5", "text 70,120 50x10 \"1\" 8.5"));
}

TEST(PageLayout, WithoutBandsThereAreNoPages) { EXPECT_THAT(laidOut({}).pages, IsEmpty()); }

TEST(PageLayout, ABandWithoutRoomBeginsAPage) {
    const Page_Document document = laidOut({row("a"), row("b"), row("c"), row("d")});
    ASSERT_EQ(document.pages.size(), 2U);
    EXPECT_THAT(bodyOf(document, 0), ElementsAre("a", "b", "c"));
    EXPECT_THAT(bodyOf(document, 1), ElementsAre("d"));
    EXPECT_THAT(textsOf(document, 1), ElementsAre("d", "h2", "2", "f2", "2"));
}

TEST(PageLayout, AHeadStaysWithItsFirstRow) {
    const Page_Document document = laidOut({row("a"), row("b"), head("H"), row("c")});
    EXPECT_THAT(bodyOf(document, 0), ElementsAre("a", "b"));
    EXPECT_THAT(bodyOf(document, 1), ElementsAre("H", "c"));
}

TEST(PageLayout, ARowThatBeginsAPageHasItsHeadingsAboveIt) {
    const auto headings = std::make_shared<const Printed_Band>(band(Band_Role::Head, 20, "heading"));
    std::vector<Printed_Band> bands = {head("H")};
    for (const char* text : {"a", "b", "c", "d", "e"}) {
        bands.push_back(row(text));
        bands.back().again = headings;
    }
    const Page_Document document = laidOut(std::move(bands));
    ASSERT_EQ(document.pages.size(), 3U);
    EXPECT_THAT(bodyOf(document, 0), ElementsAre("H", "a", "b"));
    EXPECT_THAT(bodyOf(document, 1), ElementsAre("heading", "c", "d"));
    EXPECT_THAT(bodyOf(document, 2), ElementsAre("heading", "e"));
    EXPECT_EQ(pageText(document, 1)[1], "text 10,40 50x30 \"c\" 8.5");
}

TEST(PageLayout, AFootWithoutRoomIsLeftOutAndEndsThePage) {
    EXPECT_EQ(laidOut({row("a"), row("b"), emptyFoot(60)}).pages.size(), 1U);
    const Page_Document document = laidOut({row("a"), row("b"), emptyFoot(60), row("c")});
    ASSERT_EQ(document.pages.size(), 2U);
    EXPECT_EQ(pageText(document, 1)[0], "text 10,20 50x30 \"c\" 8.5");
}

TEST(PageLayout, ABandHigherThanAPageHasOneOfItsOwn) {
    const Page_Document document = laidOut({row("a"), row("high", 500), row("b")});
    ASSERT_EQ(document.pages.size(), 3U);
    EXPECT_THAT(bodyOf(document, 1), ElementsAre("high"));
}

TEST(PageLayout, MarginsThatLeaveNoRoomGiveEachBandAPage) {
    Page_Settings paper = smallPaper;
    paper.TopMargin = 1000;
    EXPECT_EQ(laidOut({row("a"), row("b"), row("c")}, paper).pages.size(), 3U);
}

TEST(PageLayout, ContentsNameTheirPages) {
    std::vector<Printed_Band> bands = {row("a"), row("b"), row("c"), row("d")};
    bands[0].contentsTitle = "First";
    bands[3].contentsTitle = "Second";
    const Page_Document document = laidOut(std::move(bands));
    ASSERT_EQ(document.contents.size(), 2U);
    EXPECT_EQ(document.contents[1].title, "Second");
    EXPECT_EQ(document.contents[1].page, 2);
}

TEST(PageLayout, WhatRunsPastTheRightMarginStaysThere) {
    Printed_Band wide = row("");
    wide.texts.push_back({500, 0, 50, 30, 0, "far", false});
    EXPECT_EQ(pageText(laidOut({wide}), 0)[0], "text 510,20 50x30 \"far\" 8.5");
}

TEST(PageLayout, OfWhatHasNoWidthOnlyTheSidesArePainted) {
    Text_Style framed;
    framed.BackStyle = Back_Opaque;
    framed.Border = {Border_Solid, 0, Border_Solid, 0, Border_Solid, 0, Border_Solid, 0, false};
    Printed_Report report;
    Printed_Band hidden = row("");
    hidden.texts.push_back({50, 0, 0, 30, report.styles.indexOf(framed), "hidden", false});
    report.bands.push_back(std::move(hidden));
    const Page_Document document =
        layoutPages(std::move(report), smallPaper, {10, [](auto, auto&) { return Printed_Band{}; }},
                    {10, [](auto, auto&) { return Printed_Band{}; }});
    EXPECT_THAT(pageText(document, 0), ElementsAre("line 60,20 60,50", "line 60,20 60,50"));
}

} // namespace
} // namespace zorvane
