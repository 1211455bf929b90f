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

void countChanged(benchmark::State& state) {
    const Large_Step step;
    for (auto turn : state)
        benchmark::DoNotOptimize(step.base.all(step.document));
}
BENCHMARK(countChanged)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zorvane::bench
