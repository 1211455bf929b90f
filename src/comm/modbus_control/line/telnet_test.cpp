// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/com_port_option.h"
#include "comm/modbus_control/line/telnet.h"
#include "comm/modbus_control/testing/toy_slave.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

using testing::bytesOf;

TEST(Telnet, AByteThatBeginsCommandsIsSentTwice) {
    EXPECT_EQ(telnetData(bytesOf("01 FF 02 FF")), bytesOf("01 FF FF 02 FF FF"));
}

TEST(Telnet, OffersAndMessages) {
    EXPECT_EQ(telnetOffer({Telnet_Verb::Will, telnetComPort}), bytesOf("FF FB 2C"));
    EXPECT_EQ(telnetMessage({telnetComPort, bytesOf("01 00 00 FF 80")}),
              bytesOf("FF FA 2C 01 00 00 FF FF 80 FF F0"));
}

TEST(Telnet, DataOffersAndMessagesAreToldApart) {
    Telnet_Reader reader;
    const auto content =
        reader.take(bytesOf("01 03 FF FF 02 FF FD 2C 04 FF FA 2C 65 00 00 25 80 FF F0 05 FF FB 00 FF F1 06"));
    EXPECT_EQ(content.data, bytesOf("01 03 FF 02 04 05 06"));
    EXPECT_EQ(content.offers, (std::vector<Telnet_Offer>{{Telnet_Verb::Do, 44}, {Telnet_Verb::Will, 0}}));
    EXPECT_EQ(content.messages, (std::vector<Telnet_Message>{{44, bytesOf("65 00 00 25 80")}}));
}

TEST(Telnet, TheStreamMayBeCutAnywhere) {
    const Byte_Array stream = bytesOf("01 FF FF 02 FF FD 2C FF FA 2C 6C FF FF 80 FF F0 03");
    for (std::size_t cut = 0; cut <= stream.size(); ++cut) {
        Telnet_Reader reader;
        auto content = reader.take(Byte_View(stream).first(cut));
        const auto rest = reader.take(Byte_View(stream).subspan(cut));
        content.data.insert(content.data.end(), rest.data.begin(), rest.data.end());
        EXPECT_EQ(content.data, bytesOf("01 FF 02 03")) << cut;
        EXPECT_EQ(content.offers.size() + rest.offers.size(), 1U) << cut;
        const auto& messages = content.messages.empty() ? rest.messages : content.messages;
        EXPECT_EQ(messages, (std::vector<Telnet_Message>{{44, bytesOf("6C FF 80")}})) << cut;
    }
}

TEST(Telnet, AMessageWithoutItsEndIsNone) {
    Telnet_Reader reader;
    const auto content = reader.take(bytesOf("FF FA 2C 01 02 FF FD 00 07"));
    EXPECT_TRUE(content.messages.empty());
    EXPECT_EQ(content.offers, (std::vector<Telnet_Offer>{{Telnet_Verb::Do, 0}}));
    EXPECT_EQ(content.data, bytesOf("07"));
}

TEST(Telnet, AMessageGrowsNoFurtherThanAnyOfUse) {
    Telnet_Reader reader;
    Byte_Array stream = bytesOf("FF FA 2C");
    stream.resize(100000, 0x41);
    EXPECT_TRUE(reader.take(stream).messages.empty());
    const auto content = reader.take(bytesOf("FF F0"));
    ASSERT_EQ(content.messages.size(), 1U);
    EXPECT_EQ(content.messages[0].content.size(), Telnet_Reader::longestMessage);
}

TEST(ComPortOption, SetsEachPartOfTheLine) {
    const auto messages = lineMessages(*parseLineSettings("115200,e,7,2"));
    ASSERT_EQ(messages.size(), 4U);
    EXPECT_EQ(telnetMessage(messages[0]), bytesOf("FF FA 2C 01 00 01 C2 00 FF F0"));
    EXPECT_EQ(telnetMessage(messages[1]), bytesOf("FF FA 2C 02 07 FF F0"));
    EXPECT_EQ(telnetMessage(messages[2]), bytesOf("FF FA 2C 03 03 FF F0"));
    EXPECT_EQ(telnetMessage(messages[3]), bytesOf("FF FA 2C 04 02 FF F0"));
    EXPECT_EQ(lineMessages(*parseLineSettings("9600,n,8,1"))[2].content, bytesOf("03 01"));
    EXPECT_EQ(lineMessages(*parseLineSettings("9600,o,8,1"))[2].content, bytesOf("03 02"));
}

TEST(ComPortOption, SwitchesRtsAndDropsWhatIsHeld) {
    EXPECT_EQ(rtsMessage(true), (Telnet_Message{44, bytesOf("05 0B")}));
    EXPECT_EQ(rtsMessage(false), (Telnet_Message{44, bytesOf("05 0C")}));
    EXPECT_EQ(purgeMessage(), (Telnet_Message{44, bytesOf("0C 03")}));
    EXPECT_EQ(controlMessages(),
              (std::vector<Telnet_Message>{{44, bytesOf("05 01")}, {44, bytesOf("05 08")}}));
}

TEST(ComPortOption, ReadsWhatAServerSaysItHasSet) {
    const auto baud = settingTold({44, bytesOf("65 00 00 4B 00")});
    ASSERT_TRUE(baud.has_value());
    EXPECT_EQ(settingText(*baud), "19200 baud");
    EXPECT_EQ(settingText(*settingTold({44, bytesOf("66 07")})), "7 data bits");
    EXPECT_EQ(settingText(*settingTold({44, bytesOf("67 03")})), "even parity");
    EXPECT_EQ(settingText(*settingTold({44, bytesOf("67 04")})), "parity 4");
    EXPECT_EQ(settingText(*settingTold({44, bytesOf("68 01")})), "1 stop bit");
    EXPECT_EQ(settingText(*settingTold({44, bytesOf("68 03")})), "1.5 stop bits");
}

TEST(ComPortOption, OtherMessagesAreNoSetting) {
    for (const char* content : {"", "64", "6B 10", "01 00 00 25 80", "65 25 80", "66", "67 03 00"})
        EXPECT_FALSE(settingTold({44, bytesOf(content)}).has_value()) << content;
    EXPECT_FALSE(settingTold({1, bytesOf("66 07")}).has_value());
}

} // namespace
} // namespace zorvane
