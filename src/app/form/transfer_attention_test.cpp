// SPDX-License-Identifier: MIT
#include "app/form/transfer_attention.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace zorvane::app {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Transfer_Attention_Test : testing::Test {
    std::vector<std::string> did;
    bool inFront = false;
    Transfer_Attention attention{{[this](bool on) { did.push_back(on ? "awake" : "may sleep"); },
                                  [this] { return inFront; },
                                  [this](const std::string& text) { did.push_back(text); }}};
};

TEST_F(Transfer_Attention_Test, KeepsTheComputerAwakeAndTellsOfTheEnd) {
    attention.formEnabled(false, "");
    attention.progressShown();
    attention.formEnabled(true, "Ready");
    EXPECT_THAT(did, ElementsAre("awake", "may sleep", "The transfer has ended: Ready"));
}

TEST_F(Transfer_Attention_Test, TellsNobodyWhoLooks) {
    inFront = true;
    attention.progressShown();
    attention.formEnabled(true, "Ready");
    EXPECT_THAT(did, ElementsAre("awake", "may sleep"));
}

TEST_F(Transfer_Attention_Test, SaysSoWithoutAMessage) {
    attention.progressShown();
    attention.formEnabled(true, "");
    EXPECT_THAT(did, ElementsAre("awake", "may sleep", "The transfer has ended."));
}

TEST_F(Transfer_Attention_Test, AFormThatIsDisabledForSomethingElseIsNoTransfer) {
    attention.formEnabled(false, "");
    attention.formEnabled(true, "");
    EXPECT_THAT(did, IsEmpty());
}

TEST_F(Transfer_Attention_Test, AProgressFormShownAgainIsTheSameTransfer) {
    attention.progressShown();
    attention.progressShown();
    attention.formEnabled(true, "Ready");
    attention.formEnabled(true, "Ready");
    EXPECT_THAT(did, ElementsAre("awake", "may sleep", "The transfer has ended: Ready"));
}

} // namespace
} // namespace zorvane::app
