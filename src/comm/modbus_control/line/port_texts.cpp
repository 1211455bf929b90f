// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/port_texts.h"

#include "comm/modbus_control/line/network_texts.h"
#include "comm/modbus_control/line/simulated_port.h"

namespace zorvane {

std::string timingsText(const Template_Timings& ofTemplate, std::int32_t ownTimeOutMs) {
    const std::string own = std::to_string(ownTimeOutMs) + " ms";
    std::string text;
    if (ofTemplate.timeOutMs > 0)
        text = "Time-out in force: " + std::to_string(ofTemplate.timeOutMs) + " ms, from the template; the " +
               own + " here don't count.";
    else
        text = "Time-out in force: " + own + ", from this dialog.";
    text += "\nPause between requests: ";
    if (ofTemplate.pauseMs > 0) return text + std::to_string(ofTemplate.pauseMs) + " ms, from the template.";
    return text + "none beyond what Modbus asks for.";
}

std::string lineRefusal(const Line_Settings& line) {
    return "The port can't be set to " + formatLineSettings(line) +
           ": choose another baud rate, parity or format.";
}

std::string portListText(const Port_Entry& port) {
    return port.description.empty() ? port.name : port.name + " - " + port.description;
}

std::string portHint(const std::vector<Port_Entry>& ports, const std::string& chosen) {
    if (chosen.empty()) return "Choose a port, or type its name or path.";
    if (chosen == simulatedPortName) return "A controller in this computer, made from the open template.";
    if (const auto network = networkPort(chosen)) return networkHint(*network);
    if (const std::string fault = networkNameFault(chosen); !fault.empty()) return fault;
    const auto entry = entryNamed(ports, chosen);
    if (!entry) return "Not in the list of ports now.";
    return entry->description.empty() ? "Present." : entry->description;
}

std::string cannotOpenText(const std::string& port) {
    return (onNetwork(port) ? "The port " : "The serial port ") + port + " can't be opened.";
}

std::string portLostText(const std::string& port, const std::string& reason) {
    return "The port was lost: " + endOfSentence(reason) +
           (onNetwork(port) ? " Try again, and look at the network between."
                            : " Check the adapter and its cable.");
}

std::string endOfSentence(const std::string& reason) { return reason.ends_with('.') ? reason : reason + "."; }

} // namespace zorvane
