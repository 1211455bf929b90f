#include "ctl/register_ranges.h"

namespace zorvane {

namespace {

struct Range {
    std::int32_t first;
    std::int32_t last;
};

std::vector<Range> ranges(const std::set<std::int32_t>& registers) {
    std::vector<Range> found;
    for (const std::int32_t address : registers) {
        if (!found.empty() && std::int64_t{found.back().last} + 1 == address)
            found.back().last = address;
        else
            found.push_back({address, address});
    }
    return found;
}

std::string dashed(const Range& range) {
    return std::to_string(range.first) + "-" + std::to_string(range.last);
}

} // namespace

std::vector<std::string> rangeTexts(const std::set<std::int32_t>& registers) {
    std::vector<std::string> texts;
    for (const Range& range : ranges(registers))
        texts.push_back(dashed(range));
    return texts;
}

std::string rangesText(const std::set<std::int32_t>& registers) {
    std::string text;
    for (const Range& range : ranges(registers))
        text += (text.empty() ? "" : ", ") +
                (range.first == range.last ? std::to_string(range.first) : dashed(range));
    return text;
}

} // namespace zorvane
