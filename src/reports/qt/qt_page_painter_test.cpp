// SPDX-License-Identifier: MIT
#include "reports/qt/qt_page_exporters.h"
#include "reports/qt/qt_page_painter.h"
#include "reports/qt/qt_report_fonts.h"

#include <QImage>
#include <QPainter>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

/// A page of 200 by 100 dots, each of 10 twips.
class Painted_Page : public testing::Test {
  protected:
    void add(Page_Item item) { document.pages.front().items.push_back(std::move(item)); }

    void addText(const std::string& text, int alignment = Align_Left) {
        Text_Style style;
        style.Font.Size = 10;
        style.Alignment = alignment;
        style.VerticalAlignment = Align_Middle;
        add(Text_Item{500, 300, 1000, 400, document.styles.indexOf(style), text});
    }

    [[nodiscard]] QImage painted() const {
        QImage image(200, 100, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.scale(0.1, 0.1);
        paintPage(painter, document, 0);
        return image;
    }

    /// The part of the page that isn't white, in dots.
    [[nodiscard]] QRect inked() const {
        const QImage image = painted();
        QRect area;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) != qRgb(255, 255, 255)) area |= QRect(x, y, 1, 1);
        return area;
    }

    Page_Document document{2000, 1000, {}, {Page{}}, {}};
};

TEST_F(Painted_Page, ABoxIsFilledWithItsColour) {
    add(Box_Item{100, 200, 300, 400, 0xC0FFFF});
    EXPECT_EQ(inked(), QRect(10, 20, 30, 40));
    EXPECT_EQ(painted().pixel(20, 30), qRgb(0xFF, 0xFF, 0xC0));
}

TEST_F(Painted_Page, ALineGoesFromEndToEnd) {
    add(Line_Item{100, 500, 1900, 500, 0, Border_Solid});
    EXPECT_EQ(inked().left(), 10);
    EXPECT_EQ(inked().right(), 189);
    EXPECT_LE(inked().height(), 2);
}

TEST_F(Painted_Page, ADottedLineHasGaps) {
    add(Line_Item{100, 505, 1900, 505, 0, Border_Dot});
    const QImage image = painted();
    int dark = 0;
    for (int x = 10; x < 190; ++x)
        dark += image.pixel(x, 50) != qRgb(255, 255, 255) ? 1 : 0;
    EXPECT_GT(dark, 30);
    EXPECT_LT(dark, 150);
}

TEST_F(Painted_Page, ATextStandsWhereItsAlignmentSays) {
    addText("ii");
    EXPECT_LT(inked().right(), 75);
    EXPECT_GE(inked().left(), 50);
    document.pages.front().items.clear();
    addText("ii", Align_Right);
    EXPECT_GT(inked().left(), 125);
    EXPECT_LT(inked().right(), 150);
    document.pages.front().items.clear();
    addText("ii", Align_Center);
    EXPECT_NEAR(inked().center().x(), 100, 2);
    EXPECT_NEAR(inked().center().y(), 50, 4);
}

TEST_F(Painted_Page, ATextIsCutAtTheSidesOfItsRoom) {
    for (const int alignment : {Align_Left, Align_Right, Align_Center}) {
        document.pages.front().items.clear();
        addText(std::string(40, 'W'), alignment);
        EXPECT_GE(inked().left(), 50);
        EXPECT_LT(inked().right(), 150);
        EXPECT_GT(inked().width(), 90);
    }
}

TEST_F(Painted_Page, AMarkTellsWhereATextIsCut) {
    const auto marked = [this](const std::string& text, int alignment) {
        document.pages.front().items.clear();
        addText(text, alignment);
        const QImage image = painted();
        const auto isMark = [&](int x) { return image.pixel(x, 50) == qRgb(0xC0, 0, 0); };
        return std::string(isMark(53) ? "left " : "") + (isMark(146) ? "right" : "");
    };
    EXPECT_EQ(marked("1500", Align_Right), "");
    EXPECT_EQ(marked(std::string(40, '8'), Align_Right), "left ");
    EXPECT_EQ(marked(std::string(40, '8'), Align_Left), "right");
    EXPECT_EQ(marked(std::string(40, '8'), Align_Center), "left right");
    EXPECT_EQ(marked("8" + std::string(80, ' '), Align_Left), "");
    EXPECT_EQ(marked(std::string(80, ' ') + "8", Align_Right), "");
}

TEST_F(Painted_Page, AControlCharacterIsPaintedAsABlank) {
    addText("i\ti");
    const QRect tab = inked();
    document.pages.front().items.clear();
    addText("i i");
    EXPECT_EQ(tab, inked());
}

TEST(QtMetrics, GrowWithTheSizeAndTheText) {
    const Qt_Text_Metrics metrics;
    const Report_Font eight{reportFont, 8, false};
    const Report_Font sixteen{reportFont, 16, false};
    EXPECT_EQ(metrics.textWidth("", eight), 0);
    EXPECT_GT(metrics.textWidth("Description:", eight), 600);
    EXPECT_NEAR(metrics.textWidth("Description:", sixteen), 2 * metrics.textWidth("Description:", eight), 4);
    EXPECT_GT(metrics.lineHeight(eight), 8 * 20);
    EXPECT_LT(metrics.lineHeight(eight), 8 * 20 * 1.5);
}

TEST(QtMetrics, AColumnOfTheLargestFontHasRoomInARow) {
    EXPECT_LE(Qt_Text_Metrics().lineHeight({reportFont, 12, false}), 288);
}

TEST(QtExporters, AReportWithoutPagesStillGivesAPdf) {
    const Page_Document empty{12240, 15840, {}, {}, {}};
    EXPECT_THAT(Qt_Page_Exporters().pdf(empty, "title"), testing::StartsWith("%PDF-"));
}

} // namespace
} // namespace zorvane
