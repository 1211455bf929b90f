// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zorvane::ctl {

/// Where a run lies: the folder of all runs (UTF-8), and its name there.
struct Run_Folder_Name {
    std::string folder;
    std::string name; ///< empty when there is no last one
};

/// A run as a command line names it: a folder's name, a path, or "last". `state` is the folder of what this
/// system keeps for the user.
[[nodiscard]] Run_Folder_Name runFolderOf(const std::string& state, const std::string& given);

} // namespace zorvane::ctl
