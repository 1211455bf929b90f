// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_port_finder.h"

#include "comm/modbus_control/qt/port_of_device.h"

#include <QSerialPortInfo>

namespace zorvane {

namespace {

Port_Entry entryOf(const QSerialPortInfo& info) {
    Port_Entry entry;
    entry.name = info.portName().toStdString();
    entry.path = info.systemLocation().toStdString();
    entry.description = info.description().toStdString();
    entry.serialNumber = info.serialNumber().toStdString();
    if (info.hasVendorIdentifier()) entry.vendor = info.vendorIdentifier();
    if (info.hasProductIdentifier()) entry.product = info.productIdentifier();
    return entry;
}

} // namespace

std::vector<Port_Entry> Qt_Port_Finder::adapters() { return listedAdapters(*this); }

std::optional<Port_Entry> Qt_Port_Finder::port(const std::string& name) { return portOfDevice(*this, name); }

std::vector<Port_Entry> Qt_Port_Finder::ports() {
    std::vector<Port_Entry> entries;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        entries.push_back(entryOf(info));
    }
    return entries;
}

} // namespace zorvane
