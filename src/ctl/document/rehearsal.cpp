// SPDX-License-Identifier: MIT
#include "ctl/document/rehearsal.h"

#include "comm/transfer/download.h"
#include "comm/transfer/registers_to_cells.h"
#include "comm/transfer/requests/needed_registers.h"

namespace zorvane::ctl {

std::optional<Failure_Note> applyRegisters(Declara_Zorvane& document,
                                           const compare::Register_Values& registers) {
    Dry_Run_Link link(registers);
    Main_Form_State form;
    Held_Form mainForm(document.Field_Count, freshSelection(document));
    const Comm_Context comm{document, form, link, mainForm};
    return failureOf([&] {
        for (std::int32_t field = 1; field <= document.Field_Count; ++field)
            PRO_Aplica_Registros(comm, field);
    });
}

Download_Plan planDownload(Declara_Zorvane& document, const compare::Register_Values& registers,
                           const Grid_Selection& selection) {
    Dry_Run_Link link(registers);
    Main_Form_State form;
    Held_Form mainForm(document.Field_Count, selection);
    const Comm_Context comm{document, form, link, mainForm};
    Download_Plan plan;
    plan.failure = failureOf([&] { MNU_Download_Click(comm); });
    plan.writes = link.writes();
    plan.panel4 = mainForm.messages();
    plan.asked = neededRegisters(document, selection);
    return plan;
}

Grid_Selection freshSelection(const Declara_Zorvane& document) {
    const Field_Rec& first = document.Fields(1);
    return {1, first.Rows, first.Columns - 1};
}

} // namespace zorvane::ctl
