// SPDX-License-Identifier: MIT
#include "bench/window/large_window.h"

#include "bench/window/first_paint.h"
#include "bench/window/large_field.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>

#include <cstdio>
#include <fstream>
#include <string>

namespace zorvane::bench {

namespace {

std::string templateText(std::int32_t rows, std::int32_t columns) {
    std::string text = "[CONFIGURATION_COLUMNS]\r\nNUMERIC_ROWS=YES\r\nCONFIGURATION_NC=2\r\n"
                       "COL_1_DESC=No.\r\nCOL_1_WIDTH=500\r\nCOL_2_DESC=Field\r\nCOL_2_WIDTH=2000\r\n["
                       "CONFIGURATION_FIELDS]\r\n"
                       "FIELD_1_DESC=Measurements\r\nFIELD_1_RC=" +
                       std::to_string(rows) + "," + std::to_string(columns) + "\r\n[FIELD_1_COLUMNS]\r\n";
    for (std::int32_t c = 1; c <= columns; ++c) {
        const std::string key = "COL_" + std::to_string(c);
        text += key + "_DESC=Column " + std::to_string(c) + "\r\n" + key + "_WIDTH=900\r\n" + key +
                "_TYPE=NUMERIC\r\n" + key + "_MODIFIABLE=YES\r\n";
    }
    text += "[CONFIGURATION_DEFAULT]\r\nFIELD_1=1,Measurements\r\n[PORT_CONFIGURATION]\r\n"
            "HOLDINGREGISTERSBLOCK_1=1-10\r\n[FIELD_1_DEFAULT]\r\n";
    for (std::int32_t r = 1; r <= rows; ++r) {
        text += "ROW_" + std::to_string(r) + "=";
        for (std::int32_t c = 1; c <= columns; ++c)
            text += (c > 1 ? "," : "") + largeValue(r, c);
        text += "\r\n";
    }
    return text;
}

} // namespace

Large_Window::Large_Window(std::int32_t rows, std::int32_t columns) {
    std::ofstream(folder_.path() + "/kvrt.ztp", std::ios::binary) << templateText(rows, columns);
    program_ = std::make_unique<app::KVRT_Principal>(app::Program_Places{
        folder_.path(), folder_.path() + "/kept", QString::fromStdString(folder_.path() + "/settings")});
    program_->mainForm().ask = [](const QString& text, int, const QString&) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
        return int{Msgb_Code_Ok};
    };
    program_->start();
    program_->mainForm().timers().fire(Timer_Name::TMR_Abre_ZTP);
    program_->mainForm().timers().fire(Timer_Name::TMR_Inicial_ZTP);
    QApplication::processEvents();
    view().setFocus();
    grid().setRow(2);
    grid().setCol(1);
    QApplication::processEvents();
}

void Large_Window::press(int key, const QString& text) {
    QWidget* target = QApplication::focusWidget();
    QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(target, &down);
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
    if (QWidget* now = QApplication::focusWidget()) QApplication::sendEvent(now, &up);
}

void Large_Window::choose(const char* entry) {
    program_->window().menu().action(QString::fromLatin1(entry)).trigger();
}

void Large_Window::awaitPaint(QWidget& widget) {
    bool painted = false;
    First_Paint watch(widget, [&] { painted = true; });
    while (!painted)
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

} // namespace zorvane::bench
