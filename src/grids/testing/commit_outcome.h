// SPDX-License-Identifier: MIT
#pragma once

#include "grids/testing/grid_bench.h"
#include "values/colours.h"

#include <ostream>
#include <string>
#include <vector>

namespace zorvane::doubles {

/// All that a commit can change, as seen when it has ended.
struct Commit_Outcome {
    std::string Value;
    std::string grid;
    std::vector<std::string> writes; ///< what went to the controller
    std::string title = "site7.abc - Zorvane";
    std::string save = "as before";    ///< the Save entry: "as before", "on" or "off"
    std::string panel;                 ///< every text of panel 4, in order, each with its end of line
    std::string colours = "as before"; ///< of the cell, text on background
    bool tabStop = true;
    bool scanStarted = false;
    int focus = 0; ///< how often the grid was given the focus
    std::int32_t col = 0;
    std::vector<std::string> messages;

    bool operator==(const Commit_Outcome&) const = default;
};

inline void PrintTo(const Commit_Outcome& outcome, std::ostream* out) {
    *out << "\n  Value    " << outcome.Value << "\n  grid     " << outcome.grid;
    for (const std::string& write : outcome.writes)
        *out << "\n  write    " << write;
    *out << "\n  title    " << outcome.title << "\n  save     " << outcome.save << "\n  panel    "
         << outcome.panel << "\n  colours  " << outcome.colours << "\n  tab stop " << outcome.tabStop
         << "\n  scan     " << outcome.scanStarted << "\n  focus    " << outcome.focus << "\n  col      "
         << outcome.col;
    for (const std::string& message : outcome.messages)
        *out << "\n  message  " << message;
    *out << '\n';
}

/// Names the colours of the current cell by the words of the default template colours.
inline std::string colourNames(const VSFlexGrid& grid) {
    const std::int32_t fore = grid.CellForeColor();
    const std::int32_t back = grid.CellBackColor();
    if (fore == 0 && back == 0) return "as before";
    const std::string text = fore == colourOf("BLUE")    ? "writing"
                             : fore == colourOf("RED")   ? "error"
                             : fore == colourOf("BLACK") ? "modifiable"
                                                         : "unknown";
    return back == colourOf("YELLOW") ? text : text + " on an unknown background";
}

/// Reads the outcome of a commit of row 1, column 0 off the bench.
inline Commit_Outcome outcomeOf(Grid_Bench& bench) {
    Commit_Outcome outcome;
    outcome.Value = bench.grids.cell(1, 0).Value;
    outcome.grid = bench.ownLower.TextMatrix(1, 0);
    outcome.writes = bench.journal.beginningWith("link Preset");
    if (!bench.mainForm.caption().empty()) outcome.title = bench.mainForm.caption();
    if (!bench.journal.beginningWith("MNU_Save ").empty())
        outcome.save = bench.mainForm.menuEnabled(Menu_Entry::MNU_Save) ? "on" : "off";
    for (const std::string& line : bench.journal.beginningWith("panel 4"))
        outcome.panel += line.substr(10) + "\n";
    outcome.tabStop = bench.ownLower.TabStop();
    outcome.scanStarted = !bench.journal.beginningWith("link StartScan").empty();
    outcome.focus = bench.ownLower.focusCalls();
    outcome.col = bench.ownLower.Col();
    outcome.messages = bench.journal.beginningWith("Msgb");
    bench.ownLower.setRow(1);
    bench.ownLower.setCol(0);
    outcome.colours = colourNames(bench.ownLower);
    return outcome;
}

} // namespace zorvane::doubles
