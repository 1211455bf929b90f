// SPDX-License-Identifier: MIT
#pragma once

#include <iosfwd>
#include <string>
#include <utility>
#include <vector>

namespace zorvane::checker::doubles {

/// Text that stands in the good template and what takes its place; in place of nothing it goes to the end.
using Edit = std::pair<std::string, std::string>;

/// A small template for one code, and what is found in it.
struct Sample {
    std::string code;
    std::vector<Edit> edits;
    std::string findings;
};

void PrintTo(const Sample& sample, std::ostream* out);

/// A template in which nothing is found.
[[nodiscard]] const std::string& goodTemplate();
/// It with other text in it; a text that isn't there fails the test.
[[nodiscard]] std::string edited(const std::vector<Edit>& edits);
/// What the file of a code's sample is called.
[[nodiscard]] std::string fileNameFor(const std::string& code);

/// The samples by subject: lines and sections; keys, fields and columns; addresses and lists; limits and
/// default values; scan blocks, downloads and identity.
[[nodiscard]] std::vector<Sample> lineSamples();
[[nodiscard]] std::vector<Sample> tableSamples();
[[nodiscard]] std::vector<Sample> addressSamples();
[[nodiscard]] std::vector<Sample> valueSamples();
[[nodiscard]] std::vector<Sample> blockSamples();
/// All of them.
[[nodiscard]] std::vector<Sample> allSamples();

} // namespace zorvane::checker::doubles
