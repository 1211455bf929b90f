// SPDX-License-Identifier: MIT
#include "ui/forms/font_dialog.h"
#include "ui/testing/twips_rect.h"

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::ui {
namespace {

using doubles::twips;
using Words = std::vector<std::string>;

/// The dialog, which tells what it does.
struct Font_Dialog_Test : testing::Test {
    Font_Dialog& open(std::int16_t stored) {
        dialog = std::make_unique<Font_Dialog>(stored, nullptr);
        dialog->Guardar = true;
        dialog->save = [this](std::int16_t index) { told.push_back("save " + std::to_string(index)); };
        dialog->ChangeFont = [this](double size) {
            told.push_back("apply " + QString::number(size).toStdString());
        };
        dialog->show();
        QApplication::setActiveWindow(dialog.get());
        return *dialog;
    }
    template <class Widget> Widget& named(const char* name) const {
        Widget* widget = dialog->findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }
    [[nodiscard]] QListWidget& list() const { return named<QListWidget>("List1"); }
    [[nodiscard]] double sample() const { return named<QLabel>("Label2").font().pointSizeF(); }

    std::unique_ptr<Font_Dialog> dialog;
    Words told;
};

TEST_F(Font_Dialog_Test, HasTheDesignSizesAndNames) {
    open(1);
    EXPECT_EQ(dialog->objectName(), "FontDialog");
    EXPECT_EQ(dialog->windowTitle(), "Font Size");
    EXPECT_FALSE(dialog->isModal());
    EXPECT_EQ(dialog->size(), twips(0, 0, 3480, 1860).size());
    EXPECT_EQ(named<QPushButton>("OKButton").geometry(), twips(1935, 120, 1400, 345));
    EXPECT_EQ(named<QPushButton>("OKButton").text(), "Ok");
    EXPECT_EQ(named<QPushButton>("CancelButton").geometry(), twips(1935, 600, 1400, 345));
    EXPECT_EQ(named<QPushButton>("CancelButton").text(), "Cancel");
    EXPECT_EQ(list().geometry(), twips(390, 570, 800, 1035));
    EXPECT_EQ(named<QLineEdit>("Text1").geometry(), twips(390, 240, 800, 315));
    EXPECT_EQ(named<QGroupBox>("Frame1").geometry(), twips(1290, 1080, 1875, 615));
    EXPECT_EQ(named<QLabel>("Label1").geometry(), twips(390, 30, 525, 225));
    EXPECT_EQ(named<QLabel>("Label1").text(), "Size");
    EXPECT_EQ(named<QLabel>("Label2").text(), "aAbBcCdD");
    EXPECT_EQ(named<QLabel>("Label2").parentWidget(), &named<QGroupBox>("Frame1"));
}

TEST_F(Font_Dialog_Test, ListsSevenSizesWithALeadingBlank) {
    open(1);
    Words texts;
    for (int i = 0; i < list().count(); ++i)
        texts.push_back(list().item(i)->text().toStdString());
    EXPECT_EQ(texts, (Words{" 8", " 8.5", " 9", " 9.5", " 10", " 10.5", " 11"}));
}

TEST_F(Font_Dialog_Test, IndexOneIsListedEightAndAHalfAndShownEightAndAQuarter) {
    open(1);
    EXPECT_EQ(list().currentRow(), 1);
    EXPECT_EQ(named<QLineEdit>("Text1").text(), " 8.5");
    EXPECT_EQ(sample(), 8.25);
}

TEST_F(Font_Dialog_Test, AStoredNineShowsElevenAndTheSampleTwelve) {
    open(9);
    EXPECT_EQ(list().currentRow(), 6);
    EXPECT_EQ(named<QLineEdit>("Text1").text(), " 11");
    EXPECT_EQ(sample(), 12);
}

TEST_F(Font_Dialog_Test, TheSampleFitsItsFrameAtEachSize) {
    open(0);
    for (int row = 0; row < 7; ++row) {
        list().setCurrentRow(row);
        EXPECT_TRUE(named<QGroupBox>("Frame1").rect().contains(named<QLabel>("Label2").geometry())) << row;
    }
}

TEST_F(Font_Dialog_Test, OkStoresTheIndexAndThenRaisesTheAppliedSize) {
    open(1);
    list().setCurrentRow(4);
    QTest::mouseClick(&named<QPushButton>("OKButton"), Qt::LeftButton);
    EXPECT_EQ(told, (Words{"save 4", "apply 10.5"}));
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(Font_Dialog_Test, WithoutGuardarOkStoresNothing) {
    open(1).Guardar = false;
    QTest::mouseClick(&named<QPushButton>("OKButton"), Qt::LeftButton);
    EXPECT_EQ(told, Words{"apply 8.25"});
}

TEST_F(Font_Dialog_Test, CancelRaisesNothing) {
    open(1);
    list().setCurrentRow(6);
    QTest::mouseClick(&named<QPushButton>("CancelButton"), Qt::LeftButton);
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(Font_Dialog_Test, IsUsedByTheKeyboardAlone) {
    open(1);
    EXPECT_TRUE(list().hasFocus());
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(told, (Words{"save 2", "apply 9"}));
    told.clear();
    open(1);
    QTest::keyClick(&list(), Qt::Key_Escape);
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(Font_Dialog_Test, ADoubleClickOnASizeChoosesIt) {
    open(1);
    const QPoint place = list().visualItemRect(list().item(0)).center();
    QTest::mouseClick(list().viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(told, (Words{"save 0", "apply 7.5"}));
}

} // namespace
} // namespace zorvane::ui
