// SPDX-License-Identifier: MIT
// Values that are words or numbers of a known kind.

#include "cells/format/cell_paths.h"
#include "checker/rule.h"
#include "checker/wording.h"
#include "values/code_page.h"
#include "values/colours.h"
#include "values/numbers.h"

#include <algorithm>
#include <array>

namespace zorvane::checker {

namespace {

using Words = std::vector<std::string_view>;

bool isOneOf(const Words& words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// "Write X." for a word like a known one, else "Write A, B or C."
std::string advice(std::string_view word, const Words& known) {
    const std::string_view best = nearest(word, known);
    return "Write " + (best.empty() ? choice(known) : std::string(best)) + ".";
}

void checkWidths(const Checked_Template& checked, const Report& report) {
    constexpr double widest = 32767;
    for (const Source_Line& line : checked.lines()) {
        if (!line.keyKnown || line.key != "COL_#_WIDTH") continue;
        const auto width = numberOf(line.value);
        if (width && *width >= 0 && *width <= widest) continue;
        report(line, quoted(line.value) + " is no width",
               "Write a number of twips from 0 to 32767: 1440 to the inch.");
    }
}

bool wantsANumber(const Source_Line& line) {
    if (line.is("CONFIGURATION_COLUMNS", "CONFIGURATION_NC")) return true;
    return line.keyKnown && line.section == "PORT_CONFIGURATION" &&
           (line.key.starts_with("COMMUNICATIONS_") || line.key == "HOLDINGREGISTERS" ||
            line.key == "ADDRESSBASE");
}

void checkWordNumbers(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (!wantsANumber(line)) continue;
        const auto number = plainNumber(trimBlanks(line.value));
        const bool fits = number && (line.key != "CONFIGURATION_NC" || *number <= 32767);
        if (!fits)
            report(line, quoted(line.value) + " is no number for " + spelt(line.key, line.keyNumber),
                   "Write a whole number in digits.");
    }
}

void checkYesNo(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        const bool upper = line.is("CONFIGURATION_COLUMNS", "NUMERIC_ROWS");
        if (!upper && !line.is("FIELD_#_COLUMNS", "COL_#_MODIFIABLE") && !line.is("IDENTITY", "OBJECTS"))
            continue;
        const std::string word = upperCase(upper ? line.value : trimBlanks(line.value));
        if (word != "YES" && word != "NO")
            report(line, quoted(line.value) + " counts as no", "Write YES or NO.");
    }
}

void checkAlignments(const Checked_Template& checked, const Report& report) {
    const Words known = {"LEFT", "RIGHT", "CENTER", "RIGTH"};
    for (const Source_Line& line : checked.lines()) {
        if (!line.keyKnown || line.key != "COL_#_ALIGNMENT") continue;
        const bool upper = line.section == "CONFIGURATION_COLUMNS"; // where blanks count
        const std::string word = upperCase(upper ? line.value : trimBlanks(line.value));
        if (word.empty() || isOneOf(known, word)) continue;
        report(line, "unknown alignment " + quoted(line.value), advice(word, {"LEFT", "RIGHT", "CENTER"}));
    }
}

void checkTypes(const Checked_Template& checked, const Report& report) {
    const Words known = {"NUMERIC", "ASCII", "NUMERIC_OR_ASCII", "TIME", "TEXT"};
    for (const Source_Line* line : checked.named("FIELD_#_COLUMNS", "COL_#_TYPE")) {
        const std::string word = upperTrimmed(line->value);
        if (word.empty() || columnKind(word) != Column_Kind::Free_Text || isOneOf(known, word)) continue;
        report(*line, "unknown type " + quoted(line->value), advice(word, known));
    }
}

void checkFormats(const Checked_Template& checked, const Report& report) {
    const Words offered = {"TIME", "TIMEMM", "TIMESS", "NUMERIC_UNSIGNED"};
    for (const Source_Line* line : checked.named("FIELD_#_CONFIGURATION", "ROWADDRESSFORMAT_#"))
        for (const std::string_view item : line->items()) {
            const Cell_Format format = cellFormat(item, paths::transfer.words);
            if (format == Cell_Format::Unknown)
                report(*line, "unknown format " + quoted(item), advice(upperTrimmed(item), offered));
            else if (format == Cell_Format::Unsigned &&
                     cellFormat(trimBlanks(item), paths::typing.limits) != format)
                report(*line, quoted(trimBlanks(item)) + " in lower case",
                       "Write NUMERIC_UNSIGNED: some places ask for it exactly.");
        }
}

void checkColours(const Checked_Template& checked, const Report& report) {
    const Words known = {"BLACK", "WHITE", "YELLOW", "BLUE", "GREEN", "RED", "ORANGE", "PURPLE"};
    for (const Source_Line& line : checked.lines()) {
        if (!line.keyKnown || line.section != "COLORS" || colourOf(line.value) != 0) continue;
        report(line, "unknown colour " + quoted(line.value), advice(upperTrimmed(line.value), known));
    }
}

/// The last line that sets a colour of cells in one state, text or ground; null when none does.
const Source_Line* colourLine(const Checked_Template& checked, std::string_view state) {
    const Source_Line* found = nullptr;
    for (const Source_Line& line : checked.lines())
        if (line.keyKnown && line.section == "COLORS" && line.key.substr(line.key.find('#') + 2) == state)
            found = &line;
    return found;
}

void checkSameColours(const Checked_Template& checked, const Report& report) {
    struct Pair {
        std::string_view state;
        std::string Colour_Words::*text;
        std::string Colour_Words::*ground;
    };
    constexpr std::array<Pair, 4> pairs = {{
        {"MODIFIABLEVALUES", &Colour_Words::Color_Txt_Modifiable, &Colour_Words::Color_Back_Modifiable},
        {"WRITTINGCOMM", &Colour_Words::Color_Txt_Writing, &Colour_Words::Color_Back_Writing},
        {"ERRORWRITTINGCOMM", &Colour_Words::Color_Txt_Error, &Colour_Words::Color_Back_Error},
        {"NORMAL", &Colour_Words::Color_Txt_Normal, &Colour_Words::Color_Back_Normal},
    }};
    const Colour_Words& words = checked.document().Colors;
    for (const Pair& pair : pairs) {
        const std::string& text = words.*pair.text;
        const Source_Line* line = colourLine(checked, pair.state);
        if (line != nullptr && colourOf(text) == colourOf(words.*pair.ground))
            report(
                *line, "text and ground of " + std::string(pair.state) + " are both " + upperTrimmed(text),
                "Choose two colours that differ much: a dark text on a pale ground, or the other way round.");
    }
}

void checkNegativeFormats(const Checked_Template& checked, const Report& report) {
    for (const Source_Line* line : checked.named("FIELD_#_COLUMNS", "COL_#_BITSNEGATIVEFORMAT")) {
        const std::string_view bits = trimBlanks(line->value);
        if (!bits.empty() && !plainNumber(bits))
            report(*line, quoted(line->value) + " is no number of bits",
                   "Write 1 to 15 for sign and magnitude, or 16.");
    }
}

constexpr std::array wordRuleTable = {
    Rule{"width-number", Severity::Error, "a width that isn't a number",
         "Reading stops there, or the column isn't to be seen.", checkWidths},
    Rule{"not-a-number", Severity::Error, "a text where a number must stand",
         "The longest beginning that reads as a number counts, and 0 if there is none.", checkWordNumbers},
    Rule{"yes-no", Severity::Warning, "a word other than YES or NO", "Only the word YES counts as yes.",
         checkYesNo},
    Rule{"alignment-word", Severity::Warning, "an unknown word of alignment",
         "The column's texts go to the left.", checkAlignments},
    Rule{"type-word", Severity::Warning, "an unknown type of column",
         "The column takes free text, which isn't checked and never sent while online.", checkTypes},
    Rule{"format-word", Severity::Warning, "an unknown format of a cell",
         "The register is shown and written as a signed number.", checkFormats},
    Rule{"colour-word", Severity::Warning, "an unknown colour", "It shows as black.", checkColours},
    Rule{"colour-same", Severity::Warning, "a text in the colour of its ground", "The text can't be seen.",
         checkSameColours},
    Rule{"bits-number", Severity::Warning, "a negative format that isn't a number",
         "It counts as none for reading, and a negative number is written as 0.", checkNegativeFormats},
};

} // namespace

std::span<const Rule> wordRules() { return wordRuleTable; }

} // namespace zorvane::checker
