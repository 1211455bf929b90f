// SPDX-License-Identifier: MIT
#include "comm/modbus_control/scan/read_parts.h"

#include <algorithm>

namespace zorvane {

void Kept_Together::add(std::int32_t first, std::int32_t last) {
    if (last <= first) return;
    // Ranges that share registers make one.
    std::erase_if(ranges_, [&](const auto& range) {
        if (range.second < first || last < range.first) return false;
        first = std::min(first, range.first);
        last = std::max(last, range.second);
        return true;
    });
    const std::pair<std::int32_t, std::int32_t> range{first, last};
    ranges_.insert(std::upper_bound(ranges_.begin(), ranges_.end(), range), range);
}

bool Kept_Together::mayBeginAt(std::int32_t number) const {
    // The last range that begins before the register is the only one that can hold it.
    const auto after = std::partition_point(ranges_.begin(), ranges_.end(),
                                            [number](const auto& range) { return range.first < number; });
    return after == ranges_.begin() || std::prev(after)->second < number;
}

std::optional<std::uint16_t> freePart(const Scan_Frame& frame, const Kept_Together& together,
                                      const std::function<bool(std::uint16_t count)>& isFree) {
    // Of all answers that of one register is most easily made up by chance: no part is that short.
    constexpr std::uint16_t least = 2;
    for (int count = frame.count - least; count >= least; --count) {
        const auto part = static_cast<std::uint16_t>(count);
        if (together.mayBeginAt(frame.first + count) && isFree(part)) return part;
    }
    return std::nullopt;
}

} // namespace zorvane
