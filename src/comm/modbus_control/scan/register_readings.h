// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace zorvane {

/// Where the image has a register's value from.
enum class Reading_Age {
    Never,          ///< not from the controller: the image has 0, or what was written
    EarlierOpening, ///< read while the port was open before
    ThisOpening,    ///< read since the port was opened last
};

/// What the readings of one register came to.
struct Register_Reading {
    Reading_Age age = Reading_Age::Never;
    /// Why the latest reading brought no value, in the words of `LastResponse`: empty for no answer after all
    /// tries. Nothing when it brought one, or when there was none.
    std::optional<std::string> fault;

    /// The image has a value that the controller gave since the port was opened last.
    [[nodiscard]] bool current() const { return age == Reading_Age::ThisOpening; }

    bool operator==(const Register_Reading&) const = default;
};

/// Tells values that were read from those that were not. The image alone can't: what was never read is 0
/// there, and what is refused now keeps its older value.
class Register_Readings {
  public:
    /// Slave 0 means that of the port settings. Asking sends nothing.
    [[nodiscard]] virtual Register_Reading readingOf(std::int32_t slave, std::int32_t address) const = 0;

  protected:
    ~Register_Readings() = default;
};

} // namespace zorvane
