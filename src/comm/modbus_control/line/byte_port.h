// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"
#include "comm/modbus_control/line/link_clock.h"
#include "comm/modbus_control/line/port_settings.h"

#include <string>
#include <vector>

namespace zorvane {

/// How an attempt to open a port ended.
struct Port_Opening {
    bool opened = false;
    std::string reason{};                ///< in plain words, with what to do: "Busy: another program ..."
    std::vector<std::string> warnings{}; ///< things that the port can't do and that don't stop it
    bool goesOn = false;                 ///< neither opened nor failed yet: the listener will hear of the end
    bool lineRefused = false;            ///< the port is there, and only doesn't take these settings
};

/// What became of the wish to change the line of an open port.
enum class Line_Change {
    Refused, ///< it can't, or won't take these settings: it is to be closed and opened with them
    Done,
    GoesOn, ///< it isn't open until the listener hears of the end, as of that of an opening
};

/// Who hears of a port's bytes and of its end.
class Byte_Port_Listener {
  public:
    virtual ~Byte_Port_Listener() = default;
    virtual void bytesArrived(Byte_View bytes) = 0;
    /// The adapter is gone or the line hung up. The port is closed already. Told once per opening.
    virtual void portLost(const std::string& reason) = 0;
    /// An opening that went on has ended, well or not; told once, and not after `close`.
    virtual void openingEnded(const Port_Opening& /*opening*/) {}
};

/// A serial line, or a connection on a network, as bytes. It tells its listener from the event loop only,
/// never from within a call.
class Byte_Port {
  public:
    virtual ~Byte_Port() = default;
    virtual void setListener(Byte_Port_Listener* listener) = 0;

    /// Opens the port of that name or path with the line settings. A port on a network only begins to; until
    /// the end is told it isn't open, and `close` gives the opening up. REQUIRES: it is closed.
    [[nodiscard]] virtual Port_Opening open(const std::string& name, const Port_Settings& settings) = 0;
    /// Changes the line of an open port in place.
    [[nodiscard]] virtual Line_Change changeLine(const Line_Settings& /*line*/) {
        return Line_Change::Refused;
    }
    virtual void close() = 0;
    [[nodiscard]] virtual bool isOpen() const = 0;

    /// Hands all bytes to the system at once. False when it refused them: the line is as good as lost.
    [[nodiscard]] virtual bool write(Byte_View bytes) = 0;
    /// Takes what has come in and wasn't told yet; the listener isn't told of it any more.
    virtual Byte_Array discardInput() = 0;
    virtual void setRts(bool on) = 0;
    /// Whether bytes have come in that weren't told yet. A port that can't know says no.
    [[nodiscard]] virtual bool hasInput() const { return false; }

    /// A hint: before `when`, in microseconds of the link's clock, what comes in is of no use yet. The port
    /// may leave it with the system until then and tell it in one piece, and tells a lost line then at the
    /// latest. No byte may get lost: a system keeps 4096 of them and an answer has 256 at most. A time that
    /// has passed, such as 0, ends the hint, and so do `open` and `close`. A port may ignore it.
    ///
    /// Whoever gives the hint reckons with the time of a character on the line: start bit, data bits, parity
    /// and stop bits, 11 bits in the usual forms ("MODBUS over Serial Line Specification and Implementation
    /// Guide V1.02", 2.5.1), at the baud rate that is set; see `wireTime`.
    virtual void tellNotBefore(Micros /*when*/) {}
};

} // namespace zorvane
