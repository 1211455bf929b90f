// SPDX-License-Identifier: MIT
#include "compare/controller_registers.h"

#include "comm/modbus_control/exchange/exchange_text.h"

namespace zorvane::compare {

std::string Unread::text() const { return exception ? exceptionText(*exception) : "no answer"; }

void Controller_Registers::take(std::int32_t first, const std::vector<std::uint16_t>& values) {
    for (const std::uint16_t value : values) {
        unread_.erase(first);
        values_[first++] = value;
    }
}

void Controller_Registers::fail(const Register_Range& range, const Unread& why) {
    for (std::int32_t number = range.first; number <= range.last; ++number) {
        values_.erase(number);
        unread_[number] = why;
    }
}

std::optional<std::uint16_t> Controller_Registers::valueAt(std::int32_t number) const {
    const auto found = values_.find(number);
    if (found == values_.end()) return std::nullopt;
    return found->second;
}

std::optional<Unread> Controller_Registers::unreadAt(std::int32_t number) const {
    const auto found = unread_.find(number);
    if (found == unread_.end()) return std::nullopt;
    return found->second;
}

bool Controller_Registers::holds(const Register_Range& range) const {
    for (std::int32_t number = range.first; number <= range.last; ++number)
        if (!values_.contains(number)) return false;
    return range.first <= range.last;
}

} // namespace zorvane::compare
