// SPDX-License-Identifier: MIT
#include "grids/commit/commit_value.h"

#include "cells/format/cell_encoding.h"
#include "comm/main_form/title.h"
#include "comm/transfer/requests/ascii_block.h"
#include "grids/commit/live_write_bar.h"
#include "grids/commit/register_writes.h"
#include "grids/commit/unmarked_change.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

namespace zorvane {

namespace {

bool hasBothLimits(const Cell_Rec& cell) {
    return !trimBlanks(cell.Min_Value).empty() && !trimBlanks(cell.Max_Value).empty();
}

Way_Out timeWayOut(const Cell_Rec& cell, const std::string& text) {
    const std::int32_t seconds = timeSeconds(text);
    if (hasBothLimits(cell) && (Val(cell.Min_Value) > seconds || Val(cell.Max_Value) < seconds))
        return Time_Refused{};
    return Time_Accepted{timeText(seconds)};
}

Way_Out numberWayOut(const Cell_Rec& definition, const Cell_Rec& cell, const std::string& text) {
    const Limits limits{cell.Min_Value, cell.Max_Value};
    if (checksLimits(definition) && !withinLimits(text, limits)) return Number_Refused{namedLimits(limits)};
    const Limits width = registerWidth(cell);
    if (!fitsRegister(text, width)) return Number_Too_Wide{width};
    return Number_Accepted{text, rawNegative(text, definition)};
}

/// Applies a way out to the cell that was edited.
class Commit {
  public:
    Commit(const Grid_Context& grids, std::int32_t row, std::int32_t col, const Unmarked_Change& unmarked)
        : grids_(grids), unmarked_(unmarked), comm_(grids.comm), document_(grids.comm.document),
          grid_(grids.FLX_Settings), row_(row), col_(col) {}

    void operator()(const Free_Text& way) const {
        grid_.setText(way.text);
        grid_.setCol(col_);
        cell().Value = way.text;
        markModified();
        comm_.link.StartScan();
    }

    void operator()(const Time_Accepted& way) const {
        if (comm_.form.Online) {
            Time_Write variant(grids_, row_, col_, way.time);
            if (writeLive(grids_, variant).dropped) return;
        } else {
            replace(way.time);
        }
        unmarked_.tellTime();
    }

    void operator()(const Time_Bad& /*way*/) const {
        replace("0:00");
        unmarked_.tellReplaced("is no time");
    }

    void operator()(const Time_Refused& /*way*/) const { refuse("The value is out of range."); }

    void operator()(const Number_Accepted& way) const {
        grid_.setCol(col_);
        // Offline too, a value that was no number before stops the commit here.
        const std::int32_t old = strictLong(cell().Value);
        if (comm_.form.Online) {
            Number_Write variant(grids_, row_, col_, {way.text, way.Raw_Negative, old});
            if (writeLive(grids_, variant).dropped) return;
        } else {
            cell().Value = numberText(Val(way.text));
            grid_.setText(way.text);
        }
        markModified();
    }

    void operator()(const Number_Refused& way) const {
        refuse(rangeMessage(way.limits));
        if (!document_.holds()) return;
        grid_.setTextMatrix(row_, col_, way.limits.high);
        cell().Value = way.limits.high;
        unmarked_.tellReplaced("is out of range");
    }

    void operator()(const Number_Too_Wide& way) const { tell(rangeMessage(way.width)); }

    void operator()(const Not_Numeric& /*way*/) const {
        replace("0");
        unmarked_.tellReplaced("is no number");
    }

    void operator()(const Ascii_Text& way) const {
        grid_.setCol(col_);
        if (comm_.form.Online && !writeAscii(way.text)) return;
        replace(way.text);
    }

  private:
    [[nodiscard]] Cell_Rec& cell() const { return grids_.cell(row_, col_); }

    static std::string rangeMessage(const Limits& limits) {
        return "The value is out of range (value range " + limits.low + " to " + limits.high + ")";
    }

    void tell(const std::string& text) const {
        comm_.mainForm.Msgb_Show(text, Msgb_Information, applicationTitle);
    }

    void refuse(const std::string& text) const {
        if (comm_.form.Online) {
            grid_.setTabStop(true);
            comm_.link.StartScan();
        }
        tell(text);
    }

    void replace(const std::string& text) const {
        cell().Value = text;
        grid_.setText(text);
    }

    void markModified() const {
        PRO_Titulo_Modificado(comm_.document, comm_.form, comm_.mainForm);
        applySaveRule(comm_.document, comm_.mainForm);
    }

    /// False when the document is gone.
    [[nodiscard]] bool writeAscii(const std::string& text) const {
        Live_Write_Watch watch(grids_);
        {
            const Tab_Stop_Off tabStop(grid_);
            comm_.link.StartScan();
            cell().Value = text;
            // The outcome stands in panel 4; a failed write leaves the new text everywhere.
            bool failed = false;
            watch.begin();
            PRO_Escribe_Bloque_Ascii(comm_, text, grids_.fieldNumber(), col_ + 1, row_, "", failed);
        }
        if (!document_.holds()) return false;
        watch.noteEnd();
        grid_.setCol(col_);
        watch.tell();
        return true;
    }

    const Grid_Context& grids_;
    const Unmarked_Change& unmarked_;
    const Comm_Context& comm_;
    Document_Mark document_;
    VSFlexGrid& grid_;
    std::int32_t row_;
    std::int32_t col_;
};

bool isRejection(const Way_Out& way) {
    return std::holds_alternative<Time_Refused>(way) || std::holds_alternative<Number_Refused>(way);
}

} // namespace

Way_Out wayOutOf(const Cell_Rec& definition, const Cell_Rec& cell, const Typed_Entry& entry) {
    switch (entry.kind) {
    case Entry_Kind::Time:
        return timeWayOut(cell, entry.text);
    case Entry_Kind::Bad_Time:
        return Time_Bad{};
    case Entry_Kind::Number:
        return numberWayOut(definition, cell, entry.text);
    case Entry_Kind::Not_Numeric:
        return Not_Numeric{};
    case Entry_Kind::Ascii:
        return Ascii_Text{entry.text};
    case Entry_Kind::Free_Text:
        break;
    }
    return Free_Text{entry.text};
}

void PRO_Escribe_Valor(const Grid_Context& grids, std::int32_t Row, std::int32_t Col, const std::string& s,
                       bool& Rejected) {
    Rejected = false;
    const Cell_Rec& definition = grids.definition(Col);
    Cell_Rec& cell = grids.cell(Row, Col);
    const Typed_Entry entry = typedEntry(definition, cell, s);
    if (entry.kind == Entry_Kind::Number) {
        const Limits limits = filledLimits(definition, cell);
        cell.Min_Value = limits.low;
        cell.Max_Value = limits.high;
    }
    const Way_Out way = wayOutOf(definition, cell, entry);
    Rejected = isRejection(way);
    const Unmarked_Change unmarked(grids, Row, Col, s);
    std::visit(Commit(grids, Row, Col, unmarked), way);
}

} // namespace zorvane
