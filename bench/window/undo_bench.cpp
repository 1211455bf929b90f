// SPDX-License-Identifier: MIT
// A pasted column of 32,767 values taken back and done again in the whole window, up to what is painted and
// to the menu that names the next step.

#include "bench/window/large_field.h"
#include "bench/window/large_window.h"

#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace zorvane::bench {
namespace {

const std::string pasted = "7";

/// A column of the largest field, pasted over.
Large_Window& pastedColumn(std::int32_t columns) {
    static std::unique_ptr<Large_Window> kept;
    static std::int32_t size = 0;
    if (size == columns) return *kept;
    kept.reset();
    kept = std::make_unique<Large_Window>(largeRows, columns);
    size = columns;
    kept->grid().setRow(1);
    kept->grid().setCol(0);
    QApplication::processEvents();
    QString block;
    for (std::int32_t row = 0; row < largeRows; ++row)
        block += QString::fromStdString(pasted) + u'\n';
    QApplication::clipboard()->setText(block);
    kept->choose("MNU_PasteBlock");
    QApplication::processEvents();
    return *kept;
}

/// From the choice to the painted grid, with all that waited for the event loop.
void step(Large_Window& window, const char* entry) {
    window.choose(entry);
    window.awaitPaint(*window.view().viewport());
    QApplication::processEvents();
}

bool holds(Large_Window& window, bool pastedOver) {
    for (const std::int32_t row : {std::int32_t{1}, std::int32_t{largeRows}}) {
        const bool now = window.grid().TextMatrix(row, 0) == pasted;
        if (now != pastedOver) return false;
    }
    return true;
}

void measure(benchmark::State& state, const char* measured, const char* other, bool pastedOver) {
    Large_Window& window = pastedColumn(static_cast<std::int32_t>(state.range(0)));
    if (!holds(window, true)) return state.SkipWithError("the block wasn't pasted");
    if (pastedOver) step(window, other);
    for (auto iteration : state) {
        step(window, measured);
        state.PauseTiming();
        if (!holds(window, pastedOver)) return state.SkipWithError("the step wasn't done");
        step(window, other);
        state.ResumeTiming();
    }
    if (pastedOver) step(window, measured);
}

void undo(benchmark::State& state) { measure(state, "MNU_Undo", "MNU_Redo", false); }
void redo(benchmark::State& state) { measure(state, "MNU_Redo", "MNU_Undo", true); }

BENCHMARK(undo)->Arg(2)->Arg(largeColumns)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(redo)->Arg(2)->Arg(largeColumns)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace zorvane::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::RunSpecifiedBenchmarks();
    std::_Exit(0);
}
