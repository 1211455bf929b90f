// SPDX-License-Identifier: MIT
#include "ctl/text/progress_printer.h"

#include <algorithm>
#include <ostream>

namespace zorvane::ctl {

namespace {

constexpr std::int32_t barWidth = 30;

/// `value` of `maximum` as so many of `parts`.
std::int32_t share(std::int32_t value, std::int32_t maximum, std::int32_t parts) {
    if (maximum <= 0) return 0;
    return static_cast<std::int32_t>(std::int64_t{std::clamp(value, 0, maximum)} * parts / maximum);
}

} // namespace

void Progress_Printer::label(const std::string& text) { line(text); }

void Progress_Printer::progress(std::int32_t value, std::int32_t maximum) {
    if (maximum != maximum_) tenths_ = 0;
    value_ = value;
    maximum_ = maximum;
    if (terminal_) return draw();
    const std::int32_t tenths = share(value, maximum, 10);
    if (tenths <= tenths_) return;
    tenths_ = tenths;
    out_ << tenths * 10 << " % (" << value << " of " << maximum << ")\n" << std::flush;
}

void Progress_Printer::line(const std::string& text) {
    wipe();
    out_ << text << '\n' << std::flush;
    if (terminal_ && maximum_ > 0) draw();
}

void Progress_Printer::end() {
    wipe();
    maximum_ = 0;
    out_ << std::flush;
}

void Progress_Printer::draw() {
    const std::int32_t full = share(value_, maximum_, barWidth);
    std::string bar("[");
    bar.append(static_cast<std::size_t>(full), '#').append(static_cast<std::size_t>(barWidth - full), '-');
    bar.append("] ").append(std::to_string(share(value_, maximum_, 100))).append(" %");
    if (bar == bar_ && drawn_ > 0) return;
    wipe();
    out_ << bar << std::flush;
    drawn_ = bar.size();
    bar_ = std::move(bar);
}

void Progress_Printer::wipe() {
    if (drawn_ == 0) return;
    out_ << '\r' << std::string(drawn_, ' ') << '\r';
    drawn_ = 0;
}

} // namespace zorvane::ctl
