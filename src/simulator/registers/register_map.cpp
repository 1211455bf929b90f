// SPDX-License-Identifier: MIT
#include "simulator/registers/register_map.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <set>
#include <stdexcept>

namespace zorvane::simulator {

namespace {

std::int32_t registerNumber(const std::string& text, const Register_Map& map) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size())
        throw std::runtime_error("\"" + text + "\" is not a register's address");
    if (!map.onWire(number))
        throw std::runtime_error("register " + text + " has no address from 0 to 65535 on the wire");
    return number;
}

std::uint16_t registerValue(const std::string& address, const nlohmann::json& value) {
    const bool whole = value.is_number_integer() && value.is_number_unsigned();
    if (!whole || value.get<std::uint64_t>() > 0xFFFF)
        throw std::runtime_error("register " + address + " needs a whole number from 0 to 65535, not " +
                                 value.dump());
    return value.get<std::uint16_t>();
}

[[noreturn]] void refuseTwice(const std::string& address) {
    throw std::runtime_error("register \"" + address + "\" stands there twice");
}

/// The document; of an address that it names twice the last value alone would be left.
nlohmann::json documentNamingEachOnce(const std::string& json) {
    std::set<std::string> addresses;
    std::string twice;
    const auto look = [&](int depth, nlohmann::json::parse_event_t event, const nlohmann::json& parsed) {
        if (event != nlohmann::json::parse_event_t::key || depth != 1) return true;
        const auto address = parsed.get<std::string>();
        if (!addresses.insert(address).second && twice.empty()) twice = address;
        return true;
    };
    auto document = nlohmann::json::parse(json, look, false);
    if (document.is_object() && !twice.empty()) refuseTwice(twice);
    return document;
}

} // namespace

void applyRegisterJson(const std::string& json, Register_Map& map) {
    const auto document = documentNamingEachOnce(json);
    if (!document.is_object())
        throw std::runtime_error("not a JSON object of the form {\"address\": value, …}");
    std::map<std::int32_t, std::uint16_t> read;
    for (const auto& [address, value] : document.items())
        if (!read.emplace(registerNumber(address, map), registerValue(address, value)).second)
            refuseTwice(address);
    for (const auto& [number, value] : read)
        map.values[number] = value;
}

} // namespace zorvane::simulator
