// SPDX-License-Identifier: MIT
// What a line consists of: bytes, indents, brackets, comments.

#include "checker/rule.h"
#include "checker/wording.h"
#include "values/code_page.h"
#include "values/utf8.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace zorvane::checker {

namespace {

bool isHigh(char c) { return static_cast<unsigned char>(c) >= 0x80; }

bool isControl(char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }

/// Whether a line has characters of more than one byte, and all its bytes make sense as UTF-8.
bool looksLikeUtf8(std::string_view text) {
    if (std::none_of(text.begin(), text.end(), isHigh)) return false;
    for (std::size_t at = 0; at < text.size();)
        if (takeUtf8(text, at) == malformedUtf8) return false;
    return true;
}

std::string byteName(char c) {
    std::array<char, 8> text{};
    (void)std::snprintf(text.data(), text.size(), "0x%02X",
                        static_cast<unsigned>(static_cast<unsigned char>(c)));
    return text.data();
}

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

void checkCodePage(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        const auto at = std::find_if(line.text.begin(), line.text.end(), lacksCharacter);
        if (at == line.text.end() || looksLikeUtf8(line.text)) continue;
        report(line, "the byte " + byteName(*at) + " is no character",
               "Save the file in Windows-1252, with characters of that code page only.");
    }
}

void checkUtf8(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (line.kind == Line_Kind::Comment || line.text.starts_with(byteOrderMark)) continue;
        if (!looksLikeUtf8(line.text)) continue;
        report(line, "the line looks like UTF-8", "Save the file in Windows-1252.");
    }
}

void checkByteOrderMark(const Checked_Template& checked, const Report& report) {
    const Source_Line& first = checked.lines().front();
    if (first.text.starts_with(byteOrderMark))
        report(first, "a byte order mark in front of the first line",
               "Save the file in Windows-1252, which has no such mark.");
}

void checkControlCharacters(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (line.kind == Line_Kind::Comment) continue;
        const auto found = std::find_if(line.text.begin(), line.text.end(), isControl);
        if (found == line.text.end()) continue;
        const std::string name = *found == '\t'   ? "a tab"
                                 : *found == '\r' ? "a CR without an LF"
                                                  : "the control character " + byteName(*found);
        report(line, name + " in the line",
               *found == '\r' ? "End lines with CR LF." : "Use spaces, and none around the \"=\".");
    }
}

/// The line without the blanks and tabs in front; empty when there are none in front.
std::string_view behindIndent(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t");
    return start == 0 || start == std::string_view::npos ? std::string_view{} : text.substr(start);
}

void checkIndentedHeader(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines())
        if (const auto text = behindIndent(line.text); text.starts_with('['))
            report(line, "a section header after blanks", "Write the \"[\" in the first column.");
}

void checkIndentedComment(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines())
        if (const auto text = behindIndent(line.text); text.starts_with(';'))
            report(line, "a comment after blanks", "Write the \";\" in the first column.");
}

void checkHeaderEnd(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (line.kind != Line_Kind::Header) continue;
        const std::string_view text = trimBlanks(line.text);
        if (text.size() < 2)
            report(line, "a section header without a name: reading stops here",
                   "Write the section's name and \"]\" after it.");
        else if (text.find(']') != text.size() - 1)
            report(line, "a section header that doesn't end in its \"]\"",
                   "Write nothing after the \"]\", and comments on lines of their own.");
    }
}

void checkStrayLines(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (line.kind != Line_Kind::Stray) continue;
        const std::size_t start = line.text.find_first_not_of(" \t");
        if (start == std::string_view::npos || line.text[start] == '[' || line.text[start] == ';') continue;
        report(line, line.text.front() == '=' ? "a value without a key" : "a line without \"=\"",
               "Write KEY=value, or put a \";\" in the first column.");
    }
}

void checkSemicolons(const Checked_Template& checked, const Report& report) {
    for (const Source_Line& line : checked.lines()) {
        if (!line.keyKnown || line.text.find(';', line.text.find('=')) == std::string_view::npos) continue;
        report(line, "a \";\" in the value, which is " + quoted(line.value) + " now",
               "Put comments on lines of their own, and use no \";\" in texts.");
    }
}

constexpr std::array lineRuleTable = {
    Rule{"byte-order-mark", Severity::Error, "a byte order mark at the beginning of the file",
         "The mark belongs to the first line, so a comment or a header there isn't one.", checkByteOrderMark},
    Rule{"utf-8", Severity::Warning, "a line that looks like UTF-8",
         "Files are read as Windows-1252, so every letter beyond English becomes two or three wrong ones.",
         checkUtf8},
    Rule{"code-page", Severity::Warning, "a byte that is no character of Windows-1252",
         "It shows as nothing or as a box.", checkCodePage},
    Rule{"control-character", Severity::Warning, "a tab or another control character outside of comments",
         "Only spaces count as blanks: the character becomes a part of the key, the value or the name.",
         checkControlCharacters},
    Rule{"indented-header", Severity::Error, "a section header that doesn't begin in the first column",
         "It is no header, so the lines after it still belong to the section before.", checkIndentedHeader},
    Rule{"indented-comment", Severity::Warning, "a comment that doesn't begin in the first column",
         "It is no comment: with a \"=\" in it, it is a key line.", checkIndentedComment},
    Rule{"header-end", Severity::Error, "a section header without its end",
         "The last character of a header is cut off whatever it is, so the section gets another name.",
         checkHeaderEnd},
    Rule{"stray-line", Severity::Warning, "a line that is neither comment nor header nor key",
         "The line is passed over.", checkStrayLines},
    Rule{"semicolon", Severity::Warning, "a \";\" in a value",
         "The value ends in front of it, and a blank there stays: \"YES \" is not YES.", checkSemicolons},
};

} // namespace

std::span<const Rule> lineRules() { return lineRuleTable; }

} // namespace zorvane::checker
