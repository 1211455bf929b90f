// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/traffic_listener.h"
#include "comm/modbus_control/line/port_settings.h"
#include "survey/listen/answer_times.h"

#include <string>

namespace zorvane::survey {

/// How fast the reads of a link are answered, and which time-out that suggests. Counting begins again with
/// other settings, but for another time-out.
class Read_Times {
  public:
    /// An exchange over a port with these settings; those that aren't answered reads don't count.
    void add(const Exchange_Record& exchange, const Port_Settings& port);

    [[nodiscard]] const Answer_Times& times() const { return times_; }
    /// In ms; 0 until enough reads were answered.
    [[nodiscard]] std::int32_t proposedTimeOutMs() const;
    /// "50 reads of unit 7: half answered within 12.3 ms, 99 % within 20.0 ms."
    [[nodiscard]] std::string text() const;

  private:
    Port_Settings port_;
    Answer_Times times_;
};

/// "12.3 ms"
[[nodiscard]] std::string msText(Micros time);

} // namespace zorvane::survey
