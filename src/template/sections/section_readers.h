// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"
#include "template/services/link_notice.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane {

/// One key line of a known section, ready for that section's reader.
struct Key_Line {
    std::string key;          ///< normalised, upper case
    std::int32_t number = 0;  ///< the key's number
    std::int32_t section = 0; ///< the section's number
    std::string_view value;   ///< as the scanner cut it
};

/// What a section reader writes to: the document, and the link for what it has to be told.
struct Interpreter {
    Declara_Zorvane& document;
    Link_Notice& link;

    /// The field of that number, marked as touched. Failure 9 outside 0 to 100.
    [[nodiscard]] Field_Rec& field(std::int32_t number) const;
};

/// A section's reader: applies one key line; false rejects it. A key that it doesn't know has no effect.
using Section_Reader = bool (*)(const Interpreter&, const Key_Line&);

bool readHardware(const Interpreter& interpreter, const Key_Line& line);
bool readConfigurationColumns(const Interpreter& interpreter, const Key_Line& line);
bool readConfigurationFields(const Interpreter& interpreter, const Key_Line& line);
bool readFieldColumns(const Interpreter& interpreter, const Key_Line& line);
bool readFieldConfiguration(const Interpreter& interpreter, const Key_Line& line);
bool readFieldMessages(const Interpreter& interpreter, const Key_Line& line);
bool readNotDownloadable(const Interpreter& interpreter, const Key_Line& line);
bool readPortConfiguration(const Interpreter& interpreter, const Key_Line& line);
bool readFieldDefault(const Interpreter& interpreter, const Key_Line& line);
bool readConfigurationDefault(const Interpreter& interpreter, const Key_Line& line);
bool readDefaultColumns(const Interpreter& interpreter, const Key_Line& line);
bool readColors(const Interpreter& interpreter, const Key_Line& line);

/// The keys that a section has, normalised: "COL_#_WIDTH".
using Key_Names = std::vector<std::string_view>;

[[nodiscard]] Key_Names hardwareNames();
[[nodiscard]] Key_Names configurationColumnsNames();
[[nodiscard]] Key_Names configurationFieldsNames();
[[nodiscard]] Key_Names fieldColumnsNames();
[[nodiscard]] Key_Names fieldConfigurationNames();
[[nodiscard]] Key_Names fieldMessagesNames();
[[nodiscard]] Key_Names notDownloadableNames();
[[nodiscard]] Key_Names portConfigurationNames();
[[nodiscard]] Key_Names fieldDefaultNames();
[[nodiscard]] Key_Names configurationDefaultNames();
[[nodiscard]] Key_Names defaultColumnsNames();
[[nodiscard]] Key_Names colorsNames();

/// The keys of a section's table.
template <class Table> [[nodiscard]] Key_Names namesIn(const Table& table) {
    Key_Names names;
    for (const auto& entry : table)
        names.push_back(entry.first);
    return names;
}

/// The action that a section's table has for a key, or null.
template <class Table> [[nodiscard]] auto findAction(const Table& table, const std::string& key) {
    for (const auto& [name, action] : table)
        if (name == key) return action;
    return decltype(table[0].second){};
}

} // namespace zorvane
