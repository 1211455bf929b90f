// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/com_port_option.h"

namespace zorvane {

namespace {

constexpr std::uint8_t setControl = 5;
constexpr std::uint8_t noFlowControl = 1;
constexpr std::uint8_t dtrOn = 8;
constexpr std::uint8_t rtsOn = 11;
constexpr std::uint8_t rtsOff = 12;
constexpr std::uint8_t purgeData = 12;
constexpr std::uint8_t purgeBoth = 3;
constexpr std::uint8_t fromServer = 100; ///< added to the number of a request in its answer

Telnet_Message message(Byte_Array content) { return {telnetComPort, std::move(content)}; }

Byte_Array bigEndian(std::uint32_t value) {
    return {static_cast<std::uint8_t>(value >> 24U), static_cast<std::uint8_t>(value >> 16U & 0xFFU),
            static_cast<std::uint8_t>(value >> 8U & 0xFFU), static_cast<std::uint8_t>(value & 0xFFU)};
}

std::string plural(std::uint32_t count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

} // namespace

std::uint32_t valueOf(const Line_Settings& line, Com_Port_Part part) noexcept {
    switch (part) {
    case Com_Port_Part::BaudRate:
        return static_cast<std::uint32_t>(line.baud);
    case Com_Port_Part::DataSize:
        return static_cast<std::uint32_t>(line.dataBits);
    case Com_Port_Part::Parity:
        if (line.parity == 'O') return 2;
        return line.parity == 'E' ? 3 : 1;
    case Com_Port_Part::StopSize:
        return static_cast<std::uint32_t>(line.stopBits);
    }
    return 0;
}

std::vector<Telnet_Message> lineMessages(const Line_Settings& line) {
    std::vector<Telnet_Message> messages;
    for (const Com_Port_Part part :
         {Com_Port_Part::BaudRate, Com_Port_Part::DataSize, Com_Port_Part::Parity, Com_Port_Part::StopSize}) {
        const std::uint32_t value = valueOf(line, part);
        Byte_Array content{static_cast<std::uint8_t>(part)};
        const Byte_Array whole = bigEndian(value);
        content.insert(content.end(), part == Com_Port_Part::BaudRate ? whole.begin() : whole.end() - 1,
                       whole.end());
        messages.push_back(message(std::move(content)));
    }
    return messages;
}

std::vector<Telnet_Message> controlMessages() {
    return {message({setControl, noFlowControl}), message({setControl, dtrOn})};
}

Telnet_Message rtsMessage(bool on) { return message({setControl, on ? rtsOn : rtsOff}); }

Telnet_Message purgeMessage() { return message({purgeData, purgeBoth}); }

std::optional<Com_Port_Setting> settingTold(const Telnet_Message& told) {
    if (told.option != telnetComPort || told.content.empty()) return std::nullopt;
    const int number = told.content[0] - fromServer;
    if (number < 1 || number > 4) return std::nullopt;
    const auto part = static_cast<Com_Port_Part>(number);
    if (told.content.size() != (part == Com_Port_Part::BaudRate ? 5U : 2U)) return std::nullopt;
    Com_Port_Setting setting{part, 0};
    for (std::size_t place = 1; place < told.content.size(); ++place)
        setting.value = setting.value << 8U | told.content[place];
    return setting;
}

std::string settingText(const Com_Port_Setting& setting) {
    switch (setting.part) {
    case Com_Port_Part::BaudRate:
        return std::to_string(setting.value) + " baud";
    case Com_Port_Part::DataSize:
        return plural(setting.value, "data bit");
    case Com_Port_Part::Parity:
        if (setting.value == 1) return "no parity";
        if (setting.value == 2) return "odd parity";
        return setting.value == 3 ? "even parity" : "parity " + std::to_string(setting.value);
    case Com_Port_Part::StopSize:
        return setting.value == 3 ? "1.5 stop bits" : plural(setting.value, "stop bit");
    }
    return {};
}

} // namespace zorvane
