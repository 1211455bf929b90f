// SPDX-License-Identifier: MIT
#include "ctl/compare/looked_at.h"

#include "comm/modbus_control/line/port_texts.h"
#include "ctl/document/notices.h"

namespace zorvane::ctl {

Identity_Section identitySectionOf(const Call_Context& context, const Opened_Document& opened) {
    return readIdentity(context.files.bytes(opened.ztp.path).value_or(std::string()));
}

Opened_Document openFor(const Call_Context& context, const Document_Arguments& files,
                        const Port_Arguments& port, Controller_Line* line) {
    const auto open = [&](Link_Notice* notices) {
        Opened_Document opened = files.openQuietly(context, notices);
        if (opened.readToTheEnd()) tellReadings(context.err, opened);
        return opened;
    };
    if (line == nullptr) return open(nullptr);
    if (!port.ownTimeOut()) return open(&line->notices());
    Own_Time_Out ownTimeOut(line->notices());
    return open(&ownTimeOut);
}

std::string readingFault(const std::string& port, compare::Reading_End end, const std::string& fault) {
    if (end == compare::Reading_End::Cancelled) return "Stopped before all was read. Nothing was written.";
    return printable(portLostText(port, fault));
}

} // namespace zorvane::ctl
