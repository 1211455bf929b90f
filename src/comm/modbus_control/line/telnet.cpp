// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/telnet.h"

#include <utility>

namespace zorvane {

namespace {

constexpr std::uint8_t messageBegins = 250; // SB
constexpr std::uint8_t messageEnds = 240;   // SE

void append(Byte_Array& bytes, Byte_View data) {
    for (const std::uint8_t byte : data) {
        bytes.push_back(byte);
        if (byte == telnetIac) bytes.push_back(telnetIac);
    }
}

bool isVerb(std::uint8_t byte) {
    return byte >= static_cast<std::uint8_t>(Telnet_Verb::Will) &&
           byte <= static_cast<std::uint8_t>(Telnet_Verb::Dont);
}

} // namespace

Byte_Array telnetData(Byte_View bytes) {
    Byte_Array data;
    data.reserve(bytes.size());
    append(data, bytes);
    return data;
}

Byte_Array telnetOffer(const Telnet_Offer& offer) {
    return {telnetIac, static_cast<std::uint8_t>(offer.verb), offer.option};
}

Byte_Array telnetMessage(const Telnet_Message& message) {
    Byte_Array bytes{telnetIac, messageBegins, message.option};
    append(bytes, message.content);
    bytes.push_back(telnetIac);
    bytes.push_back(messageEnds);
    return bytes;
}

Telnet_Reader::Content Telnet_Reader::take(Byte_View bytes) {
    Content content;
    for (const std::uint8_t byte : bytes)
        takeByte(byte, content);
    return content;
}

void Telnet_Reader::takeByte(std::uint8_t byte, Content& content) {
    switch (state_) {
    case State::Data:
        if (byte == telnetIac)
            state_ = State::Command;
        else
            content.data.push_back(byte);
        return;
    case State::Command:
        return takeCommand(byte, content);
    case State::Option:
        content.offers.push_back({verb_, byte});
        state_ = State::Data;
        return;
    case State::MessageOption:
        message_ = {byte, {}};
        state_ = State::Message;
        return;
    case State::Message:
        return takeInMessage(byte);
    case State::MessageCommand:
        return takeInMessageCommand(byte, content);
    }
}

void Telnet_Reader::takeCommand(std::uint8_t byte, Content& content) {
    state_ = State::Data;
    if (byte == telnetIac) {
        content.data.push_back(byte);
    } else if (byte == messageBegins) {
        state_ = State::MessageOption;
    } else if (isVerb(byte)) {
        verb_ = static_cast<Telnet_Verb>(byte);
        state_ = State::Option;
    }
}

void Telnet_Reader::takeInMessage(std::uint8_t byte) {
    if (byte == telnetIac)
        state_ = State::MessageCommand;
    else if (message_.content.size() < longestMessage)
        message_.content.push_back(byte);
}

/// A message that isn't ended before the next command begins is none.
void Telnet_Reader::takeInMessageCommand(std::uint8_t byte, Content& content) {
    if (byte == telnetIac) {
        state_ = State::Message;
        if (message_.content.size() < longestMessage) message_.content.push_back(byte);
    } else if (byte == messageEnds) {
        state_ = State::Data;
        content.messages.push_back(std::exchange(message_, {}));
    } else {
        takeCommand(byte, content);
    }
}

} // namespace zorvane
