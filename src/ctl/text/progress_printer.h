// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

namespace zorvane::ctl {

/// Shows a transfer's progress to people: a bar that is drawn over itself on a terminal, else a line at each
/// tenth of the way.
class Progress_Printer {
  public:
    /// `terminal`: `out` is one, and understands a carriage return.
    Progress_Printer(std::ostream& out, bool terminal) : out_(out), terminal_(terminal) {}

    void label(const std::string& text);
    void progress(std::int32_t value, std::int32_t maximum);
    /// A line for good; the bar, if there is one, goes on below it.
    void line(const std::string& text);
    /// Takes the bar away.
    void end();

  private:
    void draw();
    void wipe();

    std::ostream& out_;
    bool terminal_;
    std::int32_t value_ = 0;
    std::int32_t maximum_ = 0;
    std::int32_t tenths_ = 0;
    std::size_t drawn_ = 0; ///< characters of the bar on the screen
    std::string bar_;
};

} // namespace zorvane::ctl
