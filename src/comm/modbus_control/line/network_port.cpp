// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/network_port.h"

#include "comm/modbus_control/frame/mbap_frame.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace zorvane {

namespace {

struct Prefix {
    std::string_view text;
    Network_Protocol protocol;
    std::string_view example;
};

constexpr std::array prefixes = {
    Prefix{"tcp:", Network_Protocol::ModbusTcp, "tcp:192.168.0.7:502"},
    Prefix{"rtu+tcp:", Network_Protocol::RtuOverTcp, "rtu+tcp:192.168.0.7:4001"},
    Prefix{"rfc2217:", Network_Protocol::Rfc2217, "rfc2217:192.168.0.7:2217"},
};

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

const Prefix* prefixOf(std::string_view name) {
    const auto begins = [name](const Prefix& prefix) {
        const std::string_view head = name.substr(0, prefix.text.size());
        return std::equal(head.begin(), head.end(), prefix.text.begin(), prefix.text.end(),
                          [](char a, char b) { return lower(a) == b; });
    };
    const auto found = std::find_if(prefixes.begin(), prefixes.end(), begins);
    return found == prefixes.end() ? nullptr : &*found;
}

/// Host and number of "HOST:PORT" or "[HOST]:PORT", as far as they are there.
std::pair<std::string_view, std::string_view> partsOf(std::string_view text) {
    const std::size_t colon = text.rfind(':');
    if (colon == std::string_view::npos || text.ends_with(']')) return {text, {}};
    return {text.substr(0, colon), text.substr(colon + 1)};
}

std::optional<std::uint16_t> portNumber(std::string_view text) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    if (!whole || number < 1 || number > 65535) return std::nullopt;
    return static_cast<std::uint16_t>(number);
}

/// The host without the brackets that keep the colons of an IPv6 number apart; empty for none that can be.
std::string_view hostOf(std::string_view text) {
    if (text.starts_with('[') && text.ends_with(']')) return text.substr(1, text.size() - 2);
    if (text.find_first_of(":[]/ \t") != std::string_view::npos) return {};
    return text;
}

} // namespace

bool onNetwork(std::string_view name) { return prefixOf(name) != nullptr; }

std::optional<Network_Port> networkPort(std::string_view name) {
    const Prefix* prefix = prefixOf(name);
    if (prefix == nullptr) return std::nullopt;
    const auto [hostText, numberText] = partsOf(name.substr(prefix->text.size()));
    const std::string_view host = hostOf(hostText);
    const auto number = portNumber(numberText);
    if (host.empty() || !number) return std::nullopt;
    return Network_Port{prefix->protocol, std::string(host), *number};
}

std::string networkNameFault(std::string_view name) {
    const Prefix* prefix = prefixOf(name);
    if (prefix == nullptr || networkPort(name)) return {};
    const auto [hostText, numberText] = partsOf(name.substr(prefix->text.size()));
    const std::string example = " Write host and port, as in " + std::string(prefix->example) + ".";
    const std::string which = "The port " + std::string(name);
    if (hostText.empty()) return which + " names no host." + example;
    if (hostOf(hostText).empty())
        return which + " names no host that can be: an IPv6 number stands in brackets, as in " +
               std::string(prefix->text) + "[fe80::1]:502.";
    if (numberText.empty()) return which + " names no port on the host." + example;
    return which + " has no port from 1 to 65535 after the host." + example;
}

std::string nameOf(const Network_Port& port) {
    const auto of = [&](const Prefix& prefix) { return prefix.protocol == port.protocol; };
    return std::string(std::find_if(prefixes.begin(), prefixes.end(), of)->text) + hostAndPort(port);
}

std::string hostAndPort(const Network_Port& port) {
    const bool brackets = port.host.find(':') != std::string::npos;
    return (brackets ? "[" + port.host + "]" : port.host) + ":" + std::to_string(port.port);
}

std::string_view protocolText(Network_Protocol protocol) noexcept {
    switch (protocol) {
    case Network_Protocol::ModbusTcp:
        return "Modbus TCP";
    case Network_Protocol::RtuOverTcp:
        return "RTU over TCP";
    case Network_Protocol::Rfc2217:
        return "RFC 2217";
    }
    return {};
}

const Framing& framingOf(std::string_view name) {
    static const Rtu_Framing rtu{};
    static const Mbap_Framing mbap{};
    const Prefix* prefix = prefixOf(name);
    if (prefix != nullptr && prefix->protocol == Network_Protocol::ModbusTcp) return mbap;
    return rtu;
}

Counting_Settings countingSettings(std::string_view name) {
    const Prefix* prefix = prefixOf(name);
    if (prefix == nullptr) return {};
    const bool serialFrames = prefix->protocol != Network_Protocol::ModbusTcp;
    return {serialFrames, prefix->protocol == Network_Protocol::Rfc2217, serialFrames};
}

bool takesLineSettings(std::string_view name) {
    const Prefix* prefix = prefixOf(name);
    return prefix == nullptr || prefix->protocol == Network_Protocol::Rfc2217;
}

} // namespace zorvane
