// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace zorvane {

struct Declara_Zorvane;

/// A path cut before the file's name.
struct Path_Parts {
    std::string_view folder; ///< with the separator at its end; empty when the path names none
    std::string_view name;
};

/// The parts are views of `path`.
[[nodiscard]] Path_Parts splitPath(std::string_view path) noexcept;

/// A path taken apart: the folder with its separator, and the name cut at its first dot.
struct Document_Name {
    std::string folder;
    /// Trimmed upper case, or the whole name as spelt when it has no dot past its first character.
    std::string stem;
    std::string extension; ///< trimmed upper case
    bool hasExtension = false;
};

[[nodiscard]] Document_Name documentName(std::string_view path);

/// Names the document after a path, which is then its place. A name without an extension leaves the extension
/// as it was.
void takeName(Declara_Zorvane& document, std::string_view path);

/// The name of the template that a document's last extension asks for: `site.abc` asks for "ABC.ZTP".
[[nodiscard]] std::string templateName(std::string_view path);

/// Trimmed upper case of what follows the last dot of a path, or of the whole path when there is none.
[[nodiscard]] std::string lastExtension(std::string_view path);

/// A file's name cut at its first dot: stem as spelt and extension in trimmed upper case. Both are empty for
/// a name that starts with the dot, or has none.
[[nodiscard]] std::pair<std::string, std::string> splitName(std::string_view name);

/// The line that a template adds to the filter of the Open dialog.
[[nodiscard]] std::string filterItem(std::string_view stem);

} // namespace zorvane
