// SPDX-License-Identifier: MIT
#pragma once

#include "survey/desk/search_words.h"

#include <string>

namespace zorvane::survey {

/// What somebody entered before a search, as it was typed.
struct Find_Fields {
    std::string port;
    std::string units;    ///< "1-247"
    std::string settings; ///< "9600,n,8,1 19200,e,8,1"; empty: the likely ones
};

/// What is wrong with them, in words; empty when a search can begin.
[[nodiscard]] std::string fieldsFault(const Find_Fields& fields);
/// REQUIRES: no fault. `present` are the settings in force, whose way of sending counts here too.
[[nodiscard]] Find_Wishes wishesOf(const Find_Fields& fields, const Port_Settings& present);

/// The settings in force with the port, the line and the number of a controller that was found. A port that
/// takes no line settings leaves them as they are.
[[nodiscard]] Port_Settings settingsOfFound(const Port_Settings& present, const std::string& port,
                                            const Found_Unit& found, bool linesCount);

} // namespace zorvane::survey
