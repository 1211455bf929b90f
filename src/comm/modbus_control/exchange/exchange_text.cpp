// SPDX-License-Identifier: MIT
#include "comm/modbus_control/exchange/exchange_text.h"

namespace zorvane {

std::string hexPairs(Byte_View bytes) {
    static constexpr char digits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(bytes.size() * 3);
    for (const std::uint8_t byte : bytes) {
        if (!text.empty()) text += ' ';
        text += digits[byte >> 4U];
        text += digits[byte & 0x0FU];
    }
    return text;
}

std::string exceptionText(std::uint8_t code) {
    switch (code) {
    case 1:
        return "Illegal function (exception 1)";
    case 2:
        return "Illegal data address (exception 2)";
    case 3:
        return "Illegal data value (exception 3)";
    case 4:
        return "Server device failure (exception 4)";
    case 5:
        return "Acknowledge (exception 5)";
    case 6:
        return "BUSY";
    case 8:
        return "Memory parity error (exception 8)";
    case 10:
        return "Gateway path unavailable (exception 10)";
    case 11:
        return "Gateway target failed to respond (exception 11)";
    default:
        return "Exception " + std::to_string(code);
    }
}

std::string responseText(const Try_Result& result) {
    if (!result.answer || !result.answer->exception) return {};
    return exceptionText(*result.answer->exception);
}

std::string transmitLine(const Try_Result& result) { return "Tx: " + hexPairs(result.sent); }

std::string receiveLine(const Try_Result& result) {
    return "Rx: " + (result.received.empty() ? result.fault : hexPairs(result.received));
}

std::string resultText(const Try_Result& result) {
    std::string text = result.fault;
    if (result.answer) text = result.answer->exception ? exceptionText(*result.answer->exception) : "good";
    if (result.echoed) text += ", the adapter echoes";
    if (result.noise > 0) text += ", " + std::to_string(result.noise) + " noise bytes before the answer";
    return text;
}

std::string noRegistersText(std::int64_t first) {
    return "No registers from " + std::to_string(first) + " on";
}

std::string unreachableText(std::int32_t unit, std::int64_t first, std::size_t count,
                            std::int32_t addressBase) {
    if (unit < 1 || unit > 247) return "Slave number " + std::to_string(unit) + " is not 1 to 247";
    if (count == 0) return noRegistersText(first);
    const std::int64_t address = first - addressBase;
    const std::int64_t last = address + static_cast<std::int64_t>(count) - 1;
    if (address >= 0 && last <= largestWireAddress) return {};
    return "Register " + std::to_string(address < 0 ? first : last + addressBase) +
           " has no address from 0 to 65535";
}

} // namespace zorvane
