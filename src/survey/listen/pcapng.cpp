// SPDX-License-Identifier: MIT
#include "survey/listen/pcapng.h"

namespace zorvane::survey {

namespace {

constexpr std::uint32_t sectionBlock = 0x0A0D0D0A;
constexpr std::uint32_t interfaceBlock = 1;
constexpr std::uint32_t packetBlock = 6;
constexpr std::uint32_t byteOrder = 0x1A2B3C4D;
constexpr std::uint16_t upperPdu = 252;
constexpr std::uint16_t commentOption = 1;
constexpr std::uint16_t nameOption = 2;
constexpr std::uint16_t dissectorTag = 12;

/// Least significant byte first, as the byte order mark of the section says.
void put(std::string& out, std::uint64_t value, unsigned bytes) {
    for (unsigned i = 0; i < bytes; ++i)
        out += static_cast<char>((value >> (8 * i)) & 0xFFU);
}

/// The tags before the data are in network order whatever the section's is.
void putInNetworkOrder(std::string& out, std::uint16_t value) {
    out += static_cast<char>(value >> 8U);
    out += static_cast<char>(value & 0xFFU);
}

void pad(std::string& out) { out.resize((out.size() + 3) / 4 * 4, '\0'); }

void putOption(std::string& out, std::uint16_t code, std::string_view text) {
    put(out, code, 2);
    put(out, text.size(), 2);
    out += text;
    pad(out);
}

void endOptions(std::string& out) { put(out, 0, 4); }

/// A block has its length at both ends.
std::string block(std::uint32_t type, const std::string& body) {
    const std::size_t length = body.size() + 12;
    std::string out;
    put(out, type, 4);
    put(out, length, 4);
    out += body;
    put(out, length, 4);
    return out;
}

std::string taggedData(Byte_View frame) {
    constexpr std::string_view dissector("mbrtu\0\0\0", 8);
    std::string data;
    putInNetworkOrder(data, dissectorTag);
    putInNetworkOrder(data, dissector.size());
    data += dissector;
    putInNetworkOrder(data, 0); // the end of the tags
    putInNetworkOrder(data, 0);
    data.append(frame.begin(), frame.end());
    return data;
}

} // namespace

std::string pcapngBeginning(std::string_view name) {
    std::string section;
    put(section, byteOrder, 4);
    put(section, 1, 2); // version 1.0
    put(section, 0, 2);
    put(section, ~std::uint64_t{0}, 8); // of unknown length
    std::string line;
    put(line, upperPdu, 2);
    put(line, 0, 2);
    put(line, 0, 4); // no limit of a packet's length
    putOption(line, nameOption, name);
    endOptions(line);
    return block(sectionBlock, section) + block(interfaceBlock, line);
}

std::string pcapngPacket(std::int64_t microsSinceEpoch, Byte_View frame, std::string_view comment) {
    const auto time = static_cast<std::uint64_t>(microsSinceEpoch);
    std::string data = taggedData(frame);
    std::string packet;
    put(packet, 0, 4); // of the first interface
    put(packet, time >> 32U, 4);
    put(packet, time & 0xFFFFFFFFU, 4);
    put(packet, data.size(), 4);
    put(packet, data.size(), 4);
    pad(data);
    packet += data;
    if (!comment.empty()) {
        putOption(packet, commentOption, comment);
        endOptions(packet);
    }
    return block(packetBlock, packet);
}

} // namespace zorvane::survey
