// SPDX-License-Identifier: MIT
#pragma once

#include "commission/record/record.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace zorvane::commission {

/// The file of a run's folder with the head of its record, once one was made.
inline constexpr std::string_view headFile = "head.json";

/// A head as a JSON text in UTF-8, and back; nothing for a text that is none.
[[nodiscard]] std::string headJson(const Record_Head& head);
[[nodiscard]] std::optional<Record_Head> headOfJson(std::string_view json);

/// The heads that were given so far, by site: nobody is asked for one twice.
struct Kept_Heads {
    std::string last; ///< the site of the newest one
    std::map<std::string, Record_Head> sites;

    /// What is known of a site; empty: of the last one. A site without anything kept has its name alone.
    [[nodiscard]] Record_Head of(const std::string& site) const;
    void keep(const Record_Head& head);

    bool operator==(const Kept_Heads&) const = default;
};

/// A text that is none gives no sites.
[[nodiscard]] std::string keptJson(const Kept_Heads& kept);
[[nodiscard]] Kept_Heads keptOfJson(std::string_view json);

} // namespace zorvane::commission
