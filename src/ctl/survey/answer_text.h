// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/text/json_text.h"
#include "survey/listen/answer_times.h"

namespace zorvane::ctl {

/// {"median","p99"} in ms, to a tenth of one; null where nothing answered.
[[nodiscard]] Json answerTimesJson(const survey::Answer_Times& times);
/// A time in ms, to a tenth of one.
[[nodiscard]] Json msJson(Micros time);

} // namespace zorvane::ctl
