// SPDX-License-Identifier: MIT
#include "survey/find/search_plan.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zorvane::survey {

namespace {

constexpr std::uint8_t highestUnit = 247;

struct Baud_And_Parity {
    std::int32_t baud;
    char parity;
};

/// The two that "MODBUS over Serial Line Specification and Implementation Guide V1.02" (2.5.1) names and its
/// neighbours, then the speeds by how often makers ship them, each with its parities.
constexpr std::array<Baud_And_Parity, 24> byLikelihood = {{
    {19200, 'E'}, {9600, 'N'},  {9600, 'E'},  {19200, 'N'},  {38400, 'N'}, {115200, 'N'},
    {4800, 'N'},  {38400, 'E'}, {57600, 'N'}, {2400, 'N'},   {4800, 'E'},  {115200, 'E'},
    {57600, 'E'}, {9600, 'O'},  {19200, 'O'}, {2400, 'E'},   {1200, 'N'},  {1200, 'E'},
    {38400, 'O'}, {4800, 'O'},  {57600, 'O'}, {115200, 'O'}, {2400, 'O'},  {1200, 'O'},
}};

bool sameButStopBits(const Line_Settings& one, const Line_Settings& other) {
    return one.baud == other.baud && one.parity == other.parity && one.dataBits == other.dataBits;
}

void addOnce(std::vector<Line_Candidate>& lines, const Line_Settings& line) {
    const bool known = std::any_of(lines.begin(), lines.end(), [&line](const Line_Candidate& each) {
        return sameButStopBits(each.line, line);
    });
    if (!known) lines.push_back({line, true});
}

std::optional<int> unitNumber(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    if (number < 1 || number > highestUnit) return std::nullopt;
    return number;
}

/// "5" or "1-20".
bool addUnits(std::vector<std::uint8_t>& units, std::string_view part) {
    const std::size_t dash = part.find('-');
    const auto first = unitNumber(part.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : unitNumber(part.substr(dash + 1));
    if (!first || !last || *first > *last) return false;
    for (int unit = *first; unit <= *last; ++unit) {
        const auto number = static_cast<std::uint8_t>(unit);
        if (std::find(units.begin(), units.end(), number) == units.end()) units.push_back(number);
    }
    return true;
}

} // namespace

Line_Settings Line_Candidate::probed() const {
    Line_Settings sending = line;
    if (eitherStopBits) sending.stopBits = 2;
    return sending;
}

std::vector<Line_Candidate> likelyLines(const std::optional<Line_Settings>& lastGood,
                                        std::span<const Line_Settings> ofTemplates) {
    std::vector<Line_Candidate> lines;
    if (lastGood) addOnce(lines, *lastGood);
    for (const Line_Settings& line : ofTemplates)
        addOnce(lines, line);
    for (const auto& [baud, parity] : byLikelihood)
        addOnce(lines, {baud, parity, 8, 1});
    return lines;
}

std::vector<Line_Candidate> namedLines(std::span<const Line_Settings> named) {
    std::vector<Line_Candidate> lines;
    for (const Line_Settings& line : named) {
        const Line_Candidate candidate{line, false};
        if (std::find(lines.begin(), lines.end(), candidate) == lines.end()) lines.push_back(candidate);
    }
    return lines;
}

std::optional<std::vector<std::uint8_t>> parseUnits(std::string_view text) {
    std::vector<std::uint8_t> units;
    while (true) {
        const std::size_t comma = text.find(',');
        if (!addUnits(units, text.substr(0, comma))) return std::nullopt;
        if (comma == std::string_view::npos) return units;
        text.remove_prefix(comma + 1);
    }
}

Search_Order::Search_Order(const Search_Plan& plan) {
    const std::size_t likely = std::min(likelyUnits, plan.units.size());
    const auto add = [&](std::size_t begin, std::size_t end, std::uint16_t address) {
        for (std::size_t line = 0; line < plan.lines.size(); ++line)
            for (std::size_t unit = begin; unit < end; ++unit)
                points_.push_back({line, plan.units[unit], address});
    };
    for (const std::uint16_t address : plan.addresses) {
        add(0, likely, address);
        add(likely, plan.units.size(), address);
    }
}

std::optional<Probe_Point> Search_Order::next() {
    if (points_.empty()) return std::nullopt;
    const Probe_Point point = points_.front();
    points_.pop_front();
    ++given_;
    return point;
}

void Search_Order::keep(std::size_t line) {
    std::erase_if(points_, [line](const Probe_Point& point) { return point.line != line; });
}

void Search_Order::leaveOutLine(std::size_t line) {
    std::erase_if(points_, [line](const Probe_Point& point) { return point.line == line; });
}

void Search_Order::leaveOutUnit(std::uint8_t unit) {
    std::erase_if(points_, [unit](const Probe_Point& point) { return point.unit == unit; });
}

} // namespace zorvane::survey
