// SPDX-License-Identifier: MIT
#include "survey/traffic/testing/one_exchange.h"
#include "survey/traffic/traffic_lines.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace zorvane::survey {
namespace {

using survey::testing::exchange;

constexpr const char* exchangeLine =
    R"({"kind":"exchange","time_us":1001000,"duration_us":20000,"unit":1,"function":3,"first":40101,"address":100,)"
    R"("count":1,"values":[7],"good":true,"result":"good","sent":"01 03 00 64 00 01 C5 D5",)"
    R"("received":"01 03 02 00 07 F9 86"})"
    "\n";

TEST(TrafficLines, AreJson) {
    EXPECT_EQ(trafficJsonLine(exchange(1000), 1000000), exchangeLine);
    EXPECT_EQ(trafficJsonLine(Stray_Record{5, {0xFF, 0}, "stray bytes"}, 0),
              "{\"kind\":\"stray\",\"time_us\":5,\"bytes\":\"FF 00\",\"what\":\"stray bytes\"}\n");
    EXPECT_EQ(trafficJsonLine(Port_Note{5, "caf\xE9"}, 0),
              "{\"kind\":\"note\",\"time_us\":5,\"text\":\"caf\xC3\xA9\"}\n");
}

TEST(TrafficLines, AreReadAgain) {
    const std::vector<Traffic_Entry> entries = {exchange(1001000), Stray_Record{5, {0xFF, 0}, "stray bytes"},
                                                Port_Note{6, "caf\xE9"}};
    std::string text;
    for (const Traffic_Entry& entry : entries)
        text += trafficJsonLine(entry, 0);
    for (std::size_t piece = 1; piece < 300; piece += 37) {
        Traffic_Reader reader;
        std::vector<Traffic_Entry> read;
        for (std::size_t at = 0; at < text.size(); at += piece)
            for (Traffic_Entry& entry : reader.take(std::string_view(text).substr(at, piece)))
                read.push_back(std::move(entry));
        EXPECT_TRUE(reader.end().empty());
        EXPECT_EQ(reader.unread(), 0U);
        ASSERT_EQ(read.size(), 3U);
        for (std::size_t i = 0; i < 3; ++i)
            EXPECT_EQ(trafficJsonLine(read[i], 0), trafficJsonLine(entries[i], 0));
    }
}

TEST(TrafficLines, OfACrashLoseTheLastAtMost) {
    const std::string text = std::string(exchangeLine) + exchangeLine;
    for (std::size_t length = 0; length < text.size(); ++length) {
        Traffic_Reader reader;
        const std::size_t read = reader.take(std::string_view(text).substr(0, length)).size();
        EXPECT_EQ(read + reader.end().size(), (length + 1) / (text.size() / 2)) << length;
        EXPECT_LE(reader.unread(), 1U);
    }
}

TEST(TrafficLines, ThatAreNoneArePassedOver) {
    for (const char* line :
         {"{}", "[]", "no", "{\"kind\":\"other\",\"time_us\":1}", "{\"kind\":\"note\",\"time_us\":\"1\"}",
          "{\"kind\":\"stray\",\"time_us\":1,\"bytes\":\"F\",\"what\":\"\"}",
          "{\"kind\":\"stray\",\"time_us\":1,\"bytes\":\"FF-00\",\"what\":\"\"}"})
        EXPECT_FALSE(parseTrafficLine(line)) << line;
    for (const char* bytes : {"FF ", "FF 0", " FF", "G0", "0G", "ff"})
        EXPECT_FALSE(parseTrafficLine("{\"kind\":\"stray\",\"time_us\":1,\"bytes\":\"" + std::string(bytes) +
                                      "\",\"what\":\"\"}"))
            << bytes;
    for (const char* time : {"-1", "1.5", "1e300", "-92233720368547758081001000", "253402300800000000"})
        EXPECT_FALSE(
            parseTrafficLine("{\"kind\":\"note\",\"time_us\":" + std::string(time) + ",\"text\":\"\"}"))
            << time;
    Traffic_Reader reader;
    EXPECT_TRUE(reader.take("no\n\n\r\n{}").empty());
    EXPECT_TRUE(reader.end().empty());
    EXPECT_EQ(reader.unread(), 2U);
}

TEST(TrafficLines, WithANumberBeyondItsRangeArePassedOver) {
    const std::string whole = exchangeLine;
    ASSERT_TRUE(parseTrafficLine(whole));
    for (const auto& [number, other] :
         std::vector<std::pair<std::string, std::string>>{{"\"duration_us\":20000", "\"duration_us\":-1"},
                                                          {"\"unit\":1", "\"unit\":4294967297"},
                                                          {"\"function\":3", "\"function\":259"},
                                                          {"\"first\":40101", "\"first\":1e300"},
                                                          {"\"count\":1", "\"count\":true"},
                                                          {"\"values\":[7]", "\"values\":[65543]"},
                                                          {"\"values\":[7]", "\"values\":[-1]"}}) {
        std::string line = whole;
        EXPECT_FALSE(parseTrafficLine(line.replace(line.find(number), number.size(), other))) << other;
    }
}

} // namespace
} // namespace zorvane::survey
