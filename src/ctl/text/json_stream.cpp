// SPDX-License-Identifier: MIT
#include "ctl/text/json_stream.h"

#include <ostream>

namespace zorvane::ctl {

void Json_Stream::separate() {
    if (named_ || levels_.empty()) {
        named_ = false;
        return;
    }
    Level& level = levels_.back();
    if (!level.empty) out_ << ',';
    if (levels_.size() == 1) out_ << "\n  ";
    level.empty = false;
}

void Json_Stream::open(char start, char end) {
    separate();
    out_ << start;
    levels_.push_back({end});
}

void Json_Stream::close() {
    const Level level = levels_.back();
    levels_.pop_back();
    if (levels_.empty() && !level.empty) out_ << '\n';
    out_ << level.end;
    if (levels_.empty()) out_ << '\n';
}

void Json_Stream::name(std::string_view text) {
    separate();
    out_ << compactJson(text) << ": ";
    named_ = true;
}

void Json_Stream::value(const Json& json) {
    separate();
    out_ << compactJson(json);
}

void Json_Stream::emptyObject() {
    separate();
    out_ << "{}";
}

void Json_Stream::member(std::string_view text, const Json& json) {
    name(text);
    value(json);
}

} // namespace zorvane::ctl
