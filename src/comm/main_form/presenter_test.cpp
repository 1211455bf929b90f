// SPDX-License-Identifier: MIT
#include "comm/main_form/presenter.h"
#include "comm/main_form/testing/comm_bench.h"
#include "values/run_time_failure.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zorvane {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What the form is told of an event, in order.
struct Presenting : ::testing::Test {
    [[nodiscard]] std::vector<std::string> shown(const Transfer_Event& event) {
        Presenter(mainForm).show(event);
        return journal.take();
    }
    [[nodiscard]] std::string message() const { return mainForm.panel(Panel::Message); }
    void say(const std::string& text) {
        mainForm.setPanel(Panel::Message, text);
        journal.clear();
    }

    doubles::Journal journal;
    doubles::Recording_Form mainForm{journal};
};

TEST_F(Presenting, UploadBegins) {
    EXPECT_THAT(shown(event::Upload_Began{2, 3}),
                ElementsAre("panel 5 = \"\"", "panel 6 = \"\"", "form disabled", "panel 2 = \"Upload\"",
                            "panel 4 = \"Uploading... Wait a moment please\"",
                            "Porcentaje label = \"Uploading data from the controller...\"",
                            "Porcentaje 0 to 6", "Porcentaje shown"));
}

TEST_F(Presenting, UploadOfMoreStepsThanTheBarCountsIsFailure6) {
    EXPECT_THROW((void)shown(event::Upload_Began{2'000'000'000, 2}), Run_Time_Failure);
}

TEST_F(Presenting, DownloadIsAskedForAndBegins) {
    EXPECT_THAT(
        shown(event::Download_Asked{}),
        ElementsAre("panel 4 = \"Transferring data to controller...\"", "panel 5 = \"\"", "panel 6 = \"\""));
    EXPECT_THAT(shown(event::Download_Began{12}),
                ElementsAre("form disabled", "panel 2 = \"Download\"", "Porcentaje 0 to 12",
                            "Porcentaje label = \"Transferring data to controller...\"", "Porcentaje shown"));
}

TEST_F(Presenting, StepsMoveTheBarUntilItIsFull) {
    mainForm.progress.setRange(1);
    journal.clear();
    EXPECT_THAT(shown(event::Step_Done{}), ElementsAre("Porcentaje at 1"));
    EXPECT_THAT(shown(event::Step_Done{}), IsEmpty());
}

TEST_F(Presenting, ValuesOfATransfer) {
    EXPECT_THAT(shown(event::Value_Kept_Back{"1004"}), ElementsAre("panel 4 = \"1004 ...No Download\""));
    EXPECT_THAT(shown(event::Value_Written{"120", "1004", Write_Progress::Pending}),
                ElementsAre("panel 4 = \"Write: 120 @1004 ...Pending\""));
    EXPECT_THAT(shown(event::Value_Written{"120", "1004", Write_Progress::Completed}),
                ElementsAre("panel 4 = \"Write: 120 @1004 ...Completed\""));
    EXPECT_THAT(shown(event::Value_Written{"", "1004", Write_Progress::Failed}),
                ElementsAre("panel 4 = \"Write:  @1004 ...Failed\""));
    EXPECT_THAT(shown(event::Text_Written{200, 203, "abc", false}),
                ElementsAre("panel 4 = \"Writing ascii block: 200-203 @abc ...Completed\""));
    EXPECT_THAT(shown(event::Text_Written{200, 203, "abc", true}),
                ElementsAre("panel 4 = \"Writing ascii block: 200-203 @abc ...Failed\""));
}

TEST_F(Presenting, AFinishedUploadSaysReadyBeforeItsFormGoesADownloadAfterIt) {
    EXPECT_THAT(shown(event::Transfer_Finished{true}),
                ElementsAre("panel 4 = \"Ready\"", "Porcentaje unloaded", "form enabled"));
    EXPECT_THAT(shown(event::Transfer_Finished{false}),
                ElementsAre("Porcentaje unloaded", "panel 4 = \"Ready\"", "form enabled"));
}

TEST_F(Presenting, TransfersThatDontFinish) {
    EXPECT_THAT(shown(event::Transfer_Lost{}),
                ElementsAre("Porcentaje label = \"Error. The controller does not respond.\"",
                            "Porcentaje closing", "form enabled", "panel 2 = \"Offline\"",
                            "panel 4 = \"Error. The controller does not respond.\""));
    EXPECT_THAT(shown(event::Controller_Silent{}),
                ElementsAre("form enabled", "panel 2 = \"Offline\"",
                            "panel 4 = \"Error. The controller does not respond.\""));
    EXPECT_THAT(shown(event::Transfer_Cancelled{true}),
                ElementsAre("Porcentaje unloaded", "panel 4 = \"Upload cancelled...\"", "form enabled"));
    EXPECT_THAT(shown(event::Transfer_Cancelled{false}),
                ElementsAre("Porcentaje unloaded", "panel 4 = \"Download cancelled...\"", "form enabled"));
    EXPECT_THAT(shown(event::Download_Left{}), ElementsAre("form enabled"));
    EXPECT_THAT(shown(event::Transfer_Dropped{}), ElementsAre("Porcentaje unloaded", "form enabled"));
}

TEST_F(Presenting, SessionFromItsBeginningToItsEnd) {
    EXPECT_THAT(shown(event::Polling_Began{}),
                ElementsAre("MNU_Disconnect enabled", "MNU_Download disabled", "MNU_Upload disabled"));
    EXPECT_THAT(shown(event::Session_Ending{}), ElementsAre("MNU_Disconnect disabled"));
    EXPECT_THAT(shown(event::Port_Closed{}),
                ElementsAre("panel 5 = \"\"", "panel 6 = \"\"", "panel 2 = \"Offline\""));
    EXPECT_THAT(shown(event::Transfers_Offered{}), ElementsAre("MNU_Download enabled", "MNU_Upload enabled"));
    EXPECT_THAT(shown(event::Port_Closed{true}), ElementsAre("panel 2 = \"\""));
}

TEST_F(Presenting, ALostLinkIsToldOnceAndTakenBackWhenItAnswers) {
    EXPECT_THAT(shown(event::Polling_Lost{true}),
                ElementsAre("form enabled", "panel 2 = \"Retrying\"",
                            "panel 4 = \"The controller does not respond...\"", "LostCom shown"));
    EXPECT_THAT(shown(event::Polling_Lost{}), ElementsAre("form enabled", "panel 2 = \"Retrying\""));
    EXPECT_THAT(shown(event::Polling_Answered{true, false}),
                ElementsAre("panel 2 = \"Online\"", "panel 4 = \"\"", "LostCom unloaded"));
    EXPECT_THAT(shown(event::Polling_Answered{}), ElementsAre("panel 2 = \"Online\"", "LostCom unloaded"));
}

TEST_F(Presenting, WhatSomebodyElseSaidMeanwhileStays) {
    say("Write: 120 @1004 ...Completed");
    EXPECT_THAT(shown(event::Polling_Answered{true, true}), ElementsAre("LostCom unloaded"));
    EXPECT_EQ(message(), "Write: 120 @1004 ...Completed");
    EXPECT_THAT(shown(event::Live_Write_Dropped{}), IsEmpty());
    say("Write: 120 @1004 ...Pending");
    EXPECT_THAT(shown(event::Live_Write_Dropped{}), ElementsAre("panel 4 = \"\""));
}

TEST_F(Presenting, ALinkThatIsGivenUp) {
    EXPECT_THAT(shown(event::Link_Retrying{}), ElementsAre("form enabled", "panel 2 = \"Retrying\""));
    EXPECT_THAT(shown(event::Link_Silent{}), ElementsAre("panel 4 = \"The controller does not respond...\""));
    EXPECT_THAT(shown(event::Link_Given_Up{}),
                ElementsAre("Porcentaje unloaded", "form enabled", "panel 2 = \"Offline\""));
}

TEST_F(Presenting, LightsUnitAndMonitor) {
    EXPECT_THAT(shown(event::Traffic_Seen{true, false}), ElementsAre("panel 5 = \"Tx\"", "panel 6 = \"\""));
    EXPECT_THAT(shown(event::Traffic_Seen{false, true}), ElementsAre("panel 5 = \"\"", "panel 6 = \"Rx\""));
    EXPECT_THAT(shown(event::Unit_Known{" 7 "}), ElementsAre("panel 3 = \"RTU: 7\""));
    EXPECT_THAT(shown(event::Unit_Known{"7"}), IsEmpty());
    EXPECT_THAT(shown(event::Unit_Known{"0"}), IsEmpty());
    EXPECT_THAT(shown(event::Monitor_Looked_At{true}), ElementsAre("separador4 disabled"));
    EXPECT_THAT(shown(event::Monitor_Looked_At{false}), ElementsAre("separador4 enabled"));
}

TEST_F(Presenting, AMessageIsTakenBackOnlyWhileItStands) {
    say("Saving file A.ABC ...");
    takeBackMessage(mainForm, "Saving file B.ABC ...");
    EXPECT_EQ(message(), "Saving file A.ABC ...");
    takeBackMessage(mainForm, "Saving file A.ABC ...");
    EXPECT_EQ(message(), "");
}

TEST_F(Presenting, AMessageIsKeptOverWhatWritesAnother) {
    say("The file was updated.");
    keepingMessage(mainForm, [&] { mainForm.setPanel(Panel::Message, ""); });
    EXPECT_EQ(message(), "The file was updated.");
    say("");
    keepingMessage(mainForm, [&] { mainForm.setPanel(Panel::Message, "Processing Font size..."); });
    EXPECT_EQ(message(), "Processing Font size...");
}

/// Keeps the names of what it was told, and what the form said by then.
struct Noting final : Transfer_Watcher {
    explicit Noting(const Main_Form& form) : mainForm(form) {}
    void note(const Transfer_Event& event) override {
        if (const auto* kept = std::get_if<event::Value_Kept_Back>(&event))
            notes.push_back(kept->address + " / " + mainForm.panel(Panel::Message));
    }
    const Main_Form& mainForm;
    std::vector<std::string> notes;
};

TEST(Watching, AWatcherIsToldAfterTheForm) {
    doubles::Comm_Bench bench;
    Noting watcher(bench.mainForm);
    Comm_Context comm = bench.comm;
    comm.tell(event::Value_Kept_Back{"1"}); // nobody watches
    comm.watcher = &watcher;
    comm.tell(event::Value_Kept_Back{"2"});
    EXPECT_THAT(watcher.notes, ElementsAre("2 / 2 ...No Download"));
}

} // namespace
} // namespace zorvane
