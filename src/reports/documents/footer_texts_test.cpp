// SPDX-License-Identifier: MIT
#include "reports/documents/footer_texts.h"

#include <gtest/gtest.h>

namespace zorvane {
namespace {

TEST(FooterTexts, APathOfFiftyCharactersStaysWhole) {
    const std::string path = "/abcd/" + std::string(44, 'x');
    EXPECT_EQ(routeText(path), path);
}

TEST(FooterTexts, ALongerPathKeepsThreeCharactersAndTheLastFortyEight) {
    EXPECT_EQ(routeText("/abcd/" + std::string(45, 'x')), "/ab...cd/" + std::string(45, 'x'));
    EXPECT_EQ(routeText(std::string(100, 'a') + std::string(48, 'z')), "aaa..." + std::string(48, 'z'));
}

TEST(FooterTexts, ACharacterBeyondTheCodePageIsAQuestionMark) {
    // U+03A9 and a byte that is no UTF-8, as paths keep them
    EXPECT_EQ(routeText("/\x81"
                        "3A9\x81 dir/\x8D"
                        "FF\x8D.abc"),
              "/? dir/?.abc");
    std::string fifty = "/";
    for (int letter = 0; letter < 49; ++letter)
        fifty += "\x81"
                 "3A9\x81";
    EXPECT_EQ(routeText(fifty), "/" + std::string(49, '?')) << "each counts as one";
}

TEST(FooterTexts, DateAndTimeHaveTwoBlanksBetweenThem) {
    EXPECT_EQ(dateText({"11/21/2026", 9, 5}), "11/21/2026  9:05");
    EXPECT_EQ(dateText({"21.11.26", 0, 0}), "21.11.26  0:00");
    EXPECT_EQ(dateText({"21.11.26", 23, 59}), "21.11.26  23:59");
}

TEST(FooterTexts, ThePageNumberHasItsBlankInFront) { EXPECT_EQ(pageText(12), "Page:  12 / "); }

} // namespace
} // namespace zorvane
