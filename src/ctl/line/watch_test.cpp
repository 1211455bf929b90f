// SPDX-License-Identifier: MIT
// Live values in a terminal.
#include "comm/main_form/testing/comm_bench.h"
#include "ctl/line/watch.h"

#include <gmock/gmock.h>

#include <sstream>
#include <stdexcept>

namespace zorvane::ctl {
namespace {

using doubles::Comm_Bench;
using ::testing::Contains;

/// A main form whose waits let the scan go on and the live refresh tick.
class Ticking_Form : public Held_Form {
  public:
    explicit Ticking_Form(Comm_Bench& bench)
        : Held_Form(bench.document.Field_Count, firstField), bench_(bench) {}

    std::function<void()> step;
    void setTimerEnabled(Timer_Name timer, bool enabled) override {
        if (timer == Timer_Name::TMR_Actualiza_online) ticking_ = enabled;
    }
    void wait_until(const std::function<bool()>& condition) override {
        for (int events = 0; !condition(); ++events) {
            if (events > 1000) throw std::runtime_error("nothing ends this wait");
            bench_.link.blockIndex = bench_.link.blockIndex == 1 ? 2 : 1;
            if (step) step();
            if (ticking_ && onTimer) onTimer(Timer_Name::TMR_Actualiza_online);
        }
    }

  private:
    Comm_Bench& bench_;
    bool ticking_ = false;
};

/// A field of two rows: a name, a live column, a column that isn't polled.
struct Watch : ::testing::Test, Comm_Bench {
    Watch() {
        Field_Rec& field = addField(2, 3);
        field.Cells(0, 1).Value = "Input";
        field.Cells(0, 2).Value = "Level";
        field.Cells(0, 2).Modbus_Request = "ALWAYS";
        field.Cells(1, 1).Value = "First";
        field.Cells(2, 1).Value = "Second";
        field.Cells(1, 2).Address = "100";
        field.Cells(2, 2).Address = "101";
        field.Cells(1, 3).Address = "102";
        addScanBlock(100, 101, "ALWAYS");
        addScanBlock(102, 103, "ALWAYS");
        link.image = {{100, 10}, {101, 65531}, {102, 7}};
    }

    bool watch(std::int32_t count) {
        Ticking_Form ticking(*this);
        ticking.step = step;
        return runWatch({document, form, link, ticking}, ticking,
                        {1, count,
                         [this](const Live_Refresh& refresh) {
                             shown.push_back(compactJson(refreshJson(document, 1, refresh)));
                             printRefresh(text, document, 1, refresh);
                             if (onShown) onShown();
                         },
                         [this] { return portOpen; }, time, [this](const std::string& why) { end = why; }});
    }

    std::function<void()> step;
    std::function<void()> onShown;
    bool portOpen = true;
    std::function<std::string()> time;
    std::string end;
    std::vector<std::string> shown;
    std::ostringstream text;
};

TEST_F(Watch, ShowsTheLiveColumnsOnlyAndEndsOffline) {
    onShown = [this] { link.image[100] += 1; };
    EXPECT_TRUE(watch(2));
    EXPECT_EQ(shown,
              (std::vector<std::string>{
                  R"({"refresh":1,"lost":false,"cells":[{"row":1,"column":2,"heading":"Level","text":"10"},)"
                  R"({"row":2,"column":2,"heading":"Level","text":"-5"}]})",
                  R"({"refresh":2,"lost":false,"cells":[{"row":1,"column":2,"heading":"Level","text":"11"},)"
                  R"({"row":2,"column":2,"heading":"Level","text":"-5"}]})"}));
    EXPECT_EQ(text.str(), "Input   Level\nFirst   10\nSecond  -5\n\nInput   Level\nFirst   11\nSecond  -5\n");
    EXPECT_FALSE(form.Online);
    EXPECT_THAT(journal.lines(), Contains("link ClosePort"));
}

TEST_F(Watch, WaitsForALostLinkAndShowsQuestionMarksMeanwhile) {
    onShown = [this] { link.lost = shown.size() == 1; };
    EXPECT_TRUE(watch(3));
    EXPECT_EQ(shown.at(1),
              R"({"refresh":2,"lost":true,"cells":[{"row":1,"column":2,"heading":"Level","text":"???"},)"
              R"({"row":2,"column":2,"heading":"Level","text":"???"}]})");
    EXPECT_EQ(shown.at(2).substr(0, 27), R"({"refresh":3,"lost":false,")");
}

TEST_F(Watch, ALinkThatIsLostAtTheEndIsAFailure) {
    link.lost = true;
    EXPECT_FALSE(watch(1));
    EXPECT_EQ(shown.size(), 1U);
}

TEST_F(Watch, APortThatCantBeOpenedEndsIt) {
    link.lost = true;
    portOpen = false;
    EXPECT_FALSE(watch(5));
    EXPECT_TRUE(shown.empty());
}

TEST_F(Watch, CtrlCEndsItWithoutACount) {
    onShown = [this] { form.Cancel_Requested = shown.size() == 3; };
    EXPECT_TRUE(watch(0));
    EXPECT_EQ(shown.size(), 3U);
    EXPECT_FALSE(form.Online);
}

TEST_F(Watch, WhatIsRefusedIsNoValueAndTellsWhy) {
    link.readings[101] = {Reading_Age::ThisOpening, "BUSY"};
    EXPECT_TRUE(watch(1));
    EXPECT_EQ(shown.at(0),
              R"({"refresh":1,"lost":false,"cells":[{"row":1,"column":2,"heading":"Level","text":"10"},)"
              R"({"row":2,"column":2,"heading":"Level","text":"???",)"
              R"("reason":"Registers 100-101 were not read: BUSY"}]})");
    EXPECT_EQ(text.str(), "Input   Level\nFirst   10\nSecond  ???\n"
                          "??? Registers 100-101 were not read: BUSY\n");
}

TEST_F(Watch, AValueOfBeforeThePortWasLostIsNotShown) {
    link.readings[100] = {Reading_Age::EarlierOpening, std::nullopt};
    link.readings[101] = {Reading_Age::ThisOpening, ""};
    EXPECT_TRUE(watch(1));
    EXPECT_EQ(text.str(), "Input   Level\nFirst   ???\nSecond  ???\n"
                          "??? Registers 100-101 were not read since the port was opened\n"
                          "??? Registers 100-101 were not read: no answer\n");
}

TEST_F(Watch, HalfARegisterOfALostLinkIsNoValueEither) {
    document.Fields(1).Cells(1, 2).Address = "100/LO";
    link.lost = true;
    EXPECT_FALSE(watch(1));
    EXPECT_EQ(text.str(), "Input   Level\nFirst   ???\nSecond  ???\n");
}

TEST_F(Watch, EveryRefreshHasItsTime) {
    time = [this] { return "12:00:0" + std::to_string(shown.size()); };
    EXPECT_TRUE(watch(2));
    EXPECT_THAT(shown.at(0), ::testing::StartsWith(R"({"refresh":1,"time":"12:00:00","lost":false,)"));
    EXPECT_THAT(shown.at(1), ::testing::StartsWith(R"({"refresh":2,"time":"12:00:01","lost":false,)"));
    EXPECT_THAT(text.str(), ::testing::StartsWith("12:00:00\nInput   Level\n"));
}

TEST_F(Watch, SaysWhyItEnds) {
    EXPECT_TRUE(watch(1));
    EXPECT_EQ(end, "The watch has ended after 1 refresh, as many as were asked for.");
    onShown = [this] { form.Cancel_Requested = shown.size() == 3; };
    EXPECT_TRUE(watch(0));
    EXPECT_EQ(end, "The watch was stopped after 2 refreshes.");
    onShown = nullptr;
    form.Cancel_Requested = false;
    link.lost = true;
    EXPECT_FALSE(watch(1));
    EXPECT_EQ(end, "The watch has ended after 1 refresh, as many as were asked for. The controller did not "
                   "answer at the end.");
    portOpen = false;
    EXPECT_FALSE(watch(1));
    EXPECT_EQ(end, "Nothing was watched.");
}

TEST_F(Watch, SaysWhyAFieldCantBeWatched) {
    EXPECT_EQ(watchFault(document, 1), "");
    EXPECT_EQ(watchFault(document, 2), "There is no field 2: the document has fields 1 to 1.");
    document.Fields(1).Cells(0, 2).Modbus_Request = "NONE";
    EXPECT_EQ(watchFault(document, 1), "Field 1 has no live column (ALWAYS): choose another field.");
    document.Always_Block_Count = 0;
    EXPECT_EQ(watchFault(document, 1),
              "The template has no block that is polled (ALWAYS): nothing of it is live.");
}

} // namespace
} // namespace zorvane::ctl
