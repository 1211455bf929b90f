// SPDX-License-Identifier: MIT
#include "grids/commit/register_writes.h"

#include "cells/format/cell_encoding.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

namespace zorvane {

namespace {

Cell_Format formatOf(const Cell_Rec& cell) { return cellFormat(cell.Format, paths::liveWrite.words); }

/// What goes to the controller for a number. Only a negative one has a format of its own.
std::int32_t registerFor(const std::string& text, const Cell_Rec& definition, std::int32_t rawNegative) {
    const bool formatted = !trimBlanks(definition.Bits_Negative_Format).empty();
    return formatted && strictDouble(text) < 0.0 ? rawNegative : longValue(text);
}

} // namespace

std::string joinedTime(const Cell_Rec& cell, const std::string& half, std::int32_t registerValue) {
    if (!isTimePart(formatOf(cell))) return half;
    const auto whole = encodedByFormat(paths::liveWrite, cell, half, [&] { return registerValue; });
    return numberText(whole.value_or(0.0));
}

std::string splitTime(const Cell_Rec& cell, const std::string& whole) {
    const Cell_Format format = formatOf(cell);
    return isTimePart(format) ? numberText(timePart(format, strictLong(whole))) : whole;
}

void Number_Write::show(Write_Progress progress) const {
    grids_.comm.tell(event::Value_Written{number_.text, cell().Address, progress});
}

void Number_Write::start() {
    if (!isNumeric(cell().Address)) return;
    const Comm_Context& comm = grids_.comm;
    static_assert(paths::liveWrite.otherPart == Other_Part::Own_Register);
    if (isTimePart(formatOf(cell()))) {
        const std::int32_t value = comm.link.RegisterValue(comm.form.Unit_Id, strictLong(cell().Address));
        number_.text = joinedTime(cell(), number_.text, value);
    }
    show(Write_Progress::Pending);
    const std::int32_t value = registerFor(number_.text, grids_.definition(col_), number_.Raw_Negative);
    comm.link.PresetSingleRegister(comm.form.Unit_Id, longValue(cell().Address), value);
}

void Number_Write::failed() {
    cell().Value = numberText(number_.Old_Value);
    grids_.FLX_Settings.setText(numberText(number_.Old_Value));
    show(Write_Progress::Failed);
}

void Number_Write::succeeded() {
    number_.text = splitTime(cell(), number_.text);
    cell().Value = numberText(Val(number_.text));
    grids_.FLX_Settings.setText(number_.text);
    show(Write_Progress::Completed);
}

void Number_Write::close() {
    grids_.FLX_Settings.setCol(col_);
    grids_.FLX_Settings.SetFocus();
}

void Time_Write::start() {
    const Comm_Context& comm = grids_.comm;
    comm.link.PresetSingleRegister(comm.form.Unit_Id, longValue(cell().Address), timeSeconds(time_));
}

void Time_Write::failed() {
    // The line has no value: only the write of a number gives one.
    grids_.comm.tell(event::Value_Written{"", cell().Address, Write_Progress::Failed});
}

void Time_Write::succeeded() {
    grids_.FLX_Settings.setText(time_);
    cell().Value = time_;
}

} // namespace zorvane
