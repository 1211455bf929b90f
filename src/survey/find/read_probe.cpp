// SPDX-License-Identifier: MIT
#include "survey/find/read_probe.h"

namespace zorvane::survey {

Port_Opening Read_Probe::use(const Port_Settings& settings) {
    transaction_.abandon();
    transaction_.setLine(settings);
    if (port_.isOpen() && port_.changeLine(settings.line)) {
        transaction_.lineOpened();
        return {true, {}, {}};
    }
    if (port_.isOpen()) port_.close();
    Port_Opening opening = port_.open(settings.port, settings);
    if (opening.goesOn) {
        port_.close();
        return {false, "Only a serial line can be searched: name a serial port.", {}};
    }
    if (opening.opened) transaction_.lineOpened();
    return opening;
}

void Read_Probe::close() {
    transaction_.abandon();
    if (port_.isOpen()) port_.close();
}

void Read_Probe::read(std::uint8_t unit, std::uint16_t address, Micros timeOut) {
    transaction_.setWaits(0, timeOut);
    transaction_.submit(readRequest(unit, address, 1));
}

/// A try that the port's end cut short is told by that end.
void Read_Probe::tryFinished(const Try_Result& result) {
    if (!result.portLost) owner_.readEnded(result);
}

void Read_Probe::strayReceived(Micros at, const Byte_Array& bytes, const std::string& /*what*/) {
    owner_.bytesHeard(at, bytes);
}

void Read_Probe::otherMasterHeard(Micros /*at*/, const Foreign_Request& foreign) {
    owner_.otherMasterHeard(foreign);
}

void Read_Probe::lineLost(const std::string& reason) { owner_.portLost(reason); }

} // namespace zorvane::survey
