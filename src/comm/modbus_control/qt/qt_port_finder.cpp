// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_port_finder.h"

#include <QSerialPortInfo>

#include <filesystem>
#include <fstream>

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

namespace fs = std::filesystem;

std::string firstLine(const fs::path& file) {
    std::ifstream stream(file);
    std::string line;
    std::getline(stream, line);
    return line;
}

std::uint16_t hexNumber(const std::string& text) {
    return static_cast<std::uint16_t>(std::strtoul(text.c_str(), nullptr, 16));
}

/// What the kernel knows of a terminal device: https://docs.kernel.org/admin-guide/sysfs-rules.html. A USB
/// adapter's numbers stand in the folder of the device, some way above that of its terminal.
std::optional<Port_Entry> entryOfDevice(const fs::path& path) {
    std::error_code error;
    fs::path device = fs::canonical(fs::path("/sys/class/tty") / path.filename() / "device", error);
    if (error) return std::nullopt;
    Port_Entry entry;
    entry.name = path.filename().string();
    entry.path = path.string();
    for (; device.has_relative_path(); device = device.parent_path()) {
        if (!fs::exists(device / "idVendor", error)) continue;
        entry.vendor = hexNumber(firstLine(device / "idVendor"));
        entry.product = hexNumber(firstLine(device / "idProduct"));
        entry.serialNumber = firstLine(device / "serial");
        break;
    }
    return entry;
}

} // namespace

std::optional<Port_Entry> Qt_Port_Finder::port(const std::string& name) {
#ifdef Q_OS_LINUX
    std::error_code error;
    const fs::path path =
        fs::canonical(name.find('/') == std::string::npos ? fs::path("/dev") / name : fs::path(name), error);
    return error ? std::nullopt : entryOfDevice(path);
#else
    return entryNamed(ports(), name);
#endif
}

std::vector<Port_Entry> Qt_Port_Finder::ports() {
    std::vector<Port_Entry> entries;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        entries.push_back(entryOf(info));
    }
    return entries;
}

} // namespace zorvane
