// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/trial_exchange.h"

#include <string>
#include <vector>

namespace zorvane {

enum class Verdict_Kind {
    Good,
    Exception, ///< refused, so the unit is there
    Silence,
    Damaged,  ///< noise, a wrong CRC or half an answer
    Echo,     ///< only the adapter's own
    NoEcho,   ///< an answer, but not after the echo that the settings promise
    Stranger, ///< a whole answer of another unit or to another question
    NotOpened,
    Lost,
};

/// What a test showed, in plain words, and what to do about it in order of likelihood.
struct Trial_Verdict {
    Verdict_Kind kind = Verdict_Kind::Good;
    std::string headline;
    std::vector<std::string> advice;
};

[[nodiscard]] Trial_Verdict trialVerdict(const Trial_Request& request, const Trial_Report& report);

/// Headline and numbered advice, a line each.
[[nodiscard]] std::string verdictText(const Trial_Verdict& verdict);

} // namespace zorvane
