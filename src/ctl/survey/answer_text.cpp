// SPDX-License-Identifier: MIT
#include "ctl/survey/answer_text.h"

#include <cmath>

namespace zorvane::ctl {

namespace {

double inMs(Micros time) { return std::round(static_cast<double>(time) / 100) / 10; }

} // namespace

Json answerTimesJson(const survey::Answer_Times& times) {
    if (times.count() == 0) return nullptr;
    return {{"median", msJson(times.median())}, {"p99", msJson(times.p99())}};
}

Json msJson(Micros time) { return jsonNumber(inMs(time)); }

} // namespace zorvane::ctl
