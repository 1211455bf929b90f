// SPDX-License-Identifier: MIT
#include "app/form/view_switches.h"
#include "app/testing/app_bench.h"

#include <gtest/gtest.h>

namespace zorvane::app {
namespace {

TEST(ViewSwitches, AreOffAtFirstAndKept) {
    doubles::App_Bench bench;
    EXPECT_FALSE(viewSwitch(bench.settings, fillsRoomSwitch));
    storeViewSwitch(bench.settings, fillsRoomSwitch, true);
    EXPECT_EQ(bench.settings.texts.at("Zorvane/View/LastColumn"), "1");
    EXPECT_TRUE(viewSwitch(bench.settings, fillsRoomSwitch));
    EXPECT_FALSE(viewSwitch(bench.settings, darkGroundsSwitch));
    storeViewSwitch(bench.settings, fillsRoomSwitch, false);
    EXPECT_FALSE(viewSwitch(bench.settings, fillsRoomSwitch));
}

TEST(ViewSwitches, AnythingThatIsNoNumberIsOff) {
    doubles::App_Bench bench;
    bench.settings.texts["Zorvane/View/DarkGrounds"] = "yes";
    EXPECT_FALSE(viewSwitch(bench.settings, darkGroundsSwitch));
}

} // namespace
} // namespace zorvane::app
