// SPDX-License-Identifier: MIT
#include "survey/traffic/traffic_file.h"

#include <utility>

namespace zorvane::survey {

Traffic_File::Traffic_File(Traffic_Sink& sink, Link_Clock& clock, std::string name, std::int64_t sinceEpoch,
                           std::size_t limit)
    : sink_(sink), clock_(clock), alarm_(clock.makeAlarm([this] { sync(); })), name_(std::move(name)),
      present_(name_), sinceEpoch_(sinceEpoch), limit_(limit) {
    good_ = sink_.begin(present_);
}

void Traffic_File::sync() {
    unsynced_ = false;
    sink_.sync();
}

std::string Traffic_File::nextName() {
    const std::size_t slash = name_.rfind('/');
    const std::size_t dot = name_.rfind('.');
    const bool hasEnding = dot != std::string::npos && (slash == std::string::npos || dot > slash + 1);
    const std::size_t end = hasEnding && dot > 0 ? dot : name_.size();
    std::string next;
    do
        next = name_.substr(0, end) + "-" + std::to_string(++number_) + name_.substr(end);
    while (sink_.exists(next));
    return next;
}

void Traffic_File::write(const Traffic_Entry& entry) {
    if (!good_) return;
    const std::string line = trafficJsonLine(entry, sinceEpoch_);
    if (written_ > 0 && written_ + line.size() > limit_) {
        written_ = 0;
        present_ = nextName();
        good_ = sink_.begin(present_);
    }
    good_ = good_ && sink_.write(line);
    written_ += line.size();
    if (good_ && !std::exchange(unsynced_, true)) alarm_->armAt(clock_.now() + syncedAfter);
}

} // namespace zorvane::survey
