// SPDX-License-Identifier: MIT
#include "reports/bands/line_wrap.h"

#include <algorithm>
#include <string_view>

namespace zorvane {

namespace {

/// How many characters of a text have room, at least one.
std::size_t roomFor(const Text_Metrics& metrics, std::string_view text, const Report_Font& font,
                    double width) {
    std::size_t fits = 1;
    std::size_t tooMany = text.size() + 1;
    for (std::size_t step = 64; fits + step < tooMany; step *= 2) {
        if (metrics.textWidth(std::string(text.substr(0, fits + step)), font) > width) {
            tooMany = fits + step;
            break;
        }
        fits += step;
    }
    while (tooMany - fits > 1) {
        const std::size_t middle = fits + (tooMany - fits) / 2;
        const bool room = metrics.textWidth(std::string(text.substr(0, middle)), font) <= width;
        (room ? fits : tooMany) = middle;
    }
    return std::min(fits, text.size());
}

void addWrapped(std::vector<std::string>& lines, const Text_Metrics& metrics, std::string_view line,
                const Report_Font& font, double width) {
    while (!line.empty()) {
        std::size_t length = roomFor(metrics, line, font, width);
        if (length < line.size() && line[length] != ' ') {
            const std::size_t blank = line.rfind(' ', length - 1);
            if (blank != std::string_view::npos && blank > 0) length = blank;
        }
        lines.emplace_back(line.substr(0, length));
        line.remove_prefix(length);
        if (!line.empty() && line.front() == ' ') line.remove_prefix(1);
    }
}

} // namespace

std::vector<std::string> wrappedLines(const Text_Metrics& metrics, const std::string& text,
                                      const Report_Font& font, double width) {
    std::vector<std::string> lines;
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        std::string_view line = rest.substr(0, end);
        rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        if (line.empty())
            lines.emplace_back();
        else
            addWrapped(lines, metrics, line, font, width);
    }
    return lines;
}

} // namespace zorvane
