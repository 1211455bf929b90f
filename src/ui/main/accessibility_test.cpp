// SPDX-License-Identifier: MIT
// What somebody meets who uses the program by keyboard or by a screen reader: every control of every window.

#include "ui/base/focus_style.h"
#include "ui/base/text.h"
#include "ui/forms/acercade.h"
#include "ui/forms/font_dialog.h"
#include "ui/forms/frm_debug.h"
#include "ui/forms/lost_com.h"
#include "ui/forms/mensaje.h"
#include "ui/forms/msgb.h"
#include "ui/forms/porcentaje.h"
#include "ui/main/main_window.h"
#include "ui/testing/control_walk.h"
#include "ui/testing/sample_window.h"

#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <QTest>

#include <gtest/gtest.h>

namespace zorvane::ui {
namespace {

using doubles::controlFaults;
using doubles::keyClashes;
using doubles::tabOrder;
using Words = std::vector<std::string>;

const Words none;
const Ask_User ask = [](const QString&, int, const QString&) { return 1; };

/// Shows a dialog and walks it; Tab goes to `order`.
void expectUsable(QWidget& dialog, const Words& order) {
    dialog.show();
    QApplication::processEvents();
    EXPECT_EQ(controlFaults(dialog), none);
    EXPECT_EQ(keyClashes(dialog), none);
    EXPECT_EQ(tabOrder(dialog), order);
}

struct Main_Window_Access : testing::Test {
    Main_Window_Access() {
        samples::fillWindow(window);
        window.show();
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
    }
    Main_Window window;
};

TEST_F(Main_Window_Access, EveryControlHasNameDescriptionAndRole) {
    EXPECT_EQ(controlFaults(window), none);
    EXPECT_EQ(tabOrder(window), (Words{"FLX_Configuration", "FLX_Settings"}));
}

TEST_F(Main_Window_Access, NoTwoEntriesOfAMenuAnswerToOneLetter) {
    EXPECT_EQ(keyClashes(*window.menuBar()), none);
    EXPECT_EQ(keyClashes(window.menu().trayMenu()), none);
}

TEST_F(Main_Window_Access, TheSplitterMovesByKeys) {
    window.FLX_Settings().SetFocus();
    const int height = window.Frame2().height();
    QTest::keyClick(&window, Qt::Key_F8);
    ASSERT_TRUE(window.PicLineHoriz().hasFocus());
    QTest::keyClick(&window.PicLineHoriz(), Qt::Key_Down);
    QTest::keyClick(&window.PicLineHoriz(), Qt::Key_Down);
    EXPECT_EQ(window.Frame2().height(), height + 2 * 8);
    QTest::keyClick(&window.PicLineHoriz(), Qt::Key_Up);
    EXPECT_EQ(window.Frame2().height(), height + 8);
    QTest::keyClick(&window.PicLineHoriz(), Qt::Key_Return);
    EXPECT_TRUE(window.FLX_Settings().view().hasFocus());
}

TEST_F(Main_Window_Access, TheSplitterStopsAtItsLimitsByKeysToo) {
    QTest::keyClick(&window, Qt::Key_F8);
    for (int i = 0; i < 100; ++i)
        QTest::keyClick(&window.PicLineHoriz(), Qt::Key_Down);
    EXPECT_EQ(window.PicLineHoriz().y(), qRound((6285.0 - 1000) / 15));
}

TEST_F(Main_Window_Access, ACellTellsItsTroubleAsDescriptionAndToolTip) {
    Flex_Grid_Model& cells = window.FLX_Settings().view().cells();
    cells.describe = [](std::int32_t row, std::int32_t) { return row == 3 ? "Write failed" : "Modifiable"; };
    cells.explain = [](std::int32_t row, std::int32_t) { return row == 3 ? "Write failed" : ""; };
    EXPECT_EQ(cells.index(2, 1).data(Qt::ToolTipRole), "Write failed");
    EXPECT_EQ(cells.index(2, 1).data(Qt::AccessibleDescriptionRole), "Write failed");
    EXPECT_EQ(cells.index(1, 1).data(Qt::ToolTipRole), "");
}

TEST(Dialog_Access, MessageBoxes) {
    Msgb yesNoCancel("Do you want to save this file?", 35, "Zorvane", nullptr);
    expectUsable(yesNoCancel, {"BOT_1", "BOT_2", "BOT_3"});
    Msgb note("Done", 64, "Zorvane", nullptr);
    expectUsable(note, {"BOT_2"});
}

TEST(Dialog_Access, ProgressForm) {
    Porcentaje form({{}, {}}, nullptr);
    expectUsable(form, {"BOT_Cancel"});
    form.Deshabilita_Cancelar();
    expectUsable(form, {"Bot_Ok"});
}

TEST(Dialog_Access, BusyForm) {
    Mensaje dots(false, nullptr);
    expectUsable(dots, {});
    Mensaje animated(true, nullptr);
    expectUsable(animated, {});
}

TEST(Dialog_Access, NoticeOfTheLostLink) {
    Lost_Com notice(nullptr);
    expectUsable(notice, {"OKButton"});
}

TEST(Dialog_Access, AboutBox) {
    Acercade about(ask, nullptr);
    expectUsable(about, {"Command1"});
}

TEST(Dialog_Access, DebugForm) {
    Frm_Debug form(nullptr);
    expectUsable(form, {"EDT_Prueba"});
}

TEST(Dialog_Access, WidgetsOfOurOwnTellWhatTheyAre) {
    Frm_Debug form(nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&form)->role(), QAccessible::Window);
    Main_Window window;
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window.PicLineHoriz())->role(), QAccessible::Separator);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&window.PicLineHoriz())->text(QAccessible::Name),
              "Splitter");
}

QImage paintedButton(const QStyle& style, QStyle::State state) {
    QStyleOptionButton option;
    option.rect = QRect(0, 0, 80, 24);
    option.features = QStyleOptionButton::DefaultButton;
    option.state = QStyle::State_Enabled | QStyle::State_Active | state;
    QImage picture(option.rect.size(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    style.drawControl(QStyle::CE_PushButton, &option, &painter);
    return picture;
}

TEST(Dialog_Access, TheDefaultButtonShowsWhetherItHasTheKeyboard) {
    const Focus_Style style(QStringLiteral("Fusion"));
    const QStyle::State focused = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    EXPECT_NE(paintedButton(style, {}), paintedButton(style, focused));
    EXPECT_EQ(paintedButton(style, {}), paintedButton(style, QStyle::State_HasFocus))
        << "a click needs no frame: the user knows where it was";
}

TEST(Dialog_Access, AButtonThatTabNeverReachesIsAFault) {
    QDialog dialog;
    giveName(dialog, QStringLiteral("Sample"));
    QPushButton button(QStringLiteral("Go"), &dialog);
    giveName(button, QStringLiteral("BOT_Go"));
    EXPECT_EQ(doubles::controlFaults(dialog), std::vector<std::string>{});
    button.setFocusPolicy(Qt::ClickFocus);
    EXPECT_EQ(doubles::controlFaults(dialog), std::vector<std::string>{"BOT_Go: Tab never reaches it"});
}

TEST(Dialog_Access, FontDialog) {
    Font_Dialog dialog(1, nullptr);
    expectUsable(dialog, {"Text1", "List1", "OKButton", "CancelButton"});
}

} // namespace
} // namespace zorvane::ui
