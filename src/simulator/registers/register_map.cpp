// SPDX-License-Identifier: MIT
#include "simulator/registers/register_map.h"

#include <nlohmann/json.hpp>

#include <charconv>
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

} // namespace

void applyRegisterJson(const std::string& json, Register_Map& map) {
    const auto document = nlohmann::json::parse(json, nullptr, false);
    if (!document.is_object())
        throw std::runtime_error("not a JSON object of the form {\"address\": value, …}");
    std::map<std::int32_t, std::uint16_t> read;
    for (const auto& [address, value] : document.items())
        read[registerNumber(address, map)] = registerValue(address, value);
    for (const auto& [number, value] : read)
        map.values[number] = value;
}

} // namespace zorvane::simulator
