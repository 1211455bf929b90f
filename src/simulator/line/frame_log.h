// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/wire/bytes.h"
#include "simulator/wire/frame_record.h"

#include <cstdint>
#include <fstream>
#include <iosfwd>
#include <string>

namespace zorvane::simulator {

/// The log: a line of JSON for each frame and event, written out at once so that it can be read meanwhile.
/// A log that can't be written any more is said once on `complaints` and otherwise left alone.
class Frame_Log {
  public:
    /// `file` empty: no log; "-": `standardOut`. Throws `std::runtime_error` when the file can't be made.
    Frame_Log(const std::string& file, std::ostream& standardOut, std::ostream& complaints, Instant start);

    void frame(const Frame_Record& record, Instant now, std::int32_t addressBase);
    void event(const std::string& text, Instant now);

  private:
    void write(const std::string& line);

    std::ofstream file_;
    std::ostream* out_ = nullptr; ///< null: no log
    std::ostream& complaints_;
    Instant start_;
};

} // namespace zorvane::simulator
