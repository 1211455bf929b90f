// SPDX-License-Identifier: MIT
#include "checker/checker.h"

#include "values/numbers.h"

#include <algorithm>

namespace zorvane::checker {

namespace {

void nothing(const Checked_Template&, const Report&) {}

/// For lines on which the reader stops and no other rule knows why.
constexpr Rule readingStops{"reading-stops", Severity::Error, "a line on which the reader stops",
                            "The rest of the file isn't read, and the window says nothing of it.", nothing};

/// For a template without any lines, since its file can't be read.
constexpr Rule unreadableFile{"unreadable", Severity::Error, "a file that isn't there or can't be read",
                              "Nothing of it was checked.", nothing};

bool hasError(const std::vector<Finding>& findings, std::int32_t line) {
    return std::any_of(findings.begin(), findings.end(), [&](const Finding& finding) {
        return finding.line == line && finding.severity == Severity::Error;
    });
}

void addStops(const Checked_Template& checked, std::vector<Finding>& findings) {
    for (const Source_Line& line : checked.lines())
        if (line.failure && !hasError(findings, line.number))
            findings.push_back(readingStop(line, *line.failure));
}

} // namespace

std::vector<Rule> allRules() {
    std::vector<Rule> rules;
    for (const auto set : {lineRules(), keyRules(), layoutRules(), wordRules(), addressRules(),
                           messageRules(), valueRules(), scanRules(), downloadRules(), identityRules()})
        rules.insert(rules.end(), set.begin(), set.end());
    rules.push_back(readingStops);
    rules.push_back(unreadableFile);
    return rules;
}

std::vector<Finding> checkTemplate(std::string_view fileName, std::string_view text) {
    const Checked_Template checked(fileName, text);
    std::vector<Finding> findings;
    for (const Rule& rule : allRules())
        rule.check(checked, Report(rule, findings));
    addStops(checked, findings);
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& a, const Finding& b) { return a.line < b.line; });
    return findings;
}

Finding readingStop(const Source_Line& line, const Line_Failure& failure) {
    return {line.number,
            readingStops.severity,
            readingStops.code,
            std::string(line.text),
            "reading stops here: " + failure.description + " (failure " + numberText(failure.number) + ")",
            std::string(readingStops.why),
            "Look for a number that is too large, or for one of a field, row or column that isn't there."};
}

Finding unreadable(std::string_view reason) {
    return {0,
            unreadableFile.severity,
            unreadableFile.code,
            "",
            "the file can't be read: " + std::string(reason),
            std::string(unreadableFile.why),
            "Check its path and who may read it."};
}

} // namespace zorvane::checker
