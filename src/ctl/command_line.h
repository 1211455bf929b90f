// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace zorvane::ctl {

/// The arguments after a call's name, in the form in which the parser takes them as they are meant:
/// - "--name=" gives the option an empty value, and not the argument that follows;
/// - where the call ends in a free text, an argument that begins like an option and is none of the call's
///   ("-.5", "-abc", "++") is that text. One that is an option's name needs "--" before it.
[[nodiscard]] std::vector<std::string> meantArguments(const CLI::App& call, bool endsInText,
                                                      const std::vector<std::string>& arguments);

} // namespace zorvane::ctl
