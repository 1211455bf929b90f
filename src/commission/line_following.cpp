// SPDX-License-Identifier: MIT
#include "commission/line_following.h"

namespace zorvane::commission {

namespace {

constexpr Micros betweenTurns = 200 * microsPerMs;

Line_Way freshWay(const Line_Way& old, const Line_Change& change) {
    Line_Way fresh = old;
    if (change.unit) fresh.unit = *change.unit;
    if (change.baud) fresh.line.baud = *change.baud;
    return fresh;
}

} // namespace

std::optional<Followed_Line> followLine(Unit_Writer& line, const Unit_Read& read, const Plan_Write& write,
                                        const Line_Change& change, const Line_Way& old, Micros span,
                                        const std::function<bool()>& isStopped) {
    const Line_Way fresh = freshWay(old, change);
    const Micros until = line.now() + span;
    for (bool isFresh = true; line.now() < until && !isStopped(); isFresh = !isFresh) {
        const Line_Way& way = isFresh ? fresh : old;
        if (!line.setLine(way.line)) {
            line.pause(betweenTurns);
            continue;
        }
        const Unit_Answer there = read(way.unit, write.address, 1);
        if (there.end == Unit_End::PortLost) { // such an end comes at once
            line.pause(betweenTurns);
            (void)line.openAgain();
        }
        if (!there.good()) continue;
        if (samePart(write.parts.front(), write.values.front(), there.values.front()))
            return Followed_Line{way, isFresh};
        line.pause(betweenTurns);
    }
    (void)line.setLine(old.line);
    return std::nullopt;
}

} // namespace zorvane::commission
