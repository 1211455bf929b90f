// SPDX-License-Identifier: MIT
#include "ctl/line/guarded_link.h"

namespace zorvane::ctl {

namespace {

Write_State stateOfLast(const modbus_control& link) {
    switch (link.LastWriteOutcome()) {
    case Write_Outcome::Taken:
        return Write_State::Written;
    case Write_Outcome::Refused:
    case Write_Outcome::NotSent:
        return Write_State::Refused;
    case Write_Outcome::Uncertain:
        return Write_State::Unknown;
    case Write_Outcome::None: // a link that can't tell
        break;
    }
    if (!link.WriteFailed()) return Write_State::Written;
    return link.LastResponse().empty() ? Write_State::Unknown : Write_State::Refused;
}

} // namespace

Guarded_Link::Guarded_Link(modbus_control& link, Session_State& session, const Stop_Wish& stop)
    : Forwarding_Link(link), session_(session), stop_(stop) {
    link_.onExchange([this](const std::string& line1, const std::string& line2) {
        if (!link_.WriteBusy() && stopping()) session_.Cancel_Requested = true;
        if (handler_) handler_(line1, line2);
    });
}

bool Guarded_Link::stopping() { return stop_.asked(); }

const std::vector<Sent_Write>& Guarded_Link::writes() {
    settle();
    return writes_;
}

/// Notes what became of the last write, once that is known.
void Guarded_Link::settle() {
    if (!open_ || link_.WriteBusy()) return;
    open_ = false;
    Sent_Write& last = writes_.back();
    last.state = stateOfLast(link_);
    if (last.state == Write_State::Refused) last.answer = link_.LastResponse();
}

bool Guarded_Link::mayWrite(std::int32_t address, std::int32_t count) {
    settle();
    dropped_ = stopping();
    if (dropped_) {
        session_.Cancel_Requested = true;
        return false;
    }
    writes_.push_back({address, count});
    open_ = true;
    return true;
}

void Guarded_Link::PresetSingleRegister(std::int32_t slave, std::int32_t address, std::int32_t value) {
    if (mayWrite(address, 1)) link_.PresetSingleRegister(slave, address, value);
}

void Guarded_Link::PresetMultipleRegisters(std::int32_t slave, std::int32_t startAddress,
                                           const std::vector<std::int32_t>& values) {
    if (mayWrite(startAddress, static_cast<std::int32_t>(values.size())))
        link_.PresetMultipleRegisters(slave, startAddress, values);
}

void Guarded_Link::PrepareScan() {
    if (!stopping()) link_.PrepareScan();
}

void Guarded_Link::StartScan() {
    if (!stopping()) link_.StartScan();
}

void Guarded_Link::ResumeScan() {
    if (!stopping()) link_.ResumeScan();
}

void Guarded_Link::StopScan() {
    settle();
    link_.StopScan();
    settle(); // a write that was cut off
}

void Guarded_Link::ClearLastResponse() {
    settle();
    link_.ClearLastResponse();
}

void Guarded_Link::ClearWriteFailed() {
    settle();
    dropped_ = false;
    link_.ClearWriteFailed();
}

} // namespace zorvane::ctl
