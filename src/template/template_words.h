// SPDX-License-Identifier: MIT
#pragma once

#include "template/sections/numbered_key.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace zorvane {

/// What a template may say: the interpreter's sections and keys, and those that passes of their own read,
/// such as [IDENTITY]. Names are in upper case with "#" for a number; letter case doesn't matter where one is
/// asked for.
[[nodiscard]] std::vector<std::string_view> templateSections();
[[nodiscard]] bool isTemplateSection(std::string_view section);
/// The keys of a section; none for an unknown one.
[[nodiscard]] std::vector<std::string_view> templateKeys(std::string_view section);
/// A key as its section takes it apart, whether it knows the key or not; nothing for an unknown section.
/// Failure 6 for a number beyond 32 bits in a section of the interpreter; nothing in another one.
[[nodiscard]] std::optional<Numbered_Key> templateKey(std::string_view section, std::string_view key);

} // namespace zorvane
