// SPDX-License-Identifier: MIT
#pragma once

namespace zorvane::ctl {

/// Whether somebody can answer a question.
[[nodiscard]] bool standardInputIsTerminal();

/// Whether somebody looks at what is told of the progress.
[[nodiscard]] bool standardErrorIsTerminal();

} // namespace zorvane::ctl
