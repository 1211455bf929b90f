// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>

namespace zorvane::compare {

/// Registers by number, each 0 to 65535.
using Register_Values = std::map<std::int32_t, std::uint16_t>;

/// What is wrong with a register file, in words for people (UTF-8).
class Bad_Register_File : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Reads {"address": value, ...}. Anything else is a `Bad_Register_File`.
[[nodiscard]] Register_Values parseRegisters(const std::string& json);

/// The same text, one register a line.
[[nodiscard]] std::string registersText(const Register_Values& registers);

} // namespace zorvane::compare
