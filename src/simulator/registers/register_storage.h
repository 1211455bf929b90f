// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace zorvane::simulator {

/// The text of a register file: a JSON object of register numbers and values, as `applyRegisterJson` reads
/// it.
[[nodiscard]] std::string registerJson(const std::map<std::int32_t, std::uint16_t>& values);

/// A file that holds registers beyond the end of the program. It is replaced as a whole, so a program that is
/// killed while it writes leaves the one before. The path is the platform's.
class Register_Storage {
  public:
    explicit Register_Storage(std::string path) : path_(std::move(path)) {}

    [[nodiscard]] bool exists() const;
    /// Throws `std::system_error` when it can't be written.
    void keep(const std::map<std::int32_t, std::uint16_t>& values) const;

  private:
    std::string path_;
};

} // namespace zorvane::simulator
