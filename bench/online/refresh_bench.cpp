// SPDX-License-Identifier: MIT
// One refresh of the lower grid while online: a field of 1,000 rows, every polled value another one than
// before, from the register image to the painted screen.

#include "app/window/form/window_grids.h"
#include "comm/modbus_control/dry_run_link.h"
#include "comm/transfer/registers_to_cells.h"
#include "ctl/document/held_form.h"
#include "grids/fill/fill_settings.h"
#include "ui/grid/flex_grid.h"

#include <QApplication>

#include <benchmark/benchmark.h>

#include <memory>

namespace zorvane::bench {
namespace {

constexpr std::int16_t rows = 1000;

/// Registers that are never twice the same.
class Moving_Link final : public Dry_Run_Link {
  public:
    void move() { ++moved_; }
    [[nodiscard]] std::int32_t RegisterValue(std::int32_t /*slave*/, std::int32_t address,
                                             bool /*isSigned*/) const override {
        return (address + moved_) % 30000;
    }

  private:
    std::int32_t moved_ = 0;
};

class Grid_Frame final : public ctl::Held_Form {
  public:
    Grid_Frame(ui::Flex_Grid& configuration, ui::Flex_Grid& settings)
        : ctl::Held_Form(1, {}), grids_(configuration, settings) {}
    [[nodiscard]] Grid_View& grids() override { return grids_; }

  private:
    app::Window_Grids grids_;
};

std::unique_ptr<Declara_Zorvane> polledDocument(std::int16_t columns) {
    auto document = std::make_unique<Declara_Zorvane>();
    PRO_Limpia_Modelo(*document);
    PRO_Prepara_Lectura(*document);
    document->Field_Count = 1;
    Field_Rec& field = document->Fields(1);
    field.Rows = rows;
    field.Columns = columns;
    field.Cells.redim(rows, columns);
    for (std::int32_t column = 1; column <= columns; ++column) {
        Cell_Rec& definition = field.Cells(0, column);
        definition.Value = "Column " + std::to_string(column);
        definition.Width = 900;
        definition.Column_Type = "NUMERIC";
        definition.Modbus_Request = "ALWAYS";
        for (std::int32_t row = 1; row <= rows; ++row)
            field.Cells(row, column).Address = std::to_string(row * columns + column);
    }
    return document;
}

/// The two grids of the window, and a field that is shown in the lower one.
class Refresh_Scene {
  public:
    explicit Refresh_Scene(std::int16_t columns) : document_(polledDocument(columns)) {
        window_.resize(1200, 800);
        settingsView_->setGeometry(0, 100, 1200, 700);
        configurationView_->setGeometry(0, 0, 1200, 100);
        window_.show();
        configuration_.setRows(2);
        configuration_.setRow(1);
        form_.Current_Request = "ALWAYS";
        PRO_Llena_Settings(context_, 1, false);
        settingsView_->flush();
        QApplication::processEvents();
    }

    void refresh() {
        link_.move();
        PRO_Refresca_Settings(context_.comm, 1);
        settingsView_->flush();
        settingsView_->viewport()->repaint();
    }
    [[nodiscard]] std::string shown(std::int32_t row) { return settings_.TextMatrix(row, 0); }

  private:
    class No_Windows final : public Grid_Windows {
      public:
        void showFrmDebug() override {}
        void updateColumnTip() override {}
        [[nodiscard]] Mouse_Place mousePlace() const override { return {}; }
    };

    std::unique_ptr<Declara_Zorvane> document_;
    Main_Form_State form_;
    Moving_Link link_;
    QWidget window_;
    ui::Flex_Grid_View* configurationView_ = new ui::Flex_Grid_View(&window_);
    ui::Flex_Grid_View* settingsView_ = new ui::Flex_Grid_View(&window_);
    ui::Flex_Grid configuration_{*configurationView_};
    ui::Flex_Grid settings_{*settingsView_};
    Grid_Frame mainForm_{configuration_, settings_};
    Navigation_State navigation_;
    Hidden_Editors editors_;
    No_Windows windows_;
    Grid_Context context_{
        {*document_, form_, link_, mainForm_}, configuration_, settings_, navigation_, editors_, windows_};
};

void refreshField(benchmark::State& state) {
    Refresh_Scene scene(static_cast<std::int16_t>(state.range(0)));
    const std::string before = scene.shown(rows);
    for (auto iteration : state)
        scene.refresh();
    if (scene.shown(rows) == before) state.SkipWithError("nothing was refreshed");
}

BENCHMARK(refreshField)->ArgName("columns")->Arg(1)->Arg(5)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zorvane::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
