// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/scan/register_ranges.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::compare {

/// The exception of a function that the controller doesn't know.
constexpr std::uint8_t illegalFunction = 1;
/// The exception of a register that the controller doesn't have.
constexpr std::uint8_t illegalAddress = 2;

/// Why a register has no value.
struct Unread {
    std::optional<std::uint8_t> exception; ///< of the controller's answer; nothing: there was no answer

    /// "no answer", or the exception in words.
    [[nodiscard]] std::string text() const;

    bool operator==(const Unread&) const = default;
};

/// What a reading of a controller's registers brought: values, and why others have none. Registers are
/// numbered as the template does it.
class Controller_Registers {
  public:
    using Values = std::map<std::int32_t, std::uint16_t>;

    Controller_Registers() = default;
    explicit Controller_Registers(Values values) : values_(std::move(values)) {}

    /// The values of registers that follow each other.
    void take(std::int32_t first, const std::vector<std::uint16_t>& values);
    /// A range that gave no values; values that its registers had before are gone.
    void fail(const Register_Range& range, const Unread& why);

    /// Nothing for a register without a value, whether it was asked for or not.
    [[nodiscard]] std::optional<std::uint16_t> valueAt(std::int32_t number) const;
    /// Why a register that was asked for has no value; nothing for any other.
    [[nodiscard]] std::optional<Unread> unreadAt(std::int32_t number) const;
    [[nodiscard]] bool holds(const Register_Range& range) const;
    [[nodiscard]] const Values& values() const noexcept { return values_; }

  private:
    Values values_;
    std::map<std::int32_t, Unread> unread_;
};

} // namespace zorvane::compare
