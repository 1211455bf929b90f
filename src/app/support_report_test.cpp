// SPDX-License-Identifier: MIT
#include "app/support_report.h"

#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

TEST(SupportReport, TellsOfProgramsPortAndTrafficAndNamesNobody) {
    Exchange_Record exchange;
    exchange.at = 3'000'000;
    exchange.duration = 12'000;
    exchange.unit = 1;
    exchange.firstRegister = 40001;
    exchange.count = 1;
    exchange.values = {7};
    exchange.good = true;
    exchange.result = "OK";
    exchange.sent = {1, 3, 0, 0, 0, 1};
    exchange.received = {1, 3, 2, 0, 7};
    const std::deque<Traffic_Entry> traffic = {Port_Note{1, "tcp:plc-of-anna:502 opened"}, exchange};
    const std::string report = supportReport(
        {"Zorvane 0.1.0", "Qt 6.4.2", "Debian", "1920x1080 at 100 %", "", "ttyS0, unit 1"}, traffic, 0);
    EXPECT_EQ(report, "Program: Zorvane 0.1.0\n"
                      "Library: Qt 6.4.2\n"
                      "System: Debian\n"
                      "Screen: 1920x1080 at 100 %\n"
                      "Model: none\n"
                      "Port: ttyS0, unit 1\n"
                      "\n"
                      "The last traffic of the line\n" +
                          trafficHeadingLine() + "\n" + trafficLine(exchange, 0) + "\n");
    EXPECT_EQ(report.find("anna"), std::string::npos);
}

TEST(SupportReport, ANetworkPortIsToldWithoutItsHost) {
    EXPECT_EQ(reportedPort("/dev/ttyUSB0", "9600,n,8,1", 1), "/dev/ttyUSB0, 9600,n,8,1, unit 1");
    EXPECT_EQ(reportedPort("tcp:plc-of-anna:502", "9600,n,8,1", 7), "tcp, unit 7");
    EXPECT_EQ(reportedPort("rtu+tcp:10.0.0.5:4001", "9600,n,8,1", 7), "rtu+tcp, unit 7");
    EXPECT_EQ(reportedPort("rfc2217:gate:4001", "9600,n,8,1", 7), "rfc2217, unit 7");
    EXPECT_EQ(reportedPort("/home/anna/line", "9600,n,8,1", 1), "line, 9600,n,8,1, unit 1");
}

} // namespace
} // namespace zorvane::app
