// SPDX-License-Identifier: MIT
#include "reports/bands/line_wrap.h"
#include "reports/testing/even_metrics.h"

#include <gmock/gmock.h>

namespace zorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Ten characters have room.
std::vector<std::string> wrapped(const std::string& text) {
    return wrappedLines(doubles::Even_Metrics(), text, {"", 10, false}, 1000);
}

TEST(LineWrap, KeepsLinesThatHaveRoom) {
    EXPECT_THAT(wrapped(""), IsEmpty());
    EXPECT_THAT(wrapped("one\r\n\r\ntwo\nthree"), ElementsAre("one", "", "two", "three"));
    EXPECT_THAT(wrapped("one\r\n"), ElementsAre("one"));
    EXPECT_THAT(wrapped("1234567890"), ElementsAre("1234567890"));
}

TEST(LineWrap, BreaksAtTheLastBlankThatHasRoom) {
    EXPECT_THAT(wrapped("ab cd efgh ijk"), ElementsAre("ab cd efgh", "ijk"));
    EXPECT_THAT(wrapped("ab cd efghijk"), ElementsAre("ab cd", "efghijk"));
}

TEST(LineWrap, BreaksAWordThatIsTooWide) {
    EXPECT_THAT(wrapped(std::string(25, 'w')),
                ElementsAre(std::string(10, 'w'), std::string(10, 'w'), std::string(5, 'w')));
}

TEST(LineWrap, BreaksALineOfAnyLength) {
    const auto lines = wrapped(std::string(100003, 'w'));
    ASSERT_EQ(lines.size(), 10001U);
    EXPECT_EQ(lines.back(), "www");
}

} // namespace
} // namespace zorvane
