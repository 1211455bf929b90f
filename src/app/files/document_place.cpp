// SPDX-License-Identifier: MIT
#include "app/files/document_place.h"

#include "template/services/file_names.h"
#include "values/code_page.h"

#include <algorithm>

namespace zorvane::app {

std::optional<std::string> documentPlace(const App_Context& app) {
    const Declara_Zorvane& document = app.document();
    if (!app.form().Document_Open || document.No_Place || document.File_Stem.empty()) return std::nullopt;
    const std::string name = document.File_Stem + "." + document.File_Extension;
    if (!app.files.exists(document.File_Folder + name)) return std::nullopt;
    const std::string wanted = upperCase(name);
    const std::string& folder = document.File_Folder; // with its separator, which a listing doesn't take
    const std::vector<std::string> names =
        app.files.list(folder.size() > 1 ? folder.substr(0, folder.size() - 1) : folder);
    if (std::find(names.begin(), names.end(), name) != names.end()) return document.File_Folder + name;
    const auto found = std::find_if(names.begin(), names.end(),
                                    [&](const std::string& one) { return upperCase(one) == wanted; });
    return document.File_Folder + (found == names.end() ? name : *found);
}

} // namespace zorvane::app
