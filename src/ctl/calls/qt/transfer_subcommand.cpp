// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/transfer_subcommand.h"

#include "ctl/document/notices.h"
#include "ctl/line/transfer_text.h"

#include <ostream>

namespace zorvane::ctl {

namespace {

void printTransfer(const Call_Context& context, const std::string& name, const Transfer_Report& report) {
    tellTransfer(context.err, name, report);
    if (context.json)
        printJson(context.out, transferResultJson(report));
    else if (report.complete())
        context.out << name << " finished: " << report.log.size() << " exchanges.\n";
}

} // namespace

int Transfer_Subcommand::work(const Port_Work& work) const {
    const Transfer_Report report = transfer(work);
    const bool kept = report.finished() && keep(work.context, work.opened, work.comm);
    printTransfer(work.context, name_, report);
    return report.complete() && kept ? Exit_Success : Exit_Failed;
}

int Transfer_Subcommand::refuse(const Call_Context& context) const {
    tell(context.err, "Nothing was transferred.");
    if (context.json) printJson(context.out, transferResultJson({}));
    return Exit_Failed;
}

} // namespace zorvane::ctl
