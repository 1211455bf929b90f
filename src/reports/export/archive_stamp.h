// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace zorvane {

/// What a file for the archive says of itself, in the place of the moment at which it is written: the same
/// content gives the same bytes.
struct Archive_Stamp {
    std::string title;   ///< UTF-8
    std::string creator; ///< the program, UTF-8
    std::string utc;     ///< the moment that the content is of: "2026-11-22T07:40:05Z"
    std::string id;      ///< 32 hexadecimal digits
};

/// The XMP packet of a PDF/A-1b file (ISO 19005-1, 6.7) that `producer` makes. It says what the file's
/// information dictionary says.
[[nodiscard]] std::string archiveMetadata(const Archive_Stamp& stamp, std::string_view producer);

/// A PDF of one cross-reference table, with the stamp's moment and number in the place of its own. A file
/// that looks otherwise stays as it is.
[[nodiscard]] std::string stampedPdf(std::string pdf, const Archive_Stamp& stamp);

} // namespace zorvane
