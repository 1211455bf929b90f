// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/port_texts.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

TEST(PortTexts, TimingsNameWhereTheyComeFrom) {
    EXPECT_EQ(timingsText({0, 0}, 500), "Time-out in force: 500 ms, from this dialog.\n"
                                        "Pause between requests: none beyond what Modbus asks for.");
    EXPECT_EQ(timingsText({20, 600}, 500),
              "Time-out in force: 600 ms, from the template; the 500 ms here don't count.\n"
              "Pause between requests: 20 ms, from the template.");
    EXPECT_EQ(timingsText({1, 1}, 500),
              "Time-out in force: 1 ms, from the template; the 500 ms here don't count.\n"
              "Pause between requests: 1 ms, from the template.");
    EXPECT_EQ(timingsText({-1, -1}, 750), timingsText({0, 0}, 750));
}

TEST(PortTexts, SettingsThatADriverRefusesAreNamed) {
    EXPECT_EQ(lineRefusal({250000, 'E', 7, 2}),
              "The port can't be set to 250000,e,7,2: choose another baud rate, parity or format.");
}

TEST(PortTexts, AReasonEndsASentenceWithOneStop) {
    EXPECT_EQ("Lost: " + endOfSentence("plc7:502 closed the connection."),
              "Lost: plc7:502 closed the connection.");
    EXPECT_EQ("Lost: " + endOfSentence("no answer"), "Lost: no answer.");
}

/// A port on a network has neither an adapter nor a cable of its own.
TEST(PortTexts, WhatIsSaidOfAPortIsTrueOfOneOnANetwork) {
    EXPECT_EQ(cannotOpenText("ttyUSB0"), "The serial port ttyUSB0 can't be opened.");
    EXPECT_EQ(cannotOpenText("tcp:plc7:502"), "The port tcp:plc7:502 can't be opened.");
    EXPECT_EQ(portLostText("ttyUSB0", "The adapter was unplugged, or the line hung up"),
              "The port was lost: The adapter was unplugged, or the line hung up. Check the adapter and its "
              "cable.");
    EXPECT_EQ(
        portLostText("rfc2217:plc7:4000", "plc7:4000 closed the connection."),
        "The port was lost: plc7:4000 closed the connection. Try again, and look at the network between.");
}

TEST(PortTexts, PortsInTheListAndBesideIt) {
    const std::vector<Port_Entry> ports{{"ttyUSB0", "/dev/ttyUSB0", "FT232R USB UART", {}, {}, {}},
                                        {"ttyS0", "/dev/ttyS0", {}, {}, {}, {}}};
    EXPECT_EQ(portListText(ports[0]), "ttyUSB0 - FT232R USB UART");
    EXPECT_EQ(portListText(ports[1]), "ttyS0");
    EXPECT_EQ(portHint(ports, "ttyUSB0"), "FT232R USB UART");
    EXPECT_EQ(portHint(ports, "/dev/ttyUSB0"), "FT232R USB UART");
    EXPECT_EQ(portHint(ports, "ttyS0"), "Present.");
    EXPECT_EQ(portHint(ports, "/tmp/relay"), "Not in the list of ports now.");
    EXPECT_EQ(portHint(ports, ""), "Choose a port, or type its name or path.");
    EXPECT_EQ(portHint(ports, "Simulated controller"),
              "A controller in this computer, made from the open template.");
}

} // namespace
} // namespace zorvane
