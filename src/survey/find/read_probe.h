// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/rtu_transaction.h"

#include <cstdint>
#include <string>

namespace zorvane::survey {

/// Who hears of the reads of a probe, always from the event loop.
class Probe_Owner {
  public:
    virtual ~Probe_Owner() = default;
    /// The probe is free for the next read, which may begin from within.
    virtual void readEnded(const Try_Result& result) = 0;
    /// Bytes that belong to no read.
    virtual void bytesHeard(Micros at, Byte_View bytes) = 0;
    virtual void otherMasterHeard(const Foreign_Request& foreign) = 0;
    virtual void portLost(const std::string& reason) = 0;
};

/// Reads of one register, one at a time, on a line whose settings may change in between. It has no operation
/// that writes to a controller.
class Read_Probe final : private Transaction_Owner {
  public:
    /// All must outlive it.
    Read_Probe(Byte_Port& port, Link_Clock& clock, Probe_Owner& owner)
        : port_(port), owner_(owner), transaction_(port, clock, *this) {}

    /// Opens the port with the settings, or changes its line if it is open. When that fails it is closed.
    [[nodiscard]] Port_Opening use(const Port_Settings& settings);
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

    Byte_Port& port_;
    Probe_Owner& owner_;
    Rtu_Transaction transaction_;
    std::uint64_t requests_ = 0;
};

} // namespace zorvane::survey
