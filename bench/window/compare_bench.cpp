// SPDX-License-Identifier: MIT
// The filter of a comparison of 32,767 rows: typed into the window, up to what is painted.

#include "ui/compare/compare_window.h"

#include <QApplication>
#include <QLineEdit>

#include <benchmark/benchmark.h>

#include <cstdint>
#include <string>

namespace zorvane::bench {
namespace {

constexpr int mostRows = 32767;

/// Rows of four pages; each seventh differs.
compare::Row_List manyRows() {
    compare::Comparison comparison;
    for (int i = 0; i < mostRows; ++i) {
        compare::Row row;
        row.place = {1, i + 1, 2};
        row.page = "Page " + std::to_string(i % 4);
        row.name = "Set point of channel " + std::to_string(i);
        row.heading = "Value";
        row.address = std::to_string(40001 + i);
        row.registers = Register_Range{40001 + i, 40001 + i};
        row.left = {.value = true, .shown = std::to_string(i % 1000)};
        row.right = {.value = true, .shown = std::to_string(i % 999)};
        row.sign = i % 7 == 0 ? compare::Sign::Differs : compare::Sign::Equal;
        comparison.counts.add(row.sign);
        comparison.rows.push_back(std::move(row));
    }
    return compare::Row_List(std::move(comparison));
}

/// Each round types another text into the filter, and waits for the picture.
void filterRows(benchmark::State& state, const QString& one, const QString& other) {
    ui::Compare_Window window(nullptr);
    window.setRows(manyRows());
    window.findChild<QWidget*>(QStringLiteral("CHK_All"))->setProperty("checked", true);
    window.show();
    QApplication::processEvents();
    auto* filter = window.findChild<QLineEdit*>(QStringLiteral("EDT_Filter"));
    bool first = true;
    for (auto _ : state) {
        filter->setText(first ? one : other);
        first = !first;
        QApplication::processEvents();
    }
}

void BM_Filter_To_All(benchmark::State& state) { filterRows(state, "", "value"); }
void BM_Filter_To_One(benchmark::State& state) { filterRows(state, "channel 31999", "channel 12"); }
void BM_Filter_By_Sign(benchmark::State& state) { filterRows(state, "is:differs", "is:equal page:3"); }
BENCHMARK(BM_Filter_To_All)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Filter_To_One)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Filter_By_Sign)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zorvane::bench

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
