// SPDX-License-Identifier: MIT
#include "survey/desk/find_fields.h"

#include "comm/modbus_control/line/network_port.h"

#include <sstream>

namespace zorvane::survey {

namespace {

std::vector<std::string> wordsOf(const std::string& text) {
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

} // namespace

std::string fieldsFault(const Find_Fields& fields) {
    if (fields.port.empty()) return "Choose a port, or type its name or path.";
    if (std::string fault = networkNameFault(fields.port); !fault.empty()) return fault;
    if (!parseUnits(fields.units))
        return "\"" + fields.units + "\" is not unit numbers of 1 to 247, as in 1-20,40.";
    for (const std::string& word : wordsOf(fields.settings)) {
        const auto line = parseLineSettings(word);
        if (!line) return "\"" + word + "\" is not baud,parity,data bits,stop bits, as in 9600,n,8,1.";
        Port_Settings port;
        port.line = *line;
        if (std::string fault = settingsFault(port); !fault.empty()) return fault;
    }
    return {};
}

Find_Wishes wishesOf(const Find_Fields& fields, const Port_Settings& present) {
    Find_Wishes wishes;
    wishes.port = present;
    wishes.port.port = fields.port;
    wishes.units = parseUnits(fields.units).value_or(std::vector<std::uint8_t>{});
    for (const std::string& word : wordsOf(fields.settings))
        wishes.lines.push_back(parseLineSettings(word).value_or(Line_Settings{}));
    return wishes;
}

Port_Settings settingsOfFound(const Port_Settings& present, const std::string& port, const Found_Unit& found,
                              bool linesCount) {
    Port_Settings settings = present;
    settings.port = port;
    settings.slave = found.unit;
    if (linesCount) settings.line = found.line;
    return settings;
}

} // namespace zorvane::survey
