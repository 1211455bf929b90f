// SPDX-License-Identifier: MIT
#include "checker/wording.h"

#include "values/numbers.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace zorvane::checker {

namespace {

constexpr std::size_t longestWord = 64;

/// How many letters have to be put in, taken out or changed to make one word of the other. REQUIRES: `b`
/// isn't longer than the longest word.
std::size_t editDistance(std::string_view a, std::string_view b) {
    std::array<std::size_t, longestWord + 1> row{};
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t changed = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({row[j] + 1, row[j + 1] + 1, changed});
        }
    }
    return row[b.size()];
}

} // namespace

std::string quoted(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::string counted(std::int64_t count, std::string_view noun) {
    return numberText(static_cast<double>(count)) + " " + std::string(noun) + (count == 1 ? "" : "s");
}

std::string listed(std::string_view noun, const std::vector<std::int32_t>& numbers) {
    constexpr std::size_t mostNamed = 5;
    const std::size_t named = numbers.size() > mostNamed + 1 ? mostNamed : numbers.size();
    std::string text = std::string(noun) + (numbers.size() == 1 ? "" : "s");
    for (std::size_t i = 0; i < named; ++i)
        text += (i == 0 ? " " : ", ") + numberText(numbers[i]);
    const std::size_t rest = numbers.size() - named;
    return rest == 0 ? text : text + " and " + std::to_string(rest) + " more";
}

std::string choice(const std::vector<std::string_view>& words) {
    std::string text;
    for (std::size_t i = 0; i < words.size(); ++i)
        text += std::string(i == 0 ? "" : i + 1 == words.size() ? " or " : ", ") + std::string(words[i]);
    return text;
}

std::string spelt(std::string_view name, std::int32_t number) {
    std::string text(name);
    const std::size_t hash = text.find('#');
    if (hash != std::string::npos) text.replace(hash, 1, number > 0 ? numberText(number) : "n");
    return text;
}

std::string_view nearest(std::string_view word, const std::vector<std::string_view>& known) {
    if (word.size() > longestWord) return {};
    std::string_view best;
    std::size_t least = std::max<std::size_t>(2, word.size() / 4) + 1;
    for (const std::string_view candidate : known) {
        if (candidate.size() > longestWord) continue;
        const std::size_t distance = editDistance(word, candidate);
        if (distance >= least || distance >= candidate.size()) continue;
        least = distance;
        best = candidate;
    }
    return best;
}

} // namespace zorvane::checker
