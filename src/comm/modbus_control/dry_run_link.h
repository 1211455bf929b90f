// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/modbus_control.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zorvane {

/// A write as it would go out.
struct Planned_Write {
    int function = 0; ///< 6 or 16
    std::int32_t address = 0;
    std::vector<std::uint16_t> values;

    bool operator==(const Planned_Write&) const = default;
};

/// A link without a line, over a register image: every write succeeds before the call returns, is in the
/// image from then on, and is listed. Nothing is ever scanned, and there is no slave, port or window.
class Dry_Run_Link : public modbus_control {
  public:
    /// Values by address; an address that is missing reads 0.
    using Registers = std::map<std::int32_t, std::uint16_t>;

    explicit Dry_Run_Link(Registers registers = {}) : registers_(std::move(registers)), given_(registers_) {}

    [[nodiscard]] const std::vector<Planned_Write>& writes() const noexcept { return writes_; }
    [[nodiscard]] const Registers& registers() const noexcept { return registers_; }

    [[nodiscard]] std::int32_t RegisterValue(std::int32_t slave, std::int32_t address,
                                             bool isSigned = true) const override;
    /// What was given counts as read.
    [[nodiscard]] Register_Reading readingOf(std::int32_t slave, std::int32_t address) const override;
    /// No line stands between a write and its image.
    [[nodiscard]] Write_Outcome LastWriteOutcome() const override {
        return writes_.empty() ? Write_Outcome::None : Write_Outcome::Taken;
    }
    [[nodiscard]] std::uint32_t WritesEnded() const override {
        return static_cast<std::uint32_t>(writes_.size());
    }
    [[nodiscard]] bool ControllerSeen() const override { return true; }
    void PresetSingleRegister(std::int32_t slave, std::int32_t address, std::int32_t value) override;
    void PresetMultipleRegisters(std::int32_t slave, std::int32_t startAddress,
                                 const std::vector<std::int32_t>& values) override;
    [[nodiscard]] std::uint8_t TransactionCount() const override { return transactions_; }
    [[nodiscard]] std::int32_t TxCount() const override { return transactions_; }
    [[nodiscard]] std::int32_t RxCount() const override { return transactions_; }
    void SetScanMode(const std::string& mode) override { mode_ = mode; }
    [[nodiscard]] std::string ScanMode() const override { return mode_; }

    void SetTimings(std::int32_t /*requestMs*/, std::int32_t /*outMs*/) override {}
    void SetHoldingRegisters(std::int16_t /*first*/, double /*count*/, bool /*flag*/,
                             std::int16_t /*last*/) override {}
    void SetAddressBase(std::int32_t /*base*/) override {}
    void SetCommPort(std::int16_t /*port*/, const std::string& /*settings*/) override {}
    void ShowPortSettings(bool /*modal*/) override {}
    [[nodiscard]] std::vector<std::string> PortParameters() const override { return {}; }
    [[nodiscard]] std::string SlaveNumber() const override { return {}; }
    void ClearBlocks() override {}
    void AddScanBlock(std::int32_t /*first*/, std::int32_t /*last*/, bool /*flag*/,
                      const std::string& /*request*/, std::int32_t& /*slave*/) override {}
    void AddHoldingBlock(std::int16_t /*unit*/, std::int16_t /*first*/, std::int16_t /*last*/, bool /*flag*/,
                         std::int16_t /*count*/) override {}
    [[nodiscard]] std::int32_t ScanBlockCount() const override { return 0; }
    [[nodiscard]] std::int32_t ScanBlockIndex() const override { return 0; }
    void ScanBlockSeen() override {}
    void ResetScan() override {}
    void PrepareScan() override {}
    void StartScan() override {}
    void EndSession() override {}
    void StopScan() override {}
    void ClosePort() override {}
    void PauseScan() override {}
    void ResumeScan() override {}
    void OpenPort() override {}
    [[nodiscard]] bool LastRequestFailed() const override { return false; }
    void LastRequestSeen() override {}
    [[nodiscard]] bool CommLost() const override { return false; }
    [[nodiscard]] std::string LastResponse() const override { return {}; }
    void ClearLastResponse() override {}
    [[nodiscard]] std::string ExchangeLine1() const override { return {}; }
    [[nodiscard]] std::string ExchangeLine2() const override { return {}; }
    void ClearCounters() override {}
    void ResetTransferLog() override {}
    [[nodiscard]] bool WriteBusy() const override { return false; }
    [[nodiscard]] bool WriteFailed() const override { return false; }
    void ClearWriteFailed() override {}
    [[nodiscard]] bool MonitorLoaded() const override { return false; }
    [[nodiscard]] bool MonitorVisible() const override { return false; }
    void ShowMonitor(std::int32_t /*left*/, std::int32_t /*top*/, std::int32_t /*width*/,
                     std::int32_t /*height*/) override {}
    void ActivateMonitor() override {}
    [[nodiscard]] std::int32_t MonitorLeft() const override { return 0; }
    [[nodiscard]] std::int32_t MonitorTop() const override { return 0; }
    [[nodiscard]] std::int32_t MonitorWidth() const override { return 0; }
    [[nodiscard]] std::int32_t MonitorHeight() const override { return 0; }
    void UnloadMonitor() override {}
    void HideMonitor() override {}
    void RestoreMonitor() override {}
    void MonitorMinimized() override {}
    void onExchange(Exchange_Handler /*handler*/) override {}

  private:
    void write(int function, std::int32_t start, const std::vector<std::int32_t>& values);

    Registers registers_;
    Registers given_; ///< before any write
    std::vector<Planned_Write> writes_;
    std::uint8_t transactions_ = 0;
    std::string mode_;
};

} // namespace zorvane
