// SPDX-License-Identifier: MIT
#include "survey/listen/answer_times.h"

#include <algorithm>

namespace zorvane::survey {

namespace {

constexpr Micros kept = microsPerMs / 10;

} // namespace

void Answer_Times::add(Micros time) {
    ++tenths_[(std::max<Micros>(time, 0) + kept / 2) / kept];
    ++count_;
}

Micros Answer_Times::percentile(unsigned percent) const {
    const std::uint64_t rank = (count_ * percent + 99) / 100;
    std::uint64_t seen = 0;
    for (const auto& [tenth, times] : tenths_) {
        seen += times;
        if (seen >= rank) return tenth * kept;
    }
    return 0;
}

std::int32_t proposedTimeOutMs(const Answer_Times& times) {
    constexpr Micros step = 50 * microsPerMs;
    if (times.count() == 0) return 0;
    const Micros slowest = times.p99();
    const Micros wanted = std::max(3 * slowest, slowest + step);
    return static_cast<std::int32_t>((wanted + step - 1) / step * step / microsPerMs);
}

} // namespace zorvane::survey
