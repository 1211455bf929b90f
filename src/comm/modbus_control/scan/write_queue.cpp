// SPDX-License-Identifier: MIT
#include "comm/modbus_control/scan/write_queue.h"

#include <algorithm>

namespace zorvane {

namespace {

std::uint16_t lowWord(std::int32_t value) {
    return static_cast<std::uint16_t>(static_cast<std::uint32_t>(value) & 0xFFFFU);
}

} // namespace

std::vector<std::uint16_t> Write_Job::frameValues() const {
    const std::size_t count = std::min<std::size_t>(values.size() - done, largestWrite);
    const auto begin = values.begin() + static_cast<std::ptrdiff_t>(done);
    return {begin, begin + static_cast<std::ptrdiff_t>(count)};
}

void Write_Queue::addSingle(std::int32_t slave, std::int32_t address, std::int32_t value) {
    jobs_.push_back({slave, address, true, {lowWord(value)}, 0, 0, false});
}

void Write_Queue::addMultiple(std::int32_t slave, std::int32_t first,
                              const std::vector<std::int32_t>& values) {
    Write_Job job{slave, first, false, {}, 0, 0, false};
    std::transform(values.begin(), values.end(), std::back_inserter(job.values), lowWord);
    jobs_.push_back(std::move(job));
}

bool Write_Queue::frameDone() {
    Write_Job& job = jobs_.front();
    job.done += job.frameValues().size();
    job.tries = 0;
    job.unanswered = false;
    if (job.done < job.values.size()) return false;
    jobs_.pop_front();
    return true;
}

} // namespace zorvane
