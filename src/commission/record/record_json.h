// SPDX-License-Identifier: MIT
#pragma once

#include "commission/record/record.h"

#include <optional>
#include <string>
#include <string_view>

namespace zorvane::commission {

/// The record as a JSON text in UTF-8: all of it, the document and the registers too. The same record gives
/// the same bytes.
[[nodiscard]] std::string recordJson(const Record& record);

/// A record back from its JSON; nothing for a text that is no record. Members that are missing are empty.
[[nodiscard]] std::optional<Record> recordOfJson(std::string_view json);

/// What stands on every page: the first 12 digits of the SHA-256 of the record's JSON text.
[[nodiscard]] std::string shortHash(std::string_view json);

} // namespace zorvane::commission
