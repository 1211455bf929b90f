// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/modbus_control.h"
#include "comm/modbus_control/testing/journal.h"

#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::doubles {

/// How one exchange of a write ends.
struct Exchange {
    bool good = true;
    std::string response{};          ///< `LastResponse` afterwards
    std::function<void()> before{};  ///< runs just before it ends, as an event during the wait
    std::string line1 = "Tx: 01 06"; ///< `ExchangeLine1`
    std::string line2 = "Rx: 01 06"; ///< `ExchangeLine2`
};

/// The exchanges of one write, retries included; the last one decides. None at all: the write has ended when
/// the call returns, and well.
using Write_Script = std::vector<Exchange>;

/// A link without a line. Its image and its counters are a test's to set; operations go to the journal as
/// "link NAME arguments"; a write ends as the next script says, one exchange at each `advance`.
class Scripted_Link : public modbus_control {
  public:
    explicit Scripted_Link(Journal& journal) : journal_(journal) {}

    // The test's side.

    std::map<std::int32_t, std::int32_t> image; ///< 0 to 65535 by address
    /// What the readings of a register came to; one that isn't listed was read.
    std::map<std::int32_t, Register_Reading> readings;
    std::deque<Write_Script> writes; ///< one a write, in order; a write beyond them ends at once
    std::int32_t blockCount = 0;
    std::int32_t blockIndex = 1;
    std::uint8_t transactions = 0;
    std::int32_t tx = 0;
    std::int32_t rx = 0;
    bool lost = false;
    bool opening = false; ///< `PortOpening`
    bool requestFailed = false;
    bool writeFailed = false;
    /// How the next write to end is said to have ended; without it as its exchanges say.
    std::optional<Write_Outcome> nextOutcome;
    bool seen = true; ///< `ControllerSeen`
    std::string response;
    std::string slaveNumber = "7";
    std::vector<std::string> parameters{"7", "9600,n,8,1", "3", "2", "500", "0"};
    bool monitorLoaded = false;
    bool monitorVisible = false;
    std::int32_t monitorLeft = 11;
    std::int32_t monitorTop = 22;
    std::int32_t monitorWidth = 33;
    std::int32_t monitorHeight = 44;

    /// Ends the next exchange of the pending write; false when none is pending.
    bool advance();
    /// A read of the scan came back, or not.
    void finishScan(bool good, const std::string& answer = {});

    // The system's side.

    void SetTimings(std::int32_t requestMs, std::int32_t outMs) override;
    void SetHoldingRegisters(std::int16_t first, double count, bool flag, std::int16_t last) override;
    void SetAddressBase(std::int32_t base) override;
    void SetCommPort(std::int16_t port, const std::string& settings) override;
    void ShowPortSettings(bool modal) override;
    [[nodiscard]] std::vector<std::string> PortParameters() const override { return parameters; }
    [[nodiscard]] std::string SlaveNumber() const override { return slaveNumber; }
    [[nodiscard]] bool PortOpening() const override { return opening; }
    void ClearBlocks() override { note("ClearBlocks"); }
    void AddScanBlock(std::int32_t first, std::int32_t last, bool flag, const std::string& request,
                      std::int32_t& slave) override;
    void AddHoldingBlock(std::int16_t unit, std::int16_t first, std::int16_t last, bool flag,
                         std::int16_t count) override;
    void SetScanMode(const std::string& mode) override;
    [[nodiscard]] std::string ScanMode() const override { return mode_; }
    [[nodiscard]] std::int32_t ScanBlockCount() const override { return blockCount; }
    [[nodiscard]] std::int32_t ScanBlockIndex() const override { return blockIndex; }
    void ScanBlockSeen() override {}
    void ResetScan() override { note("ResetScan"); }
    void PrepareScan() override { note("PrepareScan"); }
    void StartScan() override { note("StartScan"); }
    void EndSession() override { note("EndSession"); }
    void StopScan() override;
    void ClosePort() override { note("ClosePort"); }
    void PauseScan() override { note("PauseScan"); }
    void ResumeScan() override { note("ResumeScan"); }
    void OpenPort() override { note("OpenPort"); }
    [[nodiscard]] std::int32_t RegisterValue(std::int32_t slave, std::int32_t address,
                                             bool isSigned = true) const override;
    [[nodiscard]] Register_Reading readingOf(std::int32_t slave, std::int32_t address) const override;
    [[nodiscard]] std::uint8_t TransactionCount() const override { return transactions; }
    [[nodiscard]] bool LastRequestFailed() const override { return requestFailed; }
    void LastRequestSeen() override {}
    [[nodiscard]] bool CommLost() const override { return lost; }
    [[nodiscard]] std::string LastResponse() const override { return response; }
    void ClearLastResponse() override;
    [[nodiscard]] std::string ExchangeLine1() const override { return line1_; }
    [[nodiscard]] std::string ExchangeLine2() const override { return line2_; }
    void ClearCounters() override {
        note("ClearCounters");
        transactions = 0;
    }
    void ResetTransferLog() override { note("ResetTransferLog"); }
    [[nodiscard]] std::int32_t TxCount() const override { return tx; }
    [[nodiscard]] std::int32_t RxCount() const override { return rx; }
    void PresetSingleRegister(std::int32_t slave, std::int32_t address, std::int32_t value) override;
    void PresetMultipleRegisters(std::int32_t slave, std::int32_t startAddress,
                                 const std::vector<std::int32_t>& values) override;
    [[nodiscard]] bool WriteBusy() const override { return !pending_.empty(); }
    [[nodiscard]] bool WriteFailed() const override { return writeFailed; }
    void ClearWriteFailed() override;
    [[nodiscard]] Write_Outcome LastWriteOutcome() const override { return outcome_; }
    [[nodiscard]] std::uint32_t WritesEnded() const override { return ended_; }
    [[nodiscard]] bool ControllerSeen() const override { return seen; }
    [[nodiscard]] bool MonitorLoaded() const override { return monitorLoaded; }
    [[nodiscard]] bool MonitorVisible() const override { return monitorVisible; }
    void ShowMonitor(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) override;
    void ActivateMonitor() override { note("ActivateMonitor"); }
    [[nodiscard]] std::int32_t MonitorLeft() const override { return monitorLeft; }
    [[nodiscard]] std::int32_t MonitorTop() const override { return monitorTop; }
    [[nodiscard]] std::int32_t MonitorWidth() const override { return monitorWidth; }
    [[nodiscard]] std::int32_t MonitorHeight() const override { return monitorHeight; }
    void UnloadMonitor() override { note("UnloadMonitor"); }
    void HideMonitor() override { note("HideMonitor"); }
    void RestoreMonitor() override { note("RestoreMonitor"); }
    void MonitorMinimized() override { note("MonitorMinimized"); }
    void onExchange(Exchange_Handler handler) override { handler_ = std::move(handler); }

  private:
    void note(const std::string& line) { journal_.add("link " + line); }
    void startWrite(std::int32_t start, const std::vector<std::int32_t>& values);
    void finishWrite(bool good);

    Journal& journal_;
    std::deque<Exchange> pending_;
    std::int32_t pendingStart_ = 0;
    std::vector<std::int32_t> pendingValues_;
    Write_Outcome outcome_ = Write_Outcome::None;
    std::uint32_t ended_ = 0;
    std::string mode_;
    std::string line1_;
    std::string line2_;
    Exchange_Handler handler_;
};

} // namespace zorvane::doubles
