// SPDX-License-Identifier: MIT
#include "comm/main_form/message_bar.h"

#include <algorithm>

namespace zorvane {

void Bar_Lines::tell(Bar_Line line) {
    std::erase_if(lines_, [&](const Bar_Line& old) { return old.topic == line.topic; });
    lines_.push_back(std::move(line));
    std::rotate(lines_.begin(), lines_.end() - 1, lines_.end());
    if (changed) changed();
}

void Bar_Lines::amend(Bar_Line line) {
    const auto old = std::find_if(lines_.begin(), lines_.end(),
                                  [&](const Bar_Line& each) { return each.topic == line.topic; });
    if (old == lines_.end() || old->text == line.text) return;
    *old = std::move(line);
    if (changed) changed();
}

void Bar_Lines::withdraw(const std::string& topic) {
    const auto taken = std::erase_if(lines_, [&](const Bar_Line& line) { return line.topic == topic; });
    if (taken > 0 && changed) changed();
}

void Bar_Lines::documentGone() {
    const auto taken = std::erase_if(lines_, [](const Bar_Line& line) { return line.ofDocument; });
    if (taken > 0 && changed) changed();
}

void Bar_Lines::review() {
    bool others = false;
    for (Bar_Line& line : lines_) {
        if (!line.textNow) continue;
        std::string text = line.textNow();
        others = others || text != line.text;
        line.text = std::move(text);
    }
    std::erase_if(lines_, [](const Bar_Line& line) { return line.textNow && line.text.empty(); });
    if (others && changed) changed();
}

const Bar_Line* Bar_Lines::find(const std::string& topic) const {
    const auto found =
        std::find_if(lines_.begin(), lines_.end(), [&](const Bar_Line& line) { return line.topic == topic; });
    return found == lines_.end() ? nullptr : &*found;
}

} // namespace zorvane
