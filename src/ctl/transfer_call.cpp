#include "ctl/transfer_call.h"

#include "comm/cancel.h"
#include "comm/qt_link.h"
#include "comm/session.h"
#include "ctl/notices.h"
#include "ctl/rehearsal.h"
#include "ctl/stop_signals.h"
#include "ctl/transfer_text.h"

#include <CLI/CLI.hpp>

#include <ostream>
#include <unistd.h>

namespace zorvane {

namespace {

/// Shows the messages of a link that is made before the frame is.
class Late_Asker : public Asker {
  public:
    Asker* to = nullptr;
    int Msgb_Show(const std::string& prompt, int style, const std::string& title) override {
        return to == nullptr ? int{Msgb_Code_Ok} : to->Msgb_Show(prompt, style, title);
    }
};

void printTransfer(const Surroundings& surroundings, const std::string& name, const Transfer_Report& report) {
    tellTransfer(surroundings.err, name, report);
    if (surroundings.json)
        printJson(surroundings.out, transferJson(report));
    else if (report.complete())
        surroundings.out << name << " finished: " << report.log.size() << " exchanges.\n";
}

} // namespace

void Transfer_Call::addArguments(CLI::App& arguments) {
    files_.addTemplate(arguments);
    files_.addConfiguration(arguments);
    port_.add(arguments);
}

int Transfer_Call::run(const Surroundings& surroundings) {
    if (const std::string fault = port_.fault(); !fault.empty()) {
        tell(surroundings.err, fault);
        return Exit_Usage;
    }
    Late_Asker asker;
    Qt_Link assembly(port_.settings(), asker);
    modbus_control& link = assembly.link();
    Own_Time_Out ownTimeOut(link);
    link.ClearBlocks();
    Opened_Document opened =
        files_.open(surroundings, port_.ownTimeOut() ? static_cast<Link_Notice*>(&ownTimeOut) : &link);
    if (!opened.readToTheEnd()) return refuse(surroundings);

    Main_Form_State form;
    Terminal_Frame frame(opened.document.Field_Count, freshSelection(opened.document), surroundings.err,
                         ::isatty(STDERR_FILENO) != 0);
    asker.to = &frame;
    const Comm_Context comm{opened.document, form, link, frame};
    ignoringFailure([&] { PRO_Registra_Bloques(comm); });
    Transfer_Report report;
    {
        const Stop_Signals stopSignals([&comm] { BOT_Cancel_Click(comm); });
        report = transfer(comm, frame);
    }
    const bool kept = report.finished() && keep(surroundings, opened, comm);
    printTransfer(surroundings, name_, report);
    return report.complete() && kept ? Exit_Success : Exit_Failed;
}

int Transfer_Call::refuse(const Surroundings& surroundings) const {
    tell(surroundings.err, "Nothing was transferred.");
    if (surroundings.json) printJson(surroundings.out, transferJson({}));
    return Exit_Failed;
}

} // namespace zorvane
