// SPDX-License-Identifier: MIT
#include "ctl/command_line.h"

#include <CLI/CLI.hpp>

#include <iterator>
#include <span>

namespace zorvane::ctl {

namespace {

const std::string endOfOptions = "--";

/// The parser takes a digit for a number's, and stops at "++" too.
bool looksLikeOption(const std::string& argument) {
    if (argument == "++") return true;
    return argument.size() > 1 && argument[0] == '-' && (argument[1] < '0' || argument[1] > '9');
}

const CLI::Option* optionOf(const CLI::App& call, const std::string& argument) {
    return call.get_option_no_throw(argument.substr(0, argument.find('=')));
}

bool takesValue(const CLI::Option& option) { return option.get_items_expected_max() > 0; }

bool isOption(const CLI::App& call, const std::string& argument) {
    return looksLikeOption(argument) && optionOf(call, argument) != nullptr;
}

/// Whether an option's value is the first word of what follows it.
bool hasValue(const CLI::App& call, const CLI::Option& option, std::span<const std::string> after) {
    if (after.empty() || !takesValue(option)) return false;
    const bool needsOne = option.get_items_expected_min() > 0;
    return needsOne || (after.front() != endOfOptions && !isOption(call, after.front()));
}

} // namespace

std::vector<std::string> meantArguments(const CLI::App& call, bool endsInText,
                                        const std::vector<std::string>& arguments) {
    std::vector<std::string> meant;
    std::vector<std::string> after;
    auto at = arguments.begin();
    for (; at != arguments.end() && *at != endOfOptions && after.empty(); ++at) {
        const CLI::Option* const option = looksLikeOption(*at) ? optionOf(call, *at) : nullptr;
        if (option != nullptr && takesValue(*option)) {
            const std::size_t equals = at->find('=');
            meant.push_back(at->substr(0, equals));
            if (equals != std::string::npos)
                meant.push_back(at->substr(equals + 1));
            else if (hasValue(call, *option, std::span(std::next(at), arguments.end())))
                meant.push_back(*++at);
        } else if (option == nullptr && looksLikeOption(*at) && endsInText) {
            after = {endOfOptions, *at};
        } else {
            meant.push_back(*at);
        }
    }
    meant.insert(meant.end(), at, arguments.end());
    meant.insert(meant.end(), after.begin(), after.end());
    return meant;
}

std::vector<std::size_t> plainArguments(const CLI::App& call, const std::vector<std::string>& line) {
    std::vector<std::size_t> plain;
    std::size_t at = 0;
    for (; at < line.size() && line[at] != endOfOptions; ++at) {
        const CLI::Option* const option = looksLikeOption(line[at]) ? optionOf(call, line[at]) : nullptr;
        if (option == nullptr)
            plain.push_back(at);
        else if (hasValue(call, *option, std::span(line).subspan(at + 1)))
            ++at;
    }
    for (++at; at < line.size(); ++at)
        plain.push_back(at);
    return plain;
}

} // namespace zorvane::ctl
