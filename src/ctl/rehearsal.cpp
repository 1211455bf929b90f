#include "ctl/rehearsal.h"

#include "comm/download.h"
#include "comm/registers_to_cells.h"

namespace zorvane {

namespace {

/// Notes which registers it was asked for.
class Noting_Link : public Dry_Run_Link {
  public:
    using Dry_Run_Link::Dry_Run_Link;

    [[nodiscard]] std::int32_t RegisterValue(std::int32_t slave, std::int32_t address,
                                             bool isSigned = true) const override {
        asked_.insert(address);
        return Dry_Run_Link::RegisterValue(slave, address, isSigned);
    }

    [[nodiscard]] const std::set<std::int32_t>& asked() const noexcept { return asked_; }

  private:
    mutable std::set<std::int32_t> asked_; ///< reading is const for whoever reads
};

} // namespace

std::optional<Failure_Note> applyRegisters(Declara_Zorvane& document, const Register_Values& registers) {
    Dry_Run_Link link(registers);
    Main_Form_State form;
    Held_Frame frame(document.Field_Count, freshSelection(document));
    const Comm_Context comm{document, form, link, frame};
    return failureOf([&] {
        for (std::int32_t field = 1; field <= document.Field_Count; ++field)
            PRO_Aplica_Registros(comm, field);
    });
}

Download_Plan planDownload(Declara_Zorvane& document, const Register_Values& registers,
                           const Grid_Selection& selection) {
    Noting_Link link(registers);
    Main_Form_State form;
    Held_Frame frame(document.Field_Count, selection);
    const Comm_Context comm{document, form, link, frame};
    Download_Plan plan;
    plan.failure = failureOf([&] { MNU_Download_Click(comm); });
    plan.writes = link.writes();
    plan.panel4 = frame.messages();
    plan.asked = link.asked();
    return plan;
}

Grid_Selection freshSelection(const Declara_Zorvane& document) {
    const Field_Rec& first = document.Fields(1);
    return {1, first.Rows, first.Columns - 1};
}

} // namespace zorvane
