#include "template/file_names.h"

#include "template/files.h"
#include "values/code_page.h"

namespace zorvane {

Document_Name documentName(std::string_view path) {
    Document_Name result;
    const std::size_t separator = path.rfind(folderSeparator);
    const std::size_t start = separator == std::string_view::npos ? 0 : separator + 1;
    const std::string_view name = path.substr(start);
    result.folder = path.substr(0, start);
    result.stem = name;
    const std::size_t dot = name.find('.');
    if (dot == std::string_view::npos || dot == 0) return result;
    result.extension = upperTrimmed(name.substr(dot + 1));
    result.stem = upperTrimmed(name.substr(0, dot));
    result.hasExtension = true;
    return result;
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
