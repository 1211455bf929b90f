// SPDX-License-Identifier: MIT
#include "survey/desk/last_good.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace zorvane::survey {
namespace {

/// Settings in memory, by "section/key".
class Kept_Settings final : public Settings_Store {
  public:
    [[nodiscard]] std::string GetSetting(const std::string& /*app*/, const std::string& section,
                                         const std::string& key, const std::string& defaultText) override {
        const auto found = texts.find(section + "/" + key);
        return found == texts.end() ? defaultText : found->second;
    }
    void SaveSetting(const std::string& /*app*/, const std::string& section, const std::string& key,
                     const std::string& text) override {
        texts[section + "/" + key] = text;
    }

    std::map<std::string, std::string> texts;
};

Search_Report foundAt(const Line_Settings& line) {
    Search_Report report;
    report.found.push_back({.unit = 7, .line = line});
    return report;
}

TEST(LastGood, IsThatOfTheFirstControllerFound) {
    Kept_Settings settings;
    EXPECT_FALSE(lastGoodLine(settings));
    Search_Report report = foundAt({4800, 'E', 8, 1});
    report.found.push_back({.unit = 8, .line = {9600, 'N', 8, 1}});
    keepLastGoodLine(settings, report);
    EXPECT_EQ(lastGoodLine(settings), (Line_Settings{4800, 'E', 8, 1}));
    EXPECT_EQ(settings.texts, (std::map<std::string, std::string>{{"Find/LastSettings", "4800,e,8,1"}}));
}

TEST(LastGood, StaysWhereNothingWasFoundOrThePortTakesNoLine) {
    Kept_Settings settings;
    keepLastGoodLine(settings, foundAt({4800, 'E', 8, 1}));
    keepLastGoodLine(settings, {});
    Search_Report overNetwork = foundAt({9600, 'N', 8, 1});
    overNetwork.linesCount = false;
    keepLastGoodLine(settings, overNetwork);
    EXPECT_EQ(lastGoodLine(settings), (Line_Settings{4800, 'E', 8, 1}));
}

TEST(LastGood, IsNoneWhereTheTextIsNone) {
    Kept_Settings settings;
    settings.texts["Find/LastSettings"] = "fast";
    EXPECT_FALSE(lastGoodLine(settings));
}

} // namespace
} // namespace zorvane::survey
