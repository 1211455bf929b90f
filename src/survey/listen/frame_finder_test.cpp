// SPDX-License-Identifier: MIT
#include "comm/modbus_control/testing/toy_slave.h"
#include "survey/listen/frame_finder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::survey {
namespace {

using zorvane::testing::bytesOf;
using zorvane::testing::withCrc;

Byte_Array frame(const char* pairs) { return withCrc(bytesOf(pairs)); }

/// Keeps what is found as "request 3", "answer 3", "either 6", with the number of noise bytes before.
struct Finder_Rig {
    Frame_Finder finder{[this](const Heard_Frame& heard) {
        const std::string form = heard.mayAsk && heard.mayAnswer ? "either "
                                 : heard.mayAsk                  ? "request "
                                                                 : "answer ";
        std::string text = form + std::to_string(heard.bytes[1]);
        if (heard.noiseCount > 0) text += " after " + std::to_string(heard.noiseCount);
        found.push_back(text);
        frames.push_back(heard);
    }};
    std::vector<std::string> found;
    std::vector<Heard_Frame> frames;

    void take(const Byte_Array& bytes, Micros at = 0) { finder.take(bytes, at); }
};

using Texts = std::vector<std::string>;

TEST(FrameFinder, KnowsTheFormsOfTheFunctions) {
    const std::vector<std::pair<const char*, const char*>> forms = {
        {"01 01 00 00 00 08", "request 1"},
        {"01 01 01 55", "answer 1"},
        {"01 02 00 00 07 D0", "request 2"},
        {"01 02 02 55 AA", "answer 2"},
        {"01 03 00 00 00 0A", "request 3"},
        {"01 03 04 00 01 00 02", "answer 3"},
        {"01 04 00 00 00 7D", "request 4"},
        {"01 04 02 00 01", "answer 4"},
        {"01 05 00 01 FF 00", "either 5"},
        {"01 06 00 01 12 34", "either 6"},
        {"01 07", "request 7"},
        {"01 07 6D", "answer 7"},
        {"01 08 00 00 A5 37", "either 8"},
        {"01 0B", "request 11"},
        {"01 0B FF FF 01 08", "answer 11"},
        {"01 0F 00 13 00 0A 02 CD 01", "request 15"},
        {"01 0F 00 13 00 0A", "answer 15"},
        {"01 10 00 01 00 02 04 00 0A 01 02", "request 16"},
        {"01 10 00 01 00 02", "answer 16"},
        {"01 11", "request 17"},
        {"01 11 03 41 42 FF", "answer 17"},
        {"01 16 00 04 00 F2 00 25", "either 22"},
        {"01 17 00 03 00 06 00 0E 00 01 02 00 FF", "request 23"},
        {"01 17 04 00 FE 0A CD", "answer 23"},
        {"01 2B 0E 01 00", "request 43"},
        {"01 2B 0E 01 01 00 00 02 00 02 41 42 01 01 43", "answer 43"},
        {"01 83 02", "answer 131"},
        {"01 90 0B", "answer 144"},
        {"00 06 00 01 12 34", "request 6"},
    };
    for (const auto& [pairs, expected] : forms) {
        Finder_Rig rig;
        rig.take(frame(pairs));
        rig.finder.flush();
        EXPECT_EQ(rig.found, Texts{expected}) << pairs;
        EXPECT_EQ(rig.finder.noiseBytes(), 0U) << pairs;
    }
}

TEST(FrameFinder, TakesNothingForAFrameThatNoneIs) {
    for (const char* pairs :
         {"F8 03 00 00 00 01", "01 03 00 00 00 7E", "01 03 03 00 01 02", "01 2A 00 00 00 01",
          "01 05 00 01 12 34", "01 83 0C", "00 03 02 00 01", "01 10 00 01 00 02 05 00 0A 01 02"}) {
        Finder_Rig rig;
        rig.take(frame(pairs));
        rig.finder.flush();
        EXPECT_EQ(rig.found, Texts{}) << pairs;
    }
}

TEST(FrameFinder, TakesExceptionsOfTheKnownFunctionsOnly) {
    for (const char* known :
         {"01 81 02", "01 88 02", "01 8B 02", "01 8F 02", "01 91 02", "01 96 02", "01 AB 02"}) {
        Finder_Rig rig;
        rig.take(frame(known));
        rig.finder.flush();
        EXPECT_EQ(rig.found.size(), 1U) << known;
    }
    for (const char* unknown :
         {"01 80 02", "01 89 02", "01 8A 02", "01 8E 02", "01 92 02", "01 98 02", "01 E3 02"}) {
        Finder_Rig rig;
        rig.take(frame(unknown));
        rig.finder.flush();
        EXPECT_EQ(rig.found, Texts{}) << unknown;
    }
}

TEST(FrameFinder, FindsFramesByteByByteAndAllAtOnce) {
    Byte_Array stream = frame("01 03 00 00 00 02");
    const Byte_Array answer = frame("01 03 04 00 01 00 02");
    stream.insert(stream.end(), answer.begin(), answer.end());
    Finder_Rig whole;
    whole.take(stream);
    EXPECT_EQ(whole.found, (Texts{"request 3", "answer 3"}));
    Finder_Rig pieces;
    for (const std::uint8_t byte : stream)
        pieces.take({byte});
    EXPECT_EQ(pieces.found, (Texts{"request 3", "answer 3"}));
}

TEST(FrameFinder, PassesOverNoiseAndCountsIt) {
    Byte_Array stream = bytesOf("FF 55 00 AA");
    const Byte_Array request = frame("01 03 00 00 00 02");
    stream.insert(stream.end(), request.begin(), request.end());
    Finder_Rig rig;
    rig.take(stream);
    EXPECT_EQ(rig.found, Texts{"request 3 after 4"});
    EXPECT_EQ(rig.frames[0].noise, bytesOf("FF 55 00 AA"));
    EXPECT_EQ(rig.frames[0].position, 4U);
    EXPECT_EQ(rig.finder.noiseBytes(), 4U);
    EXPECT_EQ(rig.finder.bytesTaken(), 12U);
}

/// The noise looks like the head of a long answer, so the frame in it waits for what would be its end.
TEST(FrameFinder, WaitsForTheEndOfWhatLooksLikeAFrameUntilTheLineIsQuiet) {
    Byte_Array stream = bytesOf("01 03 FA");
    const Byte_Array request = frame("02 03 00 00 00 02");
    stream.insert(stream.end(), request.begin(), request.end());
    Finder_Rig rig;
    rig.take(stream);
    EXPECT_EQ(rig.found, Texts{});
    EXPECT_TRUE(rig.finder.waits());
    rig.finder.flush();
    EXPECT_EQ(rig.found, Texts{"request 3 after 3"});
    EXPECT_FALSE(rig.finder.waits());
}

/// With a zero after it the check sum of a frame holds as well.
TEST(FrameFinder, TakesTheShorterOfTwoFramesWhoseCheckSumsHold) {
    Byte_Array stream = frame("01 03 04 00 00 02");
    stream.push_back(0);
    Finder_Rig rig;
    rig.take(stream);
    rig.finder.flush();
    EXPECT_EQ(rig.found, Texts{"request 3"});
    EXPECT_EQ(rig.finder.noiseBytes(), 1U);
}

TEST(FrameFinder, TellsWhenTheFirstAndTheLastByteCame) {
    const Byte_Array request = frame("01 03 00 00 00 02");
    Finder_Rig rig;
    rig.take({request.begin(), request.begin() + 3}, 1000);
    rig.take({request.begin() + 3, request.end()}, 17000);
    ASSERT_EQ(rig.frames.size(), 1U);
    EXPECT_EQ(rig.frames[0].firstAt, 1000);
    EXPECT_EQ(rig.frames[0].lastAt, 17000);
}

TEST(FrameFinder, TellsTheTimesOfAFrameBehindOneThatWasNone) {
    Finder_Rig rig;
    rig.take(bytesOf("01 03 FA"), 1000); // it may be the head of an answer
    rig.take(frame("01 03 00 00 00 02"), 2000);
    rig.finder.flush();
    ASSERT_EQ(rig.frames.size(), 1U);
    EXPECT_EQ(rig.frames[0].firstAt, 2000);
    EXPECT_EQ(rig.frames[0].lastAt, 2000);
}

TEST(FrameFinder, KeepsOnlyTheLastOfMuchNoise) {
    Finder_Rig rig;
    for (int i = 0; i < 3000; ++i)
        rig.take({0xFF});
    rig.take(frame("01 03 00 00 00 02"));
    ASSERT_EQ(rig.frames.size(), 1U);
    EXPECT_EQ(rig.frames[0].noiseCount, 3000U);
    EXPECT_EQ(rig.frames[0].noise.size(), Frame_Finder::keptNoise);
}

} // namespace
} // namespace zorvane::survey
