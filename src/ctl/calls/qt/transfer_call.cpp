#include "ctl/calls/qt/transfer_call.h"

#include "ctl/document/notices.h"
#include "ctl/line/transfer_text.h"

#include <ostream>

namespace zorvane {

namespace {

void printTransfer(const Surroundings& surroundings, const std::string& name, const Transfer_Report& report) {
    tellTransfer(surroundings.err, name, report);
    if (surroundings.json)
        printJson(surroundings.out, transferResultJson(report));
    else if (report.complete())
        surroundings.out << name << " finished: " << report.log.size() << " exchanges.\n";
}

} // namespace

int Transfer_Call::work(const Port_Work& work) const {
    const Transfer_Report report = transfer(work);
    const bool kept = report.finished() && keep(work.surroundings, work.opened, work.comm);
    printTransfer(work.surroundings, name_, report);
    return report.complete() && kept ? Exit_Success : Exit_Failed;
}

int Transfer_Call::refuse(const Surroundings& surroundings) const {
    tell(surroundings.err, "Nothing was transferred.");
    if (surroundings.json) printJson(surroundings.out, transferResultJson({}));
    return Exit_Failed;
}

} // namespace zorvane
