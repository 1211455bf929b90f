// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/port_settings.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

TEST(PortSettings, ReadsLineSettings) {
    EXPECT_EQ(parseLineSettings("9600,n,8,1"), (Line_Settings{9600, 'N', 8, 1}));
    EXPECT_EQ(parseLineSettings("115200,E,7,2"), (Line_Settings{115200, 'E', 7, 2}));
    EXPECT_EQ(parseLineSettings("300,o,8,1"), (Line_Settings{300, 'O', 8, 1}));
}

TEST(PortSettings, RefusesOtherForms) {
    for (const char* text : {"", "9600", "9600,n,8", "9600,n,8,1,0", "9600,,8,1", "9600,no,8,1", "x,n,8,1",
                             "9600,n,8,", "9600 ,n,8,1", "9600,n,8,1.5", "99999999999,n,8,1"}) {
        EXPECT_EQ(parseLineSettings(text), std::nullopt) << text;
    }
}

TEST(PortSettings, WritesLineSettings) {
    EXPECT_EQ(formatLineSettings({9600, 'N', 8, 1}), "9600,n,8,1");
    EXPECT_EQ(formatLineSettings({19200, 'E', 7, 2}), "19200,e,7,2");
}

TEST(PortSettings, RtsModes) {
    for (const Rts_Mode mode : {Rts_Mode::None, Rts_Mode::HighOnSend, Rts_Mode::KernelRs485}) {
        EXPECT_EQ(parseRtsMode(rtsModeText(mode)), mode);
    }
    EXPECT_EQ(rtsModeText(Rts_Mode::HighOnSend), "rts");
    EXPECT_EQ(rtsModeText(Rts_Mode::KernelRs485), "rs485");
    EXPECT_EQ(parseRtsMode("RTS"), std::nullopt);
}

std::string faultWith(void (*change)(Port_Settings&)) {
    Port_Settings settings;
    change(settings);
    return settingsFault(settings);
}

TEST(PortSettings, TheFirstFaultInWords) {
    EXPECT_EQ(settingsFault({}), "");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.slave = 0; }),
              "The slave number is 0, it must be from 1 to 247.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.slave = 248; }),
              "The slave number is 248, it must be from 1 to 247.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.line.baud = 299; }),
              "The baud rate is 299, it must be from 300 to 921600.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.line.baud = 921601; }),
              "The baud rate is 921601, it must be from 300 to 921600.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.line.parity = 'M'; }), "The parity must be N, E or O.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.line.dataBits = 6; }),
              "The number of data bits is 6, it must be from 7 to 8.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.line.stopBits = 3; }),
              "The number of stop bits is 3, it must be from 1 to 2.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.retries = -1; }),
              "The number of retries is -1, it must be from 0 to 20.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.timeOutMs = 0; }),
              "The time-out in ms is 0, it must be from 1 to 60000.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.txDelayMs = 1001; }),
              "The TX delay in ms is 1001, it must be from 0 to 1000.");
}

TEST(PortSettings, TheEndsOfTheRangesAreGood) {
    Port_Settings lowest;
    lowest.port = "p";
    lowest.slave = 1;
    lowest.line = {300, 'N', 7, 1};
    lowest.retries = 0;
    lowest.timeOutMs = 1;
    lowest.txDelayMs = 0;
    EXPECT_EQ(settingsFault(lowest), "");
    Port_Settings highest = lowest;
    highest.slave = 247;
    highest.line = {921600, 'O', 8, 2};
    highest.retries = 20;
    highest.timeOutMs = 60000;
    highest.txDelayMs = 1000;
    EXPECT_EQ(settingsFault(highest), "");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.line.dataBits = 9; }),
              "The number of data bits is 9, it must be from 7 to 8.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.line.stopBits = 0; }),
              "The number of stop bits is 0, it must be from 1 to 2.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.retries = 21; }),
              "The number of retries is 21, it must be from 0 to 20.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.timeOutMs = 60001; }),
              "The time-out in ms is 60001, it must be from 1 to 60000.");
    EXPECT_EQ(faultWith([](Port_Settings& s) { s.txDelayMs = -1; }),
              "The TX delay in ms is -1, it must be from 0 to 1000.");
}

TEST(PortSettings, PortNumberWhereTheNameHasOne) {
    EXPECT_EQ(portNumberText("COM3"), "3");
    EXPECT_EQ(portNumberText("ttyS2"), "2");
    EXPECT_EQ(portNumberText("/dev/ttyS0"), "0");
    EXPECT_EQ(portNumberText("\\\\.\\COM12"), "12");
    EXPECT_EQ(portNumberText("/dev/ttyUSB0"), "ttyUSB0");
    EXPECT_EQ(portNumberText("ttyS"), "ttyS");
    EXPECT_EQ(portNumberText("/tmp/line"), "line");
    EXPECT_EQ(portNumberText(""), "");
}

TEST(PortSettings, WireTimes) {
    EXPECT_EQ(bitsPerCharacter({9600, 'N', 8, 1}), 10);
    EXPECT_EQ(bitsPerCharacter({9600, 'E', 8, 1}), 11);
    EXPECT_EQ(bitsPerCharacter({9600, 'E', 7, 2}), 11);
    EXPECT_EQ(wireTime({9600, 'N', 8, 1}, 8), 8334);
    EXPECT_EQ(wireTime({300, 'N', 8, 1}, 255), 8500000);
    EXPECT_EQ(wireTime({3, 'N', 8, 1}, 1), 3333334) << "a part of a microsecond is one more";
    EXPECT_EQ(frameSilence({9600, 'N', 8, 1}), 3646);
    EXPECT_EQ(frameSilence({19200, 'E', 8, 1}), 2006);
    EXPECT_EQ(frameSilence({19201, 'N', 8, 1}), 1750);
    EXPECT_EQ(frameSilence({115200, 'N', 8, 1}), 1750);
}

} // namespace
} // namespace zorvane
