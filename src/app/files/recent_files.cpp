// SPDX-License-Identifier: MIT
#include "app/files/recent_files.h"

#include "app/files/document_place.h"

#include <algorithm>

namespace zorvane::app {

namespace {

const std::string recentSection = "Recent";

std::string keyOf(std::size_t index) { return "File" + std::to_string(index + 1); }

std::vector<std::string> storedPaths(const App_Context& app) {
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < mostRecentFiles; ++i) {
        std::string path = app.settings.GetSetting(applicationTitle, recentSection, keyOf(i), "");
        if (!path.empty() && std::find(paths.begin(), paths.end(), path) == paths.end())
            paths.push_back(std::move(path));
    }
    return paths;
}

} // namespace

std::vector<Recent_File> recentFiles(const App_Context& app) {
    std::vector<Recent_File> recent;
    for (std::string& path : storedPaths(app)) {
        const bool there = app.files.exists(path);
        recent.push_back({std::move(path), there});
    }
    return recent;
}

void noteRecentFile(const App_Context& app) {
    const auto place = documentPlace(app);
    if (!place) return;
    const std::vector<std::string> before = storedPaths(app);
    if (!before.empty() && before.front() == *place) return;
    std::vector<std::string> paths;
    paths.push_back(*place);
    for (const std::string& path : before)
        if (path != *place && paths.size() < mostRecentFiles) paths.push_back(path);
    for (std::size_t i = 0; i < paths.size(); ++i)
        app.settings.SaveSetting(applicationTitle, recentSection, keyOf(i), paths[i]);
}

} // namespace zorvane::app
