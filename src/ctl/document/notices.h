// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/opened_document.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

namespace zorvane::ctl {

/// A text for a terminal: UTF-8, with control characters made harmless.
[[nodiscard]] std::string printable(std::string_view text);
/// The same for a text that names a path.
[[nodiscard]] std::string printablePath(std::string_view text);

/// One line to people, after the program's name. `text` is UTF-8 already.
void tell(std::ostream& err, const std::string& text);

/// Tells what went wrong in reading the files of a document, in which line, and what to do. Says nothing when
/// all is well.
void tellReadings(std::ostream& err, const Opened_Document& opened);

/// Why a document can't be worked with, in one text of whole sentences: what stopped the reading of its
/// first file that wasn't read to its end. Empty when it can.
[[nodiscard]] std::string documentFault(const Opened_Document& opened);

/// Whether the template has that field (from 1).
[[nodiscard]] bool hasField(const Opened_Document& opened, std::int32_t field);

/// Tells that the template has no such field. Says nothing when it has, or when it could not be read.
void tellMissingField(std::ostream& err, const Opened_Document& opened, std::int32_t field);

/// Tells of a failure of an operation.
void tellFailure(std::ostream& err, const std::string& what, const Failure_Note& failure);

/// The same as a text, without the program's name.
[[nodiscard]] std::string failureNotice(const std::string& what, const Failure_Note& failure);

/// What to do about a failure of that number.
[[nodiscard]] std::string advice(int failure);

} // namespace zorvane::ctl
