// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/network_texts.h"
#include "comm/modbus_control/line/port_session.h"
#include "comm/modbus_control/line/port_texts.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

const Network_Port plc{Network_Protocol::ModbusTcp, "plc7", 502};

TEST(NetworkTexts, AFailedConnectionSaysWhatHappenedAndWhatToDo) {
    EXPECT_EQ(
        connectFaultText(plc, Connect_Fault::HostUnknown, {}),
        "Host unknown: no computer of the name plc7 is known here. Check how it is written, or give its "
        "number, such as 192.168.0.7.");
    EXPECT_EQ(
        connectFaultText(plc, Connect_Fault::Refused, {}),
        "Refused: plc7 is there, but takes no connection at its port 502. Check the port's number, whether "
        "the service is switched on there, and whether another program holds its only connection.");
    EXPECT_EQ(
        connectFaultText(plc, Connect_Fault::NoAnswer, {}),
        "No answer: nothing comes back from plc7 at port 502. Is it switched on and in this network, and "
        "does no firewall stand between?");
    EXPECT_EQ(
        connectFaultText(plc, Connect_Fault::Unreachable, {}),
        "Unreachable: there is no way to plc7 from here. Check the network cable, and the address of this "
        "computer.");
    EXPECT_EQ(connectFaultText(plc, Connect_Fault::Other, "Too many files"),
              "Too many files: check host and port.");
}

TEST(NetworkTexts, ALostConnectionNamesHostAndPort) {
    EXPECT_EQ(connectionLostText(plc, {}), "plc7:502 closed the connection.");
    EXPECT_EQ(connectionLostText(plc, "Connection reset by peer"),
              "The connection to plc7:502 broke: Connection reset by peer.");
}

TEST(NetworkTexts, TheMessageOfTheLinkNamesHostPortAndProtocol) {
    EXPECT_EQ(openingMessage("tcp:plc7:502", "Refused."),
              "No connection to plc7:502 (Modbus TCP).\n\nRefused.");
    EXPECT_EQ(openingMessage("rtu+tcp:plc7:4001", "Refused."),
              "No connection to plc7:4001 (RTU over TCP).\n\nRefused.");
    EXPECT_EQ(openingMessage("rfc2217:[::1]:2217", "Refused."),
              "No connection to [::1]:2217 (RFC 2217).\n\nRefused.");
    EXPECT_EQ(openingMessage("ttyUSB0", "Busy."), "The serial port ttyUSB0 can't be opened.\n\nBusy.");
}

TEST(NetworkTexts, WhatIsTypedIsExplained) {
    EXPECT_EQ(portHint({}, "tcp:plc7:502"), "Modbus TCP: port 502 of plc7. The line's settings don't count.");
    EXPECT_EQ(
        portHint({}, "rtu+tcp:plc7:4001"),
        "The frames of a serial line over TCP: port 4001 of plc7. The line is set at the server; what is "
        "chosen here only tells how long frames take.");
    EXPECT_EQ(portHint({}, "rfc2217:plc7:2217"),
              "A serial port on a network (RFC 2217): port 2217 of plc7, which is set as chosen here.");
    EXPECT_EQ(portHint({}, "tcp:plc7"),
              "The port tcp:plc7 names no port on the host. Write host and port, as in tcp:192.168.0.7:502.");
}

TEST(NetworkTexts, ThePortOfAReportIsHostAndPort) {
    EXPECT_EQ(portNumberText("tcp:plc7:502"), "plc7:502");
    EXPECT_EQ(portNumberText("rtu+tcp:192.168.0.7:4001"), "192.168.0.7:4001");
    EXPECT_EQ(portNumberText("rfc2217:[fe80::1]:2217"), "[fe80::1]:2217");
}

TEST(NetworkTexts, SettingsAreUnusableWithAWrongName) {
    Port_Settings settings;
    settings.port = "tcp:plc7:0";
    EXPECT_EQ(settingsFault(settings),
              "The port tcp:plc7:0 has no port from 1 to 65535 after the host. Write host "
              "and port, as in tcp:192.168.0.7:502.");
    settings.port = "tcp:plc7:502";
    EXPECT_EQ(settingsFault(settings), "");
}

} // namespace
} // namespace zorvane
