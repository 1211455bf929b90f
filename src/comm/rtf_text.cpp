#include "comm/rtf_text.h"

namespace zorvane {

namespace {

std::string hexByte(unsigned char byte) {
    static constexpr char digits[] = "0123456789abcdef";
    return {'\\', '\'', digits[byte >> 4U], digits[byte & 0x0FU]};
}

/// A control character, or one of the five bytes of Windows-1252 that stand for no character. Readers of RTF
/// stumble over some of them.
bool standsForNothing(char character) {
    return static_cast<unsigned char>(character) < 0x20 ||
           std::string_view("\x7F\x81\x8D\x8F\x90\x9D").find(character) != std::string_view::npos;
}

std::string escaped(char character) {
    constexpr const char* replacementCharacter = "\\u-3\\'3f";
    constexpr unsigned char lastAscii = 0x7E;
    if (character == '\n') return "\\par\r\n";
    if (character == '\t') return "\\tab ";
    if (character == '\\' || character == '{' || character == '}') return {'\\', character};
    if (character == '\r') return {};
    if (standsForNothing(character)) return replacementCharacter;
    const auto byte = static_cast<unsigned char>(character);
    return byte <= lastAscii ? std::string(1, character) : hexByte(byte);
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
