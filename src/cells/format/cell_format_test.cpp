// SPDX-License-Identifier: MIT
#include "cells/format/cell_format.h"
#include "cells/format/cell_paths.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace zorvane {
namespace {

TEST(Cell_Format_Test, EachWordHasItsMeaning) {
    const std::array<std::pair<std::string_view, Cell_Format>, 9> words = {{
        {"", Cell_Format::Plain},
        {"NUMERIC", Cell_Format::Plain},
        {"ASCII", Cell_Format::Plain},
        {"NUMERIC_OR_ASCII", Cell_Format::Plain},
        {"NUMERIC_UNSIGNED", Cell_Format::Unsigned},
        {"TIME", Cell_Format::Time},
        {"TIMEMM", Cell_Format::Minutes},
        {"TIMESS", Cell_Format::Seconds},
        {"TIMEM", Cell_Format::Unknown},
    }};
    for (const auto& [word, format] : words)
        for (const Word_Rule rule : {Word_Rule::Trimmed, Word_Rule::Upper_Case, Word_Rule::Exact})
            EXPECT_EQ(cellFormat(word, rule), format) << word;
}

TEST(Cell_Format_Test, LetterCaseAndBlanksCountAsTheRuleSays) {
    EXPECT_EQ(cellFormat(" timess ", Word_Rule::Trimmed), Cell_Format::Seconds);
    EXPECT_EQ(cellFormat(" timess ", Word_Rule::Upper_Case), Cell_Format::Unknown);
    EXPECT_EQ(cellFormat("timess", Word_Rule::Upper_Case), Cell_Format::Seconds);
    EXPECT_EQ(cellFormat("timess", Word_Rule::Exact), Cell_Format::Unknown);
    EXPECT_EQ(cellFormat("  ", Word_Rule::Trimmed), Cell_Format::Plain);
    EXPECT_EQ(cellFormat("  ", Word_Rule::Upper_Case), Cell_Format::Unknown);
}

TEST(Cell_Format_Test, PathsThatTypeAndThatWriteLiveDontTrim) {
    EXPECT_EQ(paths::display.words, Word_Rule::Trimmed);
    EXPECT_EQ(paths::transfer.words, Word_Rule::Trimmed);
    EXPECT_EQ(paths::download.words, Word_Rule::Trimmed);
    EXPECT_EQ(paths::boardDownload.words, Word_Rule::Trimmed);
    EXPECT_EQ(paths::liveWrite.words, Word_Rule::Upper_Case);
    EXPECT_EQ(paths::typing.words, Word_Rule::Upper_Case);
    EXPECT_EQ(paths::typing.limits, Word_Rule::Exact);
}

TEST(Cell_Format_Test, WordOfAFormat) {
    EXPECT_EQ(wordOf(Cell_Format::Minutes), "TIMEMM");
    EXPECT_EQ(wordOf(Cell_Format::Seconds), "TIMESS");
    EXPECT_EQ(wordOf(Cell_Format::Unsigned), "NUMERIC_UNSIGNED");
    EXPECT_EQ(wordOf(Cell_Format::Plain), "");
    EXPECT_EQ(wordOf(Cell_Format::Unknown), "");
}

TEST(Cell_Format_Test, PartsOfATimeAreTheTwoThatShareARegister) {
    EXPECT_TRUE(isTimePart(Cell_Format::Minutes));
    EXPECT_TRUE(isTimePart(Cell_Format::Seconds));
    EXPECT_FALSE(isTimePart(Cell_Format::Time));
}

TEST(Column_Kind_Test, TypesInAnyLetterCaseWithoutBlanks) {
    EXPECT_EQ(columnKind("numeric"), Column_Kind::Number);
    EXPECT_EQ(columnKind("NUMERIC_UNSIGNED"), Column_Kind::Unsigned);
    EXPECT_EQ(columnKind("ASCII"), Column_Kind::Characters);
    EXPECT_EQ(columnKind("NUMERIC_OR_ASCII"), Column_Kind::Number_Or_Characters);
    EXPECT_EQ(columnKind("Time"), Column_Kind::Time);
    for (const char* const type : {"", " TIME", "TEXT", "TIMEMM"})
        EXPECT_EQ(columnKind(type), Column_Kind::Free_Text) << type;
}

TEST(Column_Kind_Test, AllButTimesAndFreeTextsTakeNumbers) {
    EXPECT_TRUE(takesNumbers(Column_Kind::Number));
    EXPECT_TRUE(takesNumbers(Column_Kind::Unsigned));
    EXPECT_TRUE(takesNumbers(Column_Kind::Characters));
    EXPECT_TRUE(takesNumbers(Column_Kind::Number_Or_Characters));
    EXPECT_FALSE(takesNumbers(Column_Kind::Time));
    EXPECT_FALSE(takesNumbers(Column_Kind::Free_Text));
}

} // namespace
} // namespace zorvane
