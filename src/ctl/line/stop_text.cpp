// SPDX-License-Identifier: MIT
#include "ctl/line/stop_text.h"

#include "comm/modbus_control/scan/register_ranges.h"
#include "ctl/document/notices.h"

#include <ostream>

namespace zorvane::ctl {

namespace {

void add(std::set<std::int32_t>& registers, std::int32_t first, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i)
        registers.insert(first + static_cast<std::int32_t>(i));
}

std::set<std::int32_t> registersOf(const std::vector<Sent_Write>& writes, Write_State state) {
    std::set<std::int32_t> registers;
    for (const Sent_Write& write : writes)
        if (write.state == state) add(registers, write.address, static_cast<std::size_t>(write.count));
    return registers;
}

std::set<std::int32_t> registersOf(const std::vector<Planned_Write>& writes) {
    std::set<std::int32_t> registers;
    for (const Planned_Write& write : writes)
        add(registers, write.address, write.values.size());
    return registers;
}

/// Such as "3 were written (registers 100-102)".
std::string part(std::size_t count, const std::string& what, const std::set<std::int32_t>& registers) {
    return std::to_string(count) + " " + what +
           (registers.empty() ? "" : " (registers " + zorvane::registersText(registers) + ")");
}

std::string writesText(const Download_Writes& writes) {
    std::string text =
        "Of " + std::to_string(writes.planned()) + " writes " +
        part(writes.count(Write_State::Written), "were made", registersOf(writes.sent, Write_State::Written));
    const auto count = [&](Write_State state) { return writes.count(state); };
    if (count(Write_State::Refused) > 0)
        text += ", " +
                part(count(Write_State::Refused), "failed", registersOf(writes.sent, Write_State::Refused));
    if (count(Write_State::Unknown) > 0)
        text += ", " + part(count(Write_State::Unknown), "may have been made, for no answer came",
                            registersOf(writes.sent, Write_State::Unknown));
    return text + ", " + part(writes.notSent.size(), "were not sent", registersOf(writes.notSent)) + ".";
}

void tellSignal(std::ostream& err, const std::string& name, const Transfer_Report& report) {
    if (!report.writes) {
        tell(err, name + " stopped by " + report.signal +
                      ". Nothing was written, and the document stays as it was.");
        return;
    }
    const Download_Writes& writes = *report.writes;
    if (writes.sent.empty())
        tell(err, name + " stopped by " + report.signal + " before the first write: nothing was written, " +
                      part(writes.notSent.size(), "writes were not sent", registersOf(writes.notSent)) + ".");
    else
        tell(err, name + " stopped by " + report.signal + ". " + writesText(writes));
}

} // namespace

void tellStop(std::ostream& err, const std::string& name, const Transfer_Report& report) {
    for (const std::string& obstacle : report.obstacles)
        tell(err, printable(obstacle));
    if (!report.obstacles.empty())
        tell(err,
             "Nothing was written: a download first reads what its writes are built from, one block in any "
             "case, to see that a controller is there. Try again, or check that the template fits the "
             "controller.");
    if (!report.signal.empty()) tellSignal(err, name, report);
}

} // namespace zorvane::ctl
