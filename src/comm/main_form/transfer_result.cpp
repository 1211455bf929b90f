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

bool isException(const std::string& response) {
    return response == "BUSY" || response.find("(exception ") != std::string::npos ||
           response.rfind("Exception ", 0) == 0;
}

} // namespace

Request_End endOf(const std::string& response) {
    if (response.empty()) return Request_End::Unanswered;
    return isException(response) ? Request_End::Refused : Request_End::Not_Sent;
}

void Download_Result::count(const std::string& address, Value_End how) {
    ++counterOf(*this, how);
    if (how != Value_End::Taken) missed.push_back({address, how});
}

} // namespace zorvane
