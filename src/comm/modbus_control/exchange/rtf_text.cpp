// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/rtf_text.h"

#include "values/rtf_escape.h"

#include <utility>

namespace zorvane {

std::string rtfDocument(std::string_view text) {
    std::string rtf =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fmodern Courier New;}}\r\n\\f0\\fs18\r\n";
    std::string line;
    for (const char character : text) {
        if (character == '\n')
            rtf += rtfEscaped(std::exchange(line, {})) + "\\par\r\n";
        else if (character != '\r')
            line += character;
    }
    return rtf + rtfEscaped(line) + "}\r\n";
}

} // namespace zorvane
