// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace zorvane::ctl {

/// What is wrong with an argument that should be seconds from 0 to `most`; empty when it is right.
[[nodiscard]] std::string secondsComplaint(const std::string& text, std::int64_t most);
/// What is wrong with one that should be how many frames to wait for.
[[nodiscard]] std::string framesComplaint(const std::string& text);

} // namespace zorvane::ctl
