// SPDX-License-Identifier: MIT
#include "survey/traffic/traffic_lines.h"

#include "comm/modbus_control/exchange/exchange_text.h"
#include "values/code_page.h"

#include <nlohmann/json.hpp>

#include <stdexcept>
#include <utility>

namespace zorvane::survey {

namespace {

using Json = nlohmann::ordered_json;

/// Bytes of "01 03 00 6B"; nothing for any other text.
std::optional<Byte_Array> bytesOf(const std::string& pairs) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    Byte_Array bytes;
    if (!pairs.empty() && pairs.size() % 3 != 2) return std::nullopt;
    for (std::size_t at = 0; at < pairs.size(); at += 3) {
        if (at + 2 < pairs.size() && pairs[at + 2] != ' ') return std::nullopt;
        const std::size_t high = digits.find(pairs[at]);
        const std::size_t low = digits.find(pairs[at + 1]);
        if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
        bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
    }
    return bytes;
}

Byte_Array bytesAt(const Json& line, const char* name) {
    std::optional<Byte_Array> bytes = bytesOf(line.at(name).get<std::string>());
    if (!bytes) throw std::invalid_argument(name);
    return *std::move(bytes);
}

/// A whole number in the range of its type.
template <class Number> Number numberIn(const Json& value) {
    const bool whole = value.is_number_unsigned()
                           ? std::in_range<Number>(value.get<std::uint64_t>())
                           : value.is_number_integer() && std::in_range<Number>(value.get<std::int64_t>());
    if (!whole) throw std::invalid_argument("number");
    return value.get<Number>();
}

/// A time or a span; dates have four digits for the year.
Micros microsAt(const Json& line, const char* name) {
    constexpr Micros endOfDates = 253402300800 * microsPerSecond;
    const auto micros = numberIn<Micros>(line.at(name));
    if (micros < 0 || micros >= endOfDates) throw std::invalid_argument(name);
    return micros;
}

std::string textAt(const Json& line, const char* name) { return fromUtf8(line.at(name).get<std::string>()); }

Json toJson(const Exchange_Record& exchange, std::int64_t sinceEpoch) {
    return {{"kind", "exchange"},
            {"time_us", exchange.at + sinceEpoch},
            {"duration_us", exchange.duration},
            {"unit", exchange.unit},
            {"function", static_cast<int>(exchange.function)},
            {"first", exchange.firstRegister},
            {"address", exchange.wireAddress},
            {"count", exchange.count},
            {"values", exchange.values},
            {"good", exchange.good},
            {"result", toUtf8(exchange.result)},
            {"sent", hexPairs(exchange.sent)},
            {"received", hexPairs(exchange.received)}};
}

Json toJson(const Stray_Record& stray, std::int64_t sinceEpoch) {
    return {{"kind", "stray"},
            {"time_us", stray.at + sinceEpoch},
            {"bytes", hexPairs(stray.bytes)},
            {"what", toUtf8(stray.what)}};
}

Json toJson(const Port_Note& note, std::int64_t sinceEpoch) {
    return {{"kind", "note"}, {"time_us", note.at + sinceEpoch}, {"text", toUtf8(note.text)}};
}

Exchange_Record exchangeIn(const Json& line) {
    Exchange_Record exchange;
    exchange.at = microsAt(line, "time_us");
    exchange.duration = microsAt(line, "duration_us");
    exchange.unit = numberIn<std::int32_t>(line.at("unit"));
    exchange.function = static_cast<Function_Code>(numberIn<std::uint8_t>(line.at("function")));
    exchange.firstRegister = numberIn<std::int32_t>(line.at("first"));
    exchange.wireAddress = numberIn<std::int32_t>(line.at("address"));
    exchange.count = numberIn<std::int32_t>(line.at("count"));
    for (const Json& value : line.at("values"))
        exchange.values.push_back(numberIn<std::uint16_t>(value));
    exchange.good = line.at("good").get<bool>();
    exchange.result = textAt(line, "result");
    exchange.sent = bytesAt(line, "sent");
    exchange.received = bytesAt(line, "received");
    return exchange;
}

Traffic_Entry entryIn(const Json& line) {
    const std::string kind = line.at("kind").get<std::string>();
    const Micros at = microsAt(line, "time_us");
    if (kind == "exchange") return exchangeIn(line);
    if (kind == "stray") return Stray_Record{at, bytesAt(line, "bytes"), textAt(line, "what")};
    if (kind == "note") return Port_Note{at, textAt(line, "text")};
    throw std::invalid_argument(kind);
}

} // namespace

std::string trafficJsonLine(const Traffic_Entry& entry, std::int64_t sinceEpoch) {
    const Json line =
        std::visit([sinceEpoch](const auto& record) { return toJson(record, sinceEpoch); }, entry);
    return line.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::optional<Traffic_Entry> parseTrafficLine(std::string_view line) {
    try {
        return entryIn(Json::parse(line));
    } catch (const std::exception&) { // not JSON, or a member that is missing or of another kind
        return std::nullopt;
    }
}

void Traffic_Reader::takeLine(std::string_view line, std::vector<Traffic_Entry>& entries) {
    if (line.empty() || line == "\r") return;
    if (auto entry = parseTrafficLine(line))
        entries.push_back(*std::move(entry));
    else
        ++unread_;
}

std::vector<Traffic_Entry> Traffic_Reader::take(std::string_view piece) {
    begun_ += piece;
    std::vector<Traffic_Entry> entries;
    std::size_t from = 0;
    for (std::size_t end = begun_.find('\n'); end != std::string::npos; end = begun_.find('\n', from)) {
        takeLine(std::string_view(begun_).substr(from, end - from), entries);
        from = end + 1;
    }
    begun_.erase(0, from);
    return entries;
}

std::vector<Traffic_Entry> Traffic_Reader::end() {
    std::vector<Traffic_Entry> entries;
    takeLine(begun_, entries);
    begun_.clear();
    return entries;
}

} // namespace zorvane::survey
