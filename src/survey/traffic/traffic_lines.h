// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/traffic_rows.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::survey {

// Traffic in a file: one object of JSON a line, UTF-8. "kind" is exchange, stray or note; "time_us" is in
// microseconds since 1970, UTC.

/// The line of a row, with its end. `sinceEpoch` is what the row's time lacks to microseconds since 1970.
[[nodiscard]] std::string trafficJsonLine(const Traffic_Entry& entry, std::int64_t sinceEpoch);

/// A row again, its time in microseconds since 1970. Nothing for a line that is none.
[[nodiscard]] std::optional<Traffic_Entry> parseTrafficLine(std::string_view line);

/// Reads a file of traffic in pieces of any size. Lines that are none are counted: the last one of a program
/// that crashed may be cut.
class Traffic_Reader {
  public:
    /// The rows whose lines have ended by now.
    [[nodiscard]] std::vector<Traffic_Entry> take(std::string_view piece);
    /// The row of a last line without an end.
    [[nodiscard]] std::vector<Traffic_Entry> end();
    [[nodiscard]] std::size_t unread() const { return unread_; }

  private:
    void takeLine(std::string_view line, std::vector<Traffic_Entry>& entries);

    std::string begun_;
    std::size_t unread_ = 0;
};

} // namespace zorvane::survey
