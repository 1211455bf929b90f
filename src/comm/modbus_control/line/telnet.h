// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"

#include <cstdint>
#include <vector>

namespace zorvane {

// What of the Telnet protocol (RFC 854, RFC 855) a serial port on a network needs: options are offered and
// asked for, data may hold any byte.

inline constexpr std::uint8_t telnetIac = 255; ///< begins a command; twice: the byte itself

enum class Telnet_Verb : std::uint8_t {
    Will = 251, ///< I use the option
    Wont = 252,
    Do = 253, ///< use it
    Dont = 254,
};

inline constexpr std::uint8_t telnetBinary = 0;          ///< RFC 856: bytes pass as they are
inline constexpr std::uint8_t telnetSuppressGoAhead = 3; ///< RFC 858
inline constexpr std::uint8_t telnetComPort = 44;        ///< RFC 2217

/// An option offered or asked for.
struct Telnet_Offer {
    Telnet_Verb verb = Telnet_Verb::Wont;
    std::uint8_t option = 0;

    bool operator==(const Telnet_Offer&) const = default;
};

/// What is said within an option.
struct Telnet_Message {
    std::uint8_t option = 0;
    Byte_Array content;

    bool operator==(const Telnet_Message&) const = default;
};

/// Data with each IAC doubled.
[[nodiscard]] Byte_Array telnetData(Byte_View bytes);
[[nodiscard]] Byte_Array telnetOffer(const Telnet_Offer& offer);
[[nodiscard]] Byte_Array telnetMessage(const Telnet_Message& message);

/// Tells data, offers and messages apart, however the stream is cut. Commands without meaning for a serial
/// port are passed over. A message longer than any of RFC 2217's is kept up to `longestMessage` bytes.
class Telnet_Reader {
  public:
    static constexpr std::size_t longestMessage = 256;

    /// What some bytes of the stream hold.
    struct Content {
        Byte_Array data;
        std::vector<Telnet_Offer> offers;
        std::vector<Telnet_Message> messages;
    };
    [[nodiscard]] Content take(Byte_View bytes);
    /// The next byte is the first of a new stream.
    void reset() { *this = Telnet_Reader(); }

  private:
    enum class State { Data, Command, Option, MessageOption, Message, MessageCommand };

    void takeByte(std::uint8_t byte, Content& content);
    void takeCommand(std::uint8_t byte, Content& content);
    void takeInMessage(std::uint8_t byte);
    void takeInMessageCommand(std::uint8_t byte, Content& content);

    State state_ = State::Data;
    Telnet_Verb verb_ = Telnet_Verb::Wont;
    Telnet_Message message_;
};

} // namespace zorvane
