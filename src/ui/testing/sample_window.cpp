// SPDX-License-Identifier: MIT
#include "ui/testing/sample_window.h"

#include <array>
#include <string>
#include <vector>

namespace zorvane::samples {

namespace {

struct Column {
    const char* heading;
    std::int32_t width;
    std::int32_t alignment;
};

void layOut(VSFlexGrid& grid, const std::vector<Column>& columns, std::int32_t rows) {
    grid.setCols(static_cast<std::int32_t>(columns.size()));
    grid.setRows(rows + 1);
    grid.setFixedRows(1);
    for (std::int32_t c = 0; c < grid.Cols(); ++c) {
        const Column& column = columns[static_cast<std::size_t>(c)];
        grid.setTextMatrix(0, c, column.heading);
        grid.setColWidth(c, column.width);
        grid.setColAlignment(c, column.alignment);
        grid.setFixedAlignment(c, Align_Center_Center);
    }
    for (std::int32_t r = 0; r < grid.Rows(); ++r)
        grid.setRowHeight(r, 285);
}

void colour(VSFlexGrid& grid, std::int32_t row, std::int32_t col, std::int32_t back, std::int32_t fore) {
    grid.setRow(row);
    grid.setCol(col);
    grid.setCellBackColor(back);
    grid.setCellForeColor(fore);
}

void fillConfiguration(VSFlexGrid& grid) {
    layOut(grid,
           {{"No.", 450, Align_Center_Top},
            {"Field", 1600, Align_Left_Top},
            {"Editable", 900, Align_Center_Top},
            {"Remarks", 3200, Align_Left_Top}},
           5);
    const std::array fields = {"Outputs", "Channels", "Regulation", "Timers", "Measurements"};
    for (std::int32_t r = 1; r <= 5; ++r) {
        grid.setTextMatrix(r, 0, std::to_string(r));
        grid.setTextMatrix(r, 1, fields[static_cast<std::size_t>(r - 1)]);
        grid.setTextMatrix(r, 2, r < 5 ? "Yes" : "No");
        grid.setTextMatrix(r, 3, r == 3 ? "Voltages in 0.1 V, \xB1 5 %" : "Stored in the controller");
    }
    grid.setRow(3);
    grid.setCol(1);
    grid.setColSel(3);
}

void fillSettings(VSFlexGrid& grid) {
    layOut(grid,
           {{"Setting", 2200, Align_Left_Top},
            {"Value", 1300, Align_Right_Top},
            {"Unit", 800, Align_Center_Top},
            {"Description", 3000, Align_Left_Top}},
           30);
    grid.setVisible(false);
    for (std::int32_t r = 1; r < grid.Rows(); ++r) {
        for (std::int32_t c = 0; c < 4; ++c)
            colour(grid, r, c, c == 1 ? modifiableBack : 0xFFFFFF, 0x404040);
        grid.setTextMatrix(r, 0, "Set point " + std::to_string(r));
        grid.setTextMatrix(r, 1, std::to_string(100 + 7 * r));
        grid.setTextMatrix(r, 2, "V");
        grid.setTextMatrix(r, 3, "Regulated voltage of step " + std::to_string(r));
    }
    colour(grid, 2, 1, writingBack, 0xC00000);
    colour(grid, 3, 1, failedBack, 0x0000FF);
    grid.setTextMatrix(5, 1, "???");
    grid.setRow(4);
    grid.setCol(1);
    grid.setVisible(true);
}

} // namespace

void fillWindow(ui::Main_Window& window) {
    fillConfiguration(window.FLX_Configuration());
    fillSettings(window.FLX_Settings());
    window.StatusBar1().setText(1, QStringLiteral("READ ONLY"));
    window.StatusBar1().setText(2, QStringLiteral("Online"));
    window.StatusBar1().setText(3, QStringLiteral("RTU: 12"));
    window.StatusBar1().setText(4, QStringLiteral("Write: 120 @1004 ...Completed"));
    window.setWindowTitle(QStringLiteral("* site7.kvrt207d - Zorvane"));
}

} // namespace zorvane::samples
