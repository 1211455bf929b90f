// SPDX-License-Identifier: MIT
#include "grids/commit/unmarked_change.h"

#include "cells/cell_names.h"
#include "comm/main_form/bar_topics.h"
#include "grids/rules/cell_fill.h"
#include "grids/rules/value_findings.h"
#include "values/run_time_failure.h"

#include <utility>

namespace zorvane {

namespace {

/// Puts a value back, in the grid too where that shows its field.
struct Put_Back {
    Grid_Context grids;
    Document_Mark document;
    std::int32_t field;
    std::int32_t row;
    std::int32_t col;
    std::string before;
    std::string put;

    /// Taking the line back ends this, so that comes last.
    void operator()() const {
        Message_Bar& bar = grids.comm.mainForm.messageBar();
        putBack();
        bar.withdraw(bar_topic::unmarkedChange);
    }

    void putBack() const {
        if (grids.comm.form.Online || grids.comm.form.Comm_Active || !document.holds()) return;
        Cell_Rec& cell = grids.comm.document.Fields(field).Cells(row, col + 1);
        if (cell.Value != put) return;
        cell.Value = before;
        if (grids.watcher != nullptr)
            grids.watcher->changed("return of " + cellName(grids.comm.document, field, row, col + 1),
                                   {{{field, row, col + 1}, put, before}});
        if (grids.fieldNumber() != field) return;
        ignoringFailure([&] {
            if (const auto shown = offlineFill(cell).shown)
                grids.FLX_Settings.setTextMatrix(row, col, *shown);
        });
    }
};

std::string quoted(const std::string& text) { return "\"" + text + "\""; }

} // namespace

Unmarked_Change::Unmarked_Change(const Grid_Context& grids, std::int32_t row, std::int32_t col,
                                 std::string typed)
    : grids_(grids), document_(grids.comm.document), field_(grids.fieldNumber()), row_(row), col_(col),
      typed_(std::move(typed)), before_(grids.cell(row, col).Value) {}

void Unmarked_Change::tellTime() const {
    if (changed() && !grids_.comm.form.Dirty) tell(Bar_Kind::Note, "");
}

void Unmarked_Change::tellReplaced(const std::string& why) const {
    if (changed()) tell(Bar_Kind::Warning, quoted(typed_) + " " + why + ". ");
}

bool Unmarked_Change::changed() const {
    return document_.holds() && grids_.comm.document.Fields(field_).Cells(row_, col_ + 1).Value != before_;
}

void Unmarked_Change::tell(Bar_Kind kind, const std::string& why) const {
    const Declara_Zorvane& document = grids_.comm.document;
    const std::string& now = document.Fields(field_).Cells(row_, col_ + 1).Value;
    const std::string what = cellName(document, field_, row_, col_ + 1) + ": " + why + quoted(before_) +
                             " was there, " + quoted(now) + " is there";
    std::vector<Bar_Button> buttons;
    if (!grids_.comm.form.Online) buttons.push_back(undoButton());
    const auto textNow = [change = *this, what, put = now] {
        return change.isThere(put) ? what + change.mark() : "";
    };
    grids_.comm.mainForm.messageBar().tell(
        {bar_topic::unmarkedChange, kind, what + mark(), std::move(buttons), true, textNow});
}

/// Polling puts the controller's text for the same value, so online the line stays as it was told.
bool Unmarked_Change::isThere(const std::string& put) const {
    if (grids_.comm.form.Online) return true;
    const Declara_Zorvane& document = grids_.comm.document;
    const Cell_Place place{field_, row_, col_ + 1};
    return document_.holds() && hasCell(document, place) &&
           document.Fields(field_).Cells(row_, col_ + 1).Value == put;
}

std::string Unmarked_Change::mark() const {
    return grids_.comm.form.Dirty ? "." : ", and the document is not marked as changed.";
}

Bar_Button Unmarked_Change::undoButton() const {
    const std::string& now = grids_.comm.document.Fields(field_).Cells(row_, col_ + 1).Value;
    return {"Undo", Put_Back{grids_, document_, field_, row_, col_, before_, now}};
}

} // namespace zorvane
