// SPDX-License-Identifier: MIT
#include "template/services/file_names.h"

#include "template/model/declara_zorvane.h"
#include "template/services/files.h"
#include "values/code_page.h"

namespace zorvane {

Path_Parts splitPath(std::string_view path) noexcept {
    const std::size_t separator = path.rfind(folderSeparator);
    const std::size_t start = separator == std::string_view::npos ? 0 : separator + 1;
    return {path.substr(0, start), path.substr(start)};
}

Document_Name documentName(std::string_view path) {
    const auto [folder, name] = splitPath(path);
    Document_Name result;
    result.folder = folder;
    result.stem = name;
    const std::size_t dot = name.find('.');
    if (dot == std::string_view::npos || dot == 0) return result;
    result.extension = upperTrimmed(name.substr(dot + 1));
    result.stem = upperTrimmed(name.substr(0, dot));
    result.hasExtension = true;
    return result;
}

void takeName(Declara_Zorvane& document, std::string_view path) {
    const Document_Name name = documentName(path);
    document.File_Folder = name.folder;
    document.File_Stem = name.stem;
    if (name.hasExtension) document.File_Extension = name.extension;
    document.No_Place = false;
}

std::string lastExtension(std::string_view path) {
    const std::size_t dot = path.rfind('.');
    return dot == std::string_view::npos ? std::string(upperTrimmed(path))
                                         : upperTrimmed(path.substr(dot + 1));
}

std::string templateName(std::string_view path) { return lastExtension(path) + ".ZTP"; }

std::pair<std::string, std::string> splitName(std::string_view name) {
    const std::size_t dot = name.find('.');
    if (dot == std::string_view::npos || dot == 0) return {};
    return {std::string(name.substr(0, dot)), upperTrimmed(name.substr(dot + 1))};
}

std::string filterItem(std::string_view stem) {
    const std::string text(stem);
    return text + " Configuration (*." + text + ")|*." + text + "|";
}

} // namespace zorvane
