// SPDX-License-Identifier: MIT
// What the desktop has to do with the window: text size, tray, help, the tip at a column's border.

#include "app/window/testing/program_fixture.h"
#include "ui/grid/column_tip.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSystemTrayIcon>

namespace zorvane::app {
namespace {

using doubles::Program_Fixture;
using doubles::Shown_Message;
using testing::ElementsAre;
using testing::IsEmpty;

using Words = std::vector<std::string>;

class Window_Desktop : public Program_Fixture {
  protected:
    Window_Desktop() {
        putModels();
        std::filesystem::copy_file(appFolder() + "/EXAMPLE.KVRT207D", path("site7.KVRT207D"));
    }
    [[nodiscard]] ui::Font_Dialog* fontDialog() const { return program->desktop().FontSizeDialog(); }
    /// The user takes a size from the list.
    void chooseSize(int index) {
        choose("MNU_FontSize");
        fontDialog()->findChild<QListWidget*>("List1")->setCurrentRow(index);
        QTest::mouseClick(fontDialog()->findChild<QPushButton*>("OKButton"), Qt::LeftButton);
        QApplication::processEvents();
    }
    [[nodiscard]] QAction& trayEntry() const { return program->window().menu().action("MNU_Minimizetotray"); }
};

TEST_F(Window_Desktop, ItsEntriesCanBeChosenWithoutADocument) {
    start();
    const Words entries = {"MNU_FontSize",  "MNU_Minimize", "MNU_Maximize",  "MNU_Minimizetotray",
                           "MNU_HelpIndex", "MNU_OnLine",   "MNU_ContactUs", "MNU_About"};
    EXPECT_EQ(enabledOf(entries), entries);
}

TEST_F(Window_Desktop, TheFontDialogIsShownWithoutWaitingAndOnce) {
    start();
    choose("MNU_FontSize");
    ASSERT_NE(fontDialog(), nullptr);
    const ui::Font_Dialog* first = fontDialog();
    EXPECT_TRUE(first->isVisible());
    EXPECT_TRUE(first->Guardar);
    EXPECT_EQ(first->findChild<QLineEdit*>("Text1")->text(), " 8.5");
    choose("MNU_FontSize");
    EXPECT_EQ(fontDialog(), first);
    QTest::mouseClick(first->findChild<QPushButton*>("CancelButton"), Qt::LeftButton);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(fontDialog(), nullptr);
    EXPECT_EQ(upper().FontSize(), 8.25);
}

TEST_F(Window_Desktop, AChosenSizeIsAppliedAndStored) {
    startWith("site7.KVRT207D");
    const std::int32_t before = upper().Row();
    chooseSize(6);
    EXPECT_EQ(fontDialog(), nullptr);
    EXPECT_EQ(upper().FontSize(), 12);
    EXPECT_EQ(lower().FontSize(), 12);
    EXPECT_EQ(upper().view().font().pointSizeF(), 12);
    EXPECT_EQ(upper().Row(), (before - 1 + 3) % (upper().Rows() - 1) + 1) << "three rows on, with a wrap";
    EXPECT_TRUE(program->window().Frame2().isVisible());
    EXPECT_EQ(panel(4), "");
    choose("MNU_FontSize");
    EXPECT_EQ(fontDialog()->findChild<QLineEdit*>("Text1")->text(), " 11");
}

TEST_F(Window_Desktop, AStoredSizeIsInForceAtTheNextStart) {
    put("settings.conf", "[Settings]\nFontSize=9\n");
    start();
    EXPECT_EQ(upper().FontSize(), 12);
}

TEST_F(Window_Desktop, WithoutADocumentASizeLeavesTheFramesHidden) {
    start();
    chooseSize(0);
    EXPECT_TRUE(program->window().Frame2().isHidden());
    EXPECT_TRUE(program->window().Frame3().isHidden());
}

TEST_F(Window_Desktop, NoSizeIsAppliedWhileATransferHoldsTheForm) {
    start();
    choose("MNU_FontSize");
    program->mainForm().setFormEnabled(false);
    EXPECT_FALSE(fontDialog()->isEnabled());
    program->mainForm().setFormEnabled(true);
    EXPECT_TRUE(fontDialog()->isEnabled());
}

TEST_F(Window_Desktop, OnADesktopWithoutATrayAMessageSaysSoAndTheEntryStaysUnchecked) {
    if (QSystemTrayIcon::isSystemTrayAvailable()) GTEST_SKIP() << "this desktop has a tray";
    start();
    choose("MNU_Minimizetotray");
    EXPECT_THAT(messages, ElementsAre(Shown_Message{"Unable to add icon to system tray!", 16, "Zorvane"}));
    EXPECT_FALSE(trayEntry().isChecked());
    EXPECT_FALSE(program->app().form().In_Tray);
    program->window().showMinimized();
    QApplication::processEvents();
    EXPECT_FALSE(program->window().isHidden());
}

TEST_F(Window_Desktop, MinimizedInTheTrayItHidesAndComesBackByItsIcon) {
    start();
    program->app().form().In_Tray = true;
    choose("MNU_Minimize");
    EXPECT_TRUE(program->window().isHidden());
    program->desktop().tray().Form_MouseMove(515, 0);
    EXPECT_TRUE(program->window().isVisible());
    EXPECT_FALSE(program->window().isMinimized());
}

TEST_F(Window_Desktop, ItsTrayMenuShowsTheWindow) {
    start();
    program->app().form().In_Tray = true;
    for (const char* entry : {"MNU_Tray_All", "MNU_Tray_Application_Window"}) {
        choose("MNU_Minimize");
        ASSERT_TRUE(program->window().isHidden()) << entry;
        choose(entry);
        EXPECT_TRUE(program->window().isVisible()) << entry;
    }
}

TEST_F(Window_Desktop, MinimizesAndMaximizes) {
    start();
    choose("MNU_Maximize");
    EXPECT_TRUE(program->window().isMaximized());
    choose("MNU_Minimize");
    EXPECT_TRUE(program->window().isMinimized());
    EXPECT_FALSE(program->window().isHidden()) << "it isn't in the tray";
}

TEST_F(Window_Desktop, TheNormalSizeComesBackByItsTimer) {
    start();
    program->mainForm().timers().fire(Timer_Name::TIM_Tamaño_normal);
    QApplication::processEvents();
    EXPECT_EQ(program->window().size(), QSize(457, 494));
    EXPECT_EQ(program->mainForm().timers().interval(Timer_Name::TIM_Tamaño_normal), 100);
}

TEST_F(Window_Desktop, HelpOpensOutsideTheProgram) {
    put("app/zorvane.CHM", "ITSF");
    start();
    choose("MNU_HelpIndex");
    choose("MNU_OnLine");
    choose("MNU_ContactUs");
    EXPECT_THAT(opened, ElementsAre(Words{"Open", "Zorvane.chm", "", appFolder()},
                                    Words{"Open", "https://zorvane.example/", "", ""},
                                    Words{"Open", "mailto:contact@zorvane.example?subject=Zorvane", "", ""}));
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(Window_Desktop, AMissingHelpFileGivesAMessage) {
    start();
    choose("MNU_HelpIndex");
    EXPECT_THAT(messages, ElementsAre(Shown_Message{"Zorvane.hlp file doesn't exist!", 64, "Zorvane"}));
    EXPECT_THAT(opened, IsEmpty());
}

TEST_F(Window_Desktop, TheAboutBoxIsShownWithoutWaitingAndOnce) {
    start();
    choose("MNU_About");
    choose("MNU_About");
    const auto boxes = program->window().findChildren<QDialog*>("Acercade");
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes.front()->isVisible());
    EXPECT_FALSE(boxes.front()->isModal());
    QTest::mouseClick(boxes.front()->findChild<QPushButton*>("Command1"), Qt::LeftButton);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(program->window().findChildren<QDialog*>("Acercade").isEmpty());
    choose("MNU_About");
    EXPECT_EQ(program->window().findChildren<QDialog*>("Acercade").size(), 1);
}

TEST_F(Window_Desktop, ABordersDragTellsTheWidth) {
    startWith("site7.KVRT207D");
    QHeaderView& header = *lower().view().horizontalHeader();
    const int border = header.sectionSize(0) - 1;
    QTest::mouseMove(header.viewport(), QPoint(border, 5));
    QTest::mousePress(header.viewport(), Qt::LeftButton, {}, QPoint(border, 5));
    QTest::mouseMove(header.viewport(), QPoint(border + 30, 5));
    ui::Column_Tip& tip = program->window().picTip();
    EXPECT_TRUE(tip.isVisible());
    EXPECT_EQ(tip.findChild<QLabel*>("lblTip")->text(), ui::columnWidthText(lower().ColWidth(0)));
    QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, QPoint(border + 30, 5));
    EXPECT_FALSE(tip.isVisible());
}

TEST_F(Window_Desktop, TheEndOfTheProgramRemovesTheTipsHook) {
    start();
    QTest::mouseMove(lower().view().viewport(), QPoint(20, 20));
    ASSERT_TRUE(program->window().picTip().watching());
    program->window().close();
    EXPECT_FALSE(program->window().picTip().watching());
}

} // namespace
} // namespace zorvane::app
