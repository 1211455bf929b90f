// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/port_of_device.h"
#include "comm/modbus_control/testing/scripted_port.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>

namespace zorvane {
namespace {

using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;
namespace fs = std::filesystem;

/// The kernel's folders of a computer with two terminals on its screen and a serial port of its own.
class Kernel_Folders {
  public:
    Kernel_Folders() {
        terminal("virtual/tty/tty1");
        terminal("virtual/tty/tty2");
        const fs::path port = terminal("pnp0/00:01/tty/ttyS0");
        fs::create_directory_symlink(fs::path("../../../00:01"), port / "device");
    }

    /// Plugs an adapter in, whose port gets that name.
    void plug(const std::string& name, const std::string& serialNumber) const {
        const fs::path device = devices() / "pci0" / "usb1" / ("1-" + name);
        const fs::path port = terminal("pci0/usb1/1-" + name + "/1-1:1.0/" + name + "/tty/" + name);
        fs::create_directory_symlink(fs::path("../../../" + name), port / "device");
        write(device / "idVendor", "0403");
        write(device / "idProduct", "6001");
        write(device / "serial", serialNumber);
    }

    [[nodiscard]] std::string terminals() const { return (root() / "class" / "tty").string(); }

  private:
    [[nodiscard]] fs::path root() const { return folder_.path().toStdString(); }
    [[nodiscard]] fs::path devices() const { return root() / "devices"; }

    /// Its folder.
    fs::path terminal(const std::string& place) const {
        const fs::path folder = devices() / place;
        fs::create_directories(folder);
        fs::create_directories(terminals());
        fs::create_directory_symlink("../../devices/" + place, terminals() / folder.filename());
        return folder;
    }

    static void write(const fs::path& file, const std::string& text) { std::ofstream(file) << text << '\n'; }

    QTemporaryDir folder_;
};

std::vector<Port_Entry> adaptersIn(const std::string& terminals) {
    testing::Scripted_Finder unused;
    return listedAdapters(unused, terminals);
}

std::vector<std::string> told(const std::vector<Port_Entry>& entries) {
    std::vector<std::string> texts;
    for (const Port_Entry& entry : entries)
        texts.push_back(entry.name + " " + entry.path + " " + entry.serialNumber + " " +
                        std::to_string(entry.vendor.value_or(0)) + ":" +
                        std::to_string(entry.product.value_or(0)));
    return texts;
}

TEST(ListedAdapters, AreToldWithTheirNumbersAndNoOtherTerminalIs) {
    const Kernel_Folders kernel;
    kernel.plug("ttyUSB0", "ZV1");
    kernel.plug("ttyUSB1", "ZV2");
    EXPECT_THAT(
        told(adaptersIn(kernel.terminals())),
        UnorderedElementsAre("ttyUSB0 /dev/ttyUSB0 ZV1 1027:24577", "ttyUSB1 /dev/ttyUSB1 ZV2 1027:24577"));
}

TEST(ListedAdapters, ThereAreNoneWithoutAnAdapter) {
    EXPECT_THAT(adaptersIn(Kernel_Folders().terminals()), IsEmpty());
}

TEST(ListedAdapters, ThereAreNoneInAFolderThatIsNotThere) { EXPECT_THAT(adaptersIn("/nowhere"), IsEmpty()); }

} // namespace
} // namespace zorvane
