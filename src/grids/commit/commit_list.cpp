// SPDX-License-Identifier: MIT
#include "grids/commit/commit_list.h"

#include "comm/main_form/title.h"
#include "grids/commit/live_write.h"
#include "values/numbers.h"
#include "values/registers.h"

namespace zorvane {

namespace {

/// The live write of a list choice. The model is left alone: the next refresh brings the new code in.
class List_Write final : public Live_Write_Variant {
  public:
    List_Write(const Grid_Context& grids, std::int32_t row, std::int32_t col, std::int32_t code)
        : grids_(grids), row_(row), col_(col), code_(code) {}

    void start() override {
        if (isNumeric(cell().Address))
            startWhole();
        else if (const auto half = halfAddress(cell().Address))
            startHalf(*half);
    }

    void failed() override { show(Write_Progress::Failed); }

    /// No entry of the hidden combo box is ever chosen, which stands for the empty entry 0 of the list: the
    /// cell goes blank until the next refresh writes the new text.
    void succeeded() override {
        const std::int32_t entry = grids_.editors.EDT_Modifica_Combo.ListIndex + 1;
        grids_.FLX_Settings.setText(cell().Messages(entry).Text);
        show(Write_Progress::Completed);
    }

    void close() override {
        constexpr std::int32_t noColumn = -1;
        grids_.FLX_Settings.setCol(noColumn);
        grids_.FLX_Settings.SetFocus();
    }

  private:
    [[nodiscard]] Cell_Rec& cell() const { return grids_.cell(row_, col_); }
    void show(Write_Progress progress) const {
        grids_.comm.tell(event::Value_Written{numberText(code_), cell().Address, progress});
    }

    void startWhole() const {
        show(Write_Progress::Pending);
        const Comm_Context& comm = grids_.comm;
        comm.link.PresetSingleRegister(comm.form.Unit_Id, longValue(cell().Address), code_);
    }

    void startHalf(const Half_Address& half) const {
        const Comm_Context& comm = grids_.comm;
        const std::int32_t address = longValue(half.number);
        const std::int32_t value = comm.link.RegisterValue(comm.form.Unit_Id, address);
        const std::int32_t whole = halfWithEntry(value, half.half == Register_Half::High, code_);
        comm.link.PresetSingleRegister(comm.form.Unit_Id, address, whole);
    }

    const Grid_Context& grids_;
    std::int32_t row_;
    std::int32_t col_;
    std::int32_t code_;
};

void storeOffline(const Grid_Context& grids, std::int32_t row, std::int32_t col, std::int32_t code) {
    Cell_Rec& cell = grids.cell(row, col);
    cell.Value = numberText(code);
    grids.FLX_Settings.setText(cell.Messages(toLong(code + 1.0)).Text);
}

} // namespace

std::int32_t halfWithEntry(std::int32_t registerValue, bool high, std::int32_t code) {
    const double replaced = high ? code * 256.0 + lowByte(registerValue)
                                 : static_cast<double>(withLowByte(registerValue, 0)) + code;
    return toLong(replaced);
}

void PRO_Escribe_Lista(const Grid_Context& grids, std::int32_t Row, std::int32_t Col,
                       const std::string& Choice) {
    const std::int32_t code = strictLong(Choice);
    const Comm_Context& comm = grids.comm;
    if (comm.form.Online) {
        List_Write variant(grids, Row, Col, code);
        if (writeLive(grids, variant).dropped) return;
    }
    if (!comm.form.Online) storeOffline(grids, Row, Col, code);
    PRO_Titulo_Modificado(comm.document, comm.form, comm.mainForm);
    applySaveRule(comm.document, comm.mainForm);
    grids.editors.EDT_Modifica_Combo.Visible = false;
}

} // namespace zorvane
