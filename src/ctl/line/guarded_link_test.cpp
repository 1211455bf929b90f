// SPDX-License-Identifier: MIT
// The link of one transfer: what became of its writes, and nothing new once somebody asked for the end.
#include "comm/main_form/testing/comm_bench.h"
#include "ctl/line/guarded_link.h"
#include "ctl/line/transfer.h"

#include <gmock/gmock.h>

namespace zorvane::ctl {
namespace {

using doubles::Comm_Bench;
using doubles::Exchange;
using doubles::Write_Script;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A wish that a test makes.
struct Stop_On_Demand : Stop_Wish {
    bool wanted = false;
    [[nodiscard]] const char* signal() const override { return wanted ? "SIGTERM" : nullptr; }
};

struct Guarded : ::testing::Test, Comm_Bench {
    Stop_On_Demand stop;
    Guarded_Link guarded{link, form, stop};
};

TEST_F(Guarded, ItListsTheWritesWithWhatBecameOfThem) {
    link.writes = {Write_Script{Exchange{}}, Write_Script{Exchange{false, "BUSY"}},
                   Write_Script{Exchange{false, ""}}};
    guarded.PresetSingleRegister(7, 100, 1);
    link.advance();
    guarded.PresetMultipleRegisters(7, 200, {1, 2, 3});
    link.advance();
    guarded.ClearWriteFailed();
    guarded.PresetSingleRegister(7, 102, 1);
    link.advance();
    EXPECT_THAT(guarded.writes(), ElementsAre(Sent_Write{100, 1, Write_State::Written},
                                              Sent_Write{200, 3, Write_State::Refused, "BUSY"},
                                              Sent_Write{102, 1, Write_State::Unknown}));
}

TEST_F(Guarded, AWriteThatIsCutOffIsUncertain) {
    link.writes = {Write_Script{Exchange{}}};
    guarded.PresetSingleRegister(7, 100, 1);
    guarded.StopScan();
    EXPECT_THAT(guarded.writes(), ElementsAre(Sent_Write{100, 1, Write_State::Unknown}));
}

TEST_F(Guarded, NoRequestBeginsAfterTheWish) {
    stop.wanted = true;
    guarded.PresetSingleRegister(7, 100, 1);
    guarded.PresetMultipleRegisters(7, 200, {1, 2});
    guarded.PrepareScan();
    guarded.StartScan();
    guarded.ResumeScan();
    EXPECT_THAT(journal.lines(), IsEmpty());
    EXPECT_THAT(guarded.writes(), IsEmpty());
    EXPECT_TRUE(form.Cancel_Requested);
    EXPECT_TRUE(guarded.WriteFailed()); // it isn't to be told as completed
    guarded.ClearWriteFailed();
    EXPECT_FALSE(guarded.WriteFailed());
}

TEST_F(Guarded, TheWriteThatIsUnderWayEndsFirst) {
    link.writes = {Write_Script{Exchange{false, ""}, Exchange{}}};
    form.Download_Active = true;
    guarded.PresetSingleRegister(7, 100, 1);
    stop.wanted = true;
    EXPECT_TRUE(stopTransfer({document, form, guarded, mainForm}, false));
    EXPECT_FALSE(form.Cancel_Requested);
    link.advance();
    EXPECT_FALSE(form.Cancel_Requested); // a try
    link.advance();
    EXPECT_TRUE(form.Cancel_Requested);
    EXPECT_THAT(guarded.writes(), ElementsAre(Sent_Write{100, 1, Write_State::Written}));
}

TEST_F(Guarded, WhoeverAsksTwiceDoesntWait) {
    link.writes = {Write_Script{Exchange{}}};
    form.Download_Active = true;
    guarded.PresetSingleRegister(7, 100, 1);
    EXPECT_FALSE(stopTransfer({document, form, guarded, mainForm}, true));
    EXPECT_TRUE(form.Cancel_Requested);
}

} // namespace
} // namespace zorvane::ctl
