// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/last_traffic.h"

#include <utility>

namespace zorvane {

void Last_Traffic::keep(Traffic_Entry entry) {
    if (entries_.size() == limit_) entries_.pop_front();
    entries_.push_back(std::move(entry));
}

void Last_Traffic::exchangeSeen(const Exchange_Record& exchange) {
    keep(exchange);
    if (next_ != nullptr) next_->exchangeSeen(exchange);
}

void Last_Traffic::straySeen(const Stray_Record& stray) {
    keep(stray);
    if (next_ != nullptr) next_->straySeen(stray);
}

void Last_Traffic::portNoted(Micros at, const std::string& text) {
    keep(Port_Note{at, text});
    if (next_ != nullptr) next_->portNoted(at, text);
}

} // namespace zorvane
