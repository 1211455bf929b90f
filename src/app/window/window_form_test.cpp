// SPDX-License-Identifier: MIT
// The parts that the window is put together from: settings, timers, the progress form, places.

#include "app/desktop/qt_text_widths.h"
#include "app/window/form/form_timers.h"
#include "app/window/form/window_form.h"
#include "template/services/native_files.h"
#include "template/services/qt/qt_settings_store.h"
#include "template/testing/temporary_folder.h"

#include <QAction>
#include <QApplication>
#include <QFontMetricsF>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

namespace zorvane::app {
namespace {

struct Settings : testing::Test {
    doubles::Temporary_Folder folder;
    QString file = QString::fromStdString(folder.path() + "/settings.conf");
};

TEST_F(Settings, KeepTextsBySectionAndKey) {
    {
        Qt_Settings_Store store(file);
        EXPECT_EQ(store.GetSetting("Zorvane", "MainWindow", "Top", "12"), "12");
        store.SaveSetting("Zorvane", "MainWindow", "Top", "3075");
        store.SaveSetting("Zorvane", "MainWindow", "filtro", "ABC Configuration (*.ABC)|*.ABC|");
        store.SaveSetting("Zorvane", "Settings", "Top", "\xB5, @x ; \"q\"");
    }
    Qt_Settings_Store store(file);
    EXPECT_EQ(store.GetSetting("Zorvane", "MainWindow", "Top", "12"), "3075");
    EXPECT_EQ(store.GetSetting("Zorvane", "MainWindow", "filtro", ""), "ABC Configuration (*.ABC)|*.ABC|");
    EXPECT_EQ(store.GetSetting("Zorvane", "Settings", "Top", ""), "\xB5, @x ; \"q\"");
}

TEST_F(Settings, AnEmptyTextIsKeptAsOne) {
    Qt_Settings_Store store(file);
    store.SaveSetting("Zorvane", "Settings", "Note", "");
    EXPECT_EQ(store.GetSetting("Zorvane", "Settings", "Note", "default"), "");
}

TEST_F(Settings, ATextWithCommasThatSomebodyTypedIntoTheFileIsOneText) {
    std::ofstream(file.toStdString()) << "[ModbusPort]\nSettings=9600,n,8,1\n";
    Qt_Settings_Store store(file);
    EXPECT_EQ(store.GetSetting("Zorvane", "ModbusPort", "Settings", ""), "9600,n,8,1");
}

TEST(Form_Timers_Test, AnEnabledTimerTicksUntilItIsDisabled) {
    Form_Timers timers;
    int ticks = 0;
    timers.onTick(Timer_Name::TMR_Actualiza_valores, [&] {
        if (++ticks == 2) timers.setEnabled(Timer_Name::TMR_Actualiza_valores, false);
    });
    timers.setEnabled(Timer_Name::TMR_Actualiza_valores, true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !timers.enabled(Timer_Name::TMR_Actualiza_valores); }));
    EXPECT_EQ(ticks, 2);
}

TEST(Form_Timers_Test, ATimerWithoutAnIntervalNeverRuns) {
    Form_Timers timers;
    timers.setEnabled(Timer_Name::TMR_Forza_analogas, true);
    EXPECT_FALSE(timers.enabled(Timer_Name::TMR_Forza_analogas));
    timers.setInterval(Timer_Name::TMR_Forza_analogas, -80);
    timers.setEnabled(Timer_Name::TMR_Forza_analogas, true);
    EXPECT_FALSE(timers.enabled(Timer_Name::TMR_Forza_analogas));
}

TEST(Text_Widths_Test, AreThoseOfTheFontInTwips) {
    const QFont font = QApplication::font();
    const Qt_Text_Widths widths([&] { return font; }, [] { return 15.0; });
    QFont large = font;
    large.setPointSizeF(12);
    EXPECT_EQ(widths.textWidth("Outputs", 12), QFontMetricsF(large).horizontalAdvance("Outputs") * 15);
    EXPECT_GT(widths.textWidth("Outputs", 12), widths.textWidth("Outputs", 7.5));
}

TEST(Shown_Text, HasPlainLineEndsAndTheNamesOfFilesAsTheDesktopHasThem) {
    EXPECT_EQ(shownText("a\r\nb \xB5"), QStringLiteral("a\nb µ"));
    EXPECT_EQ(shownText(pathFromNative("/home/ж.ABC")), QStringLiteral("/home/ж.ABC"));
}

constexpr Twips_Rect desktop{.left = 0, .top = 0, .width = 19200, .height = 15360};

TEST(Reachable_Place, StaysAsItIsWhenItCanBeReached) {
    EXPECT_EQ(reachable({.left = 3210, .top = 3075, .width = 6990, .height = 7380}, desktop),
              (Twips_Rect{.left = 3210, .top = 3075, .width = 6990, .height = 7380}));
    EXPECT_EQ(reachable({.left = -5000, .top = 100, .width = 6990, .height = 7380}, desktop),
              (Twips_Rect{.left = -5000, .top = 100, .width = 6990, .height = 7380}));
}

TEST(Reachable_Place, IsNoLargerThanTheScreen) {
    EXPECT_EQ(reachable({.left = 0, .top = 0, .width = 1e30, .height = 1e30}, desktop),
              (Twips_Rect{.left = 0, .top = 0, .width = 19200, .height = 15360}));
}

TEST(Reachable_Place, IsLargeEnoughToBeSeen) {
    EXPECT_EQ(reachable({.left = 1500, .top = 1500, .width = 0, .height = 0}, desktop),
              (Twips_Rect{.left = 1500, .top = 1500, .width = 1440, .height = 1440}));
    EXPECT_EQ(reachable({.left = 1500, .top = 1500, .width = 1440, .height = 9000}, desktop),
              (Twips_Rect{.left = 1500, .top = 1500, .width = 1440, .height = 9000}));
}

TEST(Reachable_Place, KeepsTheTitleOnTheScreen) {
    EXPECT_EQ(reachable({.left = -1e30, .top = -1e30, .width = 6990, .height = 7380}, desktop),
              (Twips_Rect{.left = 1440 - 6990, .top = 0, .width = 6990, .height = 7380}));
    EXPECT_EQ(reachable({.left = 19200, .top = 15360, .width = 6990, .height = 7380}, desktop),
              (Twips_Rect{.left = 19200 - 1440, .top = 15360 - 1440, .width = 6990, .height = 7380}));
}

struct Frame_Test : testing::Test {
    Event_Edge edge;
    ui::Main_Window window;
    Window_Form mainForm{window, edge};

    template <class Widget> Widget& named(const char* name) { return *window.findChild<Widget*>(name); }
};

TEST_F(Frame_Test, PanelsKeepTheTextsOfTheCore) {
    mainForm.setPanel(Panel::Message, "Write: 5 \xB5V @100 ...Completed");
    EXPECT_EQ(mainForm.panel(Panel::Message), "Write: 5 \xB5V @100 ...Completed");
    EXPECT_EQ(window.StatusBar1().text(4), QStringLiteral("Write: 5 µV @100 ...Completed"));
}

TEST_F(Frame_Test, TheSplitterIsThereWhenBothFramesAre) {
    mainForm.setPartVisible(Form_Part::Frame2, false);
    EXPECT_TRUE(window.PicLineHoriz().isHidden());
    mainForm.setPartVisible(Form_Part::Frame2, true);
    EXPECT_FALSE(window.PicLineHoriz().isHidden());
}

TEST_F(Frame_Test, AGridHasTheFocusAgainWhenTheWindowWokeUpWithoutGrids) {
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    mainForm.setPartVisible(Form_Part::Frame2, false);
    mainForm.setPartVisible(Form_Part::Frame3, false);
    QPushButton other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    other.close();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    mainForm.setPartVisible(Form_Part::Frame2, true);
    mainForm.setPartVisible(Form_Part::Frame3, true);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    EXPECT_TRUE(QApplication::focusWidget()->isVisible());
}

TEST_F(Frame_Test, PrintPageCanBeChosenWhileItAndItsMenuAreEnabled) {
    const QAction& entry = window.menu().action("MNU_PrintPage");
    mainForm.setMenuEnabled(Menu_Entry::MNU_Print, false);
    EXPECT_FALSE(entry.isEnabled());
    EXPECT_TRUE(mainForm.menuEnabled(Menu_Entry::MNU_PrintPage));
    mainForm.setMenuEnabled(Menu_Entry::MNU_Print, true);
    EXPECT_TRUE(entry.isEnabled());
    mainForm.setMenuEnabled(Menu_Entry::MNU_PrintPage, false);
    mainForm.setMenuEnabled(Menu_Entry::MNU_Print, true);
    EXPECT_FALSE(entry.isEnabled());
    EXPECT_FALSE(mainForm.menuEnabled(Menu_Entry::MNU_PrintPage));
}

TEST_F(Frame_Test, WaitsServeEventsUntilTheConditionHolds) {
    bool happened = false;
    QTimer::singleShot(20, &window, [&] { happened = true; });
    mainForm.wait_until([&] { return happened; });
    EXPECT_TRUE(happened);
}

TEST_F(Frame_Test, AWaitSleepsBetweenEvents) {
    int asked = 0;
    bool happened = false;
    QTimer::singleShot(200, &window, [&] { happened = true; });
    mainForm.wait_until([&] { return ++asked, happened; });
    EXPECT_LT(asked, 50);
}

TEST_F(Frame_Test, AWaitOfSoManyMillisecondsTakesThem) {
    QElapsedTimer clock;
    clock.start();
    mainForm.wait_ms(50);
    EXPECT_GE(clock.elapsed(), 49);
}

TEST_F(Frame_Test, WaitsEndWithTheProgram) {
    QTimer::singleShot(0, &window, [&] { mainForm.endProgram(); });
    EXPECT_THROW(mainForm.wait_ms(60'000), Program_Ended);
}

TEST_F(Frame_Test, LostComIsShownWithoutBlockingAndGoesByItself) {
    mainForm.setLostComShown(false);
    mainForm.setLostComShown(true);
    ASSERT_NE(window.findChild<QWidget*>("LostCom"), nullptr);
    EXPECT_TRUE(named<QWidget>("LostCom").isVisible());
    mainForm.setLostComShown(false);
    EXPECT_FALSE(named<QWidget>("LostCom").isVisible());
}

TEST_F(Frame_Test, TheProgressFormStartsAnewWithEachTransfer) {
    Progress_Form& progress = mainForm.Porcentaje();
    progress.setLabel("Uploading data from the controller...");
    progress.setRange(5);
    progress.show();
    progress.setValue(3);
    EXPECT_EQ(named<QProgressBar>("Progress_Bar").value(), 3);
    EXPECT_EQ(named<QWidget>("Porcentaje").findChild<QLabel*>("Label1")->text(),
              "Uploading data from the controller...");
    progress.Deshabilita_Cancelar();
    EXPECT_EQ(progress.value(), 0);
    EXPECT_TRUE(named<QPushButton>("Bot_Ok").isVisible());
    progress.unload();
    EXPECT_FALSE(named<QWidget>("Porcentaje").isVisible());
    progress.setRange(7);
    progress.show();
    EXPECT_TRUE(named<QPushButton>("BOT_Cancel").isVisible());
    EXPECT_FALSE(named<QPushButton>("Bot_Ok").isVisible());
}

TEST_F(Frame_Test, ATransferThatBeginsWhileTheOkOfALostOneStandsCanBeCancelled) {
    Progress_Form& progress = mainForm.Porcentaje();
    progress.setRange(5);
    progress.show();
    progress.Deshabilita_Cancelar();
    progress.setRange(7);
    progress.show();
    EXPECT_TRUE(named<QWidget>("Porcentaje").isVisible());
    EXPECT_TRUE(named<QPushButton>("BOT_Cancel").isVisible());
    EXPECT_FALSE(named<QPushButton>("Bot_Ok").isVisible());
}

TEST_F(Frame_Test, AProgressOfNothingIsAnEmptyBar) {
    Progress_Form& progress = mainForm.Porcentaje();
    progress.setRange(0);
    EXPECT_EQ(progress.maximum(), 0);
    EXPECT_EQ(named<QProgressBar>("Progress_Bar").maximum(), 1);
    EXPECT_EQ(named<QProgressBar>("Progress_Bar").value(), 0);
}

} // namespace
} // namespace zorvane::app
