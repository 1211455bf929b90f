// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/scan/register_readings.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace zorvane {

// What may be asked of the link, by role. Whoever needs one role takes that
// role; `modbus_control` is their sum.

/// What is known of a write that has ended.
enum class Write_Outcome {
    None,      ///< no write has ended since the link was made or the last one began
    Taken,     ///< the controller said so
    Refused,   ///< the controller answered with an exception; none of its frames
               ///< was taken
    NotSent,   ///< no byte of it went out
    Uncertain, ///< it went out, and no answer tells whether the controller took
               ///< it, or took all of it
};

/// The port and its settings.
class Link_Port {
  public:
    virtual ~Link_Port() = default;
    /// Chooses the port by number and its line settings, as "9600,n,8,1": baud,
    /// parity letter, data and stop bits.
    virtual void SetCommPort(std::int16_t port, const std::string& settings) = 0;
    /// The dialog of the port settings. A modal one is closed again when this
    /// returns.
    virtual void ShowPortSettings(bool modal) = 0;
    /// Six texts: slave number, line settings, port, retries, time-out in ms,
    /// RTS/TX delay in ms.
    [[nodiscard]] virtual std::vector<std::string> PortParameters() const = 0;
    /// The slave number of the port settings, as decimal text.
    [[nodiscard]] virtual std::string SlaveNumber() const = 0;
    /// The port is being opened, which takes a while on a network and ends by an event. Until then
    /// `CommLost` tells nothing of it. A link whose ports open at once never says so.
    [[nodiscard]] virtual bool PortOpening() const { return false; }
};

/// The register image: reading it costs no wire traffic.
class Link_Registers : public Register_Readings {
  public:
    virtual ~Link_Registers() = default;
    /// The last value of a register in the image, without wire traffic: -32768 to
    /// 32767, or 0 to 65535 when `isSigned` is false. A register never read is 0.
    [[nodiscard]] virtual std::int32_t RegisterValue(std::int32_t slave, std::int32_t address,
                                                     bool isSigned = true) const = 0;
};

/// The blocks and the scan that reads them.
class Link_Scan {
  public:
    virtual ~Link_Scan() = default;
    /// Empties the block list and sets the address base back to 0.
    virtual void ClearBlocks() = 0;
    /// Appends a block of registers `first` to `last` for the scan modes that its
    /// request word belongs to. `slave` is read and left as it is; `flag` plays
    /// no part.
    virtual void AddScanBlock(std::int32_t first, std::int32_t last, bool flag, const std::string& request,
                              std::int32_t& slave) = 0;
    /// A block of slave `unit` with the request word "NONE"; `flag` and `count`
    /// play no part.
    virtual void AddHoldingBlock(std::int16_t unit, std::int16_t first, std::int16_t last, bool flag,
                                 std::int16_t count) = 0;

    /// Registers `first` to `last` hold one value, such as a text: where the link
    /// reads a block in parts, none of them ends in between. Until `ClearBlocks`;
    /// a link that reads no parts needs none of it.
    virtual void KeepTogether(std::int32_t /*first*/, std::int32_t /*last*/) {}

    /// "NONE" covers every block; any other word covers the blocks with that
    /// request word.
    virtual void SetScanMode(const std::string& mode) = 0;
    [[nodiscard]] virtual std::string ScanMode() const = 0;
    /// How many blocks the mode covers.
    [[nodiscard]] virtual std::int32_t ScanBlockCount() const = 0;
    /// Index (from 1) of the block now scanned. It comes back to its first value
    /// after a whole pass. Looking at it moves nothing.
    [[nodiscard]] virtual std::int32_t ScanBlockIndex() const = 0;
    /// Whoever must miss no index says that it has seen the present one: the scan
    /// may leave it.
    virtual void ScanBlockSeen() = 0;
    /// The scan begins again at the first block of the mode.
    virtual void ResetScan() = 0;
    /// Opens the port for the selected mode.
    virtual void PrepareScan() = 0;
    /// Wishes for the scan, which then runs whenever the port is open and nothing
    /// pauses it, until `EndSession` takes the wish back. In either order with
    /// `PrepareScan`.
    virtual void StartScan() = 0;
    virtual void EndSession() = 0;
    /// Drops pending requests; a pending write ends as failed.
    virtual void StopScan() = 0;
    virtual void ClosePort() = 0;
    /// Between these two no scan request goes out; writes do.
    virtual void PauseScan() = 0;
    virtual void ResumeScan() = 0;
    /// The same as `PrepareScan`.
    virtual void OpenPort() = 0;
};

/// What the exchanges came to, in numbers and texts.
class Link_Exchanges {
  public:
    virtual ~Link_Exchanges() = default;
    /// Goes up, with wrap, at each finished exchange, success or not, retries
    /// included.
    [[nodiscard]] virtual std::uint8_t TransactionCount() const = 0;
    /// The last request of the scan had no answer or an exception for one.
    [[nodiscard]] virtual bool LastRequestFailed() const = 0;
    /// Whoever must miss no failure says that it has seen this one: the scan may
    /// go on.
    virtual void LastRequestSeen() = 0;
    /// A request had no valid answer after all its tries; the next valid answer,
    /// exceptions included, clears it.
    [[nodiscard]] virtual bool CommLost() const = 0;
    /// Empty for no answer, "BUSY" for exception 6, else the text of the
    /// exception.
    [[nodiscard]] virtual std::string LastResponse() const = 0;
    virtual void ClearLastResponse() = 0;
    /// "Tx: " and the frame in hex pairs.
    [[nodiscard]] virtual std::string ExchangeLine1() const = 0;
    /// "Rx: " and the bytes received, or the reason why there are none.
    [[nodiscard]] virtual std::string ExchangeLine2() const = 0;
    /// Sets `TransactionCount`, `TxCount` and `RxCount` to 0.
    virtual void ClearCounters() = 0;
    /// Empties the two exchange lines and the last response, and takes
    /// `LastRequestFailed` back.
    virtual void ResetTransferLog() = 0;
    /// Requests that went out, and those to which anything came in, retries
    /// included.
    [[nodiscard]] virtual std::int32_t TxCount() const = 0;
    [[nodiscard]] virtual std::int32_t RxCount() const = 0;
    /// An answer came since the port was opened last that can't be an adapter's
    /// echo: to a read, to a block write, an exception, or that of a single write
    /// after its echo.
    [[nodiscard]] virtual bool ControllerSeen() const = 0;

    /// The tenth event: two text lines about a finished exchange. The handler may
    /// be empty.
    using Exchange_Handler = std::function<void(const std::string& line1, const std::string& line2)>;
    virtual void onExchange(Exchange_Handler handler) = 0;
};

/// Single and block writes. They go before the next scan request; `WriteBusy`
/// is true until the exchange, retries included, ended.
class Link_Writes {
  public:
    virtual ~Link_Writes() = default;
    /// Function 6; the low 16 bits of `value` go out.
    virtual void PresetSingleRegister(std::int32_t slave, std::int32_t address, std::int32_t value) = 0;
    /// Function 16; the low 16 bits of each value, the first at `startAddress`.
    virtual void PresetMultipleRegisters(std::int32_t slave, std::int32_t startAddress,
                                         const std::vector<std::int32_t>& values) = 0;
    [[nodiscard]] virtual bool WriteBusy() const = 0;
    /// The last write ended without a good answer; stays until
    /// `ClearWriteFailed`.
    [[nodiscard]] virtual bool WriteFailed() const = 0;
    virtual void ClearWriteFailed() = 0;
    /// How the last write ended, whatever became of those before it. A link that
    /// can't know says None.
    [[nodiscard]] virtual Write_Outcome LastWriteOutcome() const { return Write_Outcome::None; }
    /// Goes up, with wrap, at each write that ends; writes that are dropped
    /// together count as one.
    [[nodiscard]] virtual std::uint32_t WritesEnded() const = 0;
};

/// The monitor window; places and sizes in twips.
class Link_Monitor {
  public:
    virtual ~Link_Monitor() = default;
    [[nodiscard]] virtual bool MonitorLoaded() const = 0;
    [[nodiscard]] virtual bool MonitorVisible() const = 0;
    virtual void ShowMonitor(std::int32_t left, std::int32_t top, std::int32_t width,
                             std::int32_t height) = 0;
    virtual void ActivateMonitor() = 0;
    [[nodiscard]] virtual std::int32_t MonitorLeft() const = 0;
    [[nodiscard]] virtual std::int32_t MonitorTop() const = 0;
    [[nodiscard]] virtual std::int32_t MonitorWidth() const = 0;
    [[nodiscard]] virtual std::int32_t MonitorHeight() const = 0;
    virtual void UnloadMonitor() = 0;
    virtual void HideMonitor() = 0;
    virtual void RestoreMonitor() = 0;
    virtual void MonitorMinimized() = 0;
};

/// A link that reads and can't write: for whatever compares, plans, finds or
/// listens.
class Reading_Link : public Link_Registers, public Link_Scan, public Link_Exchanges {};

/// Looks at the index of the scan as a watcher who must miss none.
inline std::int32_t watchedScanBlock(Link_Scan& scan) {
    const std::int32_t index = scan.ScanBlockIndex();
    scan.ScanBlockSeen();
    return index;
}

/// Looks at the failure of the last request as a watcher who must miss none.
inline bool watchedFailure(Link_Exchanges& exchanges) {
    const bool failed = exchanges.LastRequestFailed();
    exchanges.LastRequestSeen();
    return failed;
}

} // namespace zorvane
