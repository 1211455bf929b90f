// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/text/json_text.h"

#include <iosfwd>
#include <string_view>
#include <vector>

namespace zorvane::ctl {

/// Writes a JSON document piece by piece, so that a table of any size needs no room in memory. The members of
/// the outermost object or list stand on lines of their own; what lies deeper stays on its line.
class Json_Stream {
  public:
    explicit Json_Stream(std::ostream& out) : out_(out) {}

    void openObject() { open('{', '}'); }
    void openList() { open('[', ']'); }
    /// Ends the innermost object or list. The end of the outermost one ends the line, too.
    void close();
    /// The name of the member that comes next. REQUIRES: an object is open.
    void name(std::string_view text);
    void value(const Json& json);
    /// An object without members: most cells of a table are one.
    void emptyObject();
    void member(std::string_view text, const Json& json);

  private:
    struct Level {
        char end;
        bool empty = true;
    };

    void open(char start, char end);
    void separate();

    std::ostream& out_;
    std::vector<Level> levels_;
    bool named_ = false; ///< a member's name was written and its value is to follow
};

} // namespace zorvane::ctl
