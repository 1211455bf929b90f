// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/modbus_control.h"

#include <utility>

namespace zorvane::ctl {

/// A link that hands every operation on to another one, for those that change a few of them. The other link
/// outlives it.
class Forwarding_Link : public modbus_control {
  public:
    explicit Forwarding_Link(modbus_control& link) : link_(link) {}

    void SetTimings(std::int32_t requestMs, std::int32_t outMs) override {
        link_.SetTimings(requestMs, outMs);
    }
    void SetHoldingRegisters(std::int16_t first, double count, bool flag, std::int16_t last) override {
        link_.SetHoldingRegisters(first, count, flag, last);
    }
    void SetAddressBase(std::int32_t base) override { link_.SetAddressBase(base); }
    void SetCommPort(std::int16_t port, const std::string& settings) override {
        link_.SetCommPort(port, settings);
    }
    void ShowPortSettings(bool modal) override { link_.ShowPortSettings(modal); }
    [[nodiscard]] std::vector<std::string> PortParameters() const override { return link_.PortParameters(); }
    [[nodiscard]] std::string SlaveNumber() const override { return link_.SlaveNumber(); }
    [[nodiscard]] bool PortOpening() const override { return link_.PortOpening(); }
    void ClearBlocks() override { link_.ClearBlocks(); }
    void AddScanBlock(std::int32_t first, std::int32_t last, bool flag, const std::string& request,
                      std::int32_t& slave) override {
        link_.AddScanBlock(first, last, flag, request, slave);
    }
    void AddHoldingBlock(std::int16_t unit, std::int16_t first, std::int16_t last, bool flag,
                         std::int16_t count) override {
        link_.AddHoldingBlock(unit, first, last, flag, count);
    }
    void SetScanMode(const std::string& mode) override { link_.SetScanMode(mode); }
    [[nodiscard]] std::string ScanMode() const override { return link_.ScanMode(); }
    [[nodiscard]] std::int32_t ScanBlockCount() const override { return link_.ScanBlockCount(); }
    [[nodiscard]] std::int32_t ScanBlockIndex() const override { return link_.ScanBlockIndex(); }
    void ScanBlockSeen() override { link_.ScanBlockSeen(); }
    void ResetScan() override { link_.ResetScan(); }
    void PrepareScan() override { link_.PrepareScan(); }
    void StartScan() override { link_.StartScan(); }
    void EndSession() override { link_.EndSession(); }
    void StopScan() override { link_.StopScan(); }
    void ClosePort() override { link_.ClosePort(); }
    void PauseScan() override { link_.PauseScan(); }
    void ResumeScan() override { link_.ResumeScan(); }
    void OpenPort() override { link_.OpenPort(); }
    [[nodiscard]] std::int32_t RegisterValue(std::int32_t slave, std::int32_t address,
                                             bool isSigned = true) const override {
        return link_.RegisterValue(slave, address, isSigned);
    }
    [[nodiscard]] Register_Reading readingOf(std::int32_t slave, std::int32_t address) const override {
        return link_.readingOf(slave, address);
    }
    [[nodiscard]] std::uint8_t TransactionCount() const override { return link_.TransactionCount(); }
    [[nodiscard]] bool LastRequestFailed() const override { return link_.LastRequestFailed(); }
    void LastRequestSeen() override { link_.LastRequestSeen(); }
    [[nodiscard]] bool CommLost() const override { return link_.CommLost(); }
    [[nodiscard]] std::string LastResponse() const override { return link_.LastResponse(); }
    void ClearLastResponse() override { link_.ClearLastResponse(); }
    [[nodiscard]] std::string ExchangeLine1() const override { return link_.ExchangeLine1(); }
    [[nodiscard]] std::string ExchangeLine2() const override { return link_.ExchangeLine2(); }
    void ClearCounters() override { link_.ClearCounters(); }
    void ResetTransferLog() override { link_.ResetTransferLog(); }
    [[nodiscard]] std::int32_t TxCount() const override { return link_.TxCount(); }
    [[nodiscard]] std::int32_t RxCount() const override { return link_.RxCount(); }
    void PresetSingleRegister(std::int32_t slave, std::int32_t address, std::int32_t value) override {
        link_.PresetSingleRegister(slave, address, value);
    }
    void PresetMultipleRegisters(std::int32_t slave, std::int32_t startAddress,
                                 const std::vector<std::int32_t>& values) override {
        link_.PresetMultipleRegisters(slave, startAddress, values);
    }
    [[nodiscard]] bool WriteBusy() const override { return link_.WriteBusy(); }
    [[nodiscard]] bool WriteFailed() const override { return link_.WriteFailed(); }
    void ClearWriteFailed() override { link_.ClearWriteFailed(); }
    [[nodiscard]] Write_Outcome LastWriteOutcome() const override { return link_.LastWriteOutcome(); }
    [[nodiscard]] std::uint32_t WritesEnded() const override { return link_.WritesEnded(); }
    [[nodiscard]] bool ControllerSeen() const override { return link_.ControllerSeen(); }
    [[nodiscard]] bool MonitorLoaded() const override { return link_.MonitorLoaded(); }
    [[nodiscard]] bool MonitorVisible() const override { return link_.MonitorVisible(); }
    void ShowMonitor(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) override {
        link_.ShowMonitor(left, top, width, height);
    }
    void ActivateMonitor() override { link_.ActivateMonitor(); }
    [[nodiscard]] std::int32_t MonitorLeft() const override { return link_.MonitorLeft(); }
    [[nodiscard]] std::int32_t MonitorTop() const override { return link_.MonitorTop(); }
    [[nodiscard]] std::int32_t MonitorWidth() const override { return link_.MonitorWidth(); }
    [[nodiscard]] std::int32_t MonitorHeight() const override { return link_.MonitorHeight(); }
    void UnloadMonitor() override { link_.UnloadMonitor(); }
    void HideMonitor() override { link_.HideMonitor(); }
    void RestoreMonitor() override { link_.RestoreMonitor(); }
    void MonitorMinimized() override { link_.MonitorMinimized(); }
    void onExchange(Exchange_Handler handler) override { link_.onExchange(std::move(handler)); }

  protected:
    modbus_control& link_;
};

} // namespace zorvane::ctl
