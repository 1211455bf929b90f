// SPDX-License-Identifier: MIT
#include "values/rtf_escape.h"

#include "values/code_page.h"

namespace zorvane {

namespace {

std::string hexByte(unsigned char byte) {
    static constexpr char digits[] = "0123456789abcdef";
    return {'\\', '\'', digits[byte >> 4U], digits[byte & 0x0FU]};
}

std::string escaped(char character) {
    constexpr const char* replacementCharacter = "\\u-3\\'3f";
    constexpr unsigned char lastPrintable = 0x7E;
    const auto byte = static_cast<unsigned char>(character);
    if (character == '\t') return "\\tab ";
    if (character == '\\' || character == '{' || character == '}') return {'\\', character};
    if (byte < ' ' || byte == lastPrintable + 1 || lacksCharacter(character)) return replacementCharacter;
    return byte <= lastPrintable ? std::string(1, character) : hexByte(byte);
}

} // namespace

std::string rtfEscaped(std::string_view text) {
    std::string rtf;
    for (const char character : text)
        rtf += escaped(character);
    return rtf;
}

} // namespace zorvane
