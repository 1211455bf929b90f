#include "comm/rtf_text.h"

namespace zorvane {

namespace {

std::string hexByte(unsigned char byte) {
    static constexpr char digits[] = "0123456789abcdef";
    return {'\\', '\'', digits[byte >> 4U], digits[byte & 0x0FU]};
}

std::string escaped(char character) {
    constexpr unsigned char firstPrintable = 0x20;
    constexpr unsigned char lastAscii = 0x7E;
    const auto byte = static_cast<unsigned char>(character);
    if (character == '\n') return "\\par\r\n";
    if (character == '\t') return "\\tab ";
    if (character == '\\' || character == '{' || character == '}') return {'\\', character};
    if (byte >= firstPrintable && byte <= lastAscii) return {character};
    return character == '\r' ? std::string() : hexByte(byte);
}

} // namespace

std::string rtfDocument(std::string_view text) {
    std::string rtf =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fmodern Courier New;}}\r\n\\f0\\fs18\r\n";
    for (const char character : text)
        rtf += escaped(character);
    return rtf + "}\r\n";
}

} // namespace zorvane
