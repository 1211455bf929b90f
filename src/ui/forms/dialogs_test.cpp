// SPDX-License-Identifier: MIT
#include "template/services/asker.h"
#include "ui/base/wrapped_label.h"
#include "ui/forms/acercade.h"
#include "ui/forms/frm_debug.h"
#include "ui/forms/lost_com.h"
#include "ui/forms/mensaje.h"
#include "ui/forms/msgb.h"
#include "ui/forms/porcentaje.h"
#include "ui/testing/twips_rect.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::ui {
namespace {

using doubles::twips;
using Words = std::vector<std::string>;

template <class Widget> Widget& named(QWidget& dialog, const char* name) {
    Widget* widget = dialog.findChild<Widget*>(name);
    EXPECT_NE(widget, nullptr) << name;
    return *widget;
}

/// Answers the message box that opens next, and looks at it first.
void whenShown(const std::function<void(Msgb&)>& act) {
    QTimer::singleShot(0, [act] {
        auto* box = dynamic_cast<Msgb*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        act(*box);
    });
}

TEST(Msgb_Test, ItsTextIsCopiedByKeyAndByMenu) {
    Msgb box(QStringLiteral("Do you want to save?\nIt has changes."), Msgb_Question + Msgb_YesNoCancel,
             QStringLiteral("Zorvane"), nullptr);
    box.show();
    QApplication::clipboard()->clear();
    QTest::keyClick(&named<QPushButton>(box, "BOT_1"), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "Zorvane\n\nDo you want to save?\nIt has changes.");
    QApplication::clipboard()->clear();
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), box.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&box, &event);
    named<QMenu>(box, "COPY_Menu").actions().constFirst()->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), "Zorvane\n\nDo you want to save?\nIt has changes.");
    EXPECT_TRUE(box.isVisible());
}

TEST(Msgb_Test, HasTheDesignSizesAndNames) {
    Msgb box("Do you want to save this file?", 35, "Zorvane", nullptr);
    EXPECT_EQ(box.size(), twips(0, 0, 6600, 1950).size());
    EXPECT_EQ(box.windowTitle(), "Zorvane");
    EXPECT_EQ(named<QPushButton>(box, "BOT_1").geometry(), twips(5010, 420, 1400, 345));
    EXPECT_EQ(named<QPushButton>(box, "BOT_2").geometry(), twips(5010, 900, 1400, 345));
    EXPECT_EQ(named<QPushButton>(box, "BOT_3").geometry(), twips(5010, 1380, 1400, 345));
    EXPECT_EQ(named<QLabel>(box, "txt_mensaje").geometry(), twips(750, 360, 4125, 1335));
    EXPECT_EQ(named<QLabel>(box, "txt_mensaje").text(), "Do you want to save this file?");
    EXPECT_EQ(named<QLabel>(box, "txt_mensaje").accessibleDescription(), "txt_mensaje");
    EXPECT_EQ(named<QLabel>(box, "IMG_Question").size(), QSize(32, 32));
}

TEST(Msgb_Test, ThirtySixShowsTheQuestionIconYesAndNo) {
    Msgb box("?", 36, "Zorvane", nullptr);
    EXPECT_FALSE(named<QLabel>(box, "IMG_Question").isHidden());
    EXPECT_TRUE(named<QLabel>(box, "IMG_Critical").isHidden());
    EXPECT_EQ(named<QPushButton>(box, "BOT_1").text(), "Yes");
    EXPECT_EQ(named<QPushButton>(box, "BOT_2").text(), "No");
    EXPECT_TRUE(named<QPushButton>(box, "BOT_3").isHidden());
    EXPECT_FALSE(named<QPushButton>(box, "BOT_3").isEnabled());
}

TEST(Msgb_Test, SixteenShowsTheCriticalIconAndOk) {
    Msgb box("!", 16, "Zorvane", nullptr);
    EXPECT_FALSE(named<QLabel>(box, "IMG_Critical").isHidden());
    EXPECT_FALSE(named<QLabel>(box, "IMG_Critical").pixmap().isNull());
    EXPECT_TRUE(named<QPushButton>(box, "BOT_1").isHidden());
    EXPECT_EQ(named<QPushButton>(box, "BOT_2").text(), "Ok");
    EXPECT_TRUE(named<QPushButton>(box, "BOT_3").isHidden());
}

TEST(Msgb_Test, ClosedByItsFrameWithStyleZeroGivesTwoAndNotOne) {
    whenShown([](Msgb& box) { box.close(); });
    EXPECT_EQ(Msgb_Show(nullptr, "Done", 0, "Zorvane"), 2);
    whenShown([](Msgb& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(Msgb_Show(nullptr, "Done", 0, "Zorvane"), 2);
}

TEST(Msgb_Test, GivesTheCodeOfTheButton) {
    const auto answered = [](int style, const char* button) {
        whenShown(
            [button](Msgb& box) { QTest::mouseClick(&named<QPushButton>(box, button), Qt::LeftButton); });
        return Msgb_Show(nullptr, "?", style, "Zorvane");
    };
    EXPECT_EQ(answered(0, "BOT_2"), 1);
    EXPECT_EQ(answered(36, "BOT_1"), 6);
    EXPECT_EQ(answered(36, "BOT_2"), 7);
    EXPECT_EQ(answered(35, "BOT_3"), 2);
}

TEST(Msgb_Test, IsAnsweredByTheKeyboard) {
    whenShown([](Msgb& box) {
        EXPECT_TRUE(named<QPushButton>(box, "BOT_1").isDefault() ||
                    named<QPushButton>(box, "BOT_1").autoDefault());
        QTest::keyClick(box.focusWidget() != nullptr ? box.focusWidget() : &box, Qt::Key_Return);
    });
    EXPECT_EQ(Msgb_Show(nullptr, "?", 36, "Zorvane"), 6);
}

TEST(Msgb_Test, GrowsForAMessageThatDoesntFit) {
    Msgb box(QString(900, u'x'), 16, "Zorvane", nullptr);
    auto& message = named<QLabel>(box, "txt_mensaje");
    EXPECT_EQ(message.text().size(), 900);
    EXPECT_GT(box.height(), 130);
    EXPECT_EQ(box.width(), 440);
    EXPECT_GE(message.height(), dynamic_cast<Wrapped_Label&>(message).neededHeight(message.width()));
    EXPECT_EQ(named<QPushButton>(box, "BOT_2").geometry(), twips(5010, 900, 1400, 345));
}

TEST(Acercade_Test, ShowsTheVersionAndCloses) {
    Acercade about([](const QString&, int, const QString&) { return 1; }, nullptr);
    EXPECT_EQ(about.size(), twips(0, 0, 6045, 2835).size());
    EXPECT_EQ(about.windowTitle(), "About...");
    EXPECT_EQ(named<QLabel>(about, "Label8").text(), QStringLiteral("Zorvane\u2122 v1.61 (August 10, 2017)"));
    EXPECT_EQ(named<QLabel>(about, "Label1").text(), "Configuration of Modbus RTU controllers");
    EXPECT_EQ(named<QLabel>(about, "Label2").text(), "Made by the Zorvane developers, under the MIT licence");
    EXPECT_EQ(named<QPushButton>(about, "Command1").text(), "Close");
    EXPECT_EQ(named<QLabel>(about, "IMG_Logo").size(), QSize(400, 78));
    about.show();
    QTest::mouseClick(&named<QPushButton>(about, "Command1"), Qt::LeftButton);
    EXPECT_FALSE(about.isVisible());
}

TEST(Acercade_Test, ShowsTheCreditsOnF12) {
    Words asked;
    Acercade about(
        [&](const QString& prompt, int style, const QString& title) {
            asked = {prompt.toStdString(), std::to_string(style), title.toStdString()};
            return 1;
        },
        nullptr);
    about.show();
    QTest::keyClick(&named<QPushButton>(about, "Command1"), Qt::Key_F11);
    EXPECT_TRUE(asked.empty());
    QTest::keyClick(&named<QPushButton>(about, "Command1"), Qt::Key_F12);
    ASSERT_EQ(asked.size(), 3u);
    EXPECT_EQ(asked[0], "Zorvane by the Zorvane developers\r\nAugust 10, 2017");
    EXPECT_EQ(asked[1], "64");
    EXPECT_EQ(asked[2], " Desarrollador ");
    EXPECT_TRUE(about.isVisible());
}

TEST(Frm_Debug_Test, KeepsItsTextBoxInsideTheForm) {
    Frm_Debug form(nullptr);
    EXPECT_EQ(form.windowTitle(), "Test Debug Form...");
    EXPECT_EQ(form.EDT_Prueba().geometry(), twips(100, 100, 6000 - 100, 4500 - 100));
    form.show();
    form.resize(600, 400);
    QApplication::processEvents();
    EXPECT_EQ(form.EDT_Prueba().geometry(), twips(100, 100, 9000 - 200, 6000 - 500));
    const QRect before = form.EDT_Prueba().geometry();
    form.resize(600, 33); // 495 twips: less than what stays free below the box
    QApplication::processEvents();
    EXPECT_EQ(form.EDT_Prueba().geometry(), before);
}

TEST(Frm_Debug_Test, HidesWhenItIsClosed) {
    Frm_Debug form(nullptr);
    form.show();
    form.EDT_Prueba().setPlainText("kept");
    EXPECT_FALSE(form.close());
    EXPECT_FALSE(form.isVisible());
    form.show();
    EXPECT_EQ(form.EDT_Prueba().toPlainText(), "kept");
}

TEST(Frm_Debug_Test, EscapeHidesIt) {
    Frm_Debug form(nullptr);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QTest::keyClick(&form.EDT_Prueba(), Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST(Frm_Debug_Test, EachLineThatArrivesEndsTheTextWithItsLineEnd) {
    Frm_Debug form(nullptr);
    form.addLine("Tx: 01 03");
    EXPECT_EQ(form.EDT_Prueba().toPlainText(), "Tx: 01 03\n");
    form.addLine("Rx: 01 03");
    EXPECT_EQ(form.EDT_Prueba().toPlainText(), "Tx: 01 03\nRx: 01 03\n");
    form.EDT_Prueba().setPlainText("typed");
    form.addLine("Tx");
    EXPECT_EQ(form.EDT_Prueba().toPlainText(), "typedTx\n") << "behind whatever stands there";
}

/// The progress form, and what its Cancel button does in order.
class Porcentaje_Test : public testing::Test {
  protected:
    Porcentaje_Test() { form.show(); }

    Words told;
    Porcentaje form{{[this] { told.push_back("cancel"); }, [this] { told.push_back("unloaded"); }}, nullptr};
};

TEST_F(Porcentaje_Test, HasTheDesignSizesAndNames) {
    EXPECT_EQ(form.size(), twips(0, 0, 4695, 1245).size());
    EXPECT_EQ(named<QLabel>(form, "Label1").geometry(), twips(660, 180, 3375, 225));
    EXPECT_TRUE(named<QLabel>(form, "Label1").font().bold());
    EXPECT_EQ(form.Progress_Bar().geometry(), twips(90, 450, 4485, 315));
    EXPECT_EQ(named<QPushButton>(form, "BOT_Cancel").geometry(), twips(1647, 870, 1400, 345));
    EXPECT_EQ(named<QPushButton>(form, "Bot_Ok").geometry(), twips(1650, 870, 1400, 345));
    EXPECT_EQ(named<QPushButton>(form, "BOT_Cancel").text(), "Cancel");
    EXPECT_EQ(named<QPushButton>(form, "Bot_Ok").text(), "Ok");
    EXPECT_FALSE(named<QPushButton>(form, "Bot_Ok").isVisible());
}

TEST_F(Porcentaje_Test, WordsTooLongForTheirPlaceTakeTheWholeWidth) {
    const auto& label = named<QLabel>(form, "Label1");
    const QPoint middle = label.geometry().center();
    form.setLabel(QString(label.width() / label.fontMetrics().horizontalAdvance(QLatin1Char('m')) + 1, u'm'));
    EXPECT_EQ(label.geometry(), twips(90, 180, 4485, 225));
    EXPECT_NEAR(label.geometry().center().x(), middle.x(), 1);
    form.setLabel(QStringLiteral("Uploading"));
    EXPECT_EQ(label.geometry(), twips(660, 180, 3375, 225));
}

TEST_F(Porcentaje_Test, CancelTellsItsOwnerAndStays) {
    QTest::mouseClick(&named<QPushButton>(form, "BOT_Cancel"), Qt::LeftButton);
    EXPECT_EQ(told, (Words{"cancel"}));
    EXPECT_TRUE(form.isVisible());
}

TEST_F(Porcentaje_Test, EscapeAndItsFrameButtonAreCancel) {
    QTest::keyClick(&named<QPushButton>(form, "BOT_Cancel"), Qt::Key_Escape);
    form.close();
    EXPECT_EQ(told, (Words{"cancel", "cancel"}));
    EXPECT_TRUE(form.isVisible());
}

TEST(Porcentaje_Question, StandsOnceAtATime) {
    int asked = 0;
    Porcentaje* shown = nullptr;
    Porcentaje form({[&] {
                         ++asked;
                         shown->close();
                     },
                     {}},
                    nullptr);
    shown = &form;
    form.show();
    form.close();
    EXPECT_EQ(asked, 1);
}

TEST_F(Porcentaje_Test, ShowsOkInPlaceOfCancelWhenItIsOver) {
    form.Progress_Bar().setRange(0, 10);
    form.Progress_Bar().setValue(7);
    form.Deshabilita_Cancelar();
    EXPECT_FALSE(named<QPushButton>(form, "BOT_Cancel").isVisible());
    EXPECT_TRUE(named<QPushButton>(form, "Bot_Ok").isVisible());
    EXPECT_EQ(form.Progress_Bar().value(), 0);
    QTest::mouseClick(&named<QPushButton>(form, "Bot_Ok"), Qt::LeftButton);
    EXPECT_EQ(told, (Words{"unloaded"}));
    EXPECT_FALSE(form.isVisible());
}

TEST_F(Porcentaje_Test, EscapeOnOkUnloads) {
    form.Deshabilita_Cancelar();
    QTest::keyClick(&named<QPushButton>(form, "Bot_Ok"), Qt::Key_Escape);
    EXPECT_EQ(told, (Words{"unloaded"}));
    EXPECT_FALSE(form.isVisible());
}

TEST(Lost_Com_Test, SaysWhatWasLostAndCloses) {
    Lost_Com notice(nullptr);
    EXPECT_EQ(notice.size(), twips(0, 0, 6060, 705).size());
    EXPECT_EQ(notice.windowTitle(), "About Communication....");
    const auto& label = named<QLabel>(notice, "Label1");
    EXPECT_EQ(label.text(), "Lost communication to device...");
    EXPECT_TRUE(label.font().bold());
    EXPECT_EQ(label.font().pointSize(), 12);
    EXPECT_TRUE(notice.testAttribute(Qt::WA_ShowWithoutActivating));
    notice.show();
    QTest::mouseClick(&named<QPushButton>(notice, "OKButton"), Qt::LeftButton);
    EXPECT_FALSE(notice.isVisible());
}

TEST(Mensaje_Test, HasTheDesignSizes) {
    Mensaje busy(false, nullptr);
    EXPECT_EQ(busy.size(), twips(0, 0, 6195, 960).size());
    EXPECT_EQ(busy.windowTitle(), "Processing Information ...");
    EXPECT_EQ(named<QWidget>(busy, "Frame1").geometry(), twips(60, 60, 6015, 855));
    EXPECT_EQ(named<QLabel>(busy, "Label1").geometry(), twips(150, 300, 5655, 495));
    EXPECT_EQ(named<QLabel>(busy, "TXT_Mensaje").text(), "Please wait");
    EXPECT_EQ(named<QLabel>(busy, "TXT_Mensaje").geometry(), twips(150, 120, 2640, 240));
    EXPECT_EQ(named<QWidget>(busy, "Anima").geometry(), twips(150, 450, 1605, 285));
    EXPECT_TRUE(named<QLabel>(busy, "TXT_Mensaje").font().bold());
    EXPECT_TRUE(busy.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(busy.testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST(Mensaje_Test, WithoutTheAnimationTheDotsRestartAtThirtyFiveCharacters) {
    Mensaje busy(false, nullptr);
    const auto& label = named<QLabel>(busy, "Label1");
    EXPECT_FALSE(label.isHidden());
    EXPECT_TRUE(named<QWidget>(busy, "Anima").isHidden());
    EXPECT_EQ(label.text(), "Processing information.");
    for (int tick = 0; tick < 11; ++tick)
        busy.Timer1_Timer();
    EXPECT_EQ(label.text(), "Processing information............");
    EXPECT_EQ(label.text().size(), 34);
    busy.Timer1_Timer();
    EXPECT_EQ(label.text(), "Processing information.");
}

TEST(Mensaje_Test, StandsInTheMiddleOfTheScreenAndTicksByItself) {
    Mensaje busy(false, nullptr);
    const auto& label = named<QLabel>(busy, "Label1");
    busy.show();
    EXPECT_EQ(busy.pos() + busy.rect().center(), busy.screen()->geometry().center());
    EXPECT_TRUE(QTest::qWaitFor([&] { return label.text() == "Processing information.."; }));
}

TEST(Mensaje_Test, ShowsTheAnimationWhenItsFileIsThere) {
    Mensaje busy(true, nullptr);
    EXPECT_TRUE(named<QLabel>(busy, "Label1").isHidden());
    EXPECT_FALSE(named<QWidget>(busy, "Anima").isHidden());
}

TEST(Mensaje_Test, KeepsTheStateOfItsTimer) {
    Mensaje busy(false, nullptr);
    EXPECT_TRUE(busy.TimerEnabled());
    busy.setTimerEnabled(false);
    EXPECT_FALSE(busy.TimerEnabled());
}

} // namespace
} // namespace zorvane::ui
