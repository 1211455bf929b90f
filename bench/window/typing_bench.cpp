// SPDX-License-Identifier: MIT
// From a key to what it paints, in a field of the largest size: a character in a cell's editor, and the cell
// after Enter. The program is the whole window with its handlers, offline.

#include "bench/window/large_field.h"
#include "bench/window/large_window.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <memory>

namespace zorvane::bench {
namespace {

Large_Window& scene(benchmark::State& state) {
    static std::unique_ptr<Large_Window> kept;
    static std::int64_t size = -1;
    if (size != state.range(0)) {
        kept.reset();
        size = state.range(0);
        kept = std::make_unique<Large_Window>(static_cast<std::int32_t>(size), largeColumns);
    }
    return *kept;
}

void firstCharacterOpensTheEditor(benchmark::State& state) {
    Large_Window& window = scene(state);
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
    Large_Window& window = scene(state);
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
    Large_Window& window = scene(state);
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
