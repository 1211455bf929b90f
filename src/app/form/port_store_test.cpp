// SPDX-License-Identifier: MIT
// The port settings between runs.

#include "app/form/port_store.h"
#include "app/testing/memory_settings.h"

#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

struct Port_Store : testing::Test {
    doubles::Journal journal;
    doubles::Memory_Settings store{journal};

    void keep(const char* key, const char* text) {
        store.texts[std::string("Zorvane/ModbusPort/") + key] = text;
    }
};

TEST_F(Port_Store, AFirstRunHasTheDefaultsAndNoPort) {
    EXPECT_EQ(storedPortSettings(store), Port_Settings{});
}

TEST_F(Port_Store, WhatIsStoredComesBack) {
    const Port_Settings settings{
        "/dev/ttyUSB0", 12, {19200, 'E', 7, 2}, 5, 1500, Rts_Mode::KernelRs485, 20, true};
    storePortSettings(store, settings);
    EXPECT_EQ(storedPortSettings(store), settings);
}

TEST_F(Port_Store, EverythingIsTextInTheSectionModbusPort) {
    storePortSettings(store, {"ttyUSB0", 12, {19200, 'E', 8, 1}, 2, 500, Rts_Mode::HighOnSend, 5, false});
    EXPECT_EQ(journal.lines(),
              (std::vector<std::string>{"setting ModbusPort/Port = ttyUSB0", "setting ModbusPort/Slave = 12",
                                        "setting ModbusPort/Settings = 19200,e,8,1",
                                        "setting ModbusPort/Retries = 2", "setting ModbusPort/TimeOut = 500",
                                        "setting ModbusPort/Rts = rts", "setting ModbusPort/TxDelay = 5",
                                        "setting ModbusPort/AdapterEchoes = False"}));
}

TEST_F(Port_Store, WhatCantBeUsedStandsAtItsDefaultAndTheRestCounts) {
    keep("Port", "ttyUSB1");
    keep("Slave", "248");
    keep("Settings", "9600,x,8,1");
    keep("Retries", "two");
    keep("TimeOut", "0");
    keep("Rts", "maybe");
    keep("TxDelay", "7");
    Port_Settings expected;
    expected.port = "ttyUSB1";
    expected.txDelayMs = 7;
    EXPECT_EQ(storedPortSettings(store), expected);
}

} // namespace
} // namespace zorvane::app
