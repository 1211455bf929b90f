// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/network_advice.h"

namespace zorvane {

namespace {

using Advice = std::vector<std::string>;

std::string unitText(const Port_Settings& settings) { return "unit " + std::to_string(settings.slave); }

std::string otherWay(Network_Port port, Network_Protocol protocol) {
    port.protocol = protocol;
    return nameOf(port);
}

} // namespace

Advice silenceAdvice(const Network_Port& port, const Port_Settings& settings) {
    const std::string server = hostAndPort(port);
    if (port.protocol == Network_Protocol::ModbusTcp)
        return {"Slave number: does " + server + " answer for " + unitText(settings) +
                    "? Many gateways are silent on a unit that they don't have.",
                "Does " + server + " speak Modbus TCP? A server that passes serial frames on is reached by " +
                    otherWay(port, Network_Protocol::RtuOverTcp) + ".",
                "A gateway: is the controller behind it switched on, wired, and set to the gateway's line?",
                "A slow line behind the gateway: try a longer time-out."};
    return {
        "Is the controller switched on, and its cable in the port of the server?",
        "Slave number: has the controller the number " + std::to_string(settings.slave) + "?",
        "Baud, parity and stop bits: is the server's port set as the controller is? From here they are set "
        "only by " +
            otherWay(port, Network_Protocol::Rfc2217) + ".",
        "Does " + server + " speak Modbus TCP? Then it is silent on these frames: try " +
            otherWay(port, Network_Protocol::ModbusTcp) + ".",
        "RS-485: exchange the wires A and B.",
        "A slow line or network: try a longer time-out."};
}

Advice damageAdvice(const Network_Port& port) {
    const std::string server = hostAndPort(port);
    if (port.protocol == Network_Protocol::ModbusTcp)
        return {"Does " + server + " speak Modbus TCP? A server that passes serial frames on is reached by " +
                    otherWay(port, Network_Protocol::RtuOverTcp) + ".",
                "Port: is " + std::to_string(port.port) + " that of Modbus on this host? It usually is 502."};
    return {"Baud, parity and stop bits: is the server's port set as the controller is?",
            "Does " + server + " speak Modbus TCP? Then try " + otherWay(port, Network_Protocol::ModbusTcp) +
                ".",
            "Noise: terminate both ends of the line, bias it in one place, join the grounds.",
            "Two units with the same number, or a second master on the line."};
}

Advice strangerAdvice(const Network_Port& port, const Port_Settings& settings) {
    return {"Slave number: does " + hostAndPort(port) + " answer for " + unitText(settings) + "?",
            "A gateway that mixes up its answers: try a longer time-out."};
}

Advice gatewayAdvice(std::uint8_t exception, const Port_Settings& settings) {
    constexpr std::uint8_t noPath = 10;
    const std::string number = std::to_string(settings.slave);
    if (exception == noPath)
        return {"Slave number: has the controller the number " + number + "?",
                "Does the gateway's own table lead the number " + number + " to a line?"};
    return {"Is the controller behind the gateway switched on, and wired to it?",
            "Slave number: has the controller the number " + number + "?",
            "Is the gateway's line set to the controller's baud rate, parity and stop bits?",
            "Is the gateway's own time-out long enough for the controller?"};
}

Advice closedAdvice() {
    return {
        "Does another program hold the connection? Many devices take only one: close that program and test "
        "again.",
        "If it happens again: look at the network between, and at the log of the device."};
}

} // namespace zorvane
