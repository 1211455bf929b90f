// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace zorvane::doubles {

/// What the doubles were asked to do, in order, one line each. A link and a frame share one, so that a test
/// sees their order against each other.
class Journal {
  public:
    void add(std::string line) { lines_.push_back(std::move(line)); }
    void clear() { lines_.clear(); }
    [[nodiscard]] const std::vector<std::string>& lines() const noexcept { return lines_; }

    /// The lines that begin with a text.
    [[nodiscard]] std::vector<std::string> beginningWith(const std::string& beginning) const {
        std::vector<std::string> found;
        for (const std::string& line : lines_)
            if (line.starts_with(beginning)) found.push_back(line);
        return found;
    }

    /// Hands the lines over and starts again.
    [[nodiscard]] std::vector<std::string> take() { return std::exchange(lines_, {}); }

  private:
    std::vector<std::string> lines_;
};

} // namespace zorvane::doubles
