// SPDX-License-Identifier: MIT
#include "commission/folder/state_folder.h"

#include <cstdlib>

namespace zorvane::commission {

namespace {

std::string environmentText(const char* name) {
    const char* const text = std::getenv(name);
    return text != nullptr ? text : "";
}

} // namespace

std::string userStateFolder() {
    const std::string given = environmentText("XDG_STATE_HOME");
    const bool usable = !given.empty() && given.front() == '/';
    return (usable ? given : environmentText("HOME") + "/.local/state") + "/zorvane";
}

} // namespace zorvane::commission
