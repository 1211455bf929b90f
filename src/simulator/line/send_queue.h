// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/line/line_pace.h"
#include "simulator/wire/bytes.h"
#include "simulator/wire/frame_record.h"

#include <deque>
#include <optional>
#include <vector>

namespace zorvane::simulator {

/// Frames on their way to the client. They go in the order given, never before their time, one byte after
/// another at the line's speed, with the line's silence between two of them.
class Send_Queue {
  public:
    explicit Send_Queue(Line_Pace pace) : pace_(pace) {}

    void add(Bytes bytes, Instant earliest, Frame_Record record);

    /// When the next byte has passed the line and so must be handed to the client.
    [[nodiscard]] std::optional<Instant> nextDue() const;

    struct Due {
        Bytes bytes;
        std::vector<Frame_Record> finished; ///< frames whose last byte is among them
    };

    /// Everything due by now.
    [[nodiscard]] Due take(Instant now);

    [[nodiscard]] std::size_t frames() const noexcept { return frames_.size(); }
    void clear() { frames_.clear(); }

  private:
    struct Frame {
        Bytes bytes;
        Instant start;
        Frame_Record record;
        std::size_t sent = 0;
    };

    Line_Pace pace_;
    std::deque<Frame> frames_;
    Instant lineFree_{};
};

} // namespace zorvane::simulator
