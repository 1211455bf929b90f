// SPDX-License-Identifier: MIT
#include "survey/desk/listening_words.h"

#include <gtest/gtest.h>

namespace zorvane::survey {
namespace {

using Rows = std::vector<std::string>;

const Line_Settings usualLine{9600, 'N', 8, 1};

Rows notesOf(const Listening_Report& report) {
    return listenNotes(report, "ttyUSB0", usualLine, "Listen with others.");
}

TEST(ListeningWords, SayWhyThePortCannotBeListenedTo) {
    Listening_Report report;
    report.reason = "No such port.";
    EXPECT_EQ(notesOf(report), Rows{"The port ttyUSB0: No such port."});
}

TEST(ListeningWords, SayWhatIsAmissOnALine) {
    Listening_Report report;
    report.opened = true;
    EXPECT_EQ(notesOf(report),
              Rows{"Nothing came in at 9600,n,8,1. Does a master ask on this line, and is its "
                   "cable in this port?"});
    report.bytes = report.noiseBytes = 20;
    EXPECT_EQ(notesOf(report),
              Rows{"20 bytes came in, and no frame was among them. Are 9600,n,8,1 the settings "
                   "of this line? Listen with others."});
    report.frames = 1;
    report.noiseBytes = 12;
    EXPECT_EQ(notesOf(report), Rows{"12 of 20 bytes belong to no whole frame."});
    report.noiseBytes = 0;
    EXPECT_EQ(notesOf(report), Rows{});
    report.reason = "Input/output error";
    EXPECT_EQ(notesOf(report), Rows{"The port ttyUSB0: Input/output error"});
}

/// 960 characters a second at 9600 baud.
TEST(ListeningWords, TellTheLoadToATenth) {
    Listening_Report report;
    report.duration = microsPerSecond;
    report.frames = 5;
    report.bytes = 39;
    EXPECT_DOUBLE_EQ(loadOf(report, usualLine), 4.1);
    EXPECT_EQ(heardText(report, usualLine),
              "5 frames: 0 requests and 0 answers, 0 of them without the other. Load 4.1 %.");
    report.bytes = 480;
    EXPECT_EQ(heardText(report, usualLine),
              "5 frames: 0 requests and 0 answers, 0 of them without the other. Load 50 %.");
}

TEST(ListeningWords, ListenAsGivenElseAt9600) {
    EXPECT_EQ(lineToListenTo("2400,e,8,1", {}), (Line_Settings{2400, 'E', 8, 1}));
    EXPECT_EQ(lineToListenTo("", {}), Line_Settings{});
    EXPECT_EQ(formatLineSettings(lineToListenTo("", {})), "9600,n,8,1");
}

TEST(ListeningWords, TellWhatIsAskedInARow) {
    Asking asking;
    asking.times = 1;
    EXPECT_EQ(askedRow({7, 3, 100, 10}, asking, {}),
              (Rows{"7", "3", "100-109", "1", "", "0", "0", "", "", ""}));
    asking.times = 3;
    asking.lastAt = 2000 * microsPerMs;
    asking.answered = 2;
    asking.refused = 1;
    asking.answerTimes.add(12300);
    EXPECT_EQ(askedRow({7, 6, 100, 1}, asking, {}),
              (Rows{"7", "6", "100", "3", "1000.0 ms", "2", "1", "12.3 ms", "12.3 ms", ""}));
}

/// Only holding registers are numbered by templates.
TEST(ListeningWords, NameRegistersOfTheFunctionsThatHaveSome) {
    for (const std::uint8_t function : std::vector<std::uint8_t>{3, 6, 16, 22, 23})
        EXPECT_EQ(registersAsked({7, function, 5, 2}, {}), "5-6") << unsigned{function};
    for (const std::uint8_t function : std::vector<std::uint8_t>{1, 2, 4, 5, 15})
        EXPECT_EQ(registersAsked({7, function, 5, 2}, {}), "") << unsigned{function};
}

} // namespace
} // namespace zorvane::survey
