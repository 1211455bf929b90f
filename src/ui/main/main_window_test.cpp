// SPDX-License-Identifier: MIT
#include "ui/main/main_window.h"
#include "ui/testing/sample_window.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QGroupBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::ui {
namespace {

using Words = std::vector<std::string>;

std::string captionsOf(const QMenu& menu) {
    std::string line;
    for (const QAction* action : menu.actions()) {
        if (!line.empty()) line += " | ";
        line += action->isSeparator() ? "-" : action->text().toStdString();
    }
    return line;
}

class Main_Window_Test : public testing::Test {
  protected:
    void show() {
        window.show();
        QApplication::setActiveWindow(&window);
        QApplication::processEvents();
    }
    QMenu& menuCalled(const char* name) {
        QMenu* menu = window.menuBar()->findChild<QMenu*>(name);
        EXPECT_NE(menu, nullptr) << name;
        return *menu;
    }
    QSize twips(const QWidget& widget) {
        return {qRound(window.scale().twipsX(widget.width())),
                qRound(window.scale().twipsY(widget.height()))};
    }
    template <class Widget> Widget& named(const char* name) {
        Widget* widget = window.findChild<Widget*>(name);
        EXPECT_NE(widget, nullptr) << name;
        return *widget;
    }

    Main_Window window;
};

TEST_F(Main_Window_Test, HasTheDesignSize) {
    show();
    EXPECT_EQ(window.windowTitle(), "Zorvane");
    EXPECT_EQ(twips(*window.centralWidget()), QSize(6840, 6630 - 345));
    EXPECT_EQ(twips(window.StatusBar1()), QSize(6840, 345));
    EXPECT_EQ(window.Frame2().geometry(), QRect(4, 4, 447, 127));
    EXPECT_EQ(window.Frame3().geometry(), QRect(4, 134, 447, 273));
    EXPECT_EQ(window.FLX_Configuration().view().geometry(), QRect(8, 12, 429, 109));
    EXPECT_EQ(window.FLX_Settings().view().geometry(), QRect(6, 14, 433, 253));
}

TEST_F(Main_Window_Test, NamesEveryControl) {
    for (const char* name : {"Frame2", "Frame3", "FLX_Configuration", "FLX_Settings", "PicLineHoriz",
                             "StatusBar1", "StatusBar1_1", "StatusBar1_2", "StatusBar1_3", "StatusBar1_4",
                             "StatusBar1_5", "StatusBar1_6", "StatusBar1_7"})
        EXPECT_EQ(named<QWidget>(name).accessibleDescription(), name);
    EXPECT_EQ(window.objectName(), "KVRT_Principal");
    EXPECT_EQ(named<QWidget>("FLX_Configuration").accessibleName(), "Configuration");
    EXPECT_EQ(named<QWidget>("FLX_Settings").accessibleName(), "Settings");
    EXPECT_EQ(named<QGroupBox>("Frame2").title(), " Configuration ");
    EXPECT_EQ(named<QGroupBox>("Frame3").title(), " Settings ");
    EXPECT_EQ(window.PicLineHoriz().toolTip(), "Resize grids N/S");
}

TEST_F(Main_Window_Test, HasTheMenus) {
    std::vector<std::string> titles;
    for (const QAction* entry : window.menuBar()->actions())
        titles.push_back(entry->text().toStdString());
    EXPECT_EQ(titles,
              (std::vector<std::string>{"&File", "&Edit", "&Communication", "&View", "&Windows", "&Help"}));
    EXPECT_EQ(captionsOf(menuCalled("MNU_File")),
              "&Open... | &Close | Sa&ve | Save &As... | &Recover... | - | Pa&ge Setup... | &Print... | "
              "&Show grid  in report | - | E&xit | - | &New from Model | Recent Fi&les | &Export values... | "
              "&Import values...");
    EXPECT_EQ(captionsOf(*window.menu().action("MNU_Print").menu()), "Print Pag&e | P&rint All...");
    EXPECT_EQ(
        captionsOf(menuCalled("MNU_Communication")),
        "&Upload to PC | &Download to Device | D&isconnect | - | &Port Settings... | &Modbus Monitor | - | "
        "&Compare... | &Send Changes... | &Find Controllers... | &Listen...");
    EXPECT_EQ(captionsOf(menuCalled("MNU_View")), "&Font size... | - | Commands by &Name... | &Last column "
                                                  "takes the room | &Dark grounds in the dark | "
                                                  "Mark &changed cells | &Mark differences");
    EXPECT_EQ(captionsOf(menuCalled("MNU_Edit")),
              "&Undo | &Redo | - | &Copy | Paste &block | - | &Find... | Find &next | Find &previous");
    EXPECT_EQ(captionsOf(menuCalled("MNU_Windows")), "&Minimize | Ma&ximize | Minimize to &tray");
    EXPECT_EQ(captionsOf(menuCalled("MNU_Help")),
              "&Index | &Brevik Online | Contact &Us  | &About | - | Copy &Report for Support");
    EXPECT_EQ(window.menu().trayMenu().title(), "Tray");
    EXPECT_EQ(captionsOf(window.menu().trayMenu()), "All | Application Window | Monitor Window");
}

TEST_F(Main_Window_Test, NamesEveryMenuEntry) {
    for (const char* name : {"MNU_Open",
                             "MNU_Close",
                             "MNU_Save",
                             "MNU_Saveas",
                             "MNU_Recover",
                             "MNU_PageSetup",
                             "MNU_Print",
                             "MNU_PrintPage",
                             "MNU_PrintAll",
                             "MNU_Grid",
                             "MNU_Exit",
                             "MNU_Upload",
                             "MNU_Download",
                             "MNU_Disconnect",
                             "MNU_Port_Settings",
                             "separador4",
                             "MNU_FontSize",
                             "MNU_Minimize",
                             "MNU_Maximize",
                             "MNU_Minimizetotray",
                             "MNU_HelpIndex",
                             "MNU_OnLine",
                             "MNU_ContactUs",
                             "MNU_About",
                             "MNU_Tray_All",
                             "MNU_Tray_Application_Window",
                             "MNU_Tray_Monitor_Window"})
        EXPECT_EQ(window.menu().action(name).objectName(), name);
    EXPECT_THROW((void)window.menu().action("MNU_Nothing"), std::out_of_range);
}

TEST_F(Main_Window_Test, HasTheUsualShortcuts) {
    const auto keys = [&](const char* name) { return window.menu().action(name).shortcut().toString(); };
    EXPECT_EQ(keys("MNU_Open"), "Ctrl+O");
    EXPECT_EQ(keys("MNU_Save"), "Ctrl+S");
    EXPECT_EQ(keys("MNU_Saveas"), "Ctrl+Shift+S");
    EXPECT_EQ(keys("MNU_PrintPage"), "Ctrl+P");
    EXPECT_EQ(keys("MNU_Exit"), "Ctrl+Q");
    EXPECT_EQ(keys("MNU_HelpIndex"), "F1");
}

TEST_F(Main_Window_Test, RunsAMenuEntryByItsShortcutUnlessItIsDisabled) {
    int saves = 0;
    window.menu().onChosen("MNU_Save", [&] { ++saves; });
    show();
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(saves, 1);
    window.menu().action("MNU_Save").setEnabled(false);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(saves, 1);
}

TEST_F(Main_Window_Test, LeavesACheckMarkToItsOwner) {
    bool markSeen = true;
    QAction& grid = window.menu().action("MNU_Grid");
    window.menu().onChosen("MNU_Grid", [&] { markSeen = grid.isChecked(); });
    grid.trigger();
    EXPECT_FALSE(markSeen);
    EXPECT_FALSE(grid.isChecked());
}

TEST_F(Main_Window_Test, ShowsSevenPanels) {
    Status_Bar& bar = window.StatusBar1();
    Words texts;
    for (int panel = 1; panel <= 7; ++panel)
        texts.push_back(bar.text(panel).toStdString());
    EXPECT_EQ(texts, (Words{"File type", "Communication", "Modbus RTU", "Status", "Tx", "Rx", ""}));
    EXPECT_EQ(named<QLabel>("StatusBar1_5").toolTip(), "Transmitting data");
    EXPECT_EQ(named<QLabel>("StatusBar1_6").toolTip(), "Receiving data");
    EXPECT_EQ(named<QLabel>("StatusBar1_4").toolTip(), "");
    bar.setText(4, "Ready");
    EXPECT_EQ(named<QLabel>("StatusBar1_4").text(), "Ready");
}

TEST_F(Main_Window_Test, GivesPanelFourTheRestOfTheWidth) {
    show();
    window.resize(800, window.height());
    QApplication::processEvents();
    EXPECT_EQ(named<QLabel>("StatusBar1_1").width(), 123);
    EXPECT_EQ(window.formLayout().panelWidths[3], 12000 - 7063 - 200);
    EXPECT_EQ(named<QLabel>("StatusBar1_4").width(), 316);
}

TEST_F(Main_Window_Test, PanelFourIsOneTwipWideInASmallWindow) {
    show();
    window.resize(300, window.height());
    QApplication::processEvents();
    EXPECT_EQ(window.formLayout().panelWidths[3], 1);
    EXPECT_EQ(named<QLabel>("StatusBar1_4").width(), 1);
    EXPECT_TRUE(named<QLabel>("StatusBar1_4").isVisible());
}

TEST_F(Main_Window_Test, TellsATextThatIsCutOffAsAToolTip) {
    show();
    window.StatusBar1().setText(1, "A text that is much too long for this panel");
    QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), named<QLabel>("StatusBar1_1").mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(&named<QLabel>("StatusBar1_1"), &help);
    EXPECT_EQ(QToolTip::text(), "A text that is much too long for this panel");
    QToolTip::hideText();
}

TEST_F(Main_Window_Test, TellsACutTextThatLooksLikeHtmlAsItStands) {
    show();
    window.StatusBar1().setText(1, "Write: <b>much too long</b> for this panel @100");
    QHelpEvent help(QEvent::ToolTip, QPoint(2, 2), named<QLabel>("StatusBar1_1").mapToGlobal(QPoint(2, 2)));
    QApplication::sendEvent(&named<QLabel>("StatusBar1_1"), &help);
    EXPECT_EQ(QToolTip::text(),
              "<p style='white-space:pre-wrap'>Write: &lt;b&gt;much too long&lt;/b&gt; for this "
              "panel @100</p>");
    QToolTip::hideText();
}

TEST_F(Main_Window_Test, GrowsWithTheWindow) {
    std::vector<bool> marks;
    show();
    window.events.resizing = [&](bool busy) { marks.push_back(busy); };
    window.resize(window.width() + 100, window.height() + 100);
    QApplication::processEvents();
    EXPECT_EQ(marks, (std::vector<bool>{true, false}));
    EXPECT_EQ(window.Frame2().geometry(), QRect(4, 4, 547, 127));
    EXPECT_EQ(window.Frame3().geometry(), QRect(4, 134, 547, 373));
    EXPECT_EQ(window.FLX_Configuration().view().geometry(), QRect(8, 12, 529, 109));
    EXPECT_EQ(window.FLX_Settings().view().geometry(), QRect(6, 14, 533, 353));
}

TEST_F(Main_Window_Test, TakesAPlaceInTwips) {
    show();
    window.setFormRect({3075, 3210, 6990, 7380});
    QApplication::processEvents();
    EXPECT_EQ(window.pos(), QPoint(205, 214));
    EXPECT_EQ(window.formRect(), (Twips_Rect{3075, 3210, 6990, 7380}));
    EXPECT_EQ(window.Frame2().width(), 457);
}

TEST_F(Main_Window_Test, MovesHeightBetweenTheFramesByTheSplitter) {
    show();
    QWidget& bar = window.PicLineHoriz();
    QTest::mousePress(&bar, Qt::LeftButton, {}, QPoint(100, 2));
    EXPECT_EQ(bar.grab().toImage().pixelColor(100, 3), QColor(Qt::white));
    QTest::mouseMove(&bar, QPoint(100, 40));
    EXPECT_EQ(bar.y(), 170);
    EXPECT_EQ(window.Frame2().height(), 127);
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, QPoint(100, 0));
    EXPECT_EQ(window.Frame2().height(), 167);
    EXPECT_EQ(window.Frame3().geometry(), QRect(4, 174, 447, 233));
    EXPECT_EQ(window.FLX_Settings().view().geometry(), QRect(6, 20, 433, 213));
    EXPECT_NE(bar.grab().toImage().pixelColor(100, 3), QColor(Qt::white));
}

TEST_F(Main_Window_Test, TheSplitterStopsAThousandTwipsAboveTheStatusBar) {
    show();
    QWidget& bar = window.PicLineHoriz();
    QTest::mousePress(&bar, Qt::LeftButton, {}, QPoint(100, 2));
    QTest::mouseMove(&bar, QPoint(100, 900));
    EXPECT_EQ(bar.y(), qRound((6285.0 - 1000) / 15));
    QTest::mouseMove(&bar, QPoint(100, -900));
    EXPECT_EQ(bar.y(), 67);
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, QPoint(100, 0));
}

TEST_F(Main_Window_Test, ADisabledFormTakesNoInputAndCantBeClosed) {
    int opens = 0;
    window.menu().onChosen("MNU_Open", [&] { ++opens; });
    show();
    samples::fillWindow(window);
    window.FLX_Settings().SetFocus();
    window.setFormEnabled(false);
    EXPECT_FALSE(window.FLX_Settings().view().isEnabled());
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(opens, 0);
    EXPECT_FALSE(window.close());
    QDialog dialog(&window);
    dialog.show();
    EXPECT_TRUE(dialog.isEnabled());
    dialog.close();
    window.setFormEnabled(true);
    EXPECT_TRUE(window.FLX_Settings().view().hasFocus());
    QTest::keyClick(&window, Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(opens, 1);
}

TEST_F(Main_Window_Test, AsksBeforeItCloses) {
    bool allowed = false;
    window.events.queryClose = [&] { return allowed; };
    show();
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    allowed = true;
    EXPECT_TRUE(window.close());
}

TEST_F(Main_Window_Test, TakesAnEditInProgressBeforeAMenuEntryRuns) {
    Words told;
    window.FLX_Settings().events().AfterEdit = [&](std::int32_t, std::int32_t) { told.push_back("commit"); };
    window.menu().onChosen("MNU_Save", [&] { told.push_back("save"); });
    show();
    samples::fillWindow(window);
    window.FLX_Settings().SetFocus();
    QTest::keyClick(&window.FLX_Settings().view(), '9');
    ASSERT_TRUE(window.FLX_Settings().view().isEditing());
    window.menu().action("MNU_Save").trigger();
    EXPECT_EQ(told, (Words{"commit", "save"}));
    EXPECT_EQ(window.FLX_Settings().TextMatrix(4, 1), "9");
}

TEST_F(Main_Window_Test, TakesADroppedFile) {
    QString dropped;
    window.events.fileDropped = [&](const QString& path) { dropped = path; };
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/sites/site7.abc")});
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    QApplication::processEvents();
    EXPECT_EQ(dropped, "/sites/site7.abc");
}

TEST_F(Main_Window_Test, TakesNothingElseThatIsDropped) {
    window.events.fileDropped = [](const QString&) {};
    QMimeData text;
    text.setText("site7.abc");
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&window, &enter);
    EXPECT_FALSE(enter.isAccepted());
}

} // namespace
} // namespace zorvane::ui
