// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zorvane::checker {

/// An error: reading stops, or what was written can't work. A warning: it is read, but most likely not as it
/// was meant.
enum class Severity { Error, Warning };

/// One thing that a template's author should know of. Texts are in the code page.
struct Finding {
    std::int32_t line = 0; ///< from 1
    Severity severity = Severity::Warning;
    std::string_view code; ///< of the rule that found it; lives as long as the program
    std::string lineText;  ///< the line as it stands in the file
    std::string what;      ///< what is wrong, without a full stop
    std::string why;       ///< what becomes of it: whole sentences
    std::string instead;   ///< what to write instead: whole sentences
};

} // namespace zorvane::checker
