// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace zorvane::ctl {

/// The arguments after a call's name, in the form in which the parser takes them as they are meant:
/// - "--name=" gives the option an empty value, and not the argument that follows;
/// - an option that may stand without a value has none where an option or nothing follows;
/// - where the call ends in a free text, an argument that begins like an option and is none of the call's
///   ("-.5", "-abc", "++") is that text. One that is an option's name needs "--" before it.
[[nodiscard]] std::vector<std::string> meantArguments(const CLI::App& call, bool endsInText,
                                                      const std::vector<std::string>& arguments);

/// The places of those words of such a line that are neither options nor their values.
[[nodiscard]] std::vector<std::size_t> plainArguments(const CLI::App& call,
                                                      const std::vector<std::string>& line);

} // namespace zorvane::ctl
