// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

namespace zorvane::ctl {

/// A line on a terminal that says what is done now, drawn over itself, and is gone at the end. Nothing is
/// printed where the stream is no terminal.
class Status_Line {
  public:
    Status_Line(std::ostream& out, bool terminal) : out_(out), terminal_(terminal) {}
    ~Status_Line() { show(""); }
    Status_Line(const Status_Line&) = delete;
    Status_Line& operator=(const Status_Line&) = delete;

    void show(const std::string& text);

  private:
    std::ostream& out_;
    bool terminal_;
    std::size_t drawn_ = 0; ///< characters on the screen
};

} // namespace zorvane::ctl
