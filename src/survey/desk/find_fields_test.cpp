// SPDX-License-Identifier: MIT
#include "survey/desk/find_fields.h"

#include <gtest/gtest.h>

namespace zorvane::survey {
namespace {

TEST(FindFields, AreUsableOrSayWhatIsWrong) {
    EXPECT_EQ(fieldsFault({"ttyUSB0", "1-247", ""}), "");
    EXPECT_EQ(fieldsFault({"ttyUSB0", "5", " 9600,n,8,1  19200,e,8,1"}), "");
    EXPECT_EQ(fieldsFault({"", "1-247", ""}), "Choose a port, or type its name or path.");
    EXPECT_EQ(fieldsFault({"tcp:gate", "1", ""}),
              "The port tcp:gate names no port on the host. Write host and port, as in tcp:192.168.0.7:502.");
    EXPECT_EQ(fieldsFault({"p", "0-5", ""}), "\"0-5\" is not unit numbers of 1 to 247, as in 1-20,40.");
    EXPECT_EQ(fieldsFault({"p", "1", "9600"}),
              "\"9600\" is not baud,parity,data bits,stop bits, as in 9600,n,8,1.");
    EXPECT_EQ(fieldsFault({"p", "1", "1,n,8,1"}), "The baud rate is 1, it must be from 300 to 921600.");
}

TEST(FindFields, SayWhatIsSearched) {
    Port_Settings present;
    present.rts = Rts_Mode::HighOnSend;
    const Find_Wishes wishes = wishesOf({"ttyUSB7", "3-4", "9600,n,8,1 2400,e,8,1"}, present);
    EXPECT_EQ(wishes.port.port, "ttyUSB7");
    EXPECT_EQ(wishes.port.rts, Rts_Mode::HighOnSend);
    EXPECT_EQ(wishes.units, (std::vector<std::uint8_t>{3, 4}));
    EXPECT_EQ(wishes.lines, (std::vector<Line_Settings>{{9600, 'N', 8, 1}, {2400, 'E', 8, 1}}));
    EXPECT_EQ(wishes.listen, 1500 * microsPerMs);
}

TEST(FindFields, AFindBecomesTheSettingsInForce) {
    Port_Settings present;
    present.port = "ttyUSB0";
    present.timeOutMs = 700;
    const Found_Unit found{9, {2400, 'E', 8, 1}, {}, 0};
    Port_Settings expected = present;
    expected.port = "ttyUSB7";
    expected.slave = 9;
    EXPECT_EQ(settingsOfFound(present, "ttyUSB7", found, false), expected);
    expected.line = {2400, 'E', 8, 1};
    EXPECT_EQ(settingsOfFound(present, "ttyUSB7", found, true), expected);
}

} // namespace
} // namespace zorvane::survey
