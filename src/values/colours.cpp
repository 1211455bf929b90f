// SPDX-License-Identifier: MIT
#include "values/colours.h"

#include "values/code_page.h"

#include <algorithm>
#include <array>

namespace zorvane {

namespace {

struct Colour_Word {
    std::string_view word;
    std::int32_t packed;
};

/// BLACK is a dark grey on purpose: the program's black isn't pure.
constexpr std::array<Colour_Word, 9> colourWords = {{{"BLACK", 0x404040},
                                                     {"WHITE", 0xFFFFFF},
                                                     {"YELLOW", 0xC0FFFF},
                                                     {"BLUE", 0xC00000},
                                                     {"GREEN", 0x80FF80},
                                                     {"RED", 0x0000FF},
                                                     {"ORANGE", 0x80C0FF},
                                                     {"PURPLE", 0xFF80FF},
                                                     {"0", 0xFFFFFF}}};

} // namespace

std::int32_t colourOf(std::string_view word) {
    const std::string_view wanted = trimBlanks(word);
    const auto found = std::find_if(colourWords.begin(), colourWords.end(), [&](const Colour_Word& entry) {
        return isUpperCaseOf(entry.word, wanted);
    });
    return found == colourWords.end() ? 0 : found->packed;
}

void PRO_Color_Palabra(std::string_view word, std::int32_t& color) { color = colourOf(word); }

} // namespace zorvane
