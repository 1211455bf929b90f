// SPDX-License-Identifier: MIT
// Filling and scrolling the lower grid with the largest field, beside a QTableWidget that shows the same.

#include "bench/window/large_field.h"
#include "comm/modbus_control/dry_run_link.h"
#include "ctl/document/held_form.h"
#include "grids/fill/fill_settings.h"
#include "ui/grid/flex_grid.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableWidget>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <unistd.h>

namespace zorvane::bench {
namespace {

/// Two grids on a shown window, with a document to fill them from.
class Grid_Scene {
  public:
    Grid_Scene() {
        window_.resize(1200, 800);
        view_->setGeometry(0, 0, 1200, 800);
        window_.show();
        QApplication::processEvents();
    }

    [[nodiscard]] ui::Flex_Grid_View& view() { return *view_; }

    void fill() {
        PRO_Llena_Settings(context_, 1, false);
        view_->flush();
    }
    void forget() {
        settings_.setRows(0);
        settings_.setCols(0);
        view_->flush();
    }

  private:
    class No_Windows final : public Grid_Windows {
      public:
        void showFrmDebug() override {}
        void updateColumnTip() override {}
        [[nodiscard]] Mouse_Place mousePlace() const override { return {}; }
    };

    std::unique_ptr<Declara_Zorvane> document_ = largeDocument();
    Main_Form_State form_;
    Dry_Run_Link link_;
    ctl::Held_Form mainForm_{1, {}};
    QWidget window_;
    ui::Flex_Grid_View* view_ = new ui::Flex_Grid_View(&window_);
    ui::Flex_Grid settings_{*view_};
    Memory_Grid configuration_;
    Navigation_State navigation_;
    Hidden_Editors editors_;
    No_Windows windows_;
    Grid_Context context_{
        {*document_, form_, link_, mainForm_}, configuration_, settings_, navigation_, editors_, windows_};
};

/// The same table in Qt's own item widget: texts, both colours and the alignment of every cell.
void fillTable(QTableWidget& table) {
    table.setUpdatesEnabled(false);
    table.setRowCount(largeRows);
    table.setColumnCount(largeColumns);
    const QBrush black(Qt::black);
    const QBrush yellow(Qt::yellow);
    const QBrush white(Qt::white);
    for (int column = 0; column < largeColumns; ++column) {
        table.setHorizontalHeaderItem(column, new QTableWidgetItem(QString("Column %1").arg(column + 1)));
        table.setColumnWidth(column, 60);
    }
    for (int row = 0; row < largeRows; ++row)
        for (int column = 0; column < largeColumns; ++column) {
            auto* item = new QTableWidgetItem(QString::fromStdString(largeValue(row + 1, column + 1)));
            item->setForeground(black);
            item->setBackground(column % 2 == 1 ? yellow : white);
            item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            table.setItem(row, column, item);
        }
    table.setUpdatesEnabled(true);
}

double residentMegabytes() {
    std::ifstream statm("/proc/self/statm");
    long total = 0;
    long resident = 0;
    statm >> total >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

void fillGrid(benchmark::State& state) {
    Grid_Scene scene;
    const double before = residentMegabytes();
    double most = 0;
    for (auto iteration : state) {
        scene.fill();
        scene.view().viewport()->repaint();
        state.PauseTiming();
        most = std::max(most, residentMegabytes() - before);
        scene.forget();
        state.ResumeTiming();
    }
    state.counters["MB"] = most;
}

void fillTableWidget(benchmark::State& state) {
    double most = 0;
    for (auto iteration : state) {
        state.PauseTiming();
        const double before = residentMegabytes();
        auto table = std::make_unique<QTableWidget>();
        table->resize(1200, 800);
        table->show();
        QApplication::processEvents();
        state.ResumeTiming();
        fillTable(*table);
        table->viewport()->repaint();
        state.PauseTiming();
        most = std::max(most, residentMegabytes() - before);
        table.reset();
        state.ResumeTiming();
    }
    state.counters["MB"] = most;
}

/// Scrolls page by page over the whole height, each page painted at once.
void scrollPages(benchmark::State& state, QAbstractItemView& view) {
    QScrollBar& bar = *view.verticalScrollBar();
    int place = 0;
    for (auto iteration : state) {
        place = place + bar.pageStep() <= bar.maximum() ? place + bar.pageStep() : 0;
        bar.setValue(place);
        view.viewport()->repaint();
    }
}

void scrollGrid(benchmark::State& state) {
    Grid_Scene scene;
    scene.fill();
    scrollPages(state, scene.view());
}

void scrollTableWidget(benchmark::State& state) {
    QTableWidget table;
    table.resize(1200, 800);
    table.show();
    fillTable(table);
    QApplication::processEvents();
    scrollPages(state, table);
}

BENCHMARK(fillGrid)->Unit(benchmark::kMillisecond);
BENCHMARK(fillTableWidget)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollGrid)->Unit(benchmark::kMillisecond);
BENCHMARK(scrollTableWidget)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zorvane::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
