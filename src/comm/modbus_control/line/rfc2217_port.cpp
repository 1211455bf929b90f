// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/rfc2217_port.h"

#include <utility>

namespace zorvane {

namespace {

/// A server has this long for its answer to the offer, and as long again to set the line.
constexpr Micros patience = 3 * microsPerSecond;

std::string partText(Com_Port_Part part) {
    switch (part) {
    case Com_Port_Part::BaudRate:
        return "the baud rate";
    case Com_Port_Part::DataSize:
        return "the data bits";
    case Com_Port_Part::Parity:
        return "the parity";
    case Com_Port_Part::StopSize:
        return "the stop bits";
    }
    return {};
}

} // namespace

Rfc2217_Port::Rfc2217_Port(Byte_Port& connection, Link_Clock& clock)
    : connection_(connection), clock_(clock), alarm_(clock.makeAlarm([this] { ring(); })) {}

std::string Rfc2217_Port::server() const { return hostAndPort(address_); }

Port_Opening Rfc2217_Port::open(const std::string& name, const Port_Settings& settings) {
    const auto address = networkPort(name);
    if (!address) return {false, networkNameFault(name), {}};
    address_ = *address;
    settings_ = settings;
    reader_.reset();
    said_.clear();
    confirmed_.clear();
    connection_.setListener(this);
    const Port_Opening opening = connection_.open(name, settings);
    if (!opening.opened && !opening.goesOn) return opening;
    stage_ = Stage::Connecting;
    if (opening.opened) offer();
    return {false, {}, {}, true};
}

Line_Change Rfc2217_Port::changeLine(const Line_Settings& line) {
    if (!isOpen()) return Line_Change::Refused;
    settings_.line = line;
    confirmed_.clear();
    setLine();
    return Line_Change::GoesOn;
}

void Rfc2217_Port::close() {
    stage_ = Stage::Closed;
    alarm_->disarm();
    connection_.close();
}

void Rfc2217_Port::openingEnded(const Port_Opening& opening) {
    if (stage_ != Stage::Connecting) return;
    if (opening.opened) return offer();
    fail(opening.reason);
}

void Rfc2217_Port::offer() {
    stage_ = Stage::Offering;
    alarm_->armAt(clock_.now() + patience);
    for (const std::uint8_t option : {telnetBinary, telnetSuppressGoAhead}) {
        answer({Telnet_Verb::Will, option});
        answer({Telnet_Verb::Do, option});
    }
    answer({Telnet_Verb::Will, telnetComPort});
}

void Rfc2217_Port::send(const Byte_Array& bytes) {
    // A connection that takes no bytes tells its end itself.
    static_cast<void>(connection_.write(bytes));
}

/// Says it, unless it was said before.
void Rfc2217_Port::answer(const Telnet_Offer& offer) {
    if (said_.insert({offer.verb, offer.option}).second) send(telnetOffer(offer));
}

/// Takes part in the three options that a serial port needs, and in no other.
void Rfc2217_Port::agree(const Telnet_Offer& offer) {
    const bool comPort = offer.option == telnetComPort;
    const bool known = comPort || offer.option == telnetBinary || offer.option == telnetSuppressGoAhead;
    switch (offer.verb) {
    case Telnet_Verb::Do:
        answer({known ? Telnet_Verb::Will : Telnet_Verb::Wont, offer.option});
        if (comPort && stage_ == Stage::Offering) setLine();
        return;
    case Telnet_Verb::Will:
        return answer({known ? Telnet_Verb::Do : Telnet_Verb::Dont, offer.option});
    case Telnet_Verb::Dont:
        if (isOpen()) return;
        if (comPort)
            return fail("The server " + server() +
                        " refuses RFC 2217. Allow it there, or set the line there and choose rtu+tcp:" +
                        server() + " here.");
        if (offer.option == telnetBinary)
            return fail("The server " + server() +
                        " doesn't let every byte pass: it refuses the telnet option BINARY. Choose another "
                        "kind of connection there.");
        return;
    case Telnet_Verb::Wont:
        return;
    }
}

void Rfc2217_Port::setLine() {
    stage_ = Stage::Setting;
    alarm_->armAt(clock_.now() + patience);
    for (const Telnet_Message& message : lineMessages(settings_.line))
        send(telnetMessage(message));
    for (const Telnet_Message& message : controlMessages())
        send(telnetMessage(message));
    if (settings_.rts == Rts_Mode::HighOnSend) send(telnetMessage(rtsMessage(false)));
    send(telnetMessage(purgeMessage()));
}

void Rfc2217_Port::noteSetting(const Com_Port_Setting& setting) {
    if (stage_ != Stage::Setting) return;
    if (setting.value != valueOf(settings_.line, setting.part))
        return fail("The server " + server() + " doesn't take the line's settings: asked for " +
                        settingText({setting.part, valueOf(settings_.line, setting.part)}) + ", it set " +
                        settingText(setting) + ". Choose other settings, or change what the server allows.",
                    true);
    confirmed_.insert(setting.part);
    if (confirmed_.size() == 4) beOpen();
}

void Rfc2217_Port::beOpen() {
    stage_ = Stage::Open;
    alarm_->disarm();
    Port_Opening opening{true, {}, {}};
    if (settings_.rts == Rts_Mode::HighOnSend)
        opening.warnings.emplace_back(
            "RTS is switched over the network: on a slow one it may come too late for the answer.");
    if (settings_.rts == Rts_Mode::KernelRs485)
        opening.warnings.emplace_back(
            "RS-485 is switched by the server: sending goes on without the mode chosen here.");
    if (listener_ != nullptr) listener_->openingEnded(opening);
}

void Rfc2217_Port::ring() {
    if (stage_ == Stage::Offering)
        return fail("The server " + server() +
                    " doesn't speak RFC 2217: nothing answered the offer. Is RFC 2217 switched on for this "
                    "port there? For a plain connection choose rtu+tcp:" +
                    server() + " here.");
    if (stage_ != Stage::Setting) return;
    for (const Com_Port_Part part :
         {Com_Port_Part::BaudRate, Com_Port_Part::DataSize, Com_Port_Part::Parity, Com_Port_Part::StopSize}) {
        if (confirmed_.contains(part)) continue;
        return fail("The server " + server() + " speaks RFC 2217 but doesn't confirm " + partText(part) +
                    ". Look at the server's settings, or choose rtu+tcp:" + server() + " here.");
    }
}

void Rfc2217_Port::fail(const std::string& reason, bool lineRefused) {
    close();
    if (listener_ != nullptr) listener_->openingEnded({.reason = reason, .lineRefused = lineRefused});
}

void Rfc2217_Port::portLost(const std::string& reason) {
    if (!isOpen())
        return fail("The server " + server() +
                    " closed the connection before the line was set: is it in use by somebody else?");
    stage_ = Stage::Closed;
    if (listener_ != nullptr) listener_->portLost(reason);
}

void Rfc2217_Port::bytesArrived(Byte_View bytes) {
    const Telnet_Reader::Content content = reader_.take(bytes);
    for (const Telnet_Offer& offer : content.offers) {
        if (stage_ == Stage::Closed) return;
        agree(offer);
    }
    for (const Telnet_Message& message : content.messages)
        if (const auto setting = settingTold(message)) noteSetting(*setting);
    if (isOpen() && listener_ != nullptr && !content.data.empty()) listener_->bytesArrived(content.data);
}

bool Rfc2217_Port::write(Byte_View bytes) { return isOpen() && connection_.write(telnetData(bytes)); }

/// What waits may hold offers too.
Byte_Array Rfc2217_Port::discardInput() {
    if (!isOpen()) return {};
    const Telnet_Reader::Content content = reader_.take(connection_.discardInput());
    for (const Telnet_Offer& offer : content.offers)
        agree(offer);
    return content.data;
}

void Rfc2217_Port::setRts(bool on) {
    if (isOpen()) send(telnetMessage(rtsMessage(on)));
}

} // namespace zorvane
