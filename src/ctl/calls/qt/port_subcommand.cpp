// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/port_subcommand.h"

#include "comm/modbus_control/qt/qt_link.h"
#include "comm/transfer/session.h"
#include "ctl/calls/qt/stop_signals.h"
#include "ctl/document/notices.h"
#include "ctl/document/rehearsal.h"
#include "ctl/line/transfer.h"
#include "ctl/text/terminal.h"

#include <CLI/CLI.hpp>

#include <utility>

namespace zorvane::ctl {

void Port_Subcommand::addArguments(CLI::App& arguments) {
    files_.addTemplate(arguments);
    files_.addConfiguration(arguments);
    port_.add(arguments);
}

Grid_Selection Port_Subcommand::selection(const Declara_Zorvane& document) const {
    return freshSelection(document);
}

int Port_Subcommand::run(const Call_Context& context) {
    if (const std::string wrong = port_.fault(); !wrong.empty()) {
        tell(context.err, wrong);
        return Exit_Usage;
    }
    Terminal_Asker asker(context.err, standardErrorIsTerminal());
    Qt_Link assembly(port_.settings(), asker);
    modbus_control& link = assembly.link();
    Own_Time_Out ownTimeOut(link);
    link.ClearBlocks();
    Opened_Document opened =
        files_.open(context, port_.ownTimeOut() ? static_cast<Link_Notice*>(&ownTimeOut) : &link);
    if (!opened.readToTheEnd()) return refuse(context);
    if (const std::string wrong = fault(opened); !wrong.empty()) {
        tell(context.err, wrong);
        return refuse(context);
    }

    Main_Form_State form;
    Terminal_Form mainForm(opened.document.Field_Count, selection(opened.document), asker);
    mainForm.portFailed = [&assembly] { return assembly.link().CommLost() && !assembly.link().portOpen(); };
    const Comm_Context comm{opened.document, form, link, mainForm, &mainForm};
    ignoringFailure([&] { PRO_Registra_Bloques(comm); });
    const Stop_Signals stop([&comm, &mainForm, told = false](bool again) mutable {
        if (stopTransfer(comm, again) && !std::exchange(told, true))
            mainForm.tellLine("Stopping after the write that is under way. Ctrl+C ends at once.");
    });
    // All is sent: what a finished download still waits for is of no use to somebody who wants the end.
    mainForm.endsWaits = [&] { return stop.asked() && !form.Download_Active; };
    return work({context, opened, comm, mainForm, assembly.link(), stop});
}

} // namespace zorvane::ctl
