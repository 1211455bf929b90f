// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// A table for a terminal: columns as wide as their widest text, two blanks between them. Texts are UTF-8.
class Text_Table {
  public:
    void add(std::vector<std::string> row) { rows_.push_back(std::move(row)); }
    /// Each line begins with `indent` blanks.
    void print(std::ostream& out, std::size_t indent) const;

  private:
    std::vector<std::vector<std::string>> rows_;
};

} // namespace zorvane::ctl
