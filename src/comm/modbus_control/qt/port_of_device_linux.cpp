// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/port_of_device.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <utility>

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
std::optional<Port_Entry> entryOfDevice(const fs::path& path, const fs::path& terminals) {
    std::error_code error;
    fs::path device = fs::canonical(terminals / path.filename() / "device", error);
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

/// A terminal of a USB device is a link into the folder of that device; most others, such as those of the
/// screen, needn't be looked at.
bool mayBeUsb(const fs::directory_entry& terminal) {
    std::error_code error;
    return fs::read_symlink(terminal.path(), error).string().find("/usb") != std::string::npos;
}

} // namespace

std::optional<Port_Entry> portOfDevice(Port_Finder&, const std::string& name) {
    std::error_code error;
    const fs::path path =
        fs::canonical(name.find('/') == std::string::npos ? fs::path("/dev") / name : fs::path(name), error);
    return error ? std::nullopt : entryOfDevice(path, "/sys/class/tty");
}

std::vector<Port_Entry> listedAdapters(Port_Finder&, const std::string& terminals) {
    std::vector<Port_Entry> entries;
    std::error_code error;
    for (fs::directory_iterator each(terminals, error), end; !error && each != end; each.increment(error)) {
        if (!mayBeUsb(*each)) continue;
        auto entry = entryOfDevice(fs::path("/dev") / each->path().filename(), terminals);
        if (entry && entry->vendor) entries.push_back(std::move(*entry));
    }
    return entries;
}

} // namespace zorvane
