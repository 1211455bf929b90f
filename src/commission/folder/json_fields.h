// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/journal.h"

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace zorvane::commission {

// The files of a run and a kept plan are texts that somebody may have changed by hand: a member that isn't
// there, is of another kind or is out of its range is no value. Nothing here throws.

/// The member of an object; null for one that isn't there and for what is no object.
[[nodiscard]] const Json& memberOf(const Json& json, const char* name) noexcept;

/// A text; nothing for any other kind of value.
[[nodiscard]] std::optional<std::string> stringOf(const Json& value);

/// A whole number within the range of the type; nothing for any other value.
template <std::integral Number> [[nodiscard]] std::optional<Number> numberOf(const Json& value) {
    const auto fitting = [](auto number) {
        return std::in_range<Number>(number) ? std::optional(static_cast<Number>(number)) : std::nullopt;
    };
    if (value.is_number_unsigned()) return fitting(value.template get<std::uint64_t>());
    if (value.is_number_integer()) return fitting(value.template get<std::int64_t>());
    return std::nullopt;
}

/// True for a record of the journal of this event.
[[nodiscard]] bool isEvent(const Json& record, std::string_view event) noexcept;

} // namespace zorvane::commission
