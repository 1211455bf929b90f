// SPDX-License-Identifier: MIT
#include "ctl/line/port_arguments.h"

#include "ctl/document/given_value.h"

#include <CLI/CLI.hpp>

namespace zorvane::ctl {

std::string lineComplaint(const std::string& text) {
    return parseLineSettings(text)
               ? ""
               : "\"" + text + "\" is not baud,parity,data bits,stop bits, as in 9600,n,8,1";
}

std::string rtsComplaint(const std::string& text) {
    return parseRtsMode(text) ? "" : "\"" + text + "\" is not none, rts or rs485";
}

void Port_Arguments::add(CLI::App& arguments) {
    addOptional(arguments);
    arguments.get_option("--port")->required();
}

void Port_Arguments::addOptional(CLI::App& arguments) {
    arguments.add_option("--port", port_,
                         "Port: a name such as ttyUSB0, a path, or tcp:HOST:PORT, rtu+tcp:HOST:PORT, "
                         "rfc2217:HOST:PORT");
    arguments.add_option("--slave", slave_, "Slave number of the controller (default 1)")
        ->check(givenValue());
    arguments.add_option("--settings", line_, "Baud, parity, data bits, stop bits (default 9600,n,8,1)")
        ->check(lineComplaint, "LINE");
    arguments.add_option("--retries", retries_, "Further tries of a request without an answer (default 3)")
        ->check(givenValue());
    arguments
        .add_option("--timeout", timeOutMs_, "Ms to wait for an answer (default the template's, or 1000)")
        ->check(givenValue());
    arguments.add_option("--rts", rts_, "What switches an RS-485 driver to sending (default none)")
        ->check(rtsComplaint, "none|rts|rs485");
    arguments.add_option("--tx-delay", txDelayMs_, "Ms between RTS and the first byte (default 0)")
        ->check(givenValue());
    arguments.add_flag("--echo", echo_, "The adapter gives back every byte that it sends");
}

Port_Settings Port_Arguments::settings() const {
    Port_Settings settings;
    settings.port = port_;
    settings.slave = slave_.value_or(1);
    settings.line = parseLineSettings(line_.value_or("9600,n,8,1")).value_or(Line_Settings{});
    settings.retries = retries_;
    settings.timeOutMs = timeOutMs_.value_or(usualTimeOutMs);
    settings.rts = parseRtsMode(rts_).value_or(Rts_Mode::None);
    settings.txDelayMs = txDelayMs_;
    settings.adapterEchoes = echo_;
    return settings;
}

} // namespace zorvane::ctl
