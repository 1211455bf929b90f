// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::ui {

/// One entry of an in-cell list.
struct Combo_Entry {
    std::string number; ///< decimal, or "" for an entry that has none
    std::string text;

    bool operator==(const Combo_Entry&) const = default;
};

/// The entries of a list in its text form, "|#0;Off|#1;On". In a list of numbered entries a new one begins
/// only at "|#", digits and ";", so an entry's text may itself hold "|" and ";".
[[nodiscard]] std::vector<Combo_Entry> comboEntries(std::string_view list);

/// The place of the first entry with that text, the exact one first, else one that differs in letter case.
[[nodiscard]] std::optional<std::size_t> entryWithText(const std::vector<Combo_Entry>& entries,
                                                       std::string_view text);

} // namespace zorvane::ui
