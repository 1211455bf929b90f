// SPDX-License-Identifier: MIT
#include "comm/modbus_control/testing/scripted_link.h"

#include <utility>

namespace zorvane::doubles {

namespace {

std::string text(std::int32_t value) { return std::to_string(value); }

std::string list(const std::vector<std::int32_t>& values) {
    std::string joined;
    for (const std::int32_t value : values)
        joined += (joined.empty() ? "" : " ") + text(value);
    return "[" + joined + "]";
}

std::string flagText(bool flag) { return flag ? "True" : "False"; }

} // namespace

bool Scripted_Link::advance() {
    if (pending_.empty()) return false;
    const Exchange exchange = pending_.front();
    if (exchange.before) exchange.before();
    if (pending_.empty()) return true; // stopped meanwhile
    pending_.pop_front();
    ++transactions;
    response = exchange.response;
    line1_ = exchange.line1;
    line2_ = exchange.line2;
    if (handler_) handler_(line1_, line2_);
    if (pending_.empty()) finishWrite(exchange.good);
    return true;
}

void Scripted_Link::finishScan(bool good, const std::string& answer) {
    ++transactions;
    requestFailed = !good;
    response = answer;
    if (handler_) handler_("Tx: 01 03", "Rx: 01 03");
}

void Scripted_Link::SetTimings(std::int32_t requestMs, std::int32_t outMs) {
    note("SetTimings " + text(requestMs) + " " + text(outMs));
}

void Scripted_Link::SetHoldingRegisters(std::int16_t first, double count, bool flag, std::int16_t last) {
    note("SetHoldingRegisters " + text(first) + " " + text(static_cast<std::int32_t>(count)) + " " +
         flagText(flag) + " " + text(last));
}

void Scripted_Link::SetAddressBase(std::int32_t base) { note("SetAddressBase " + text(base)); }

void Scripted_Link::SetCommPort(std::int16_t port, const std::string& settings) {
    note("SetCommPort " + text(port) + " " + settings);
}

void Scripted_Link::ShowPortSettings(bool modal) { note("ShowPortSettings " + flagText(modal)); }

void Scripted_Link::AddScanBlock(std::int32_t first, std::int32_t last, bool flag, const std::string& request,
                                 std::int32_t& slave) {
    note("AddScanBlock " + text(first) + " " + text(last) + " " + flagText(flag) + " " + request + " " +
         text(slave));
}

void Scripted_Link::AddHoldingBlock(std::int16_t unit, std::int16_t first, std::int16_t last, bool flag,
                                    std::int16_t count) {
    note("AddHoldingBlock " + text(unit) + " " + text(first) + " " + text(last) + " " + flagText(flag) + " " +
         text(count));
}

void Scripted_Link::SetScanMode(const std::string& mode) {
    mode_ = mode;
    note("SetScanMode " + mode);
}

void Scripted_Link::StopScan() {
    note("StopScan");
    if (pending_.empty()) return;
    pending_.clear();
    finishWrite(false);
}

std::int32_t Scripted_Link::RegisterValue(std::int32_t /*slave*/, std::int32_t address, bool isSigned) const {
    const auto found = image.find(address);
    const std::int32_t value = found == image.end() ? 0 : found->second & 0xFFFF;
    return isSigned && value >= 0x8000 ? value - 0x10000 : value;
}

Register_Reading Scripted_Link::readingOf(std::int32_t /*slave*/, std::int32_t address) const {
    const auto found = readings.find(address);
    return found == readings.end() ? Register_Reading{Reading_Age::ThisOpening, std::nullopt} : found->second;
}

void Scripted_Link::ClearLastResponse() {
    note("ClearLastResponse");
    response.clear();
}

void Scripted_Link::PresetSingleRegister(std::int32_t slave, std::int32_t address, std::int32_t value) {
    note("PresetSingleRegister " + text(slave) + " " + text(address) + " " + text(value));
    startWrite(address, {value});
}

void Scripted_Link::PresetMultipleRegisters(std::int32_t slave, std::int32_t startAddress,
                                            const std::vector<std::int32_t>& values) {
    note("PresetMultipleRegisters " + text(slave) + " " + text(startAddress) + " " + list(values));
    startWrite(startAddress, values);
}

void Scripted_Link::ClearWriteFailed() {
    note("ClearWriteFailed");
    writeFailed = false;
}

void Scripted_Link::ShowMonitor(std::int32_t left, std::int32_t top, std::int32_t width,
                                std::int32_t height) {
    note("ShowMonitor " + text(left) + " " + text(top) + " " + text(width) + " " + text(height));
    monitorLoaded = true;
    monitorVisible = true;
}

void Scripted_Link::startWrite(std::int32_t start, const std::vector<std::int32_t>& values) {
    pendingStart_ = start;
    pendingValues_ = values;
    Write_Script script;
    if (!writes.empty()) {
        script = writes.front();
        writes.pop_front();
    }
    if (script.empty()) return finishWrite(true);
    pending_.assign(script.begin(), script.end());
}

void Scripted_Link::finishWrite(bool good) {
    ++ended_;
    const Write_Outcome failure = response.empty() ? Write_Outcome::Uncertain : Write_Outcome::Refused;
    outcome_ = std::exchange(nextOutcome, std::nullopt).value_or(good ? Write_Outcome::Taken : failure);
    if (!good) {
        writeFailed = true;
        return;
    }
    std::int32_t address = pendingStart_;
    for (const std::int32_t value : pendingValues_)
        image[address++] = value & 0xFFFF;
}

} // namespace zorvane::doubles
