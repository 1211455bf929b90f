// SPDX-License-Identifier: MIT
#include "template/line_scanner.h"
#include "values/testing/failure_number.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane {
namespace {

using doubles::failureNumber;

std::vector<std::string> lines(std::string_view text) {
    std::vector<std::string> result;
    while (const auto line = takeLine(text))
        result.emplace_back(*line);
    return result;
}

using Lines = std::vector<std::string>;

TEST(TakeLine, ALineEndsAtCrLfOrAtALoneLf) {
    EXPECT_EQ(lines("a\r\nb\nc\r\n"), (Lines{"a", "b", "c"}));
    EXPECT_EQ(lines("a\n\r\n\nb\n"), (Lines{"a", "", "", "b"}));
}

TEST(TakeLine, ALoneCrIsACharacter) {
    EXPECT_EQ(lines("a\rb\r\nc\n"), (Lines{"a\rb", "c"}));
    EXPECT_EQ(lines("\r\r\n"), (Lines{"\r"}));
    EXPECT_EQ(lines("a\r"), (Lines{"a\r"}));
}

TEST(TakeLine, ALastLineWithoutAnEndCounts) {
    EXPECT_EQ(lines("a\r\nb"), (Lines{"a", "b"}));
    EXPECT_EQ(lines(""), Lines{});
}

/// What a line gives: "key|value", or "-" for a line that reaches no interpreter.
std::string scanned(Line_Scanner& scanner, std::string_view line) {
    const auto entry = scanner.scan(line);
    return entry ? std::string(entry->key) + "|" + std::string(entry->value) : "-";
}

std::string scanned(std::string_view line) {
    Line_Scanner scanner;
    return scanned(scanner, line);
}

/// The section that a header gives, and its number.
std::string section(std::string_view header) {
    Line_Scanner scanner;
    EXPECT_FALSE(scanner.scan(header));
    return scanner.section() + " " + std::to_string(scanner.sectionNumber());
}

TEST(SectionHeader, TheNumberBetweenTwoUnderscoresBecomesAHashSign) {
    EXPECT_EQ(section("[FIELD_12_COLUMNS]"), "FIELD_#_COLUMNS 12");
    EXPECT_EQ(section("[Default_3_Columns]"), "Default_#_Columns 3");
}

TEST(SectionHeader, KeepsTheFilesLetterCase) {
    EXPECT_EQ(section("[FIELD_2_COLUMNS]"), "FIELD_#_COLUMNS 2");
    EXPECT_EQ(section("[field_2_COLUMNS]"), "field_#_COLUMNS 2");
}

TEST(SectionHeader, WithFewerUnderscoresStaysAsItIs) {
    EXPECT_EQ(section("[PORT_CONFIGURATION]"), "PORT_CONFIGURATION 0");
    EXPECT_EQ(section("[HARDWARE]"), "HARDWARE 0");
    EXPECT_EQ(section("[]"), " 0");
}

TEST(SectionHeader, AThirdUnderscoreBelongsToTheRest) {
    EXPECT_EQ(section("[A_1_B_2_C]"), "A_#_B_2_C 1");
    EXPECT_EQ(section("[A__B]"), "A_#_B 0");
}

TEST(SectionHeader, ANumberThatIsNoneIs0AndIsRounded) {
    EXPECT_EQ(section("[FIELD_x_COLUMNS]"), "FIELD_#_COLUMNS 0");
    EXPECT_EQ(section("[FIELD_2x_COLUMNS]"), "FIELD_#_COLUMNS 2");
    EXPECT_EQ(section("[FIELD_2.5_COLUMNS]"), "FIELD_#_COLUMNS 2");
    EXPECT_EQ(section("[FIELD_3.5_COLUMNS]"), "FIELD_#_COLUMNS 4");
    EXPECT_EQ(section("[FIELD_-1_COLUMNS]"), "FIELD_#_COLUMNS -1");
}

TEST(SectionHeader, OneWithoutTwoUnderscoresKeepsTheNumberOfTheSectionBefore) {
    Line_Scanner scanner;
    (void)scanner.scan("[FIELD_7_COLUMNS]");
    (void)scanner.scan("[HARDWARE]");
    EXPECT_EQ(scanner.section(), "HARDWARE");
    EXPECT_EQ(scanner.sectionNumber(), 7);
}

TEST(SectionHeader, LosesItsFirstAndLastCharacterWhateverTheyAre) {
    EXPECT_EQ(section("[ABC"), "AB 0");
    EXPECT_EQ(section("[ABC] ; note"), "ABC] ; not 0");
    EXPECT_EQ(section("[HARDWARE]   "), "HARDWARE 0") << "blanks at the end are trimmed first";
    EXPECT_EQ(section("[HARDWARE]\t"), "HARDWARE] 0") << "a tab is no blank";
}

TEST(SectionHeader, OnlyAnOpeningBracketIsFailure5) {
    EXPECT_EQ(failureNumber([] { (void)section("["); }), 5);
    EXPECT_EQ(failureNumber([] { (void)section("[   "); }), 5);
}

TEST(SectionHeader, ANumberBeyond32BitsIsFailure6) {
    EXPECT_EQ(failureNumber([] { (void)section("[FIELD_99999999999_COLUMNS]"); }), 6);
}

TEST(SectionHeader, CountsInColumn1Only) {
    Line_Scanner scanner;
    EXPECT_EQ(scanned(scanner, " [HARDWARE]"), "-");
    EXPECT_EQ(scanner.section(), "");
    EXPECT_EQ(scanned(scanner, " [A=B]"), " [A|B]") << "an indented header with = is a key line";
}

TEST(KeyLine, IsCutAtItsFirstEqualsSign) {
    EXPECT_EQ(scanned("KEY=value"), "KEY|value");
    EXPECT_EQ(scanned("KEY=a=b"), "KEY|a=b");
}

TEST(KeyLine, TheKeyIsNotTrimmedTheValueIs) {
    EXPECT_EQ(scanned("NUMERIC_ROWS =YES"), "NUMERIC_ROWS |YES");
    EXPECT_EQ(scanned(" KEY=  a b  "), " KEY|a b");
}

TEST(KeyLine, AValueEndsBeforeItsFirstSemicolonAndIsntTrimmedAgain) {
    EXPECT_EQ(scanned("A=1 ; note"), "A|1 ");
    EXPECT_EQ(scanned("COL_1_DESC=Set point; in bar"), "COL_1_DESC|Set point");
    EXPECT_EQ(scanned("A=1;2;3"), "A|1");
}

TEST(KeyLine, AnEmptyValueIsHandedOver) { EXPECT_EQ(scanned("KEY="), "KEY|"); }

TEST(KeyLine, AValueThatOnlyHoldsACommentIsEmpty) { EXPECT_EQ(scanned("KEY=; note"), "KEY|"); }

TEST(KeyLine, WithoutAKeyItNeverArrives) {
    EXPECT_EQ(scanned("=VALUE"), "-");
    EXPECT_EQ(scanned("no equals sign"), "-");
    EXPECT_EQ(scanned(""), "-");
}

TEST(Comment, CountsInColumn1Only) {
    EXPECT_EQ(scanned(";KEY=1"), "-");
    EXPECT_EQ(scanned(" ;comment"), "-") << "a key line without =";
    EXPECT_EQ(scanned(" ;a=b"), " ;a|b") << "its key begins with a blank and matches nothing";
}

TEST(LineScanner, HasNoSectionBeforeTheFirstHeader) {
    Line_Scanner scanner;
    EXPECT_EQ(scanned(scanner, "KEY=1"), "KEY|1");
    EXPECT_EQ(scanner.section(), "");
    EXPECT_EQ(scanner.sectionNumber(), 0);
}

} // namespace
} // namespace zorvane
