// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/network_port.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

TEST(NetworkPort, NamesAProtocolAHostAndAPort) {
    EXPECT_EQ(networkPort("tcp:plc7:502"), (Network_Port{Network_Protocol::ModbusTcp, "plc7", 502}));
    EXPECT_EQ(networkPort("rtu+tcp:192.168.0.7:4001"),
              (Network_Port{Network_Protocol::RtuOverTcp, "192.168.0.7", 4001}));
    EXPECT_EQ(networkPort("rfc2217:gate.site:2217"),
              (Network_Port{Network_Protocol::Rfc2217, "gate.site", 2217}));
    EXPECT_EQ(networkPort("TCP:plc7:502"), networkPort("tcp:plc7:502"));
}

TEST(NetworkPort, AnIpv6NumberStandsInBrackets) {
    const auto port = networkPort("tcp:[fe80::1]:502");
    EXPECT_EQ(port, (Network_Port{Network_Protocol::ModbusTcp, "fe80::1", 502}));
    EXPECT_EQ(hostAndPort(*port), "[fe80::1]:502");
    EXPECT_EQ(nameOf(*port), "tcp:[fe80::1]:502");
}

TEST(NetworkPort, ASerialPortIsNone) {
    for (const char* name : {"ttyUSB0", "COM3", "/dev/ttyS0", "Simulated controller", "", "tcp", "tcp502"}) {
        EXPECT_FALSE(onNetwork(name)) << name;
        EXPECT_FALSE(networkPort(name).has_value()) << name;
        EXPECT_EQ(networkNameFault(name), "") << name;
    }
}

TEST(NetworkPort, WhatIsWrongIsSaidWithWhatToWrite) {
    EXPECT_EQ(networkNameFault("tcp:plc7:502"), "");
    EXPECT_EQ(networkNameFault("tcp::502"),
              "The port tcp::502 names no host. Write host and port, as in tcp:192.168.0.7:502.");
    EXPECT_EQ(networkNameFault("tcp:"),
              "The port tcp: names no host. Write host and port, as in tcp:192.168.0.7:502.");
    EXPECT_EQ(networkNameFault("rtu+tcp:plc7"), "The port rtu+tcp:plc7 names no port on the host. Write host "
                                                "and port, as in rtu+tcp:192.168.0.7:4001.");
    EXPECT_EQ(networkNameFault("rfc2217:plc7:"), "The port rfc2217:plc7: names no port on the host. Write "
                                                 "host and port, as in rfc2217:192.168.0.7:2217.");
    for (const char* name : {"tcp:plc7:0", "tcp:plc7:65536", "tcp:plc7:x", "tcp:plc7:-1", "tcp:plc7:502 "})
        EXPECT_EQ(networkNameFault(name),
                  "The port " + std::string(name) +
                      " has no port from 1 to 65535 after the host. Write host and port, as in "
                      "tcp:192.168.0.7:502.");
    EXPECT_EQ(networkNameFault("tcp:fe80::1:502"),
              "The port tcp:fe80::1:502 names no host that can be: an IPv6 number stands in brackets, as in "
              "tcp:[fe80::1]:502.");
}

TEST(NetworkPort, OnlyModbusTcpNumbersItsRequests) {
    EXPECT_TRUE(framingOf("tcp:plc7:502").numbersRequests());
    for (const char* name : {"rtu+tcp:plc7:4001", "rfc2217:plc7:2217", "ttyUSB0", "Simulated controller"})
        EXPECT_FALSE(framingOf(name).numbersRequests()) << name;
}

TEST(NetworkPort, TheLineIsSetWhereItCanBe) {
    for (const char* name : {"ttyUSB0", "COM3", "rfc2217:plc7:2217"})
        EXPECT_TRUE(takesLineSettings(name)) << name;
    for (const char* name : {"tcp:plc7:502", "rtu+tcp:plc7:4001"})
        EXPECT_FALSE(takesLineSettings(name)) << name;
}

TEST(NetworkPort, SaysWhichSettingsCountThere) {
    const auto counting = [](const char* name) {
        const Counting_Settings counts = countingSettings(name);
        return std::string(counts.line ? "line " : "") + (counts.rts ? "rts " : "") +
               (counts.echo ? "echo" : "");
    };
    EXPECT_EQ(counting("ttyUSB0"), "line rts echo");
    EXPECT_EQ(counting("tcp:gate:502"), "");
    EXPECT_EQ(counting("rtu+tcp:gate:4001"), "line echo");
    EXPECT_EQ(counting("rfc2217:gate:2217"), "line rts echo");
}

} // namespace
} // namespace zorvane
