// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/rtu_transaction.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zorvane::survey {

/// Who hears of the reads of a probe, always from the event loop.
class Probe_Listener {
  public:
    virtual ~Probe_Listener() = default;
    /// The probe is free for the next read, which may begin from within.
    virtual void readEnded(const Try_Result& result) = 0;
    /// Bytes that belong to no read.
    virtual void bytesHeard(Micros at, Byte_View bytes) = 0;
    virtual void otherMasterHeard(const Foreign_Request& foreign) = 0;
    virtual void portLost(const std::string& reason) = 0;
};

/// Reads of one register, one at a time, on a line whose settings may change in between. It has no operation
/// that writes to a controller.
class Read_Probe final : private Transaction_Listener {
  public:
    using Used = std::function<void(const Port_Opening&)>;

    /// All must outlive it.
    Read_Probe(Byte_Port& port, Link_Clock& clock, Probe_Listener& listener);

    /// Opens the port with the settings, or changes its line if it is open. `then` is called once, from
    /// within or from the event loop, unless `close` comes first. When it fails the port is closed.
    void use(const Port_Settings& settings, Used then);
    /// Whether a `use` hasn't ended yet.
    [[nodiscard]] bool opening() const { return static_cast<bool>(then_); }
    void close();

    /// Reads one register. REQUIRES: an open port, no read under way.
    void read(std::uint8_t unit, std::uint16_t address, Micros timeOut);

    /// Requests that went out.
    [[nodiscard]] std::uint64_t requests() const { return requests_; }

  private:
    void requestSent() override { ++requests_; }
    void tryFinished(const Try_Result& result) override;
    void strayReceived(Micros at, const Byte_Array& bytes, const std::string& what) override;
    void otherMasterHeard(Micros at, const Foreign_Request& foreign) override;
    void lineLost(const std::string& reason) override;
    void openingEnded(const Port_Opening& opening) override;

    [[nodiscard]] Port_Opening changeOrOpen(const Port_Settings& settings);
    void used(const Port_Opening& opening);

    Byte_Port& port_;
    Link_Clock& clock_;
    Probe_Listener& listener_;
    Rtu_Transaction transaction_;
    std::unique_ptr<Alarm> alarm_; ///< tells the end of an opening that went on
    Port_Opening opening_;
    Used then_;
    std::uint64_t requests_ = 0;
};

} // namespace zorvane::survey
