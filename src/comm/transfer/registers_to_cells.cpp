// SPDX-License-Identifier: MIT
#include "comm/transfer/registers_to_cells.h"

#include "cells/cell_reading.h"
#include "values/numbers.h"

#include <algorithm>

namespace zorvane {

namespace {

/// Keeps the lower grid from repainting, also when a failure ends the work.
class Redraw_Pause {
  public:
    explicit Redraw_Pause(Grid_View& grids) : grids_(grids) { grids_.setSettingsRedraw(false); }
    ~Redraw_Pause() { grids_.setSettingsRedraw(true); }
    Redraw_Pause(const Redraw_Pause&) = delete;
    Redraw_Pause& operator=(const Redraw_Pause&) = delete;

  private:
    Grid_View& grids_;
};

/// The last column that any row has written to: cells beyond it have no register.
std::int32_t lastUsedColumn(const Cell_Table& cells) {
    std::int32_t last = 0;
    for (std::int32_t row = 1; row <= cells.rows(); ++row)
        last = std::max(last, cells.lastWrittenColumn(row));
    return last;
}

/// Visits the cells of a field column by column. A field without a table has none.
template <class Visit> void forEachCell(const Cell_Table& cells, Visit&& visit) {
    if (!cells.dimensioned()) return;
    const std::int32_t last = lastUsedColumn(cells);
    for (std::int32_t column = 1; column <= last; ++column)
        for (std::int32_t row = 1; row <= cells.rows(); ++row)
            visit(row, column);
}

} // namespace

std::int32_t PRO_Aplica_Registros(const Comm_Context& comm, std::int32_t field) {
    Grid_View& grids = comm.mainForm.grids();
    const Redraw_Pause pause(grids);
    Field_Rec& record = comm.document.Fields(field);
    const Cell_Table& cells = record.Cells;
    const Register_Image image = comm.image();
    const bool shown = grids.configurationRow() == field;
    std::int32_t taken = 0;
    forEachCell(cells, [&](std::int32_t row, std::int32_t column) {
        const auto reading = readCell(cells(0, column), cells(row, column), image);
        if (!reading) return;
        std::string& value = record.Cells(row, column).Value;
        if (value != reading->value)
            comm.form.Last_Upload.changes.push_back({{field, row, column}, value, reading->value});
        value = reading->value;
        ++taken;
        comm.document.Passing.settle({field, row, column});
        if (shown && reading->message) grids.setSettingsText(row, column - 1, *reading->message);
    });
    return taken;
}

void PRO_Refresca_Settings(const Comm_Context& comm, std::int32_t row) {
    comm.form.Poll_Request = comm.form.Current_Request;
    Grid_View& grids = comm.mainForm.grids();
    Field_Rec& record = comm.document.Fields(row);
    const Cell_Table& cells = record.Cells;
    const Register_Image image = comm.image();
    forEachCell(cells, [&](std::int32_t r, std::int32_t c) {
        const Cell_Rec& definition = cells(0, c);
        if (definition.Modbus_Request != comm.form.Poll_Request) return;
        if (isNumeric(cells(r, c).Address) && comm.link.CommLost()) {
            grids.setSettingsText(r, c - 1, "???");
            return;
        }
        const auto reading = readCell(definition, cells(r, c), image);
        if (!reading) return;
        comm.document.Passing.put(record.Cells(r, c), {row, r, c}, reading->value);
        grids.setSettingsText(r, c - 1, reading->shown());
    });
}

} // namespace zorvane
