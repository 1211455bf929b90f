// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/text/failure_note.h"

#include <nlohmann/json.hpp>

#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

namespace zorvane::ctl {

/// JSON whose members keep the order in which they were set.
using Json = nlohmann::ordered_json;

/// The system's text (Windows-1252) as a JSON string (UTF-8).
[[nodiscard]] Json jsonText(std::string_view text);

/// The same for a text that names a path.
[[nodiscard]] Json jsonPath(std::string_view text);

/// null, or {"number","description"}.
[[nodiscard]] Json jsonFailure(const std::optional<Failure_Note>& failure);

/// A number as JSON writes it best: whole ones without a fraction.
[[nodiscard]] Json jsonNumber(double value);

/// One document and the end of its line. A byte that is no UTF-8 becomes the replacement character.
void printJson(std::ostream& out, const Json& document);

/// The same on a single line, without its end.
[[nodiscard]] std::string compactJson(const Json& value);

} // namespace zorvane::ctl
