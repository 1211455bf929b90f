// SPDX-License-Identifier: MIT
#include "app/window/grid_events.h"

#include "app/cell_description.h"
#include "app/refused_input.h"
#include "grids/fill/flx_configuration.h"
#include "grids/fill/stopping_on_failure.h"
#include "grids/flx_settings.h"

namespace zorvane::app {

namespace {

using Mouse_Handler = void (*)(const Grid_Context&, std::int16_t, std::int16_t, float, float);

ui::Flex_Grid_Events::Mouse mouse(const Grid_Context& grids, Event_Edge& edge, Mouse_Handler handler) {
    return [&grids, &edge, handler](std::int16_t button, std::int16_t shift, float x, float y) {
        edge.run([&] { handler(grids, button, shift, x, y); });
    };
}

std::function<void()> plain(const Grid_Context& grids, Event_Edge& edge,
                            void (*handler)(const Grid_Context&)) {
    return [&grids, &edge, handler] { edge.run([&] { handler(grids); }); };
}

void connectConfiguration(ui::Flex_Grid_Events& events, const Grid_Context& grids, Event_Edge& edge) {
    events.RowColChange = plain(grids, edge, FLX_Configuration_RowColChange);
    events.SelChange = plain(grids, edge, FLX_Configuration_SelChange);
    events.Click = plain(grids, edge, FLX_Configuration_Click);
    events.DblClick = plain(grids, edge, FLX_Configuration_DblClick);
    events.MouseMove = mouse(grids, edge, FLX_Configuration_MouseMove);
    events.MouseUp = mouse(grids, edge, FLX_Configuration_MouseUp);
}

void connectSettings(ui::Flex_Grid_Events& events, const Grid_Context& grids, Event_Edge& edge) {
    events.BeforeEdit = [&grids, &edge](std::int32_t row, std::int32_t col, bool& cancel) {
        edge.run([&] { FLX_Settings_BeforeEdit(grids, row, col, cancel); });
    };
    events.StartEdit = [&grids, &edge](std::int32_t row, std::int32_t col, bool& cancel) {
        edge.run([&] { FLX_Settings_StartEdit(grids, row, col, cancel); });
    };
    events.AfterEdit = [&grids, &edge](std::int32_t row, std::int32_t col) {
        withdrawRefused(grids);
        edge.run([&] {
            stoppingOnFailure(grids.comm.mainForm, [&] { FLX_Settings_AfterEdit(grids, row, col); });
        });
    };
    events.TakesBlock = [&grids](std::int32_t row, std::int32_t col) { return takesBlock(grids, row, col); };
    events.Refused = [&grids](std::int32_t row, std::int32_t col, const ui::Refused_Input& what) {
        tellRefused(grids, row, col, what.character);
    };
    events.AfterUserResize = [&grids, &edge](std::int32_t row, std::int32_t col) {
        edge.run([&] { FLX_Settings_AfterUserResize(grids, row, col); });
    };
    events.KeyUp = [&grids, &edge](std::int16_t keyCode, std::int16_t shift) {
        edge.run([&] { FLX_Settings_KeyUp(grids, keyCode, shift); });
    };
    events.MouseMove = mouse(grids, edge, FLX_Settings_MouseMove);
}

} // namespace

void connectGrids(ui::Main_Window& window, const Grid_Context& grids, Event_Edge& edge) {
    connectConfiguration(window.FLX_Configuration().events(), grids, edge);
    connectSettings(window.FLX_Settings().events(), grids, edge);
    ui::Flex_Grid& settings = window.FLX_Settings();
    settings.view().cells().describe = [&grids, &settings](std::int32_t row, std::int32_t col) {
        return cellDescription(grids, row, col, settings.coloursOf(row, col));
    };
    settings.view().cells().explain = [&grids, &settings](std::int32_t row, std::int32_t col) {
        return cellToolTip(grids, row, col, settings.coloursOf(row, col));
    };
}

} // namespace zorvane::app
