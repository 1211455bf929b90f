// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/com_port_option.h"

#include <vector>

namespace zorvane::testing {

/// A server of RFC 2217 as bytes: what a client sends goes in, what the server says at once comes out.
class Rfc2217_Toy {
  public:
    bool refuses = false;       ///< the option COM-PORT-OPTION
    bool refusesBinary = false; ///< the option BINARY
    bool mute = false;          ///< speaks no telnet at all
    bool confirms = true;       ///< what was set
    int onlyBaud = 0;           ///< the only rate that the line has; 0: any

    Line_Settings line;
    std::vector<bool> rts;
    int purged = 0;
    bool binary = false; ///< the client sends so
    Byte_Array data;

    Byte_Array take(Byte_View bytes) {
        const Telnet_Reader::Content content = reader_.take(bytes);
        data.insert(data.end(), content.data.begin(), content.data.end());
        Byte_Array said;
        if (mute) return said;
        for (const Telnet_Offer& offer : content.offers)
            append(said, answerTo(offer));
        for (const Telnet_Message& message : content.messages)
            append(said, answerTo(message));
        return said;
    }

  private:
    static void append(Byte_Array& bytes, const Byte_Array& more) {
        bytes.insert(bytes.end(), more.begin(), more.end());
    }

    Byte_Array answerTo(const Telnet_Offer& offer) {
        const bool no =
            (offer.option == telnetComPort && refuses) || (offer.option == telnetBinary && refusesBinary);
        if (offer.verb == Telnet_Verb::Will) {
            binary = binary || (offer.option == telnetBinary && !no);
            return telnetOffer({no ? Telnet_Verb::Dont : Telnet_Verb::Do, offer.option});
        }
        if (offer.verb == Telnet_Verb::Do)
            return telnetOffer({no ? Telnet_Verb::Wont : Telnet_Verb::Will, offer.option});
        return {};
    }

    Byte_Array answerTo(const Telnet_Message& message) {
        constexpr std::uint8_t fromServer = 100;
        Byte_Array content = message.content;
        if (content[0] == 1) line.baud = onlyBaud != 0 ? onlyBaud : static_cast<int>(number(content));
        if (content[0] == 2) line.dataBits = content[1];
        if (content[0] == 3) line.parity = "?NOE"[content[1] & 3U];
        if (content[0] == 4) line.stopBits = content[1];
        if (content[0] == 5 && (content[1] == 11 || content[1] == 12)) rts.push_back(content[1] == 11);
        if (content[0] == 12) ++purged;
        if (content[0] == 1 && onlyBaud != 0) {
            content[3] = static_cast<std::uint8_t>(onlyBaud >> 8);
            content[4] = static_cast<std::uint8_t>(onlyBaud & 0xFF);
        }
        content[0] = static_cast<std::uint8_t>(content[0] + fromServer);
        return confirms ? telnetMessage({telnetComPort, content}) : Byte_Array{};
    }

    static std::uint32_t number(const Byte_Array& content) {
        std::uint32_t value = 0;
        for (std::size_t place = 1; place < content.size(); ++place)
            value = value << 8U | content[place];
        return value;
    }

    Telnet_Reader reader_;
};

} // namespace zorvane::testing
