// SPDX-License-Identifier: MIT
#include "comm/modbus_control/testing/toy_slave.h"
#include "survey/listen/heard_exchanges.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zorvane::survey {
namespace {

using zorvane::testing::bytesOf;
using zorvane::testing::withCrc;

Byte_Array summed(const char* pairs) { return withCrc(bytesOf(pairs)); }

/// A line as it is heard: each text is a frame without its check sum, or "~" and bytes of noise.
class Line_Rig {
  public:
    explicit Line_Rig(const std::vector<const char*>& heard, Micros apart = 10 * microsPerMs) {
        for (const char* text : heard) {
            const bool noise = text[0] == '~';
            finder_.take(noise ? bytesOf(text + 1) : summed(text), at_);
            at_ += apart;
        }
        finder_.flush();
        exchanges_.end();
    }

    /// "3 pair", "3 request", "6 answer": the function, and what was told.
    std::vector<std::string> told;
    std::vector<Heard_Exchange> all;

  private:
    void tell(const Heard_Exchange& exchange) {
        const Heard_Frame& first = exchange.request ? *exchange.request : *exchange.answer;
        told.push_back(std::to_string(first.function()) + (exchange.paired()  ? " pair"
                                                           : exchange.request ? " request"
                                                                              : " answer"));
        all.push_back(exchange);
    }

    Heard_Exchanges exchanges_{[this](const Heard_Exchange& exchange) { tell(exchange); }};
    Frame_Finder finder_{[this](const Heard_Frame& heard) { exchanges_.take(heard); }};
    Micros at_ = 0;
};

using Texts = std::vector<std::string>;

TEST(HeardExchanges, PutsAnAnswerWithItsRequest) {
    const Line_Rig line({"01 03 00 6B 00 02", "01 03 04 00 01 00 02"});
    EXPECT_EQ(line.told, Texts{"3 pair"});
    EXPECT_EQ(line.all[0].answerTime(), 10 * microsPerMs);
    EXPECT_EQ(askedBy(line.all[0].request->bytes), (Asked{1, 3, 0x6B, 2}));
}

TEST(HeardExchanges, PutsEachFunctionTogether) {
    for (const auto& pair : std::vector<std::vector<const char*>>{
             {"01 01 00 00 00 09", "01 01 02 55 01"},
             {"01 05 00 01 FF 00", "01 05 00 01 FF 00"},
             {"01 06 00 01 12 34", "01 06 00 01 12 34"},
             {"01 07", "01 07 6D"},
             {"01 08 00 00 A5 37", "01 08 00 00 A5 37"},
             {"01 0F 00 13 00 0A 02 CD 01", "01 0F 00 13 00 0A"},
             {"01 10 00 01 00 02 04 00 0A 01 02", "01 10 00 01 00 02"},
             {"01 11", "01 11 03 41 42 FF"},
             {"01 16 00 04 00 F2 00 25", "01 16 00 04 00 F2 00 25"},
             {"01 17 00 03 00 02 00 0E 00 01 02 00 FF", "01 17 04 00 FE 0A CD"},
             {"01 03 00 00 00 02", "01 83 02"},
             {"01 10 00 01 00 02 04 00 0A 01 02", "01 90 06"}}) {
        const Line_Rig line(pair);
        ASSERT_EQ(line.all.size(), 1U) << pair[0];
        EXPECT_TRUE(line.all[0].paired()) << pair[0];
    }
}

TEST(HeardExchanges, LeavesApartWhatDoesNotFit) {
    EXPECT_EQ(Line_Rig({"01 03 00 00 00 02", "02 03 04 00 01 00 02"}).told, (Texts{"3 answer", "3 request"}));
    EXPECT_EQ(Line_Rig({"01 03 00 00 00 02", "01 04 04 00 01 00 02"}).told, (Texts{"4 answer", "3 request"}));
    EXPECT_EQ(Line_Rig({"01 03 00 00 00 02", "01 03 02 00 01"}).told, (Texts{"3 answer", "3 request"}));
    EXPECT_EQ(Line_Rig({"01 10 00 01 00 02 04 00 0A 01 02", "01 10 00 02 00 02"}).told,
              (Texts{"16 answer", "16 request"}));
    EXPECT_EQ(Line_Rig({"01 06 00 01 12 34", "01 06 00 01 12 35"}).told, (Texts{"6 request", "6 request"}));
    EXPECT_EQ(Line_Rig({"01 03 00 00 00 02", "01 03 00 00 00 02"}).told, (Texts{"3 request", "3 request"}));
}

TEST(HeardExchanges, TakesAnEchoOfAWriteOnceForItsAnswer) {
    EXPECT_EQ(Line_Rig({"01 06 00 01 12 34", "01 06 00 01 12 34", "01 06 00 01 12 34"}).told,
              (Texts{"6 pair", "6 request"}));
}

/// A master that gets no answer asks for the same once more after its time-out.
TEST(HeardExchanges, TakesALateCopyOfAWriteForItsRepetition) {
    const std::vector<const char*> threeTries = {"01 06 00 01 12 34", "01 06 00 01 12 34",
                                                 "01 06 00 01 12 34"};
    EXPECT_EQ(Line_Rig(threeTries, microsPerSecond).told, (Texts{"6 request", "6 request", "6 request"}));
    EXPECT_EQ(Line_Rig({"01 05 00 01 FF 00", "01 05 00 01 FF 00"}, microsPerSecond).told,
              (Texts{"5 request", "5 request"}));
    EXPECT_EQ(Line_Rig({"01 06 00 01 12 34", "01 06 00 01 12 34"}, 900 * microsPerMs).told, Texts{"6 pair"});
    EXPECT_EQ(Line_Rig({"01 06 00 01 12 34", "01 06 00 01 12 34"}, 900 * microsPerMs + 1).told,
              (Texts{"6 request", "6 request"}));
    // What can be told from its request may come later.
    EXPECT_EQ(Line_Rig({"01 10 00 01 00 01 02 00 07", "01 10 00 01 00 01"}, microsPerSecond).told,
              Texts{"16 pair"});
}

TEST(HeardExchanges, PairsAcrossNoiseThatHidesNoRequest) {
    EXPECT_EQ(Line_Rig({"01 03 00 00 00 02", "~ FF 00 12 34 56 78 9A BC", "01 03 04 00 01 00 02"}).told,
              Texts{"3 pair"});
}

/// The second request lost a byte's worth on its way to us, so the answer is its own and not the first one's.
TEST(HeardExchanges, TakesNoAnswerOfARequestThatWasDamaged) {
    for (const char* damaged :
         {"~ 01 03 00 64 00 02 00 00", "~ 09 03 00 64 00 02 85 D4", "~ 01 0B 00 64 00 02 85 D4",
          "~ 01 03 00 64 08 02 85 D4", "~ 01 03 00 64 00 0A 85 D4", "~ 01 03 64 00 02 85 D4",
          "~ 03 00 64 00 02 85 D4"})
        EXPECT_EQ(Line_Rig({"01 03 00 00 00 02", damaged, "01 03 04 00 01 00 02"}).told,
                  (Texts{"3 answer", "3 request"}))
            << damaged;
}

/// The first answer comes after the second request, and the second after it: neither can be told apart.
TEST(HeardExchanges, PairsNothingWhereAnswersComeOneRequestLate) {
    EXPECT_EQ(
        Line_Rig({"01 03 00 00 00 02", "01 03 00 64 00 02", "01 03 04 00 01 00 02", "01 03 04 00 03 00 04"})
            .told,
        (Texts{"3 request", "3 request", "3 answer", "3 answer"}));
    EXPECT_EQ(
        Line_Rig({"01 03 00 00 00 02", "01 03 00 64 00 02", "01 03 04 00 01 00 02", "01 03 00 00 00 02"})
            .told,
        (Texts{"3 request", "3 pair", "3 request"}));
    // Asked once more for the same, either answer is right.
    EXPECT_EQ(Line_Rig({"01 03 00 00 00 02", "01 03 00 00 00 02", "01 03 04 00 01 00 02"}).told,
              (Texts{"3 request", "3 pair"}));
}

TEST(HeardExchanges, TakesNoAnswerAfterALongWhile) {
    EXPECT_EQ(Line_Rig({"01 03 00 00 00 02", "01 03 04 00 01 00 02"}, 10 * microsPerSecond + 1).told,
              (Texts{"3 answer", "3 request"}));
    EXPECT_EQ(Line_Rig({"01 03 00 00 00 02", "01 03 04 00 01 00 02"}, 10 * microsPerSecond).told,
              Texts{"3 pair"});
}

} // namespace
} // namespace zorvane::survey
