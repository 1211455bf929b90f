// SPDX-License-Identifier: MIT
#pragma once

#include "survey/find/line_search.h"
#include "survey/find/testing/simulated_line.h"

#include <algorithm>
#include <numeric>
#include <string>
#include <vector>

namespace zorvane::survey::testing {

inline constexpr Micros ms = microsPerMs;
inline constexpr Micros hour = 3600 * microsPerSecond;

inline std::vector<std::uint8_t> unitsTo(int last) {
    std::vector<std::uint8_t> units(static_cast<std::size_t>(last));
    std::iota(units.begin(), units.end(), std::uint8_t{1});
    return units;
}

inline Search_Plan planFor(std::vector<Line_Candidate> lines, int lastUnit = 247) {
    Search_Plan plan;
    plan.port.port = "ttyUSB0";
    plan.lines = std::move(lines);
    plan.units = unitsTo(lastUnit);
    plan.addresses = {0};
    return plan;
}

inline Search_Plan oneLine(int lastUnit) {
    return planFor(namedLines(std::vector<Line_Settings>{{9600, 'N', 8, 1}}), lastUnit);
}

/// Runs a search over a simulated line to its end.
struct Search_Run {
    Search_Run(zorvane::testing::Hand_Clock& clock, Simulated_Line& line, const Search_Plan& plan)
        : clock_(clock),
          search_(line, clock, plan, [this](const Search_Progress& progress) { see(progress); }) {
        const Micros begun = clock.now();
        begun_ = begun;
        search_.start([this](const Search_Report& told) {
            report = told;
            ++ended;
        });
        clock.runUntilTrue([this] { return ended > 0; }, hour);
    }

    Search_Report report;
    int ended = 0;
    Micros firstFoundAfter = 0;
    std::vector<std::string> seen; ///< "9600,n,8,2: 5"

  private:
    void see(const Search_Progress& progress) {
        if (progress.found > 0 && firstFoundAfter == 0) firstFoundAfter = clock_.now() - begun_;
        const std::string what = formatLineSettings(progress.line) + ": " + std::to_string(progress.unit);
        if (seen.empty() || seen.back() != what) seen.push_back(what);
    }

    zorvane::testing::Hand_Clock& clock_;
    Micros begun_ = 0;
    Line_Search search_;
};

inline std::vector<std::string> foundTexts(const Search_Report& report) {
    std::vector<std::string> texts;
    for (const Found_Unit& found : report.found)
        texts.push_back(std::to_string(found.unit) + " at " + formatLineSettings(found.line));
    std::sort(texts.begin(), texts.end());
    return texts;
}

inline bool onlyReads(const std::vector<Byte_Array>& written) {
    return std::all_of(written.begin(), written.end(), [](const Byte_Array& frame) {
        return frame.size() == 8 && frame[1] == 3 && frame[4] == 0 && frame[5] == 1;
    });
}

} // namespace zorvane::survey::testing
