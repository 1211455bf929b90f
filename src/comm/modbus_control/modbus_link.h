// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/rtu_transaction.h"
#include "comm/modbus_control/exchange/traffic_listener.h"
#include "comm/modbus_control/line/port_session.h"
#include "comm/modbus_control/link_windows.h"
#include "comm/modbus_control/modbus_control.h"
#include "comm/modbus_control/scan/read_parts.h"
#include "comm/modbus_control/scan/register_store.h"
#include "comm/modbus_control/scan/scan.h"
#include "comm/modbus_control/scan/write_queue.h"

#include <set>

namespace zorvane {

/// What the link tells about its exchanges.
struct Exchange_Status {
    std::uint8_t transactionCount = 0;
    std::int32_t txCount = 0;
    std::int32_t rxCount = 0;
    bool lastRequestFailed = false;
    bool commLost = false;
    bool writeFailed = false;
    Write_Outcome writeOutcome = Write_Outcome::None;
    std::uint32_t writesEnded = 0;
    bool controllerSeen = false; ///< since the port was opened last
    std::string lastResponse;
    std::string line1;
    std::string line2;
};

/// The link itself: one exchange at a time on one port, writes before the scan, each with its tries. It is
/// driven by its port and clock alone and never blocks. Whoever is told of an exchange is told last, when the
/// next request is on its way, and may call any operation from there.
class Modbus_Link final : public modbus_control, private Transaction_Listener {
  public:
    /// All parts must outlive the link.
    struct Parts {
        Byte_Port& port;
        Link_Clock& clock;
        Port_Finder& finder;
        Asker& asker;
        Link_Windows& windows;
    };

    Modbus_Link(const Parts& parts, const Port_Settings& settings);
    ~Modbus_Link() override;
    Modbus_Link(const Modbus_Link&) = delete;
    Modbus_Link& operator=(const Modbus_Link&) = delete;

    /// Takes effect at once: an open port is closed and opened again with the new settings.
    void setPortSettings(const Port_Settings& settings);
    /// Another time-out from the next request on; the port stays open.
    void setTimeOutMs(std::int32_t timeOutMs);
    [[nodiscard]] const Port_Settings& portSettings() const { return settings_; }
    /// The pause between exchanges and the time-out in force, in ms.
    [[nodiscard]] std::int32_t pauseMs() const;
    [[nodiscard]] std::int32_t timeOutMs() const;
    /// The timings of the template, in ms; 0 or below where it has none.
    [[nodiscard]] std::int32_t templatePauseMs() const { return requestMs_; }
    [[nodiscard]] std::int32_t templateTimeOutMs() const { return outMs_; }
    /// What is taken off a register's number to get its address on the wire.
    [[nodiscard]] std::int32_t addressBase() const { return addressBase_; }
    [[nodiscard]] bool portOpen() const { return port_.isOpen(); }
    /// Closes the port for somebody else's use; `takePortBack` opens it again if it is still wanted.
    void lendPort();
    void takePortBack();
    void setTrafficListener(Traffic_Listener* listener) { traffic_ = listener; }

    void SetTimings(std::int32_t requestMs, std::int32_t outMs) override;
    void SetHoldingRegisters(std::int16_t first, double count, bool flag, std::int16_t last) override;
    void SetAddressBase(std::int32_t base) override;

    void SetCommPort(std::int16_t port, const std::string& settings) override;
    void ShowPortSettings(bool modal) override;
    [[nodiscard]] std::vector<std::string> PortParameters() const override;
    [[nodiscard]] std::string SlaveNumber() const override;
    [[nodiscard]] bool PortOpening() const override { return opening_ == Opening::Wanted; }

    void ClearBlocks() override;
    void AddScanBlock(std::int32_t first, std::int32_t last, bool flag, const std::string& request,
                      std::int32_t& slave) override;
    void AddHoldingBlock(std::int16_t unit, std::int16_t first, std::int16_t last, bool flag,
                         std::int16_t count) override;
    void KeepTogether(std::int32_t first, std::int32_t last) override { together_.add(first, last); }

    void SetScanMode(const std::string& mode) override;
    [[nodiscard]] std::string ScanMode() const override;
    [[nodiscard]] std::int32_t ScanBlockCount() const override;
    [[nodiscard]] std::int32_t ScanBlockIndex() const override;
    void ScanBlockSeen() override;
    void ResetScan() override;
    void PrepareScan() override;
    void StartScan() override;
    void EndSession() override;
    void StopScan() override;
    void ClosePort() override;
    void PauseScan() override;
    void ResumeScan() override;
    void OpenPort() override;

    [[nodiscard]] std::int32_t RegisterValue(std::int32_t slave, std::int32_t address,
                                             bool isSigned = true) const override;
    [[nodiscard]] Register_Reading readingOf(std::int32_t slave, std::int32_t address) const override;
    [[nodiscard]] std::uint8_t TransactionCount() const override;
    [[nodiscard]] bool LastRequestFailed() const override;
    void LastRequestSeen() override;
    [[nodiscard]] bool CommLost() const override;
    [[nodiscard]] std::string LastResponse() const override;
    void ClearLastResponse() override;
    [[nodiscard]] std::string ExchangeLine1() const override;
    [[nodiscard]] std::string ExchangeLine2() const override;
    void ClearCounters() override;
    void ResetTransferLog() override;
    [[nodiscard]] std::int32_t TxCount() const override;
    [[nodiscard]] std::int32_t RxCount() const override;

    void PresetSingleRegister(std::int32_t slave, std::int32_t address, std::int32_t value) override;
    void PresetMultipleRegisters(std::int32_t slave, std::int32_t startAddress,
                                 const std::vector<std::int32_t>& values) override;
    [[nodiscard]] bool WriteBusy() const override;
    [[nodiscard]] bool WriteFailed() const override;
    void ClearWriteFailed() override;
    [[nodiscard]] Write_Outcome LastWriteOutcome() const override { return status_.writeOutcome; }
    [[nodiscard]] std::uint32_t WritesEnded() const override { return status_.writesEnded; }
    [[nodiscard]] bool ControllerSeen() const override { return status_.controllerSeen; }

    [[nodiscard]] bool MonitorLoaded() const override;
    [[nodiscard]] bool MonitorVisible() const override;
    void ShowMonitor(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) override;
    void ActivateMonitor() override;
    [[nodiscard]] std::int32_t MonitorLeft() const override;
    [[nodiscard]] std::int32_t MonitorTop() const override;
    [[nodiscard]] std::int32_t MonitorWidth() const override;
    [[nodiscard]] std::int32_t MonitorHeight() const override;
    void UnloadMonitor() override;
    void HideMonitor() override;
    void RestoreMonitor() override;
    void MonitorMinimized() override;

    void onExchange(Exchange_Handler handler) override { handler_ = std::move(handler); }

  private:
    /// The request handed to the transaction.
    struct Current {
        enum class Kind { None, Scan, Write };
        Kind kind = Kind::None;
        std::int32_t slave = 0;
        std::int32_t first = 0; ///< register number
        bool stale = false;     ///< the scan has started again since: only the registers count
        bool part = false;      ///< of a frame of the scan
    };

    /// A try of the scan that failed before its watcher saw which block is being read. Told at once, the
    /// failure would be put down to the block before.
    struct Held_Try {
        Current current;
        Try_Result result;
    };

    void requestSent() override;
    void tryFinished(const Try_Result& result) override;
    void strayReceived(Micros at, const Byte_Array& bytes, const std::string& what) override;
    void otherMasterHeard(Micros at, const Foreign_Request& foreign) override;
    void lineLost(const std::string& reason) override;
    void openingEnded(const Port_Opening& opening) override;

    void next();
    void startWrite();
    void continueScan();
    void startFrame(const Scan_Frame& frame);
    [[nodiscard]] Rtu_Request requestFor(const Scan_Frame& frame, std::uint8_t unit);
    [[nodiscard]] bool onlyOfItsShape(const Scan_Frame& frame) const;
    void partTried(const Current& current, const Try_Result& result);
    void partRefused(const Try_Result& result);
    void giveBlockUp(const std::string& why);
    [[nodiscard]] bool triedAgain(const Try_Result& result, std::int32_t& tries) const;
    void takeParts();
    void missScan();
    void missEmptyScan();
    void refuseFrame(const Scan_Frame& frame, const std::string& why);
    void armScanAlarm();
    void scanLookedAt();
    bool withdrawScan();
    void restartScan();
    [[nodiscard]] bool scanWanted() const { return wish_ && portWanted_ && !paused_ && !halted_; }

    [[nodiscard]] bool mustBeHeld(const Current& current, const Try_Result& result) const;
    void takeTry(const Current& current, const Try_Result& result);
    void takeHeldTry();
    void ringScanAlarm();
    void countTry(const Try_Result& result);
    void scanTried(const Current& current, const Try_Result& result);
    void writeTried(const Current& current, const Try_Result& result);
    void tell(const Current& current, const Try_Result& result);
    void failWrites();
    void endWrite(Write_Outcome outcome);
    void beginWrite();

    /// What an opening that goes on is for.
    enum class Opening { None, Wanted, Again };

    bool openPort();
    void openingIsWanted();
    bool opened(const Port_Opening& opening);
    void tryReopen();
    void reopened(const Port_Opening& opening);
    void portIsOpen(const Port_Opening& opening);
    void releasePort();
    void note(const std::string& text);

    void applyWaits();
    [[nodiscard]] std::int32_t slaveOf(std::int32_t slave) const {
        return slave == 0 ? settings_.slave : slave;
    }
    [[nodiscard]] std::string whyUnreachable(std::int32_t slave, std::int64_t first, std::size_t count) const;
    [[nodiscard]] std::uint16_t wireAddress(std::int64_t first) const;

    Byte_Port& port_;
    Link_Clock& clock_;
    Asker& asker_;
    Link_Windows& windows_;
    Traffic_Listener* traffic_ = nullptr;
    Exchange_Handler handler_;

    Port_Settings settings_;
    std::int32_t requestMs_ = 0; ///< the template's; 0 or below: none
    std::int32_t outMs_ = 0;     ///< the template's; 0 or below: the settings' own
    std::int32_t addressBase_ = 0;

    Rtu_Transaction transaction_;
    Port_Session session_;
    std::unique_ptr<Alarm> scanAlarm_;
    std::unique_ptr<Alarm> reopenAlarm_;

    Register_Store image_;
    Exchange_Status status_;
    Write_Queue writes_;
    Scan scan_;
    std::int32_t scanTries_ = 0; ///< failed ones of the present frame; of the present block while it is cut
    std::vector<Read_Part> parts_;
    Kept_Together together_;
    std::set<std::int32_t> uncut_;           ///< blocks whose controller refuses parts of them
    std::optional<Rtu_Request> lastReading_; ///< the last request of the scan
    std::optional<Micros> otherMasterAt_;    ///< when another master was last noted
    Current current_;
    std::optional<Held_Try> held_;

    bool wish_ = false; ///< StartScan to EndSession
    bool portWanted_ = false;
    Opening opening_ = Opening::None; ///< while one goes on; what is asked meanwhile waits for a wanted one
    bool paused_ = false;
    bool halted_ = false; ///< StopScan, until the scan is prepared or started again
    bool lent_ = false;
    bool missDue_ = false; ///< one block is to be missed for want of a port or of blocks
};

} // namespace zorvane
