#include "comm/port_settings_store.h"

#include <gtest/gtest.h>

#include <map>

namespace zorvane {
namespace {

using Texts = std::map<std::string, std::string>;

Port_Settings restored(const Texts& texts) {
    return portSettingsFrom([&texts](const std::string& key) {
        const auto found = texts.find(key);
        return found == texts.end() ? std::string() : found->second;
    });
}

TEST(PortSettingsStore, KeepsEverySettingAsText) {
    const Port_Settings settings{
        "/dev/ttyUSB0", 12, Line_Settings{19200, 'E', 7, 2}, 5, 750, Rts_Mode::HighOnSend, 3, true};
    const auto kept = portSettingTexts(settings);
    const Texts expected{{"Port", "/dev/ttyUSB0"}, {"Slave", "12"},          {"Settings", "19200,e,7,2"},
                         {"Retries", "5"},         {"TimeOut", "750"},       {"Rts", "rts"},
                         {"TxDelay", "3"},         {"AdapterEchoes", "True"}};
    EXPECT_EQ(Texts(kept.begin(), kept.end()), expected);
    EXPECT_EQ(restored(expected), settings);
}

TEST(PortSettingsStore, NothingKeptIsTheUsual) { EXPECT_EQ(restored({}), Port_Settings{}); }

TEST(PortSettingsStore, AnUnusableTextLeavesTheUsualValueOfThatSettingOnly) {
    const Port_Settings settings = restored({{"Port", "COM3"},
                                             {"Slave", "300"},
                                             {"Settings", "9,n,8,1"},
                                             {"Retries", "many"},
                                             {"TimeOut", "0"},
                                             {"Rts", "maybe"},
                                             {"TxDelay", "4"}});
    Port_Settings expected;
    expected.port = "COM3";
    expected.txDelayMs = 4;
    EXPECT_EQ(settings, expected);
}

TEST(PortSettingsStore, APathBeyondTheCodePageComesBack) {
    Port_Settings settings;
    settings.port = "/tmp/\xE7\xBA\xBF"; // a Chinese character in UTF-8
    const auto kept = portSettingTexts(settings);
    EXPECT_EQ(restored(Texts(kept.begin(), kept.end())).port, settings.port);
}

} // namespace
} // namespace zorvane
