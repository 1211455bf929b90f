// SPDX-License-Identifier: MIT
#include "simulator/line/line_pace.h"

#include <gtest/gtest.h>

namespace zorvane::simulator {
namespace {

using namespace std::chrono_literals;

TEST(LineSettings, AreBaudParityDataBitsAndStopBits) {
    EXPECT_EQ(parseLineSettings("9600,n,8,1"), (Line_Settings{9600, 'N', 8, 1}));
    EXPECT_EQ(parseLineSettings("115200,E,7,2"), (Line_Settings{115200, 'E', 7, 2}));
    EXPECT_EQ(parseLineSettings("300,o,8,1"), (Line_Settings{300, 'O', 8, 1}));
}

TEST(LineSettings, RefuseAnythingElse) {
    for (const char* text :
         {"", "9600", "9600,n,8", "9600,n,8,1,", "9600,x,8,1", "9600,nn,8,1", "299,n,8,1", "921601,n,8,1",
          "9600,n,9,1", "9600,n,8,3", "9600 ,n,8,1", "9600,n,8,", "-9600,n,8,1"})
        EXPECT_FALSE(parseLineSettings(text)) << text;
}

TEST(LineSettings, CountTheBitsOfACharacter) {
    EXPECT_EQ(bitsPerCharacter({9600, 'N', 8, 1}), 10);
    EXPECT_EQ(bitsPerCharacter({9600, 'E', 8, 1}), 11);
    EXPECT_EQ(bitsPerCharacter({9600, 'N', 8, 2}), 11);
    EXPECT_EQ(bitsPerCharacter({9600, 'N', 7, 1}), 9);
}

TEST(LinePace, TakesTheTimeOfTheBitsAndNeverLess) {
    EXPECT_EQ(Line_Pace(9600, 10).wireTime(1), 1'041'667ns);
    EXPECT_EQ(Line_Pace(9600, 10).wireTime(96), 100ms);
    EXPECT_EQ(Line_Pace(115200, 11).wireTime(256), 24'444'445ns);
}

TEST(LinePace, IsSilentForThreeAndAHalfCharactersUpTo19200Baud) {
    EXPECT_EQ(Line_Pace(9600, 10).silence(), 3'645'834ns);
    EXPECT_EQ(Line_Pace(19200, 10).silence(), 1'822'917ns);
    EXPECT_EQ(Line_Pace(38400, 10).silence(), 1750us);
}

TEST(LinePace, WithoutAPaceTakesNoTime) {
    EXPECT_FALSE(Line_Pace().paced());
    EXPECT_EQ(Line_Pace().wireTime(1000), 0ns);
    EXPECT_EQ(Line_Pace().silence(), 0ns);
}

} // namespace
} // namespace zorvane::simulator
