// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace zorvane::commission {

/// A moment, as the clock on the wall has it, which somebody may set back.
struct Wall_Time {
    std::int64_t utcMs = 0;         ///< since 1970-01-01 00:00 UTC
    std::int32_t offsetMinutes = 0; ///< of the local time, east of Greenwich

    bool operator==(const Wall_Time&) const = default;
};

class Wall_Clock {
  public:
    virtual ~Wall_Clock() = default;
    [[nodiscard]] virtual Wall_Time now() const = 0;
};

/// The clock of this computer.
class System_Wall_Clock final : public Wall_Clock {
  public:
    [[nodiscard]] Wall_Time now() const override;
};

/// "2026-11-22T07:40:05.123Z".
[[nodiscard]] std::string utcText(const Wall_Time& time);
/// "2026-11-22T08:40:05+01:00".
[[nodiscard]] std::string localText(const Wall_Time& time);
/// "20261122-084005": the local time, for the name of a folder.
[[nodiscard]] std::string nameText(const Wall_Time& time);

} // namespace zorvane::commission
