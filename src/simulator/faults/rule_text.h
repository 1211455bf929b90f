// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace zorvane::simulator {

/// How often a rule strikes, and where. Without percent and count it strikes every time; the range is of
/// register numbers, and a request is meant when it touches the range.
struct Strike_Rule {
    std::optional<double> percent; ///< above 0, up to 100
    std::optional<int> count;      ///< the first so many requests that it could strike
    std::optional<std::int32_t> first;
    std::optional<std::int32_t> last; ///< set when `first` is
};

enum class Value_Rule { None, Required, Optional };

/// A kind of rule: its name, its value and a line of help.
struct Rule_Kind {
    std::string_view name;
    Value_Rule value = Value_Rule::None;
    int lowest = 0;
    int highest = 0;
    std::string_view help;
    int absent = 0; ///< the value where none is given
};

/// A rule as it was given: the place of its kind in the list of kinds, its value, how often and where.
struct Rule_Text {
    std::size_t kind = 0;
    int value = 0;
    Strike_Rule strike;
};

/// A rule's text that can't be understood; `what` says why, and how it should look.
class Bad_Rule : public std::invalid_argument {
  public:
    using std::invalid_argument::invalid_argument;
};

/// Reads KIND[=VALUE][:RATE%|:COUNT][@FIRST[-LAST]]. `noun` is what a complaint calls the rule: "fault".
/// Throws `Bad_Rule`.
[[nodiscard]] Rule_Text parseRule(std::string_view noun, std::span<const Rule_Kind> kinds,
                                  std::string_view text);

/// A line for each kind, for the program's help.
[[nodiscard]] std::string kindsHelp(std::span<const Rule_Kind> kinds);

} // namespace zorvane::simulator
