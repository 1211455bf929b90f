// SPDX-License-Identifier: MIT
// The link's port: opening it, losing it and finding it again.
#include "comm/modbus_control/modbus_link.h"

#include <utility>

namespace zorvane {

bool Modbus_Link::openPort() {
    const Port_Opening opening = session_.open(settings_);
    if (!opening.goesOn) return opened(opening);
    openingIsWanted();
    return false;
}

/// Whether the line is lost shows at its end.
void Modbus_Link::openingIsWanted() {
    opening_ = Opening::Wanted;
    reopenAlarm_->disarm();
    status_.commLost = false;
}

/// Whoever looked while the opening went on looks on: no block may be read and left before their next look.
bool Modbus_Link::opened(const Port_Opening& opening) {
    if (opening.opened) {
        portIsOpen(opening);
        status_.commLost = false;
        const bool watched = scan_.watched();
        restartScan();
        if (watched) scan_.watch();
        return true;
    }
    status_.commLost = true;
    reopenAlarm_->armAt(clock_.now() + reopenPeriodMs * microsPerMs);
    note("The port can't be opened. " + opening.reason);
    asker_.Msgb_Show(openingMessage(settings_.port, opening.reason), Msgb_Critical, applicationTitle);
    return false;
}

void Modbus_Link::portIsOpen(const Port_Opening& opening) {
    reopenAlarm_->disarm();
    image_.portOpened();
    status_.controllerSeen = false;
    transaction_.lineOpened();
    otherMasterAt_.reset();
    note("The port is open.");
    for (const std::string& warning : opening.warnings) {
        note(warning);
    }
}

void Modbus_Link::tryReopen() {
    const Port_Opening opening = session_.reopen(settings_);
    if (!opening.goesOn) return reopened(opening);
    opening_ = Opening::Again;
    next();
}

void Modbus_Link::openingEnded(const Port_Opening& opening) {
    if (std::exchange(opening_, Opening::None) == Opening::Again) return reopened(opening);
    if (!opening.opened) failWrites();
    opened(opening);
    next();
}

void Modbus_Link::reopened(const Port_Opening& opening) {
    if (opening.opened) {
        portIsOpen(opening);
    } else {
        reopenAlarm_->armAt(clock_.now() + reopenPeriodMs * microsPerMs);
    }
    next();
}

void Modbus_Link::lineLost(const std::string& reason) {
    takeHeldTry();
    status_.commLost = true;
    failWrites();
    note("The port is lost. " + reason);
    if (portWanted_ && !port_.isOpen()) reopenAlarm_->armAt(clock_.now() + reopenPeriodMs * microsPerMs);
}

void Modbus_Link::releasePort() {
    StopScan();
    reopenAlarm_->disarm();
    opening_ = Opening::None;
    port_.close();
}

void Modbus_Link::lendPort() {
    lent_ = portWanted_;
    if (lent_) releasePort();
}

void Modbus_Link::takePortBack() {
    if (std::exchange(lent_, false) && portWanted_) PrepareScan();
}

void Modbus_Link::note(const std::string& text) {
    if (traffic_ != nullptr) traffic_->portNoted(clock_.now(), text);
}

} // namespace zorvane
