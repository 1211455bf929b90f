// SPDX-License-Identifier: MIT
#include "values/code_page.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace zorvane {
namespace {

/// The small letters of Windows-1252 that have a capital in it, each with that capital, as Unicode's data
/// pair them.
std::map<unsigned, unsigned> letterPairs() {
    std::map<unsigned, unsigned> pairs;
    for (unsigned c = 'a'; c <= 'z'; ++c)
        pairs[c] = c - 'a' + 'A';
    const std::string accented = "\xE0\xE1\xE2\xE3\xE4\xE5\xE6\xE7\xE8\xE9\xEA\xEB\xEC\xED\xEE\xEF"
                                 "\xF0\xF1\xF2\xF3\xF4\xF5\xF6\xF8\xF9\xFA\xFB\xFC\xFD\xFE"
                                 "\x9A\x9C\x9E\xFF";
    const std::string capitals = "\xC0\xC1\xC2\xC3\xC4\xC5\xC6\xC7\xC8\xC9\xCA\xCB\xCC\xCD\xCE\xCF"
                                 "\xD0\xD1\xD2\xD3\xD4\xD5\xD6\xD8\xD9\xDA\xDB\xDC\xDD\xDE"
                                 "\x8A\x8C\x8E\x9F";
    for (std::size_t k = 0; k < accented.size(); ++k)
        pairs[static_cast<unsigned char>(accented[k])] = static_cast<unsigned char>(capitals[k]);
    return pairs;
}

std::string byte(unsigned c) { return std::string(1, static_cast<char>(c)); }

TEST(CodePage, EveryByteGoesToItsCapitalOrStays) {
    const auto pairs = letterPairs();
    for (unsigned c = 0; c < 256; ++c) {
        const auto pair = pairs.find(c);
        EXPECT_EQ(upperCase(byte(c)), byte(pair == pairs.end() ? c : pair->second)) << "byte " << c;
    }
}

TEST(CodePage, EveryByteGoesToItsSmallLetterOrStays) {
    std::map<unsigned, unsigned> small;
    for (const auto& [letter, capital] : letterPairs())
        small[capital] = letter;
    for (unsigned c = 0; c < 256; ++c) {
        const auto pair = small.find(c);
        EXPECT_EQ(lowerCase(byte(c)), byte(pair == small.end() ? c : pair->second)) << "byte " << c;
    }
}

TEST(CodePage, FiveBytesLackACharacter) {
    std::string lacking;
    for (unsigned c = 0; c < 256; ++c)
        if (lacksCharacter(static_cast<char>(c))) lacking += byte(c);
    EXPECT_EQ(lacking, "\x81\x8D\x8F\x90\x9D");
}

TEST(CodePage, LettersWithoutAPartnerStay) {
    const std::string text =
        "\xDF\x83\xB5\xAA\xBA\xD7\xF7"; // sharp s, florin, micro, ordinals, times, division
    EXPECT_EQ(upperCase(text), text);
    EXPECT_EQ(lowerCase(text), text);
}

TEST(CodePage, ATextIsComparedByItsUpperCase) {
    EXPECT_TRUE(isUpperCaseOf("TIME", "time"));
    EXPECT_TRUE(isUpperCaseOf("\xD1"
                              "A",
                              "\xF1"
                              "a"));
    EXPECT_TRUE(isUpperCaseOf("", ""));
    EXPECT_FALSE(isUpperCaseOf("TIME", "TIME "));
    EXPECT_FALSE(isUpperCaseOf("TIME", "TIM"));
    EXPECT_FALSE(isUpperCaseOf("time", "time")) << "the first text has to be upper case";
}

TEST(CodePage, OnlySpacesAreBlanks) {
    EXPECT_EQ(trimBlanks("  a b  "), "a b");
    EXPECT_EQ(trimBlanks("\ta\xA0"), "\ta\xA0");
    EXPECT_EQ(trimBlanks("   "), "");
    EXPECT_EQ(trimBlanks(""), "");
    EXPECT_EQ(upperTrimmed(" yes "), "YES");
}

TEST(CodePage, ToUtf8KnowsTheSpecialCharacters) {
    EXPECT_EQ(toUtf8("Tama\xF1o \x80 \x99 \x9F"), "Tamaño € ™ Ÿ");
    EXPECT_EQ(toUtf8("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
}

TEST(CodePage, TheBytesFrom0x80To0x9FHaveCharactersOfTheirOwn) {
    EXPECT_EQ(toUtf8("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E"), "€‚ƒ„…†‡ˆ‰Š‹ŒŽ");
    EXPECT_EQ(toUtf8("\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"), "‘’“”•–—˜™š›œžŸ");
}

TEST(CodePage, EveryByteComesBackFromUtf8) {
    for (unsigned c = 0; c < 256; ++c) {
        bool whole = false;
        EXPECT_EQ(fromUtf8(toUtf8(byte(c)), &whole), byte(c)) << "byte " << c;
        EXPECT_TRUE(whole);
    }
}

TEST(CodePage, WhatTheCodePageLacksBecomesAQuestionMark) {
    bool whole = true;
    EXPECT_EQ(fromUtf8("a\xCE\xB1"
                       "b\xF0\x9F\x98\x80",
                       &whole),
              "a?b?"); // alpha, a face
    EXPECT_FALSE(whole);
    EXPECT_EQ(fromUtf8("plain", &whole), "plain");
    EXPECT_TRUE(whole);
    EXPECT_EQ(fromUtf8("\xC2\x82\xC2\x9F"), "??") << "control codes that the page uses for other characters";
}

TEST(CodePage, MalformedUtf8IsOneQuestionMarkAByte) {
    EXPECT_EQ(fromUtf8("a\xFF"
                       "b"),
              "a?b");
    EXPECT_EQ(fromUtf8("\xE2\x82"), "??") << "cut off";
    EXPECT_EQ(fromUtf8("\x80x"), "?x") << "a follower without a lead";
    EXPECT_EQ(fromUtf8("\xC3("), "?(");
}

TEST(CodePage, AnOverlongUtf8SequenceIsMalformed) {
    bool whole = true;
    EXPECT_EQ(fromUtf8("\xE0\x81\x81", &whole), "???");
    EXPECT_FALSE(whole);
    EXPECT_EQ(fromUtf8("\xC1\x81"), "??");
    EXPECT_EQ(fromUtf8("\xF0\x80\x81\x81"), "????");
}

} // namespace
} // namespace zorvane
