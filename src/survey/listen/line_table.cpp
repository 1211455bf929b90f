// SPDX-License-Identifier: MIT
#include "survey/listen/line_table.h"

#include <algorithm>

namespace zorvane::survey {

Micros Asking::period() const { return times < 2 ? 0 : (lastAt - firstAt) / static_cast<Micros>(times - 1); }

void Line_Table::take(const Heard_Exchange& exchange) {
    const Heard_Frame& first = exchange.request ? *exchange.request : *exchange.answer;
    Unit_Traffic& unit = units_[first.unit()];
    const bool toAll = first.unit() == 0;
    if (!exchange.paired() && !toAll) ++unit.unpaired;
    if (exchange.request) takeRequest(exchange, unit);
    if (!exchange.answer) return;
    ++unit.answers;
    if (exchange.answer->isException()) ++unit.refusals;
    if (exchange.paired()) unit.answerTimes.add(exchange.answerTime());
}

void Line_Table::takeRequest(const Heard_Exchange& exchange, Unit_Traffic& unit) {
    ++unit.requests;
    const Asked asked = askedBy(exchange.request->bytes);
    auto found = askings_.find(asked);
    if (found == askings_.end()) {
        if (askings_.size() >= mostAskings) return;
        found = askings_.emplace(asked, Asking{}).first;
        found->second.firstAt = exchange.request->firstAt;
    }
    Asking& asking = found->second;
    ++asking.times;
    asking.lastAt = std::max(asking.lastAt, exchange.request->firstAt);
    if (!exchange.answer) return;
    ++asking.answered;
    if (exchange.answer->isException()) ++asking.refused;
    asking.answerTimes.add(exchange.answerTime());
}

Unit_Traffic Line_Table::sum() const {
    Unit_Traffic sum;
    for (const auto& [number, unit] : units_) {
        sum.requests += unit.requests;
        sum.answers += unit.answers;
        sum.refusals += unit.refusals;
        sum.unpaired += unit.unpaired;
    }
    return sum;
}

double loadPercent(const Line_Settings& line, std::uint64_t bytes, Micros duration) {
    if (duration <= 0) return 0;
    const double busy = static_cast<double>(bytes) * bitsPerCharacter(line) * microsPerSecond / line.baud;
    return std::min(100.0, 100 * busy / static_cast<double>(duration));
}

} // namespace zorvane::survey
