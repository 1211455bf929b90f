// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/traffic_rows.h"

#include "comm/modbus_control/exchange/exchange_text.h"

#include <algorithm>
#include <iterator>

namespace zorvane {

namespace {

constexpr std::int64_t msPerDay = 24LL * 60 * 60 * 1000;

std::string padded(std::int64_t number, std::size_t digits) {
    std::string text = std::to_string(number);
    if (text.size() < digits) text.insert(0, digits - text.size(), '0');
    return text;
}

/// Tenths, since at high speeds an exchange takes a few ms only.
std::string msText(Micros duration) {
    const Micros tenths = (duration + 50) / 100;
    return std::to_string(tenths / 10) + "." + std::to_string(tenths % 10);
}

std::string functionText(Function_Code function) {
    switch (function) {
    case Function_Code::ReadHoldingRegisters:
        return "3 read";
    case Function_Code::PresetSingleRegister:
        return "6 write";
    case Function_Code::PresetMultipleRegisters:
        return "16 write block";
    case Function_Code::ReadDeviceIdentification:
        return "43 read identification";
    }
    return std::to_string(static_cast<int>(function));
}

std::string rangeText(std::int32_t first, std::int32_t count) {
    std::string text = std::to_string(first);
    if (count > 1) text += "-" + std::to_string(std::int64_t{first} + count - 1);
    return text;
}

/// The register's number as it stands, and what it means to a signed column where that differs.
std::string valueText(std::uint16_t value) {
    std::string text = std::to_string(value);
    const auto asSigned = static_cast<std::int16_t>(value);
    if (asSigned < 0) text += " (" + std::to_string(asSigned) + ")";
    return text;
}

std::string valuesText(const std::vector<std::uint16_t>& values) {
    std::string text;
    for (const std::uint16_t value : values) {
        if (!text.empty()) text += ", ";
        text += valueText(value);
    }
    return text;
}

std::string exchangeText(const Exchange_Record& exchange, Traffic_Column column) {
    switch (column) {
    case Traffic_Column::Duration:
        return msText(exchange.duration);
    case Traffic_Column::Unit:
        return std::to_string(exchange.unit);
    case Traffic_Column::Function:
        return functionText(exchange.function);
    case Traffic_Column::Registers:
        return rangeText(exchange.firstRegister, exchange.count);
    case Traffic_Column::Wire:
        return rangeText(exchange.wireAddress, exchange.count);
    case Traffic_Column::Values:
        return valuesText(exchange.values);
    case Traffic_Column::Result:
        return exchange.result;
    case Traffic_Column::Time:
        break;
    }
    return {};
}

std::string strayText(const Stray_Record& stray) {
    const std::size_t count = stray.bytes.size();
    return std::to_string(count) + (count == 1 ? " byte" : " bytes") + " outside an exchange: " + stray.what;
}

std::string received(Byte_View bytes) { return "Rx: " + (bytes.empty() ? "nothing" : hexPairs(bytes)); }

template <class... Handlers> struct Overloaded : Handlers... { using Handlers::operator()...; };
template <class... Handlers> Overloaded(Handlers...) -> Overloaded<Handlers...>;

} // namespace

std::string_view trafficHeading(Traffic_Column column) noexcept {
    switch (column) {
    case Traffic_Column::Time:
        return "Time";
    case Traffic_Column::Duration:
        return "ms";
    case Traffic_Column::Unit:
        return "Unit";
    case Traffic_Column::Function:
        return "Function";
    case Traffic_Column::Registers:
        return "Registers";
    case Traffic_Column::Wire:
        return "On the wire";
    case Traffic_Column::Values:
        return "Values";
    case Traffic_Column::Result:
        return "Result";
    }
    return {};
}

std::string trafficText(const Traffic_Entry& entry, Traffic_Column column, Micros midnight) {
    if (column == Traffic_Column::Time)
        return std::visit([midnight](const auto& row) { return timeOfDayText(row.at - midnight); }, entry);
    const bool result = column == Traffic_Column::Result;
    return std::visit(
        Overloaded{[column](const Exchange_Record& exchange) { return exchangeText(exchange, column); },
                   [result](const Stray_Record& stray) { return result ? strayText(stray) : std::string(); },
                   [result](const Port_Note& note) { return result ? note.text : std::string(); }},
        entry);
}

bool trafficFailed(const Traffic_Entry& entry) {
    const auto* exchange = std::get_if<Exchange_Record>(&entry);
    return exchange != nullptr ? !exchange->good : std::holds_alternative<Stray_Record>(entry);
}

std::string rawBytes(const Traffic_Entry& entry) {
    return std::visit(Overloaded{[](const Exchange_Record& exchange) {
                                     return "Tx: " + hexPairs(exchange.sent) + "\n" +
                                            received(exchange.received);
                                 },
                                 [](const Stray_Record& stray) { return received(stray.bytes); },
                                 [](const Port_Note&) { return std::string(); }},
                      entry);
}

std::string trafficHeadingLine() {
    std::string line;
    for (const Traffic_Column column : trafficColumns)
        line += std::string(trafficHeading(column)) + "\t";
    return line + "Bytes";
}

std::string trafficLine(const Traffic_Entry& entry, Micros midnight) {
    std::string line;
    for (const Traffic_Column column : trafficColumns)
        line += trafficText(entry, column, midnight) + "\t";
    std::string raw = rawBytes(entry);
    std::replace(raw.begin(), raw.end(), '\n', ' ');
    return line + raw;
}

std::string timeOfDayText(Micros sinceMidnight) {
    const std::int64_t ms = (sinceMidnight / microsPerMs % msPerDay + msPerDay) % msPerDay;
    return padded(ms / 3600000, 2) + ":" + padded(ms / 60000 % 60, 2) + ":" + padded(ms / 1000 % 60, 2) +
           "." + padded(ms % 1000, 3);
}

std::size_t Traffic_Rows::surplus(std::size_t added) const {
    const std::size_t total = entries_.size() + added;
    return std::min(std::max(total, limit_) - limit_, entries_.size());
}

void Traffic_Rows::dropOldest(std::size_t count) {
    entries_.erase(entries_.begin(), entries_.begin() + static_cast<std::ptrdiff_t>(count));
}

void Traffic_Rows::add(std::vector<Traffic_Entry> entries) {
    std::move(entries.begin(), entries.end(), std::back_inserter(entries_));
}

} // namespace zorvane
