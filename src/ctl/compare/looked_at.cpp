// SPDX-License-Identifier: MIT
#include "ctl/compare/looked_at.h"

#include "ctl/document/notices.h"

namespace zorvane::ctl {

Identity_Section identitySectionOf(const Call_Context& context, const Opened_Document& opened) {
    return readIdentity(context.files.bytes(opened.ztp.path).value_or(std::string()));
}

Opened_Document openFor(const Call_Context& context, const Document_Arguments& files,
                        const Port_Arguments& port, Controller_Line* line) {
    if (line == nullptr) return files.open(context);
    if (!port.ownTimeOut()) return files.open(context, &line->notices());
    Own_Time_Out ownTimeOut(line->notices());
    return files.open(context, &ownTimeOut);
}

std::string documentFault(const Opened_Document& opened) {
    if (opened.readToTheEnd()) return {};
    const std::string& path = opened.ztp.toTheEnd() ? opened.configuration->path : opened.ztp.path;
    return printablePath(path) + " was not read to its end. Correct it, or choose another file.";
}

std::string readingFault(compare::Reading_End end, const std::string& fault) {
    if (end == compare::Reading_End::Cancelled) return "Stopped before all was read. Nothing was written.";
    return "The port was lost: " + printable(fault) + ". Check the adapter and its cable.";
}

} // namespace zorvane::ctl
