// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <memory>

namespace zorvane {

/// Microseconds of a monotonic clock, or a span of them.
using Micros = std::int64_t;

inline constexpr Micros microsPerMs = 1000;
inline constexpr Micros microsPerSecond = 1000000;

/// Rings once at an absolute time of its clock; a time that has passed rings at once. It never rings from
/// within `armAt`. Arming again moves the time.
class Alarm {
  public:
    virtual ~Alarm() = default;
    virtual void armAt(Micros when) = 0;
    virtual void disarm() = 0;
};

/// The time of the link: a monotonic clock and the alarms that go by it.
class Link_Clock {
  public:
    virtual ~Link_Clock() = default;
    [[nodiscard]] virtual Micros now() const = 0;
    [[nodiscard]] virtual std::unique_ptr<Alarm> makeAlarm(std::function<void()> ring) = 0;
};

} // namespace zorvane
