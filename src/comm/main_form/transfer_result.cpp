// SPDX-License-Identifier: MIT
#include "comm/main_form/transfer_result.h"

namespace zorvane {

namespace {

std::int32_t& counterOf(Download_Result& result, Value_End end) {
    switch (end) {
    case Value_End::Taken:
        return result.taken;
    case Value_End::Refused:
        return result.refused;
    case Value_End::Unanswered:
        return result.unanswered;
    case Value_End::Unsendable:
        return result.unsendable;
    case Value_End::Uncertain:
        break;
    }
    return result.uncertain;
}

} // namespace

void Download_Result::count(const std::string& address, Value_End end) {
    ++counterOf(*this, end);
    if (end != Value_End::Taken) missed.push_back({address, end});
}

} // namespace zorvane
