// SPDX-License-Identifier: MIT
#include "fuzz/rtf_reader.h"

#include "fuzz/require.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

namespace zorvane::fuzz {

namespace {

constexpr char replaced = '\x1A';

bool isLetter(char character) { return character >= 'a' && character <= 'z'; }
bool isNumberPart(char character) { return character == '-' || (character >= '0' && character <= '9'); }

class Rtf_Reader {
  public:
    explicit Rtf_Reader(std::string_view file) : rest_(file) {}

    Rtf_Texts texts() && {
        require(rest_.starts_with("{\\rtf1\\ansi"), "the file begins as RTF");
        do
            takeNext();
        while (!hidden_.empty() && !rest_.empty());
        require(hidden_.empty(), "every group is ended");
        require(rest_.find_first_not_of("\r\n") == std::string_view::npos, "nothing follows the last group");
        return std::move(texts_);
    }

  private:
    char take() {
        require(!rest_.empty(), "the file goes on");
        const char character = rest_.front();
        rest_.remove_prefix(1);
        return character;
    }

    template <class Test> std::string takeWhile(Test test) {
        std::string taken;
        while (!rest_.empty() && test(rest_.front()))
            taken += take();
        return taken;
    }

    void takeNext() {
        const char character = take();
        if (character == '{') {
            hidden_.push_back(!hidden_.empty() && hidden_.back());
        } else if (character == '}') {
            hidden_.pop_back();
        } else if (character == '\\') {
            takeControl();
        } else if (character != '\r' && character != '\n') {
            require(character >= 0x20 && character <= 0x7E, "a byte is printable ASCII");
            show(character);
        }
    }

    void takeControl() {
        if (!rest_.empty() && isLetter(rest_.front())) {
            const std::string word = takeWhile(isLetter);
            const std::string number = takeWhile(isNumberPart);
            checkNumber(number);
            if (!rest_.empty() && rest_.front() == ' ') take();
            if (word == "u") {
                require(number == "-3" && rest_.starts_with("\\'3f"),
                        "the only one is the replacement character");
                rest_.remove_prefix(4);
                show(replaced);
            } else {
                obey(word);
            }
            return;
        }
        const char symbol = take();
        if (symbol == '\'') {
            const std::array<char, 2> digits{take(), take()};
            int code = -1;
            const auto read = std::from_chars(digits.begin(), digits.end(), code, 16);
            require(read.ptr == digits.end(), "two digits make a byte");
            show(static_cast<char>(code));
        } else if (symbol == '*') {
            hidden_.back() = true;
        } else {
            require(symbol == '\\' || symbol == '{' || symbol == '}', "a control symbol is known");
            show(symbol);
        }
    }

    static void checkNumber(const std::string& digits) {
        std::int32_t number = 0;
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        require(digits.empty() || (read.ec == std::errc{} && read.ptr == digits.data() + digits.size()),
                "a control word's number has room");
    }

    void obey(const std::string& word) {
        static constexpr std::array hiding = {"fonttbl", "colortbl", "header", "footer"};
        if (std::find(hiding.begin(), hiding.end(), word) != hiding.end()) hidden_.back() = true;
        if (word == "tab") show('\t');
        if (word == "par") show('\n');
        if (word == "trowd") inTable_ = true;
        if (word == "row") inTable_ = false;
        if (word == "cell") texts_.cells.push_back(std::exchange(cell_, {}));
    }

    void show(char character) {
        require(!hidden_.empty(), "a text stands in a group");
        if (!hidden_.back()) (inTable_ ? cell_ : texts_.text) += character;
    }

    std::string_view rest_;
    std::vector<bool> hidden_; ///< for each open group, whether its text is part of the document
    bool inTable_ = false;
    std::string cell_;
    Rtf_Texts texts_;
};

} // namespace

std::string seenInRtf(std::string text) {
    const auto standsForNothing = [](char character) {
        const bool control = static_cast<unsigned char>(character) < 0x20 && character != '\t';
        return control || std::string_view("\x7F\x81\x8D\x8F\x90\x9D").find(character) != std::string::npos;
    };
    std::replace_if(text.begin(), text.end(), standsForNothing, replaced);
    return text;
}

Rtf_Texts readRtf(std::string_view file) { return Rtf_Reader(file).texts(); }

} // namespace zorvane::fuzz
