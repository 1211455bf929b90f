// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

#include <string>

namespace zorvane::ctl {

/// For options whose value can't be empty. A script's unset variable is no number, no file and no plan; it
/// would stand for the default, and be taken for what its author meant.
inline CLI::Validator givenValue() {
    return {[](const std::string& text) {
                return text.empty() ? std::string("the value is empty") : std::string();
            },
            ""};
}

} // namespace zorvane::ctl
