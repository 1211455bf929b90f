// SPDX-License-Identifier: MIT
#include "edit/csv_text.h"

#include "values/code_page.h"
#include "values/utf8.h"

#include <algorithm>
#include <array>

namespace zorvane::edit {

namespace {

constexpr char quote = '"';
constexpr char apostrophe = '\'';

/// Reads records off a text, one character after the other.
class Csv_Reader {
  public:
    Csv_Reader(std::string_view text, char separator) : text_(text), separator_(separator) {}

    std::vector<Csv_Record> all() {
        while (at_ < text_.size())
            readRecord();
        return std::move(records_);
    }

  private:
    void readRecord() {
        Csv_Record record{line_, {}, false};
        do {
            record.fields.push_back(readField());
        } while (take(separator_));
        takeLineEnd();
        record.unclosed = unclosed_;
        records_.push_back(std::move(record));
    }

    std::string readField() {
        std::string field;
        if (at_ < text_.size() && text_[at_] == quote) field = readQuoted();
        while (at_ < text_.size() && text_[at_] != separator_ && !atLineEnd())
            field += text_[at_++];
        return field;
    }

    std::string readQuoted() {
        std::string field;
        ++at_;
        while (at_ < text_.size()) {
            const char c = text_[at_++];
            if (c == quote && !take(quote)) return field;
            if (c == '\n') ++line_;
            field += c;
        }
        unclosed_ = true;
        return field;
    }

    [[nodiscard]] bool atLineEnd() const { return text_[at_] == '\n' || text_[at_] == '\r'; }

    bool take(char c) {
        if (at_ >= text_.size() || text_[at_] != c) return false;
        ++at_;
        return true;
    }

    void takeLineEnd() {
        const bool carriage = take('\r');
        if (take('\n') || carriage) ++line_;
    }

    std::string_view text_;
    char separator_;
    std::size_t at_ = 0;
    std::int32_t line_ = 1;
    bool unclosed_ = false;
    std::vector<Csv_Record> records_;
};

bool isOneOf(char c, std::string_view characters) { return characters.find(c) != std::string_view::npos; }

bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// A whole number that every spreadsheet writes as it was.
bool isKeptNumber(std::string_view text) {
    constexpr std::size_t digitsKept = 15;
    const bool leadingZero = text.size() > 1 && text[0] == '0';
    return text.size() <= digitsKept && !leadingZero && std::all_of(text.begin(), text.end(), isDigit);
}

/// What makes a date of digits, in the languages whose letters the code page has, and what else may stand in
/// a number or a time.
constexpr std::array<std::string_view, 18> dateWords = {"JAN", "FEB", "MAR", "APR", "MAY", "MAI",
                                                        "JUN", "JUL", "AUG", "SEP", "OCT", "OKT",
                                                        "NOV", "DEC", "DEZ", "AM",  "PM",  "E"};

/// Whether a spreadsheet may take a text for a number, a time, a date or a truth, and write it in its own
/// way: "0012", "1e3", "2019-06", "1/2", "3 May", "true".
bool mayBeRewritten(std::string_view text) {
    std::string letters;
    bool digits = false;
    for (const char c : upperCase(text)) {
        digits = digits || isDigit(c);
        if (!isDigit(c) && !isOneOf(c, " .,:/-%")) letters += c;
    }
    if (!digits) return letters == "TRUE" || letters == "FALSE";
    if (letters.empty()) return !isKeptNumber(text);
    return std::any_of(dateWords.begin(), dateWords.end(), [&letters](std::string_view word) {
        return letters.starts_with(word) && (word.size() == 3 || letters == word);
    });
}

bool mayBeRun(std::string_view text) { return !text.empty() && isOneOf(text[0], "=+-@\t\r"); }

/// What is after the apostrophes decides, so that a text that has some of its own comes back as it was.
std::string_view afterApostrophes(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(apostrophe), text.size()));
}

bool needsGuard(std::string_view text) {
    const std::string_view core = afterApostrophes(text);
    return mayBeRun(core) || mayBeRewritten(core);
}

bool isUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();)
        if (takeUtf8(text, at) == malformedUtf8) return false;
    return true;
}

} // namespace

std::vector<Csv_Record> csvRecords(std::string_view text, char separator) {
    return Csv_Reader(text, separator).all();
}

std::string csvField(std::string_view text, char separator) {
    const bool plain = std::none_of(
        text.begin(), text.end(), [separator](char c) { return c == separator || isOneOf(c, "\"\r\n,;\t"); });
    if (plain) return std::string(text);
    std::string field(1, quote);
    for (const char c : text)
        field.append(c == quote ? 2 : 1, c);
    return field + quote;
}

std::string csvLine(const std::vector<std::string>& fields, char separator) {
    std::string line;
    for (std::size_t i = 0; i < fields.size(); ++i)
        line += (i > 0 ? std::string(1, separator) : "") + csvField(fields[i], separator);
    return line;
}

std::string harmless(std::string_view text) {
    return mayBeRun(afterApostrophes(text)) ? apostrophe + std::string(text) : std::string(text);
}

std::string guarded(std::string_view text) {
    return needsGuard(text) ? apostrophe + std::string(text) : std::string(text);
}

std::string unguarded(std::string_view text) {
    return std::string(text.substr(text.starts_with(apostrophe) && needsGuard(text) ? 1 : 0));
}

Decoded_Text asUtf8(std::string_view bytes) {
    if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF"))
        return {"", "it is UTF-16. Save it as CSV in UTF-8"};
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
    return {isUtf8(bytes) ? std::string(bytes) : toUtf8(bytes), ""};
}

} // namespace zorvane::edit
