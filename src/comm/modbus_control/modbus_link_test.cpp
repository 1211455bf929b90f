// SPDX-License-Identifier: MIT
// The operations of the link, as the system calls them.
#include "comm/modbus_control/testing/link_rig.h"
#include "values/run_time_failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::bytesOf;
using ::testing::ElementsAre;
using testing::Link_Rig;
using testing::ms;
using testing::withCrc;

TEST(ModbusLink, AScanFillsTheImage) {
    Link_Rig rig;
    rig.slave.registers = {{10, 7}, {11, 0xFFFB}, {20, 40000}};
    rig.block(10, 11);
    rig.block(20, 20);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(2));
    EXPECT_EQ(rig.link.RegisterValue(0, 10), 7);
    EXPECT_EQ(rig.link.RegisterValue(0, 11), -5);
    EXPECT_EQ(rig.link.RegisterValue(0, 11, false), 65531);
    EXPECT_EQ(rig.link.RegisterValue(0, 20), -25536);
    EXPECT_EQ(rig.link.RegisterValue(0, 20, false), 40000);
    EXPECT_EQ(rig.link.RegisterValue(0, 12), 0) << "never read";
    EXPECT_EQ(rig.link.RegisterValue(1, 10), 7) << "slave 0 is that of the port settings";
    EXPECT_EQ(rig.link.RegisterValue(2, 10), 0);
    EXPECT_FALSE(rig.link.CommLost());
    EXPECT_FALSE(watchedFailure(rig.link));
}

TEST(ModbusLink, LinesAndCountersOfAnExchange) {
    Link_Rig rig;
    rig.block(107, 109);
    std::vector<std::string> lines;
    rig.link.onExchange([&](const std::string& line1, const std::string& line2) {
        lines.push_back(line1 + "|" + line2);
        EXPECT_EQ(rig.link.ExchangeLine1(), line1);
    });
    rig.slave.registers = {{107, 555}, {109, 100}};
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_THAT(lines, ElementsAre("Tx: 01 03 00 6B 00 03 74 17|Rx: 01 03 06 02 2B 00 00 00 64 05 7A"));
    EXPECT_EQ(rig.link.ExchangeLine1(), "Tx: 01 03 00 6B 00 03 74 17");
    EXPECT_EQ(rig.link.ExchangeLine2(), "Rx: 01 03 06 02 2B 00 00 00 64 05 7A");
    EXPECT_EQ(rig.link.TransactionCount(), 1);
    EXPECT_EQ(rig.link.TxCount(), 1);
    EXPECT_EQ(rig.link.RxCount(), 1);
    rig.link.ClearCounters();
    rig.link.ResetTransferLog();
    EXPECT_EQ(rig.link.TransactionCount(), 0);
    EXPECT_EQ(rig.link.TxCount(), 0);
    EXPECT_EQ(rig.link.RxCount(), 0);
    EXPECT_EQ(rig.link.ExchangeLine1(), "");
    EXPECT_EQ(rig.link.ExchangeLine2(), "");
}

TEST(ModbusLink, TransactionCountWrapsAt256) {
    Link_Rig rig;
    rig.block(1, 1);
    rig.scan();
    ASSERT_TRUE(
        rig.clock.runUntilTrue([&] { return rig.log.exchanges.size() == 258; }, 60 * microsPerSecond));
    EXPECT_EQ(rig.link.TransactionCount(), 2);
    EXPECT_EQ(rig.link.TxCount(), 258);
}

TEST(ModbusLink, EveryTryCounts) {
    Link_Rig rig;
    rig.faults = [](int, const Byte_Array&) {};
    int events = 0;
    rig.link.onExchange([&](const std::string&, const std::string& line2) {
        ++events;
        EXPECT_EQ(line2, "Rx: no answer");
    });
    rig.block(1, 5);
    rig.block(6, 7);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(2));
    EXPECT_FALSE(rig.link.CommLost());
    EXPECT_TRUE(watchedFailure(rig.link));
    EXPECT_EQ(watchedScanBlock(rig.link), 1);
    ASSERT_TRUE(rig.exchanges(3));
    EXPECT_TRUE(rig.link.CommLost());
    EXPECT_EQ(rig.link.TransactionCount(), 3);
    EXPECT_EQ(rig.link.TxCount(), 3);
    EXPECT_EQ(rig.link.RxCount(), 0);
    EXPECT_EQ(events, 3);
    EXPECT_EQ(watchedScanBlock(rig.link), 2);
    EXPECT_EQ(rig.link.LastResponse(), "");
}

TEST(ModbusLink, EveryBlockHasItsOwnTries) {
    Link_Rig rig;
    rig.faults = [&](int, const Byte_Array& request) {
        if (request.at(3) == 1) rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.block(1, 5);
    rig.block(6, 7);
    rig.block(8, 9);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(8));
    EXPECT_THAT(rig.firstRegisters(), ElementsAre(1, 6, 6, 6, 8, 8, 8, 1));
}

TEST(ModbusLink, AnAnswerGivesTheNextBlockAllItsTriesAgain) {
    Link_Rig rig;
    rig.faults = [&](int number, const Byte_Array& request) {
        if (number == 1) rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.block(1, 5);
    rig.block(6, 7);
    rig.block(8, 9);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(6));
    EXPECT_THAT(rig.firstRegisters(), ElementsAre(1, 1, 6, 6, 6, 8));
}

TEST(ModbusLink, ABlockBehindOneThatTheWireCannotCarryHasAllItsTries) {
    Link_Rig rig;
    rig.faults = [](int, const Byte_Array&) {};
    rig.block(-5, -1);
    rig.block(6, 7);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(2));
    rig.clock.runUntilTrue([&] { return rig.link.CommLost(); }, microsPerSecond);
    EXPECT_EQ(rig.log.exchanges.size(), 3U);
}

TEST(ModbusLink, ALinkThatGoesAwayLowersRtsAndClosesItsPort) {
    Port_Settings settings = Link_Rig::defaults();
    settings.rts = Rts_Mode::HighOnSend;
    Link_Rig rig;
    {
        Modbus_Link link({rig.port, rig.clock, rig.finder, rig.asker, rig.windows}, settings);
        link.PrepareScan();
        link.PresetSingleRegister(0, 1, 5);
        rig.clock.runFor(5 * ms);
        EXPECT_TRUE(rig.port.rts);
    }
    EXPECT_FALSE(rig.port.rts);
    EXPECT_FALSE(rig.port.isOpen());
}

TEST(ModbusLink, ALostLinkComesBackByItself) {
    Link_Rig rig;
    bool silent = true;
    rig.faults = [&](int, const Byte_Array& request) {
        if (!silent) rig.reply(rig.slave.answer(request), 5 * ms);
    };
    rig.slave.registers[1] = 11;
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(4));
    EXPECT_TRUE(rig.link.CommLost());
    silent = false;
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return !rig.link.CommLost(); }, microsPerSecond));
    EXPECT_EQ(rig.link.RegisterValue(0, 1), 11);
}

TEST(ModbusLink, AnExceptionIsAnAnswer) {
    Link_Rig rig;
    rig.faults = [&](int, const Byte_Array& request) { rig.reply(rig.slave.exception(request, 2), 5 * ms); };
    rig.block(1, 5);
    rig.block(6, 7);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_TRUE(watchedFailure(rig.link));
    EXPECT_FALSE(rig.link.CommLost());
    EXPECT_EQ(rig.link.LastResponse(), "Illegal data address (exception 2)");
    rig.link.ClearLastResponse();
    EXPECT_EQ(rig.link.LastResponse(), "");
    ASSERT_TRUE(rig.exchanges(2));
    EXPECT_EQ(rig.log.exchanges[1].firstRegister, 6) << "an exception isn't tried again";
}

TEST(ModbusLink, ResetTransferLogForgetsTheLastRequest) {
    Link_Rig rig;
    rig.faults = [&](int, const Byte_Array& request) { rig.reply(rig.slave.exception(request, 2), 5 * ms); };
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.link.LastResponse(), "Illegal data address (exception 2)");
    EXPECT_TRUE(watchedFailure(rig.link));
    rig.link.ResetTransferLog();
    EXPECT_EQ(rig.link.LastResponse(), "");
    EXPECT_FALSE(watchedFailure(rig.link));
}

TEST(ModbusLink, ABlockThatTheWireCannotCarryIsAFailedExchange) {
    Link_Rig rig;
    rig.block(70000, 70001);
    rig.block(9, 8);
    rig.block(5, 5);
    rig.link.SetScanMode("NONE");
    rig.link.PrepareScan();
    rig.link.StartScan();
    EXPECT_EQ(rig.link.TransactionCount(), 1);
    EXPECT_EQ(rig.link.LastResponse(), "Register 70001 has no address from 0 to 65535");
    EXPECT_TRUE(watchedFailure(rig.link));
    rig.clock.runFor(1 * ms);
    EXPECT_EQ(rig.link.TransactionCount(), 2);
    EXPECT_EQ(rig.link.LastResponse(), "No registers from 9 on");
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.log.exchanges[0].firstRegister, 5);
    EXPECT_FALSE(rig.link.CommLost());
}

TEST(ModbusLink, TheAddressBaseIsTakenOffOnTheWire) {
    Link_Rig rig;
    rig.block(40001, 40002);
    rig.link.SetAddressBase(40001);
    rig.slave.registers[0] = 77;
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.link.RegisterValue(0, 40001), 77);
    EXPECT_EQ(rig.log.exchanges[0].firstRegister, 40001);
    EXPECT_EQ(rig.log.exchanges[0].wireAddress, 0);
    rig.link.PresetSingleRegister(0, 40000, 1);
    EXPECT_EQ(rig.link.LastResponse(), "Register 40000 has no address from 0 to 65535");
    rig.link.ClearBlocks();
    rig.link.PresetSingleRegister(0, 12, 1);
    ASSERT_TRUE(rig.writeEnds());
    EXPECT_EQ(rig.slave.registers[12], 1);
}

TEST(ModbusLink, ClearBlocksEmptiesListAndImage) {
    Link_Rig rig;
    rig.slave.registers[1] = 4;
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.link.RegisterValue(0, 1), 4);
    rig.link.ClearBlocks();
    EXPECT_EQ(rig.link.ScanBlockCount(), 0);
    EXPECT_EQ(rig.link.RegisterValue(0, 1), 0);
}

TEST(ModbusLink, ClearBlocksGoesBackToTheStart) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.block(6, 7);
    rig.scan();
    ASSERT_TRUE(rig.clock.runUntilTrue([&] { return rig.port.written.size() == 2; }, microsPerSecond));
    EXPECT_EQ(watchedScanBlock(rig.link), 2);
    rig.link.ClearBlocks();
    EXPECT_EQ(watchedScanBlock(rig.link), 0);
    ASSERT_TRUE(rig.exchanges(2)) << "the answer under way finds no block";
    EXPECT_EQ(rig.link.ScanBlockCount(), 0);
}

TEST(ModbusLink, TellsAnExchangeInAllItsParts) {
    Port_Settings settings = Link_Rig::defaults();
    settings.slave = 7;
    Link_Rig rig(settings);
    rig.slave = testing::Toy_Slave(7);
    rig.slave.registers = {{99, 5}, {100, 6}};
    rig.link.SetAddressBase(40001);
    rig.block(40100, 40101);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    const Exchange_Record read = rig.log.exchanges[0];
    EXPECT_EQ(read.unit, 7);
    EXPECT_EQ(read.function, Function_Code::ReadHoldingRegisters);
    EXPECT_EQ(read.firstRegister, 40100);
    EXPECT_EQ(read.wireAddress, 99);
    EXPECT_EQ(read.count, 2);
    EXPECT_EQ(read.values, (std::vector<std::uint16_t>{5, 6}));
    EXPECT_TRUE(read.good);
    EXPECT_EQ(read.duration, rig.requestTime() + 5 * ms);
    EXPECT_EQ(read.sent, withCrc(bytesOf("07 03 00 63 00 02")));
    EXPECT_EQ(read.received, withCrc(bytesOf("07 03 04 00 05 00 06")));

    rig.link.EndSession();
    rig.link.PresetMultipleRegisters(0, 40101, {8, 9});
    ASSERT_TRUE(rig.writeEnds());
    const Exchange_Record write = rig.log.exchanges.back();
    EXPECT_EQ(write.function, Function_Code::PresetMultipleRegisters);
    EXPECT_EQ(write.firstRegister, 40101);
    EXPECT_EQ(write.wireAddress, 100);
    EXPECT_EQ(write.count, 2);
    EXPECT_EQ(write.values, (std::vector<std::uint16_t>{8, 9}));
}

TEST(ModbusLink, TemplateTimingsOf0LeaveTheSettingsOwn) {
    Link_Rig rig;
    EXPECT_EQ(rig.link.timeOutMs(), 100);
    EXPECT_EQ(rig.link.pauseMs(), 0);
    rig.link.SetTimings(50, 300);
    EXPECT_EQ(rig.link.timeOutMs(), 300);
    EXPECT_EQ(rig.link.pauseMs(), 50);
    EXPECT_EQ(rig.link.PortParameters().at(4), "100");
    rig.link.SetTimings(1, 1);
    EXPECT_EQ(rig.link.timeOutMs(), 1);
    EXPECT_EQ(rig.link.pauseMs(), 1);
    rig.link.SetTimings(0, -1);
    EXPECT_EQ(rig.link.timeOutMs(), 100);
    EXPECT_EQ(rig.link.pauseMs(), 0);
}

TEST(ModbusLink, TemplateTimingsCountFromTheNextRequestOn) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.link.SetTimings(1, 300);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(2));
    const Micros firstEnd = rig.log.exchanges[0].at + rig.log.exchanges[0].duration;
    EXPECT_EQ(rig.log.exchanges[1].at, firstEnd + frameSilence(rig.link.portSettings().line) + ms);
    rig.faults = [](int, const Byte_Array&) {};
    ASSERT_TRUE(rig.exchanges(3));
    EXPECT_EQ(rig.log.exchanges[2].duration, rig.requestTime() + 300 * ms);
}

TEST(ModbusLink, PortParametersAreTheSettings) {
    Port_Settings settings = Link_Rig::defaults();
    settings.port = "/dev/ttyS2";
    settings.slave = 17;
    settings.line = {19200, 'E', 8, 1};
    settings.txDelayMs = 4;
    Link_Rig rig(settings);
    EXPECT_THAT(rig.link.PortParameters(), ElementsAre("17", "19200,E,8,1", "2", "2", "100", "4"));
    EXPECT_EQ(rig.link.SlaveNumber(), "17");
}

TEST(ModbusLink, TheBenchProcedure) {
    Link_Rig rig;
    rig.link.SetCommPort(1, "9600,n,8,1");
    rig.link.SetTimings(50, 300);
    rig.link.AddHoldingBlock(1, 5, 5, true, 1);
    rig.link.SetScanMode("NONE");
    EXPECT_EQ(rig.link.ScanBlockCount(), 1);
    rig.link.PrepareScan();
    rig.link.OpenPort();
    EXPECT_EQ(rig.port.attempts.size(), 1U);
    rig.link.StartScan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.port.written[0], withCrc(bytesOf("01 03 00 05 00 01")));
    EXPECT_EQ(rig.port.settingsSeen.line, (Line_Settings{9600, 'N', 8, 1}));
    EXPECT_EQ(rig.link.PortParameters().at(2), "1");
    rig.link.ClosePort();
    EXPECT_FALSE(rig.link.portOpen());
    EXPECT_THROW(rig.link.SetCommPort(1, "9600"), Run_Time_Failure);
    EXPECT_THROW(rig.link.SetCommPort(1, "100,n,8,1"), Run_Time_Failure);
}

TEST(ModbusLink, OpenPortOpensThePortOfTheSettings) {
    Link_Rig rig;
    rig.link.OpenPort();
    EXPECT_EQ(rig.port.attempts, std::vector<std::string>{"ttyUSB0"});
    EXPECT_TRUE(rig.link.portOpen());
}

TEST(ModbusLink, NewSettingsTakeEffectOnAnOpenPort) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    Port_Settings changed = rig.link.portSettings();
    changed.line.baud = 19200;
    rig.link.setPortSettings(changed);
    EXPECT_EQ(rig.port.attempts.size(), 2U);
    EXPECT_EQ(rig.port.settingsSeen.line.baud, 19200);
    EXPECT_TRUE(rig.exchanges(3));
    rig.link.setPortSettings(changed);
    EXPECT_EQ(rig.port.attempts.size(), 2U) << "the same settings change nothing";
}

TEST(ModbusLink, NewSettingsCountForTheNextRequest) {
    Link_Rig rig;
    rig.faults = [](int, const Byte_Array&) {};
    Port_Settings changed = rig.link.portSettings();
    changed.line.baud = 1200;
    changed.timeOutMs = 300;
    rig.link.setPortSettings(changed);
    rig.block(1, 5);
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    EXPECT_EQ(rig.log.exchanges[0].duration, rig.requestTime() + 300 * ms);
    EXPECT_EQ(rig.requestTime(), wireTime(changed.line, 8));
}

TEST(ModbusLink, NewSettingsLeaveAClosedPortClosed) {
    Link_Rig rig;
    rig.link.PrepareScan();
    rig.link.ClosePort();
    Port_Settings changed = rig.link.portSettings();
    changed.line.baud = 19200;
    rig.link.setPortSettings(changed);
    EXPECT_EQ(rig.port.attempts.size(), 1U);
    EXPECT_FALSE(rig.link.portOpen());
}

TEST(ModbusLink, WhoIsToldOfAnExchangeMayStopTheLink) {
    Link_Rig rig;
    rig.block(1, 5);
    rig.link.onExchange([&](const std::string&, const std::string&) {
        rig.link.StopScan();
        rig.link.ClosePort();
        rig.link.EndSession();
    });
    rig.scan();
    ASSERT_TRUE(rig.exchanges(1));
    rig.clock.runFor(microsPerSecond);
    EXPECT_EQ(rig.log.exchanges.size(), 1U);
}

/// Windows that write down what they are asked, at 1, 2 with a size of 3 by 4.
struct Recording_Windows final : Link_Windows {
    void showPortSettings(Modbus_Link&, bool modal) override {
        asked.push_back(modal ? "settings, modal" : "settings");
    }
    [[nodiscard]] bool monitorLoaded() const override { return true; }
    [[nodiscard]] bool monitorVisible() const override { return false; }
    void showMonitor(Modbus_Link&, const Window_Place& place) override {
        asked.push_back("show at " + std::to_string(place.left) + ", " + std::to_string(place.top) + ": " +
                        std::to_string(place.width) + " by " + std::to_string(place.height));
    }
    void activateMonitor() override { asked.emplace_back("activate"); }
    [[nodiscard]] Window_Place monitorPlace() const override { return {1, 2, 3, 4}; }
    void unloadMonitor() override { asked.emplace_back("unload"); }
    void hideMonitor() override { asked.emplace_back("hide"); }
    void restoreMonitor() override { asked.emplace_back("restore"); }
    void minimizeMonitor() override { asked.emplace_back("minimize"); }

    std::vector<std::string> asked;
};

TEST(ModbusLink, HandsOnWhatItsWindowsAreAsked) {
    Link_Rig rig;
    Recording_Windows windows;
    Modbus_Link link({rig.port, rig.clock, rig.finder, rig.asker, windows}, Link_Rig::defaults());
    link.ShowPortSettings(true);
    link.ShowMonitor(10, 20, 30, 40);
    link.ActivateMonitor();
    link.HideMonitor();
    link.RestoreMonitor();
    link.MonitorMinimized();
    link.UnloadMonitor();
    EXPECT_THAT(windows.asked, ElementsAre("settings, modal", "show at 10, 20: 30 by 40", "activate", "hide",
                                           "restore", "minimize", "unload"));
    EXPECT_TRUE(link.MonitorLoaded());
    EXPECT_FALSE(link.MonitorVisible());
    EXPECT_EQ(link.MonitorLeft(), 1);
    EXPECT_EQ(link.MonitorTop(), 2);
    EXPECT_EQ(link.MonitorWidth(), 3);
    EXPECT_EQ(link.MonitorHeight(), 4);
}

TEST(ModbusLink, ALinkWithoutWindowsHasNoMonitor) {
    Link_Rig rig;
    rig.link.ShowPortSettings(true);
    rig.link.ShowMonitor(1, 2, 3, 4);
    EXPECT_FALSE(rig.link.MonitorLoaded());
    EXPECT_FALSE(rig.link.MonitorVisible());
    EXPECT_EQ(rig.link.MonitorLeft(), 0);
}

} // namespace
} // namespace zorvane
