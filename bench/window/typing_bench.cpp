// SPDX-License-Identifier: MIT
// From a key to what it paints, in a field of the largest size: a character in a cell's editor, and the cell
// after Enter. The program is the whole window with its handlers, offline.

#include "app/window/kvrt_principal.h"
#include "bench/window/first_paint.h"
#include "bench/window/large_field.h"
#include "template/testing/temporary_folder.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>
#include <memory>

namespace zorvane::bench {
namespace {

/// The window with a template of one field, read and shown.
class Typing_Scene {
  public:
    Typing_Scene(std::int32_t rows, std::int32_t columns) {
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

    [[nodiscard]] ui::Flex_Grid& grid() { return program_->window().FLX_Settings(); }
    [[nodiscard]] ui::Flex_Grid_View& view() { return grid().view(); }

    void press(int key, const QString& text = {}) {
        QWidget* target = QApplication::focusWidget();
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(target, &down);
        QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier, text);
        if (QWidget* now = QApplication::focusWidget()) QApplication::sendEvent(now, &up);
    }
    /// Serves events until the widget was painted.
    void awaitPaint(QWidget& widget) {
        bool painted = false;
        First_Paint watch(widget, [&] { painted = true; });
        while (!painted)
            QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

  private:
    static std::string templateText(std::int32_t rows, std::int32_t columns) {
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

    doubles::Temporary_Folder folder_;
    std::unique_ptr<app::KVRT_Principal> program_;
};

Typing_Scene& scene(benchmark::State& state) {
    static std::unique_ptr<Typing_Scene> kept;
    static std::int64_t size = -1;
    if (size != state.range(0)) {
        kept.reset();
        size = state.range(0);
        kept = std::make_unique<Typing_Scene>(static_cast<std::int32_t>(size), largeColumns);
    }
    return *kept;
}

void firstCharacterOpensTheEditor(benchmark::State& state) {
    Typing_Scene& window = scene(state);
    for (auto iteration : state) {
        window.press(Qt::Key_1, "1");
        if (QApplication::focusWidget() == &window.view()) return state.SkipWithError("no editor opened");
        window.awaitPaint(*QApplication::focusWidget());
        state.PauseTiming();
        window.press(Qt::Key_Escape);
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

void furtherCharacter(benchmark::State& state) {
    Typing_Scene& window = scene(state);
    window.press(Qt::Key_1, "1");
    QApplication::processEvents();
    for (auto iteration : state) {
        window.press(Qt::Key_2, "2");
        window.awaitPaint(*QApplication::focusWidget());
        state.PauseTiming();
        window.press(Qt::Key_Backspace);
        QApplication::processEvents();
        state.ResumeTiming();
    }
    window.press(Qt::Key_Escape);
    QApplication::processEvents();
}

void enterPaintsTheCell(benchmark::State& state) {
    Typing_Scene& window = scene(state);
    int value = 0;
    for (auto iteration : state) {
        state.PauseTiming();
        window.grid().setRow(2);
        window.grid().setCol(1);
        QApplication::processEvents();
        value = value % 9 + 1;
        window.press(Qt::Key_0 + value, QString::number(value));
        QApplication::processEvents();
        state.ResumeTiming();
        window.press(Qt::Key_Return, "\r");
        window.awaitPaint(*window.view().viewport());
        if (window.grid().TextMatrix(2, 1) != std::to_string(value))
            return state.SkipWithError("the value wasn't taken");
    }
}

BENCHMARK(firstCharacterOpensTheEditor)
    ->Arg(20)
    ->Arg(largeRows)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK(furtherCharacter)->Arg(20)->Arg(largeRows)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(enterPaintsTheCell)->Arg(20)->Arg(largeRows)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace zorvane::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::RunSpecifiedBenchmarks();
    std::_Exit(0);
}
