// SPDX-License-Identifier: MIT
#include "grids/commit/live_write_bar.h"

#include "cells/cell_names.h"
#include "comm/main_form/bar_topics.h"
#include "grids/fill/show_cell.h"

namespace zorvane {

namespace {

std::string endText(Write_Outcome end) {
    switch (end) {
    case Write_Outcome::Taken:
        return "the controller took the value, whatever the status line and the cell say";
    case Write_Outcome::Refused:
        return "the controller refused this value too";
    case Write_Outcome::NotSent:
        return "nothing of it was sent";
    case Write_Outcome::None:
    case Write_Outcome::Uncertain:
        break;
    }
    return "it is not certain whether the controller took the value";
}

/// "Show": the field is selected in the upper grid, and the cell becomes the current one of the lower grid,
/// where row and column count from 0, with the keyboard. A document or a cell that is there no more leaves
/// all as it is.
Bar_Button showButton(const Grid_Context& grids, std::int32_t field, std::int32_t row, std::int32_t col) {
    return {"Show", [grids, document = Document_Mark(grids.comm.document), field, row, col] {
                const Grid_Context own = grids; // the line may go meanwhile
                if (document.holds()) showCell(own, Cell_Place{field, row, col + 1});
            }};
}

} // namespace

Live_Write_Watch::Live_Write_Watch(const Grid_Context& grids)
    : grids_(grids), field_(grids.fieldNumber()), row_(grids.FLX_Settings.Row()),
      col_(grids.FLX_Settings.Col()) {}

void Live_Write_Watch::begin() {
    result_.failedBefore = grids_.comm.link.WriteFailed();
    endedBefore_ = grids_.comm.link.WritesEnded();
}

void Live_Write_Watch::noteEnd() {
    const std::uint32_t ended = grids_.comm.link.WritesEnded() - endedBefore_;
    if (ended == 0) result_.outcome = Write_Outcome::NotSent;
    if (ended == 1) result_.outcome = grids_.comm.link.LastWriteOutcome();
}

Live_Write_Result Live_Write_Watch::dropped() const {
    Live_Write_Result result = result_;
    result.dropped = true;
    return result;
}

void Live_Write_Watch::tell() const {
    if (!result_.failedBefore && result_.outcome != Write_Outcome::Uncertain) return;
    if (row_ < 0 || col_ < 0) return;
    const Declara_Zorvane& document = grids_.comm.document;
    const std::string address = document.Fields(field_).Cells(row_, col_ + 1).Address;
    std::string text =
        cellName(document, field_, row_, col_ + 1) + " @" + address + ": " + endText(result_.outcome) + ".";
    if (result_.failedBefore)
        text += " An earlier write had failed, and that stands until the next download.";
    grids_.comm.mainForm.messageBar().tell(
        {bar_topic::liveWrite, Bar_Kind::Warning, text, {showButton(grids_, field_, row_, col_)}, true});
}

} // namespace zorvane
