// SPDX-License-Identifier: MIT
#include "compare/filter.h"

#include "values/code_page.h"

#include <algorithm>
#include <charconv>
#include <map>

namespace zorvane::compare {

namespace {

/// The words of "is:", in lower case.
const std::map<std::string, Sign, std::less<>>& signsByWord() {
    static const std::map<std::string, Sign, std::less<>> words = [] {
        std::map<std::string, Sign, std::less<>> all = {{"missing", Sign::One_Side},
                                                        {"readonly", Sign::Read_Only}};
        for (const Sign sign : allSigns)
            all.emplace(signWord(sign), sign);
        return all;
    }();
    return words;
}

/// Takes the next word off the front of a text; in it, quotation marks hold blanks together and go.
std::string takeWord(std::string_view& text) {
    std::string word;
    bool quoted = false;
    while (!text.empty() && (quoted || text.front() != ' ')) {
        if (text.front() == '"')
            quoted = !quoted;
        else
            word += text.front();
        text.remove_prefix(1);
    }
    return word;
}

std::vector<std::string> wordsOf(std::string_view text) {
    std::vector<std::string> words;
    while (!text.empty()) {
        if (text.front() == ' ')
            text.remove_prefix(1);
        else if (std::string word = takeWord(text); !word.empty())
            words.push_back(std::move(word));
    }
    return words;
}

std::optional<std::int32_t> plainNumber(std::string_view text) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < 0) return std::nullopt;
    return number;
}

std::optional<Register_Range> plainRange(std::string_view text) {
    const std::size_t dash = text.find('-');
    const auto first = plainNumber(text.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : plainNumber(text.substr(dash + 1));
    if (!first || !last || *last < *first) return std::nullopt;
    return Register_Range{*first, *last};
}

/// What follows a prefix, which may be in any letter case; nothing without it.
std::optional<std::string_view> after(std::string_view prefix, std::string_view word) {
    if (lowerCase(word.substr(0, prefix.size())) != prefix) return std::nullopt;
    return word.substr(prefix.size());
}

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

template <class Wanted, class Fits> bool oneFits(const std::vector<Wanted>& wanted, Fits&& fits) {
    return wanted.empty() || std::any_of(wanted.begin(), wanted.end(), fits);
}

} // namespace

/// A NUL, which no word holds, keeps the texts apart.
Row_Texts::Row_Texts(const Row& row) : page(upperCase(row.page)) {
    all = page;
    for (const std::string* text : {&row.name, &row.heading, &row.left.shown, &row.right.shown})
        (all += '\0') += upperCase(*text);
}

std::string Filter::fault(std::string_view text) {
    Filter filter;
    for (const std::string& word : wordsOf(text))
        if (std::string wrong = filter.take(word); !wrong.empty()) return wrong;
    return {};
}

Filter::Filter(std::string_view text) {
    for (const std::string& word : wordsOf(text))
        (void)take(word);
}

std::string Filter::take(std::string_view word) {
    if (const auto name = after("is:", word)) {
        const auto found = signsByWord().find(lowerCase(*name));
        if (found == signsByWord().end())
            return "\"" + std::string(word) +
                   "\" names no sign. Write is: and one of differs, missing, readonly, equal, changing, "
                   "not_read or left_out.";
        signs_.push_back(found->second);
    } else if (const auto range = after("reg:", word)) {
        const auto registers = plainRange(*range);
        if (!registers)
            return "\"" + std::string(word) + "\" names no registers. Write reg:40010 or reg:40010-40020.";
        registers_.push_back(*registers);
    } else if (const auto page = after("page:", word)) {
        pages_.push_back(upperCase(*page));
    } else {
        texts_.push_back(upperCase(word));
    }
    return {};
}

bool Filter::lets(const Row& row, const Row_Texts& texts) const {
    const auto hasSign = [&](Sign sign) { return sign == row.sign; };
    const auto hasRegister = [&](const Register_Range& range) {
        return row.registers && range.first <= row.registers->last && row.registers->first <= range.last;
    };
    const auto onPage = [&](const std::string& name) { return contains(texts.page, name); };
    const auto saidSomewhere = [&](const std::string& text) { return contains(texts.all, text); };
    return oneFits(signs_, hasSign) && oneFits(registers_, hasRegister) && oneFits(pages_, onPage) &&
           std::all_of(texts_.begin(), texts_.end(), saidSomewhere);
}

} // namespace zorvane::compare
