// SPDX-License-Identifier: MIT
// One small template for each code, and what is found in it.

#include "checker/checker.h"
#include "checker/testing/finding_text.h"
#include "checker/testing/rule_samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

namespace zorvane::checker {
namespace {

using doubles::allSamples;
using doubles::edited;
using doubles::fileNameFor;
using doubles::findingsText;
using doubles::goodTemplate;
using doubles::Sample;

TEST(Rules, FindNothingInAGoodTemplate) {
    EXPECT_EQ(findingsText(checkTemplate("ABC.ZTP", goodTemplate())), "");
}

class EachCode : public testing::TestWithParam<Sample> {};

INSTANTIATE_TEST_SUITE_P(Codes, EachCode, testing::ValuesIn(allSamples()), [](const auto& sample) {
    std::string name = sample.param.code;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
});

TEST_P(EachCode, IsFoundInItsSample) {
    const Sample& sample = GetParam();
    EXPECT_EQ(findingsText(checkTemplate(fileNameFor(sample.code), edited(sample.edits))), sample.findings);
}

/// For each rule its code, severity and meaning, what becomes of such a line, and what to write instead of
/// what its sample has.
std::string advice() {
    std::map<std::string_view, std::string> instead;
    for (const Sample& sample : allSamples())
        for (const Finding& finding : checkTemplate(fileNameFor(sample.code), edited(sample.edits)))
            if (finding.code == sample.code) instead[finding.code] += "    " + finding.instead + "\n";
    std::string text;
    for (const Rule& rule : allRules())
        text += "[" + std::string(rule.code) + "] " +
                (rule.severity == Severity::Error ? "error: " : "warning: ") + std::string(rule.meaning) +
                "\n    " + std::string(rule.why) + "\n" + instead[rule.code];
    return text;
}

TEST(Rules, SayWhatBecomesOfALineAndWhatToWriteInstead) {
    std::ifstream file(ZORVANE_ROOT "/src/checker/testing/advice.txt");
    const std::string expected((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    EXPECT_EQ(advice(), expected);
}

TEST(Rules, AnUnreadableFileSaysWhatToLookAt) {
    const Finding finding = unreadable("Permission denied");
    EXPECT_EQ(finding.what, "the file can't be read: Permission denied");
    EXPECT_EQ(finding.instead, "Check its path and who may read it.");
}

TEST(Rules, HaveASampleEachAndACodeOfTheirOwn) {
    std::multiset<std::string> codes;
    for (const Rule& rule : allRules())
        codes.emplace(rule.code);
    std::multiset<std::string> sampled = {"unreadable"}; // of a file, not of its text
    for (const Sample& sample : allSamples())
        sampled.insert(sample.code);
    EXPECT_EQ(sampled, codes);
    EXPECT_EQ(std::set(codes.begin(), codes.end()).size(), codes.size());
}

} // namespace
} // namespace zorvane::checker
