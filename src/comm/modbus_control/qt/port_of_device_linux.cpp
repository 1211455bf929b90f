// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/port_of_device.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace zorvane {

namespace fs = std::filesystem;

namespace {

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

std::optional<Port_Entry> portOfDevice(Port_Finder&, const std::string& name) {
    std::error_code error;
    const fs::path path =
        fs::canonical(name.find('/') == std::string::npos ? fs::path("/dev") / name : fs::path(name), error);
    return error ? std::nullopt : entryOfDevice(path);
}

} // namespace zorvane
