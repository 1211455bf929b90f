// SPDX-License-Identifier: MIT
// Writes pictures of the window and its dialogs, for people to look at: ui_pictures FOLDER [dark]
#include "comm/modbus_control/line/simulated_port.h"
#include "comm/modbus_control/qt/qt_link_clock.h"
#include "comm/modbus_control/testing/hand_clock.h"
#include "comm/modbus_control/testing/scripted_port.h"
#include "survey/find/testing/simulated_line.h"
#include "survey/listen/testing/scripted_listening_port.h"
#include "ui/base/file_dialog.h"
#include "ui/forms/acercade.h"
#include "ui/forms/font_dialog.h"
#include "ui/forms/frm_status.h"
#include "ui/forms/lost_com.h"
#include "ui/forms/mensaje.h"
#include "ui/forms/msgb.h"
#include "ui/forms/porcentaje.h"
#include "ui/grid/column_tip.h"
#include "ui/line/monitor_window.h"
#include "ui/line/network_form.h"
#include "ui/line/port_dialog.h"
#include "ui/main/message_bar_view.h"
#include "ui/survey/find_window.h"
#include "ui/survey/listen_window.h"
#include "ui/testing/dark_palette.h"
#include "ui/testing/sample_window.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QStyle>
#include <QTableView>
#include <QTest>

namespace {

using namespace zorvane;
using namespace zorvane::ui;

class Pictures {
  public:
    explicit Pictures(const QString& folder) : folder_(folder) { QDir().mkpath(folder); }

    void take(QWidget& widget, const QString& name) {
        widget.show();
        QTest::qWait(150);
        widget.grab().save(folder_.filePath(name + QStringLiteral(".png")));
    }

  private:
    QDir folder_;
};

/// A border that is being dragged.
void takeColumnTip(Pictures& pictures, Main_Window& window) {
    Flex_Grid_Events& events = window.FLX_Settings().events();
    events.MouseMove = [&window](std::int16_t, std::int16_t, float, float) { window.picTip().start(); };
    events.UserResizing = [&window](std::int32_t, std::int32_t twips) { window.picTip().drag(twips); };
    QHeaderView& header = *window.FLX_Settings().view().horizontalHeader();
    const QPoint border(header.sectionSize(0) - 1, 5);
    QTest::mouseMove(header.viewport(), border);
    QTest::mousePress(header.viewport(), Qt::LeftButton, {}, border);
    QTest::mouseMove(header.viewport(), border + QPoint(30, 0));
    pictures.take(window, QStringLiteral("window_column_tip"));
    QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, border + QPoint(30, 0));
}

void takeWindow(Pictures& pictures) {
    Main_Window window;
    samples::fillWindow(window);
    pictures.take(window, QStringLiteral("window_design"));
    window.resize(window.width() * 3 / 2, window.height() * 6 / 5);
    window.FLX_Settings().SetFocus();
    pictures.take(window, QStringLiteral("window_wide"));
    QTest::keyClick(&window.FLX_Settings().view(), Qt::Key_F2);
    pictures.take(window, QStringLiteral("window_editing"));
    takeColumnTip(pictures, window);
    for (const double points : {7.5, 12.0}) {
        window.FLX_Configuration().setFontSize(points);
        window.FLX_Settings().setFontSize(points);
        pictures.take(window, QStringLiteral("window_font_%1").arg(points));
    }
    window.PicLineHoriz().setFocus();
    pictures.take(window, QStringLiteral("window_splitter"));
    QMenu& menu = *window.menuBar()->actions().constFirst()->menu();
    pictures.take(menu, QStringLiteral("menu_file"));
    menu.hide();
}

void takeDialogs(Pictures& pictures) {
    const Ask_User ask = [](const QString&, int, const QString&) { return 7; };
    Msgb question(QStringLiteral("Do you want to save this file?"), 35, QStringLiteral("Zorvane"), nullptr);
    pictures.take(question, QStringLiteral("msgb_question"));
    Msgb longText(
        QStringLiteral("Can't Save file : path/file error or directory is read only.\r\nExtra info: ") +
            QString(400, u'x'),
        16, QStringLiteral("Zorvane"), nullptr);
    pictures.take(longText, QStringLiteral("msgb_long"));
    Msgb note(QStringLiteral("Default file can't be overwritted!"), 64, QStringLiteral("Zorvane"), nullptr);
    pictures.take(note, QStringLiteral("msgb_note"));
    Msgb warning(QStringLiteral("The value is out of range."), 48, QStringLiteral("Zorvane"), nullptr);
    pictures.take(warning, QStringLiteral("msgb_warning"));
    Acercade about(ask, nullptr);
    pictures.take(about, QStringLiteral("acercade"));
    Porcentaje progress({{}, {}}, nullptr);
    progress.setLabel(QStringLiteral("Uploading data from the controller..."));
    progress.Progress_Bar().setValue(40);
    pictures.take(progress, QStringLiteral("porcentaje"));
    Font_Dialog sizes(1, nullptr);
    pictures.take(sizes, QStringLiteral("font_dialog"));
    Font_Dialog largest(6, nullptr);
    pictures.take(largest, QStringLiteral("font_dialog_largest"));
    Lost_Com lost(nullptr);
    pictures.take(lost, QStringLiteral("lostcom"));
    Mensaje busy(false, nullptr);
    pictures.take(busy, QStringLiteral("mensaje"));
    Mensaje animated(true, nullptr);
    pictures.take(animated, QStringLiteral("mensaje_animated"));
    File_Dialog open;
    open.DialogTitle = QStringLiteral("Open");
    open.Filter = QStringLiteral("ABC Configuration (*.ABC)|*.ABC|");
    open.run = [&](QFileDialog& dialog) {
        pictures.take(dialog, QStringLiteral("open"));
        return false;
    };
    open.ShowOpen(nullptr);
}

void takePortDialog(Pictures& pictures) {
    testing::Scripted_Finder finder;
    finder.list = {{"ttyUSB0", "/dev/ttyUSB0", "FT232R USB UART", {}, {}, {}}};
    testing::Scripted_Port port;
    testing::Hand_Clock clock;
    Port_Settings settings;
    settings.port = "ttyUSB0";
    Port_Dialog dialog({finder, port, clock, {20, 600}, 40100, 40001, {}, {}}, settings, nullptr);
    dialog.show();
    QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("BOT_Test")), Qt::LeftButton);
    clock.runFor(microsPerSecond);
    pictures.take(dialog, QStringLiteral("port_settings"));
}

Exchange_Record sampleExchange(int number) {
    constexpr int everyFifth = 5;
    Exchange_Record exchange;
    exchange.at = (50707 * 1000LL + number * 137LL) * microsPerMs;
    exchange.duration = 34200 + number * 10;
    exchange.unit = 7;
    exchange.firstRegister = 40100;
    exchange.wireAddress = 99;
    exchange.count = 4;
    exchange.good = number % everyFifth != 0;
    exchange.result = exchange.good ? "good" : "wrong CRC";
    if (exchange.good) exchange.values = {1000, 65531, static_cast<std::uint16_t>(number), 0};
    exchange.sent = {0x07, 0x03, 0x00, 0x63, 0x00, 0x04, 0xB4, 0x71};
    exchange.received = {0x07, 0x03, 0x08, 0x03, 0xE8, 0xFF, 0xFB, 0x00, 0x2A, 0x00, 0x00, 0x1B, 0x7C};
    return exchange;
}

void takeMonitor(Pictures& pictures) {
    Qt_Link_Clock clock;
    Monitor_Window monitor(clock, 0, {}, nullptr);
    monitor.feed().portNoted(50700 * microsPerSecond, "The port is open.");
    constexpr int rows = 40;
    for (int i = 1; i < rows; ++i)
        monitor.feed().exchangeSeen(sampleExchange(i));
    monitor.feed().straySeen({50720 * microsPerSecond, {0xFF, 0x80}, "noise"});
    monitor.show();
    QTest::qWait(100);
    monitor.findChild<QTableView*>()->selectRow(rows - 3);
    pictures.take(monitor, QStringLiteral("monitor"));
}

/// Lets simulated time pass, and events be served.
void pass(testing::Hand_Clock& clock, Micros span) {
    clock.runFor(span);
    QTest::qWait(20);
}

void takeFurtherReads(Pictures& pictures) {
    testing::Hand_Clock clock;
    survey::testing::Simulated_Line line(clock, {9600, 'E', 8, 1});
    line.controllers = {{.unit = 3}};
    testing::Scripted_Finder finder;
    Port_Settings settings;
    settings.port = "ttyUSB0";
    settings.slave = 3;
    Port_Dialog dialog({finder, line, clock, {}, 0, 0, {}, {}}, settings, nullptr);
    dialog.show();
    QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("BOT_Test")), Qt::LeftButton);
    pass(clock, 60 * microsPerSecond);
    pictures.take(dialog, QStringLiteral("port_further"));
    Network_Form form("tcp:192.168.0.7:502", &dialog);
    pictures.take(form, QStringLiteral("network_form"));
}

void takeFind(Pictures& pictures) {
    testing::Hand_Clock clock;
    survey::testing::Simulated_Line line(clock, {9600, 'N', 8, 1});
    line.controllers = {{.unit = 3}, {.unit = 17, .damaged = 0.3}};
    testing::Scripted_Finder finder;
    Port_Settings settings;
    settings.port = "ttyUSB0";
    Find_Window window({finder, line, clock, {}, {}}, settings, nullptr);
    window.show();
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("BOT_Find")), Qt::LeftButton);
    pass(clock, 9 * microsPerSecond);
    pictures.take(window, QStringLiteral("find_running"));
    pass(clock, 120 * microsPerSecond);
    pictures.take(window, QStringLiteral("find"));
}

void takeListen(Pictures& pictures) {
    testing::Hand_Clock clock;
    survey::testing::Scripted_Listening_Port port;
    testing::Scripted_Finder finder;
    Port_Settings settings;
    settings.port = "ttyUSB0";
    Listen_Window window({finder, port, clock, {}, 0, {}}, settings, nullptr);
    window.show();
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("BOT_Listen")), Qt::LeftButton);
    for (std::uint8_t block = 0; block < 12; ++block) {
        port.deliver(testing::withCrc({1, 3, 0, block, 0, 1}));
        pass(clock, 20 * microsPerMs);
        port.deliver(testing::withCrc({1, 3, 2, 0, block}));
        pass(clock, 300 * microsPerMs);
    }
    QTest::qWait(600);
    pictures.take(window, QStringLiteral("listen"));
}

void takeMessageBar(Pictures& pictures) {
    Main_Window window;
    samples::fillWindow(window);
    window.show();
    const Shown_Line partly{
        QStringLiteral("partly"),
        true,
        QStringLiteral("site7.kvrt207d was read up to line 11. What stands from there on in the "
                       "file isn't in this document; it has the template's values."),
        {{QStringLiteral("Show"), {}}, {QStringLiteral("Open as text"), {}}}};
    const Shown_Line limits{
        QStringLiteral("limits"),
        true,
        QStringLiteral("2 values are outside their limits: Set point 3 (1500) and one more."),
        {{QStringLiteral("Show"), {}}}};
    const Shown_Line copies{
        QStringLiteral("copies"), false, QStringLiteral("One recovery copy is there."), {}};
    window.messageBar().setLines({partly});
    pictures.take(window, QStringLiteral("bar_design"));
    window.setFormEnabled(false);
    pictures.take(window, QStringLiteral("bar_disabled"));
    window.setFormEnabled(true);
    window.messageBar().setLines({copies, limits, partly});
    pictures.take(window, QStringLiteral("bar_scrolling"));
    window.Frame3().hide();
    pictures.take(window, QStringLiteral("bar_without_frame3"));
    window.Frame3().show();
    window.resize(window.width() * 3 / 2, window.height() * 6 / 5);
    window.FLX_Settings().SetFocus();
    QTest::keyClick(&window.FLX_Settings().view(), Qt::Key_End, Qt::ControlModifier);
    pictures.take(window, QStringLiteral("bar_wide_at_the_end"));
    QTest::keyClick(&window.FLX_Settings().view(), Qt::Key_Tab);
    pictures.take(window, QStringLiteral("bar_focus"));
    window.resize(window.width(), window.height() * 4 / 9);
    window.messageBar().setLines({partly, limits});
    pictures.take(window, QStringLiteral("bar_one_line"));
}

void takeFrmStatus(Pictures& pictures) {
    const Transfer_Status status{
        "Upload to PC",
        {"7", "9600,E,8,1", "ttyUSB0", "2", "500", "0"},
        {{"100", "109", "FC 3", "", "", "No response", 1}, {"100", "109", "FC 3", "", "", "No response", 2}},
        {}};
    Frm_Status form({status, [] { return 1; }, {}, {}, [](QTextEdit&, const QString&) {}}, {}, nullptr);
    pictures.take(form, QStringLiteral("frm_status"));
    Main_Window window;
    samples::fillWindow(window);
    window.StatusBar1().setText(4, QStringLiteral("Error. The controller does not respond."));
    window.StatusBar1().setLogOffered(true);
    window.resize(window.width() * 3 / 2, window.height());
    pictures.take(window, QStringLiteral("window_log"));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc < 2) return 2;
    QApplication::setStyle(QStringLiteral("Fusion"));
    if (argc > 2) QApplication::setPalette(samples::darkPalette());
    Pictures pictures(QString::fromLocal8Bit(argv[1]));
    takeWindow(pictures);
    takeDialogs(pictures);
    takePortDialog(pictures);
    takeMonitor(pictures);
    takeFurtherReads(pictures);
    takeFind(pictures);
    takeListen(pictures);
    takeFrmStatus(pictures);
    takeMessageBar(pictures);
    return 0;
}
