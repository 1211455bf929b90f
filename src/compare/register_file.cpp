// SPDX-License-Identifier: MIT
#include "compare/register_file.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <set>

namespace zorvane::compare {

namespace {

std::int32_t registerNumber(const std::string& text) {
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end)
        throw Bad_Register_File("\"" + text + "\" is not the number of a register");
    return number;
}

std::uint16_t registerValue(const std::string& number, const nlohmann::json& value) {
    constexpr std::uint64_t highest = 65535;
    if (!value.is_number_unsigned() || value.get<std::uint64_t>() > highest)
        throw Bad_Register_File("register " + number + " needs a whole number from 0 to 65535");
    return value.get<std::uint16_t>();
}

/// An object that names a key twice keeps the last of its values only, so that keys are looked at on the way.
nlohmann::json parsedWithKeysOnce(const std::string& text) {
    std::set<std::string> keys;
    std::string twice;
    const auto look = [&](int depth, nlohmann::json::parse_event_t event, const nlohmann::json& parsed) {
        if (event != nlohmann::json::parse_event_t::key || depth != 1) return true;
        const auto key = parsed.get<std::string>();
        if (!keys.insert(key).second && twice.empty()) twice = key;
        return true;
    };
    auto document = nlohmann::json::parse(text, look, false);
    if (document.is_object() && !twice.empty())
        throw Bad_Register_File("register \"" + twice + "\" stands there twice");
    return document;
}

} // namespace

Register_Values parseRegisters(const std::string& json) {
    const auto document = parsedWithKeysOnce(json);
    if (!document.is_object())
        throw Bad_Register_File("not a JSON object of the form {\"address\": value, ...}");
    Register_Values registers;
    for (const auto& [number, value] : document.items())
        if (!registers.emplace(registerNumber(number), registerValue(number, value)).second)
            throw Bad_Register_File("register \"" + number + "\" stands there twice");
    return registers;
}

std::string registersText(const Register_Values& registers) {
    std::string text = "{";
    const char* separator = "\n";
    for (const auto& [number, value] : registers) {
        text += separator;
        text += "  \"" + std::to_string(number) + "\": " + std::to_string(value);
        separator = ",\n";
    }
    return text + "\n}\n";
}

} // namespace zorvane::compare
