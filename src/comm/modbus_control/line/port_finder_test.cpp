// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/port_finder.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

Port_Entry usb(const std::string& name, const std::string& serial) {
    return {name, "/dev/" + name, "USB Serial", serial, std::uint16_t{0x0403}, std::uint16_t{0x6001}};
}
Port_Entry plain(const std::string& name) { return {name, "/dev/" + name, "", "", {}, {}}; }

TEST(PortFinder, AnAdapterIsNamedAsTheSystemDoes) {
    EXPECT_EQ(adapterName(Port_Entry{"ttyUSB0", "/dev/ttyUSB0", "FT232R USB UART", "A17", {}, {}}),
              "FT232R USB UART, serial number A17");
    EXPECT_EQ(adapterName(Port_Entry{"ttyS0", "/dev/ttyS0", "16550A", "", {}, {}}), "16550A");
    EXPECT_EQ(adapterName(std::nullopt), "");
}

TEST(PortFinder, KnowsAnAdapterByNameOrPath) {
    const std::vector<Port_Entry> ports{plain("ttyS0"), usb("ttyUSB0", "A1")};
    const Port_Identity expected{"A1", 0x0403, 0x6001};
    EXPECT_EQ(identityOf(entryNamed(ports, "ttyUSB0")), expected);
    EXPECT_EQ(identityOf(entryNamed(ports, "/dev/ttyUSB0")), expected);
    EXPECT_EQ(identityOf(entryNamed(ports, "ttyS0")), std::nullopt);
    EXPECT_EQ(identityOf(entryNamed(ports, "/tmp/line")), std::nullopt);
    Port_Entry half = ports.back();
    half.product.reset();
    EXPECT_EQ(identityOf(half), std::nullopt);
}

TEST(PortFinder, FindsTheAdapterUnderAnotherName) {
    const std::vector<Port_Entry> ports{usb("ttyUSB0", "B2"), usb("ttyUSB1", "A1")};
    EXPECT_EQ(pathOf(ports, {"A1", 0x0403, 0x6001}, "/dev/ttyUSB0"), "/dev/ttyUSB1");
}

TEST(PortFinder, WithoutSerialNumberTheOldNameComesFirst) {
    const std::vector<Port_Entry> ports{usb("ttyUSB0", ""), usb("ttyUSB1", "")};
    EXPECT_EQ(pathOf(ports, {"", 0x0403, 0x6001}, "ttyUSB1"), "/dev/ttyUSB1");
}

TEST(PortFinder, NeverTakesOneOfTwoAlike) {
    const std::vector<Port_Entry> ports{usb("ttyUSB1", ""), usb("ttyUSB2", "")};
    EXPECT_EQ(pathOf(ports, {"", 0x0403, 0x6001}, "ttyUSB0"), std::nullopt);
}

TEST(PortFinder, NeverTakesAnotherAdapter) {
    EXPECT_EQ(pathOf({usb("ttyUSB0", "B2")}, {"A1", 0x0403, 0x6001}, "ttyUSB0"), std::nullopt);
    EXPECT_EQ(pathOf({}, {"A1", 0x0403, 0x6001}, "ttyUSB0"), std::nullopt);
}

} // namespace
} // namespace zorvane
