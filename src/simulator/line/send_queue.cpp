// SPDX-License-Identifier: MIT
#include "simulator/line/send_queue.h"

#include <algorithm>
#include <utility>

namespace zorvane::simulator {

void Send_Queue::add(Bytes bytes, Instant earliest, Frame_Record record) {
    if (bytes.empty()) return;
    const Instant start = std::max(earliest, lineFree_);
    lineFree_ = start + pace_.wireTime(bytes.size()) + pace_.silence();
    frames_.push_back({std::move(bytes), start, std::move(record), 0});
}

std::optional<Instant> Send_Queue::nextDue() const {
    if (frames_.empty()) return std::nullopt;
    const Frame& frame = frames_.front();
    return frame.start + pace_.wireTime(frame.sent + 1);
}

Send_Queue::Due Send_Queue::take(Instant now) {
    Due due;
    while (!frames_.empty() && *nextDue() <= now) {
        Frame& frame = frames_.front();
        due.bytes.push_back(frame.bytes[frame.sent++]);
        if (frame.sent < frame.bytes.size()) continue;
        due.finished.push_back(std::move(frame.record));
        frames_.pop_front();
    }
    return due;
}

} // namespace zorvane::simulator
