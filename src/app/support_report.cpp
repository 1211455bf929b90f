// SPDX-License-Identifier: MIT
#include "app/support_report.h"

#include "values/code_page.h"

namespace zorvane::app {

namespace {

std::string line(std::string_view what, const std::string& value) {
    return std::string(what) + ": " + (value.empty() ? "none" : value) + "\n";
}

} // namespace

std::string supportReport(const Support_Facts& facts, const std::deque<Traffic_Entry>& traffic,
                          Micros midnight) {
    std::string text = line("Program", facts.program) + line("Library", facts.library) +
                       line("System", facts.system) + line("Screen", facts.screen) +
                       line("Model", facts.model) + line("Port", facts.port);
    text += "\nThe last traffic of the line\n" + toUtf8(trafficHeadingLine()) + "\n";
    for (const Traffic_Entry& entry : traffic) // notes of the port may name a host
        if (!std::holds_alternative<Port_Note>(entry)) text += toUtf8(trafficLine(entry, midnight)) + "\n";
    return text;
}

std::string reportedPort(std::string_view port, std::string_view settings, std::int32_t unit) {
    const std::string unitText = ", unit " + std::to_string(unit);
    for (const std::string_view scheme : {"tcp", "rtu+tcp", "rfc2217"})
        if (port.starts_with(std::string(scheme) + ":")) return std::string(scheme) + unitText;
    const bool device = port.starts_with("/dev/") || port.find('/') == std::string_view::npos;
    const std::string_view name = device ? port : port.substr(port.rfind('/') + 1);
    return std::string(name) + ", " + std::string(settings) + unitText;
}

} // namespace zorvane::app
