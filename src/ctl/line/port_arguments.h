// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_settings.h"
#include "ctl/document/subcommand.h"
#include "template/services/link_notice.h"

#include <optional>
#include <string>

namespace zorvane::ctl {

/// What is wrong with an argument that should be line settings, or an RTS mode; empty when it is one.
[[nodiscard]] std::string lineComplaint(const std::string& text);
[[nodiscard]] std::string rtsComplaint(const std::string& text);

/// The serial port, as the calls that transfer take it.
class Port_Arguments {
  public:
    void add(CLI::App& arguments);
    /// For a call that can do without a controller.
    void addOptional(CLI::App& arguments);
    /// Whether a port was named.
    [[nodiscard]] bool named() const { return !port_.empty(); }

    [[nodiscard]] Port_Settings settings() const;
    /// What is wrong with the settings, in words; empty when they are usable.
    [[nodiscard]] std::string fault() const { return settingsFault(settings()); }
    /// The user has asked for a time-out, which then wins over the template's.
    [[nodiscard]] bool ownTimeOut() const { return timeOutMs_.has_value(); }
    /// Whether a slave number, or line settings, were named.
    [[nodiscard]] bool ownSlave() const { return slave_.has_value(); }
    [[nodiscard]] bool ownLine() const { return line_.has_value(); }

  private:
    static constexpr std::int32_t usualRetries = 3;
    static constexpr std::int32_t usualTimeOutMs = 1000;

    std::string port_;
    std::optional<std::int32_t> slave_;
    std::optional<std::string> line_;
    std::int32_t retries_ = usualRetries;
    std::optional<std::int32_t> timeOutMs_;
    std::string rts_ = "none";
    std::int32_t txDelayMs_ = 0;
    bool echo_ = false;
};

/// Hands a template's notices to the link, but leaves the reply time-out to the port settings.
class Own_Time_Out : public Link_Notice {
  public:
    explicit Own_Time_Out(Link_Notice& link) : link_(link) {}
    void SetTimings(std::int32_t requestMs, std::int32_t /*outMs*/) override {
        link_.SetTimings(requestMs, 0);
    }
    void SetHoldingRegisters(std::int16_t first, double count, bool flag, std::int16_t last) override {
        link_.SetHoldingRegisters(first, count, flag, last);
    }
    void SetAddressBase(std::int32_t base) override { link_.SetAddressBase(base); }

  private:
    Link_Notice& link_;
};

} // namespace zorvane::ctl
