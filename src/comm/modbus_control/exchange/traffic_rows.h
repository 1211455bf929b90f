// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/traffic_listener.h"

#include <array>
#include <cstddef>
#include <deque>
#include <string>
#include <variant>
#include <vector>

namespace zorvane {

/// Something about the port, in words.
struct Port_Note {
    Micros at = 0;
    std::string text;
};

/// One row of the monitor.
using Traffic_Entry = std::variant<Exchange_Record, Stray_Record, Port_Note>;

enum class Traffic_Column { Time, Duration, Unit, Function, Registers, Wire, Values, Result };
inline constexpr std::array trafficColumns = {
    Traffic_Column::Time,      Traffic_Column::Duration, Traffic_Column::Unit,   Traffic_Column::Function,
    Traffic_Column::Registers, Traffic_Column::Wire,     Traffic_Column::Values, Traffic_Column::Result};

[[nodiscard]] std::string_view trafficHeading(Traffic_Column column) noexcept;

/// What a row shows in a column. `midnight` is the time of the link's clock at the last local midnight.
[[nodiscard]] std::string trafficText(const Traffic_Entry& entry, Traffic_Column column, Micros midnight);
/// Whether the row tells of something that went wrong.
[[nodiscard]] bool trafficFailed(const Traffic_Entry& entry);

/// The raw bytes of a row: a line for what was sent and one for what came in.
[[nodiscard]] std::string rawBytes(const Traffic_Entry& entry);

/// Rows as text for other programs: headings, then a line each with its raw bytes after it, parts separated
/// by tabs.
[[nodiscard]] std::string trafficHeadingLine();
[[nodiscard]] std::string trafficLine(const Traffic_Entry& entry, Micros midnight);

/// "14:05:07.250": time of day, in ms, of so many microseconds since midnight; later days begin again.
[[nodiscard]] std::string timeOfDayText(Micros sinceMidnight);

/// The rows kept, the newest last; the oldest go when there are too many.
class Traffic_Rows {
  public:
    static constexpr std::size_t usualLimit = 100000;

    explicit Traffic_Rows(std::size_t limit = usualLimit) : limit_(limit) {}

    /// How many of the oldest rows must go before so many are added.
    [[nodiscard]] std::size_t surplus(std::size_t added) const;
    void dropOldest(std::size_t count);
    /// REQUIRES: no surplus.
    void add(std::vector<Traffic_Entry> entries);
    void clear() { entries_.clear(); }

    [[nodiscard]] std::size_t limit() const noexcept { return limit_; }
    [[nodiscard]] std::size_t size() const noexcept { return entries_.size(); }
    [[nodiscard]] const Traffic_Entry& at(std::size_t row) const { return entries_.at(row); }

  private:
    std::size_t limit_;
    std::deque<Traffic_Entry> entries_;
};

} // namespace zorvane
