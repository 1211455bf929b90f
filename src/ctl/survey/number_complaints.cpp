// SPDX-License-Identifier: MIT
#include "ctl/survey/number_complaints.h"

#include <charconv>
#include <optional>

namespace zorvane::ctl {

namespace {

/// The number that is all of the text.
template <class Number> std::optional<Number> wholeTextAs(const std::string& text) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

} // namespace

std::string secondsComplaint(const std::string& text, std::int64_t most) {
    const auto seconds = wholeTextAs<double>(text);
    // A comparison with what is no number is false.
    if (seconds && *seconds >= 0 && *seconds <= static_cast<double>(most)) return {};
    return "\"" + text + "\" is not seconds from 0 to " + std::to_string(most);
}

std::string framesComplaint(const std::string& text) {
    const auto frames = wholeTextAs<std::uint64_t>(text);
    return frames && *frames > 0 ? "" : "\"" + text + "\" is not a number of frames, 1 or more";
}

} // namespace zorvane::ctl
