// SPDX-License-Identifier: MIT
// How long a step of the largest table takes to be undone and done again, and to be counted as changed.

#include "edit/history/changed_cells.h"
#include "edit/history/history.h"

#include <benchmark/benchmark.h>

#include <string>

namespace zorvane::bench {
namespace {

constexpr std::int16_t rows = 32767;

/// One field of as many rows as there can be, each with one cell, and a step that changed all of them.
struct Large_Step {
    Large_Step() {
        document.Fields.redim(highestField);
        document.Field_Count = 1;
        Field_Rec& field = document.Fields(1);
        field.Rows = rows;
        field.Columns = 1;
        field.Cells.redim(rows, 1);
        std::vector<Value_Change> changes;
        for (std::int32_t row = 1; row <= rows; ++row) {
            Cell_Rec& cell = field.Cells(row, 1);
            cell.Address = std::to_string(row);
            cell.Value = std::to_string(row);
        }
        base.take(document);
        for (std::int32_t row = 1; row <= rows; ++row) {
            Cell_Rec& cell = field.Cells(row, 1);
            changes.push_back({{1, row, 1}, cell.Value, "-1"});
            cell.Value = "-1";
        }
        history.changed("import", std::move(changes));
    }

    Declara_Zorvane document;
    edit::Changed_Cells base;
    edit::History history;
};

void undoAndRedo(benchmark::State& state) {
    Large_Step step;
    for (auto turn : state) {
        benchmark::DoNotOptimize(step.history.undo(step.document));
        benchmark::DoNotOptimize(step.history.redo(step.document));
    }
}
BENCHMARK(undoAndRedo)->Unit(benchmark::kMillisecond);

/// As many single changes as a history keeps, all taken back and done again.
void thousandSteps(benchmark::State& state) {
    Large_Step step;
    step.history.clear();
    constexpr std::int32_t steps = 1000;
    for (std::int32_t row = 1; row <= steps + 100; ++row) {
        Cell_Rec& cell = step.document.Fields(1).Cells(row, 1);
        step.history.changed("change", {{{1, row, 1}, cell.Value, "7"}});
        cell.Value = "7";
    }
    if (step.history.steps() != steps) return state.SkipWithError("not a thousand steps");
    for (auto turn : state) {
        while (step.history.undo(step.document)) {
        }
        while (step.history.redo(step.document)) {
        }
    }
    state.counters["bytes"] = static_cast<double>(step.history.bytes());
}
BENCHMARK(thousandSteps)->Unit(benchmark::kMillisecond);

/// One more step of the whole table where the history holds all the bytes that it may: the oldest go.
void fullHistory(benchmark::State& state) {
    Large_Step step;
    std::vector<Value_Change> changes;
    for (std::int32_t row = 1; row <= rows; ++row)
        changes.push_back({{1, row, 1}, "a text of some length", "another of that length"});
    for (int i = 0; i < 100; ++i)
        step.history.changed("import", changes);
    for (auto turn : state)
        step.history.changed("import", changes);
    state.counters["steps"] = static_cast<double>(step.history.steps());
    state.counters["MB"] = static_cast<double>(step.history.bytes()) / (1024 * 1024);
}
BENCHMARK(fullHistory)->Unit(benchmark::kMillisecond);

void countChanged(benchmark::State& state) {
    const Large_Step step;
    for (auto turn : state)
        benchmark::DoNotOptimize(step.base.all(step.document));
}
BENCHMARK(countChanged)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zorvane::bench
