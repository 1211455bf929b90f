// SPDX-License-Identifier: MIT
#include "simulator/wire/frame_record.h"

#include <nlohmann/json.hpp>

#include <cmath>

namespace zorvane::simulator {

namespace {

/// Keeps the members in the order in which they are added.
using Json = nlohmann::ordered_json;

/// Milliseconds to the microsecond.
double milliseconds(std::chrono::nanoseconds time) {
    return std::round(static_cast<double>(time.count()) / 1000) / 1000;
}

void addFacts(Json& line, const Frame_Facts& facts, std::int32_t addressBase) {
    line["unit"] = facts.unit;
    line["function"] = facts.function;
    if (facts.address) {
        line["address"] = *facts.address + addressBase;
        line["wire"] = *facts.address;
    }
    if (facts.quantity) line["quantity"] = *facts.quantity;
    if (!facts.values.empty()) line["values"] = facts.values;
    if (facts.exception) line["exception"] = *facts.exception;
}

} // namespace

std::string hexText(Bytes_View bytes) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text;
    for (const std::uint8_t byte : bytes) {
        if (!text.empty()) text += ' ';
        text += digits[byte >> 4U];
        text += digits[byte & 15U];
    }
    return text;
}

std::string logLine(const Frame_Record& record, std::chrono::nanoseconds sinceStart,
                    std::int32_t addressBase) {
    Json line;
    line["ms"] = milliseconds(sinceStart);
    line["direction"] = record.direction == Direction::In ? "in" : "out";
    line["hex"] = hexText(record.bytes);
    if (record.facts) addFacts(line, *record.facts, addressBase);
    if (!record.fault.empty()) line["fault"] = record.fault;
    if (record.taken) line["taken"] = *record.taken;
    if (!record.note.empty()) line["note"] = record.note;
    if (!record.quirk.empty()) line["quirk"] = record.quirk;
    if (!record.stored.empty()) line["stored"] = record.stored;
    return line.dump();
}

std::string eventLine(const std::string& event, std::chrono::nanoseconds sinceStart) {
    Json line;
    line["ms"] = milliseconds(sinceStart);
    line["event"] = event;
    return line.dump();
}

} // namespace zorvane::simulator
