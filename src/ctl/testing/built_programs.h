// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string>

namespace zorvane::doubles {

/// The built programs; the build says where they are.
inline const std::string ctl = ZORVANECTL;
inline const std::string sim = ZORVANE_SIM;

/// A template or a document that stands beside them.
inline std::string model(const std::string& file) {
    return (std::filesystem::path(ctl).parent_path() / file).string();
}

} // namespace zorvane::doubles
