// SPDX-License-Identifier: MIT
#include "ctl/text/status_line.h"

#include <ostream>

namespace zorvane::ctl {

void Status_Line::show(const std::string& text) {
    if (!terminal_ || (text.empty() && drawn_ == 0)) return;
    out_ << '\r' << std::string(drawn_, ' ') << '\r' << text << std::flush;
    drawn_ = text.size();
}

} // namespace zorvane::ctl
