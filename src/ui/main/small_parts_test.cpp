// SPDX-License-Identifier: MIT
#include "ui/base/dialog_filter.h"
#include "ui/base/icons.h"
#include "ui/base/text.h"
#include "ui/base/twips_scale.h"
#include "ui/grid/combo_entries.h"
#include "ui/grid/key_codes.h"
#include "ui/grid/packed_colour.h"

#include <QDir>
#include <QImage>
#include <QPixmap>
#include <QWidget>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

using Entries = std::vector<Combo_Entry>;

TEST(Combo_Entries_Test, ReadsNumberedEntries) {
    EXPECT_EQ(comboEntries("|#0;Off|#1;On"), (Entries{{"0", "Off"}, {"1", "On"}}));
    EXPECT_EQ(comboEntries("|#0;Off"), (Entries{{"0", "Off"}}));
    EXPECT_EQ(comboEntries("|#0;"), (Entries{{"0", ""}}));
    EXPECT_EQ(comboEntries(""), Entries{});
}

TEST(Combo_Entries_Test, KeepsBarsAndSemicolonsInsideAText) {
    EXPECT_EQ(comboEntries("|#0;A|B;C|#1;#5|#2;|#10;D"),
              (Entries{{"0", "A|B;C"}, {"1", "#5"}, {"2", ""}, {"10", "D"}}));
}

TEST(Combo_Entries_Test, ReadsEntriesWithoutNumbers) {
    EXPECT_EQ(comboEntries("A|B"), (Entries{{"", "A"}, {"", "B"}}));
    EXPECT_EQ(comboEntries("|A|B"), (Entries{{"", "A"}, {"", "B"}}));
}

TEST(Combo_Entries_Test, FindsTheExactTextBeforeOneInAnotherCase) {
    const Entries entries = comboEntries("|#0;ON|#1;On|#2;Off");
    EXPECT_EQ(entryWithText(entries, "On"), 1u);
    EXPECT_EQ(entryWithText(entries, " off "), 2u);
    EXPECT_EQ(entryWithText(entries, "Auto"), std::nullopt);
}

TEST(Dialog_Filter_Test, ReadsPairsOfTextAndPattern) {
    EXPECT_EQ(dialogFilters("ABC Configuration (*.ABC)|*.ABC|DEF Configuration (*.DEF)|*.DEF|"),
              (std::vector<Dialog_Filter>{{"ABC Configuration (*.ABC)", "*.ABC"},
                                          {"DEF Configuration (*.DEF)", "*.DEF"}}));
    EXPECT_EQ(dialogFilters("All files"), (std::vector<Dialog_Filter>{{"All files", "*"}}));
    EXPECT_TRUE(dialogFilters("").empty());
}

TEST(Dialog_Filter_Test, PutsThePatternInBracketsOnce) {
    EXPECT_EQ(nameFilter({"ABC Configuration (*.ABC)", "*.ABC"}), "ABC Configuration (*.ABC)");
    EXPECT_EQ(nameFilter({"Logs", "*.log;*.rtf"}), "Logs (*.log *.rtf)");
    EXPECT_EQ(nameFilter({"Logs", "*.log; *.rtf"}), "Logs (*.log *.rtf)");
}

TEST(Dialog_Filter_Test, KeepsAPatternWithABlankInOnePiece) {
    EXPECT_EQ(nameFilter({"MY MODEL Configuration (*.MY MODEL)", "*.MY MODEL"}),
              "MY MODEL Configuration (*.MY MODEL) (*.MY?MODEL)");
}

TEST(Dialog_Filter_Test, KnowsTheExtension) {
    EXPECT_EQ(firstExtension({"", "*.ABC"}), "ABC");
    EXPECT_EQ(firstExtension({"", "*.log;*.rtf"}), "log");
    EXPECT_EQ(firstExtension({"", "*.*"}), "");
    EXPECT_EQ(firstExtension({"", "*"}), "");
}

TEST(Key_Codes_Test, KnowTheKeysOfTheHandlers) {
    EXPECT_EQ(keyCodeOf(Qt::Key_Home), 36);
    EXPECT_EQ(keyCodeOf(Qt::Key_Escape), 27);
    EXPECT_EQ(keyCodeOf(Qt::Key_Return), 13);
    EXPECT_EQ(keyCodeOf(Qt::Key_F12), 123);
    EXPECT_EQ(keyCodeOf(Qt::Key_A), 65);
    EXPECT_EQ(keyCodeOf(Qt::Key_0), 48);
    EXPECT_EQ(keyCodeOf(Qt::Key_Delete), 46);
    EXPECT_EQ(keyCodeOf(Qt::Key_Launch0), 0);
    EXPECT_EQ(shiftOf(Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier), 7);
    EXPECT_EQ(shiftOf(Qt::ShiftModifier | Qt::ControlModifier), 3);
    EXPECT_EQ(shiftOf(Qt::KeypadModifier), 0);
    EXPECT_EQ(buttonsOf(Qt::LeftButton), 1);
    EXPECT_EQ(buttonsOf(Qt::RightButton | Qt::MiddleButton), 6);
}

TEST(Text_Test, GoesBetweenTheCoreAndTheWindow) {
    EXPECT_EQ(fromCore("Off"), "Off");
    EXPECT_EQ(fromCore("\xB1 \x80"), QStringLiteral("\u00B1 \u20AC"));
    EXPECT_EQ(toCore(QStringLiteral("\u00B1 \u20AC")), "\xB1 \x80");
    EXPECT_TRUE(fitsCodePage(QStringLiteral("\u20AC\u00FF")));
    EXPECT_FALSE(fitsCodePage(QStringLiteral("\u0416")));
}

TEST(Packed_Colour_Test, HasBlueInTheHighByte) {
    EXPECT_EQ(colourFrom(0x0000FF), QColor(255, 0, 0));
    EXPECT_EQ(colourFrom(0xC00000), QColor(0, 0, 0xC0));
    EXPECT_EQ(colourFrom(0xC0FFFF), QColor(255, 255, 0xC0));
}

TEST(Twips_Test, GoToTheNearestPixelAtEachScale) {
    EXPECT_EQ((Twips_Scale{15, 15}.rect({60, 60, 6705, 1905})), QRect(4, 4, 447, 127));
    EXPECT_EQ((Twips_Scale{7.5, 7.5}.rect({60, 60, 6705, 1905})), QRect(8, 8, 894, 254));
    EXPECT_EQ((Twips_Scale{10, 10}.rect({60, 60, 6705, 1905})), QRect(6, 6, 671, 191));
    EXPECT_EQ((Twips_Scale{15, 15}.rect({0, 0, -20, -20}).size()), QSize(0, 0));
}

TEST(Twips_Test, NeighboursShareAnEdge) {
    const Twips_Scale scale{15, 15};
    const QRect first = scale.rect({0, 0, 457, 100});
    const QRect second = scale.rect({457, 0, 457, 100});
    EXPECT_EQ(first.x() + first.width(), second.x());
}

TEST(Twips_Test, KnowTheScaleOfAScreenOf96DotsToTheInch) {
    const QWidget widget;
    EXPECT_EQ(scaleOf(widget).perPixelX * widget.logicalDpiX(), 1440);
}

/// How many pixels of a drawing aren't empty.
int paintedPixels(const QImage& image) {
    int painted = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            painted += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
    return painted;
}

TEST(Icons_Test, EachDrawingPaintsSomething) {
    (void)icon("application");
    const QStringList names = QDir(":/zorvane").entryList();
    EXPECT_GE(names.size(), 24);
    for (const QString& name : names) {
        const QImage image = icon(name.chopped(4)).pixmap(32, 32).toImage();
        ASSERT_FALSE(image.isNull()) << name.toStdString();
        EXPECT_GT(paintedPixels(image), 20) << name.toStdString();
    }
}

} // namespace
} // namespace zorvane::ui
