// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/network_texts.h"

namespace zorvane {

std::string connectFaultText(const Network_Port& port, Connect_Fault fault, const std::string& systemText) {
    const std::string number = std::to_string(port.port);
    switch (fault) {
    case Connect_Fault::HostUnknown:
        return "Host unknown: no computer of the name " + port.host +
               " is known here. Check how it is written, or give its number, such as 192.168.0.7.";
    case Connect_Fault::Refused:
        return "Refused: " + port.host + " is there, but takes no connection at its port " + number +
               ". Check the port's number, whether the service is switched on there, and whether another "
               "program holds its only connection.";
    case Connect_Fault::NoAnswer:
        return "No answer: nothing comes back from " + port.host + " at port " + number +
               ". Is it switched on and in this network, and does no firewall stand between?";
    case Connect_Fault::Unreachable:
        return "Unreachable: there is no way to " + port.host +
               " from here. Check the network cable, and the address of this computer.";
    case Connect_Fault::Other:
        break;
    }
    return systemText + ": check host and port.";
}

std::string connectionLostText(const Network_Port& port, const std::string& systemText) {
    if (systemText.empty()) return hostAndPort(port) + " closed the connection.";
    return "The connection to " + hostAndPort(port) + " broke: " + systemText + ".";
}

std::string noConnectionText(const Network_Port& port) {
    return "No connection to " + hostAndPort(port) + " (" + std::string(protocolText(port.protocol)) + ").";
}

std::string networkHint(const Network_Port& port) {
    const std::string where = "port " + std::to_string(port.port) + " of " + port.host;
    switch (port.protocol) {
    case Network_Protocol::ModbusTcp:
        return "Modbus TCP: " + where + ". The line's settings don't count.";
    case Network_Protocol::RtuOverTcp:
        return "The frames of a serial line over TCP: " + where +
               ". The line is set at the server; what is chosen "
               "here only tells how long frames take.";
    case Network_Protocol::Rfc2217:
        return "A serial port on a network (RFC 2217): " + where + ", which is set as chosen here.";
    }
    return {};
}

} // namespace zorvane
