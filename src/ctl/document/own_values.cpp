// SPDX-License-Identifier: MIT
#include "ctl/document/own_values.h"

#include "cells/cell_reading.h"
#include "values/run_time_failure.h"

namespace zorvane::ctl {

namespace {

bool wereRead(const Comm_Context& comm, const Register_Range& registers) {
    for (std::int64_t address = registers.first; address <= registers.last; ++address) {
        const auto number = static_cast<std::int32_t>(address);
        if (comm.link.readingOf(comm.form.Unit_Id, number).age == Reading_Age::Never) return false;
    }
    return true;
}

} // namespace

Own_Values::Own_Values(const Declara_Zorvane& document) {
    for (std::int32_t f = 1; f <= document.Field_Count; ++f) {
        const Cell_Table& cells = document.Fields(f).Cells;
        if (!cells.dimensioned()) continue;
        for (std::int32_t row = 1; row <= cells.rows(); ++row)
            for (std::int32_t column = 1; column <= cells.lastWrittenColumn(row); ++column)
                if (const Cell_Rec& cell = cells(row, column); !cell.Address.empty())
                    values_.push_back({{f, row, column}, cell.Value});
    }
}

void Own_Values::putBackUnread(const Comm_Context& comm) const {
    for (const Own_Value& own : values_) {
        Cell_Table& cells = comm.document.Fields(own.place.field).Cells;
        const auto registers =
            cellRegisters(cells(0, own.place.column), cells(own.place.row, own.place.column));
        if (registers && !wereRead(comm, *registers)) cells(own.place.row, own.place.column).Value = own.text;
    }
}

} // namespace zorvane::ctl
