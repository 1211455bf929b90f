// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"
#include "template/sections/numbered_key.h"
#include "template/services/link_notice.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane {

/// Gives one key line of a template or a configuration file its meaning. `section` is the section's name with
/// "#" for its number, in any letter case; `number` is that number. Unknown sections and keys have no effect.
/// `ok` is false only for a row with more values than its field has columns.
/// Failures: 5 a malformed message item; 6 a number out of range; 9 a field, row, column or block that isn't
/// there; 13 a width that isn't a number.
void PRO_Interpreta_Linea(Declara_Zorvane& document, Link_Notice& link, std::string_view section,
                          std::string_view key, std::string_view value, std::int32_t& number, bool& ok);

/// Cuts a key at its last "_"; both parts are empty when there is none.
void PRO_Separa_Prefijo(std::string_view text, std::string& tail, std::string& head);

/// Keys of older templates, in sections that mean nothing any more. They have no effect and are no mistake.
[[nodiscard]] bool isReservedKey(std::string_view key);

/// Whether the interpreter knows a section of that name, in any letter case, with "#" for its number.
[[nodiscard]] bool isKnownSection(std::string_view section);

/// The sections that the interpreter knows, in upper case with "#" for a number.
[[nodiscard]] std::vector<std::string_view> knownSections();

/// The keys that a section knows, in the same form; none for an unknown section.
[[nodiscard]] std::vector<std::string_view> knownKeys(std::string_view section);

/// A key as its section takes it apart, whether it knows the key or not; nothing for an unknown section.
/// Failure 6 for a number beyond 32 bits.
[[nodiscard]] std::optional<Numbered_Key> numberedKey(std::string_view section, std::string_view key);

} // namespace zorvane
