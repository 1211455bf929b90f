// SPDX-License-Identifier: MIT
// The shipped models are clean, the manual knows every code, and whatever a template says, a line on which
// the reader stops has an error.

#include "checker/checker.h"
#include "checker/testing/finding_text.h"
#include "checker/testing/reader_stop.h"
#include "template/template_words.h"
#include "values/code_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <random>
#include <regex>
#include <set>

namespace zorvane::checker {
namespace {

using doubles::findingsText;
using doubles::readerStop;

const std::string root = std::string(ZORVANE_ROOT) + "/";
const std::vector<std::string> models = {"kvrt.ztp", "KVRT100.ZTP", "KVRT207D.ZTP", "R7702-16.ZTP"};

std::string bytesOf(const std::string& name) {
    std::ifstream file(root + name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(Checker, FindsNothingInTheModels) {
    for (const std::string& model : models)
        EXPECT_EQ(findingsText(checkTemplate(model, bytesOf("models/" + model))), "") << model;
}

const std::string languagePage = "docs/template-language.md";

/// The blocks of a part of a Markdown page that are marked as ini, in the code page.
std::vector<std::string> examplesIn(const std::string& page) {
    const std::string mark = "```ini\n";
    std::vector<std::string> examples;
    for (std::size_t at = page.find(mark); at != std::string::npos; at = page.find(mark, at)) {
        at += mark.size();
        const std::size_t end = page.find("```", at);
        examples.push_back(fromUtf8(page.substr(at, end - at)));
        at = end;
    }
    return examples;
}

/// What a page says under the heading of a section, whose numbers it calls n; nothing without the heading.
std::string partOf(const std::string& page, std::string section) {
    std::replace(section.begin(), section.end(), '#', 'n');
    const std::size_t start = page.find("\n## " + section + "\n");
    return start == std::string::npos ? "" : page.substr(start, page.find("\n## ", start + 1) - start);
}

/// A pattern of the names that stand for a key: a letter or a number in each place of a number.
std::string keyPattern(std::string_view key, const std::string& number) {
    std::string pattern;
    for (const char character : key)
        pattern += character == '#' ? number : std::string(1, character);
    return pattern;
}

bool names(const std::string& text, const std::string& pattern) {
    return std::regex_search(text, std::regex(pattern));
}

TEST(Checker, FindsNothingInTheWorkedExampleOfTheLanguage) {
    const std::vector<std::string> examples = examplesIn(partOf(bytesOf(languagePage), "A worked example"));
    ASSERT_EQ(examples.size(), 1U);
    ASSERT_TRUE(examples[0].starts_with("; PUMP1.ZTP\n"));
    EXPECT_EQ(findingsText(checkTemplate("PUMP1.ZTP", examples[0])), "");
}

TEST(Checker, ThePageOfTheLanguageTellsOfEveryKeyAndShowsIt) {
    const std::string page = bytesOf(languagePage);
    for (const std::string_view section : templateSections()) {
        const std::string part = partOf(page, std::string(section));
        EXPECT_NE(part, "") << section;
        for (const std::string_view key : templateKeys(section)) {
            EXPECT_TRUE(names(part, "`" + keyPattern(key, "[nfrca]") + "[`=]")) << section << ": " << key;
            EXPECT_TRUE(names(part, "\n" + keyPattern(key, "[0-9]+") + "="))
                << section << ": " << key << " by example";
        }
    }
}

TEST(Checker, FindsNothingInTheExamplesOfTheSectionsTakenTogether) {
    const std::string page = bytesOf(languagePage);
    std::map<std::size_t, std::string> parts;
    for (const std::string_view section : templateSections()) {
        const std::string part = partOf(page, std::string(section));
        ASSERT_FALSE(examplesIn(part).empty()) << section;
        parts[page.find(part)] = examplesIn(part).back();
    }
    std::string whole;
    for (const auto& [place, example] : parts)
        whole += example;
    EXPECT_EQ(findingsText(checkTemplate("BOARD.ZTP", whole)), "");
}

TEST(Checker, ManualExplainsEveryCodeOnceWithItsSeverity) {
    std::multiset<std::string> headings;
    std::ifstream page(root + "docs/manual/checker.md");
    for (std::string line; std::getline(page, line);)
        if (line.starts_with("### ")) headings.insert(line.substr(4));
    std::multiset<std::string> codes;
    for (const Rule& rule : allRules())
        codes.insert("`" + std::string(rule.code) + "` " +
                     (rule.severity == Severity::Error ? "(error)" : "(warning)"));
    EXPECT_EQ(headings, codes);
}

TEST(Checker, TellsOfAnEmptyFile) {
    EXPECT_EQ(findingsText(checkTemplate("ABC.ZTP", "")),
              "1: error: no HOLDINGREGISTERSBLOCK_# line in the whole file [no-block]\n"
              "1: warning: the controller has no name [controller-missing]\n");
}

TEST(Checker, GoesOnBehindALineOnWhichTheReaderStops) {
    EXPECT_EQ(findingsText(checkTemplate("ABC.ZTP", "[\n"
                                                    "CONTROLLER=ABC\n"
                                                    "[HARDWARE]\n"
                                                    "CONTROLLER=ABC\n"
                                                    "[PORT_CONFIGURATION]\n"
                                                    "HOLDINGREQUESTBLOCK_1=ALWAYS\n"
                                                    "HOLDINGREGISTERSBLOCK_1=1-9\n"
                                                    "POR=1\n")),
              "1: error: a section header without a name: reading stops here [header-end]\n"
              "6: error: block 1 comes further down [request-order]\n"
              "8: warning: unknown key \"POR\" in [PORT_CONFIGURATION] [key-unknown]\n");
}

TEST(Checker, LeavesTheWordsOfOlderTemplatesAlone) {
    const std::string older = "[BOARD]\nBOARD_DESC=x\nV_PREFIX_1=IN\nv_ref_2=y\n"
                              "[HARDWARE]\nCONTROLLER=ABC\nXIONUMS=16\n"
                              "[PORT_CONFIGURATION]\nHOLDINGREGISTERSBLOCK_1=1-9\n";
    EXPECT_EQ(findingsText(checkTemplate("ABC.ZTP", "ADDR_START=1\n" + older)), "");
}

TEST(Checker, TakesAnyLetterCaseOfSectionsKeysAndWords) {
    std::string text = bytesOf("models/KVRT100.ZTP");
    std::string lowered;
    bool value = false;
    for (const char c : text) {
        if (c == '\n') value = false;
        if (c == '=') value = true;
        lowered += value ? c : lowerCase(std::string(1, c)).front();
    }
    EXPECT_EQ(findingsText(checkTemplate("kvrt100.ztp", lowered)), "");
}

TEST(Checker, NamesTheWordThatWasMeant) {
    const auto findings = checkTemplate("ABC.ZTP", "[HARDWARE]\nCONTROLER=ABC\n[COLOURS]\nTXT_1_NORMAL=RED\n"
                                                   "[PORT_CONFIGURATION]\nHOLDINGREGISTERSBLOCK1=1-9\n"
                                                   "HOLDINGREGISTERSBLOCK_1=1-9\n");
    std::vector<std::string> advice;
    for (const Finding& finding : findings)
        if (finding.code.ends_with("unknown")) advice.push_back(finding.instead);
    EXPECT_EQ(advice, (std::vector<std::string>{"Write CONTROLLER.", "Write COLORS.",
                                                "Write HOLDINGREGISTERSBLOCK_n."}));
}

TEST(Checker, AFindingCarriesItsLineAndWhatToDo) {
    const auto findings = checkTemplate("ABC.ZTP", "[HARDWARE]\r\nCONTROLLER =ABC\r\nCONTROLLER=ABC\r\n"
                                                   "[PORT_CONFIGURATION]\r\nHOLDINGREGISTERSBLOCK_1=1-9\r\n");
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].line, 2);
    EXPECT_EQ(findings[0].code, "key-blank");
    EXPECT_EQ(findings[0].lineText, "CONTROLLER =ABC");
    EXPECT_EQ(findings[0].what, "a blank after the key \"CONTROLLER\"");
    EXPECT_EQ(findings[0].why,
              "The blank belongs to the key, so the section doesn't know it and the line has "
              "no effect.");
    EXPECT_EQ(findings[0].instead, "Write CONTROLLER= without blanks.");
}

TEST(Checker, TheLargestTablesTakeNoTime) {
    std::string text = "[CONFIGURATION_COLUMNS]\nCONFIGURATION_NC=32767\n[CONFIGURATION_FIELDS]\n";
    for (int field = 1; field <= 100; ++field)
        text += "FIELD_" + std::to_string(field) + "_DESC=x\nFIELD_" + std::to_string(field) +
                "_RC=32767,32767\n";
    text += "[FIELD_1_CONFIGURATION]\nROWASCIIRANGE_1=0-2147483647\n"
            "[PORT_CONFIGURATION]\nHOLDINGREGISTERSBLOCK_1=0-2147483647\n";
    EXPECT_FALSE(checkTemplate("ABC.ZTP", text).empty());
}

// Random templates.

using Dice = std::mt19937;

std::size_t below(Dice& dice, std::size_t count) { return dice() % count; }

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size() - 1);
        lines.push_back(text.substr(start, end - start + 1));
        start = end + 1;
    }
    return lines;
}

std::string randomLine(Dice& dice) {
    static const std::vector<std::string> pieces = {"[",
                                                    "]",
                                                    "FIELD_",
                                                    "COL_",
                                                    "ROW_",
                                                    "ADDRESS_",
                                                    "_COLUMNS",
                                                    "_CONFIGURATION",
                                                    "_MESSAGES",
                                                    "_DEFAULT",
                                                    "_RC",
                                                    "_DESC",
                                                    "_WIDTH",
                                                    "HOLDINGREGISTERSBLOCK_",
                                                    "HOLDINGREQUESTBLOCK_",
                                                    "CONFIGURATION_NC",
                                                    "=",
                                                    "=",
                                                    ",",
                                                    "-",
                                                    "(0)",
                                                    ")",
                                                    "/HI",
                                                    "1",
                                                    "2",
                                                    "9",
                                                    "101",
                                                    "99999999999",
                                                    "1e400",
                                                    ";",
                                                    " ",
                                                    "\t",
                                                    "\xFC",
                                                    "ALWAYS",
                                                    "TIMEMM",
                                                    "ROWASCIIRANGE_",
                                                    "ROWADDRESSFORMAT_",
                                                    "\r"};
    std::string line;
    for (std::size_t count = below(dice, 9); count > 0; --count)
        line += pieces[below(dice, pieces.size())];
    return line + "\n";
}

/// Changes, drops, repeats or moves a line, or puts a random one in.
void mutate(std::vector<std::string>& lines, Dice& dice) {
    const std::size_t at = below(dice, lines.size());
    switch (below(dice, 6)) {
    case 0:
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at));
        if (lines.empty()) lines.push_back(randomLine(dice));
        return;
    case 1:
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), lines[below(dice, lines.size())]);
        return;
    case 2:
        std::swap(lines[at], lines[below(dice, lines.size())]);
        return;
    case 3:
        lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(at), randomLine(dice));
        return;
    case 4:
        lines[at].insert(below(dice, lines[at].size() + 1), 1, static_cast<char>(dice() & 0xFF));
        return;
    default:
        if (!lines[at].empty())
            lines[at][below(dice, lines[at].size())] = "0123456789,-=;_[]() "[below(dice, 20)];
    }
}

std::string randomTemplate(Dice& dice) {
    static const std::vector<std::vector<std::string>> starts = [] {
        std::vector<std::vector<std::string>> all = {{"\n"}};
        for (const std::string& model : models)
            all.push_back(linesOf(bytesOf("models/" + model)));
        return all;
    }();
    std::vector<std::string> lines = starts[below(dice, starts.size())];
    for (std::size_t count = 1 + below(dice, 12); count > 0; --count)
        mutate(lines, dice);
    std::string text;
    for (const std::string& line : lines)
        text += line;
    return text;
}

bool hasErrorAt(const std::vector<Finding>& findings, std::int32_t line) {
    return std::any_of(findings.begin(), findings.end(), [&](const Finding& finding) {
        return finding.severity == Severity::Error && (line == 0 || finding.line == line);
    });
}

TEST(Checker, FindsAnErrorWhereverTheReaderStopsInAThousandRandomTemplates) {
    Dice dice(20240607);
    int stopped = 0;
    for (int run = 0; run < 1000; ++run) {
        const std::string text = randomTemplate(dice);
        const auto findings = checkTemplate("ABC.ZTP", text);
        const auto stop = readerStop(text);
        if (!stop) continue;
        ++stopped;
        ASSERT_TRUE(hasErrorAt(findings, *stop)) << "run " << run << ", line " << *stop << "\n" << text;
    }
    EXPECT_GT(stopped, 200) << "else the test says little";
    EXPECT_LT(stopped, 800);
}

} // namespace
} // namespace zorvane::checker
