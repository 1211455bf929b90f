// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace zorvane::app {

/// Values were judged as a whole, and some don't fit: whether to take the others.
struct Fit_Question {
    std::string title;                  ///< "Paste"
    std::string summary;                ///< "37 of 40 fit; row 12 above its limit 1400"
    std::vector<std::string> leftOut;   ///< a line for each that doesn't fit
    std::size_t taken = 0;              ///< how many do
    std::string details{};              ///< what else there is to know, as sentences
    std::vector<std::string> changes{}; ///< a line for each value that would change; may be left out
    bool accept = false;                ///< "All that fit" is what Enter means
};

/// Asks the user: true for all that fit, false for nothing.
using Ask_Fit = std::function<bool(const Fit_Question& question)>;

} // namespace zorvane::app
