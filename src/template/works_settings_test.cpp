// SPDX-License-Identifier: MIT
#include "template/works_settings.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

TEST(WorksSettings, AreThoseOfThePortConfiguration) {
    EXPECT_EQ(readWorksSettings("[HARDWARE]\r\nSETTINGS=1200,o,7,2\r\n[PORT_CONFIGURATION]\r\nPORT=1\r\n"
                                "SETTINGS= 4800,e,8,1 ; as shipped\r\nRTU=16\r\n[FIELDS]\r\nRTU=2\r\n"),
              (Works_Settings{"4800,e,8,1 ", 16}));
}

TEST(WorksSettings, AreNoneWhereTheTemplateSaysNothing) {
    EXPECT_EQ(readWorksSettings("[PORT_CONFIGURATION]\r\nRTU=99999999999\r\n"), Works_Settings{});
    EXPECT_EQ(readWorksSettings(""), Works_Settings{});
}

} // namespace
} // namespace zorvane
