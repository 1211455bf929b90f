// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace zorvane::bench {

/// What the benchmark is run with.
struct Bench_Setup {
    std::string simulator; ///< program
    std::string python;
    std::string pymodbusScript;
    std::string models;                             ///< folder with the templates
    std::string folder;                             ///< for the benchmark's own files
    std::vector<int> bauds{9600, 19200, 115200, 0}; ///< 0: unpaced
    int exchanges = 208;                            ///< of each engine in each cell
    int uploads = 5;                                ///< of each model
};

/// Measures every cell, wire by request, with the engines taking turns, and prints the table of medians.
void measureExchanges(const Bench_Setup& setup);

} // namespace zorvane::bench
