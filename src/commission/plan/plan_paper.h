// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/journal.h"
#include "commission/plan/plan.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::commission {

/// A file as a plan remembers it. Texts in UTF-8.
struct Named_File {
    std::string path;
    std::string sha256;

    bool operator==(const Named_File&) const = default;
};

/// A plan as it is kept in a file: what it was made from, and what it would write. Of the comparison only the
/// JSON is kept.
struct Plan_Paper {
    Named_File templateFile;
    Named_File document;
    Json identity;
    std::string port; ///< UTF-8
    std::int32_t unit = 1;
    std::string settings; ///< "9600,n,8,1"
    Json counts;
    Json rows; ///< of the comparison, without those that are equal
    std::vector<Plan_Write> writes;
    std::map<std::int32_t, std::uint16_t> before;
    std::optional<std::string> run; ///< whose values it puts back; nothing for any other plan
};

/// The paper as one object.
[[nodiscard]] Json paperJson(const Plan_Paper& paper);

/// The same back. Of the writes the parts and the stages aren't in it: see `completeWrites`. Nothing when it
/// isn't one.
[[nodiscard]] std::optional<Plan_Paper> parsePaper(std::string_view text);

/// The parts and stages of a paper's writes, as the template's cells and its section have them. False when
/// the template has no such cell, or the cell no register that is written.
[[nodiscard]] bool completeWrites(std::vector<Plan_Write>& writes, const Declara_Zorvane& document,
                                  const Identity_Section& section);

/// The cells that the writes are for, in the order of the writes.
[[nodiscard]] std::vector<Planned_Cell> plannedCells(const std::vector<Plan_Write>& writes,
                                                     const Declara_Zorvane& document);

/// {"100": 5, ...}
[[nodiscard]] Json registersJson(const std::map<std::int32_t, std::uint16_t>& registers);
[[nodiscard]] std::optional<std::map<std::int32_t, std::uint16_t>> parseRegistersJson(const Json& json);

} // namespace zorvane::commission
