// SPDX-License-Identifier: MIT
#include "commission/touched_reading.h"

#include <gtest/gtest.h>

#include <string>

namespace zorvane::commission {
namespace {

using Registers = std::set<std::int32_t>;
using Ranges = std::vector<Register_Range>;
using Requests = std::vector<std::string>;

/// "10-15" for each request that reads these registers of a controller whose registers hold their own number.
Requests requestsFor(const Registers& registers, const Ranges& blocks, const Ranges& never) {
    Requests requests;
    const auto read = [&](std::int32_t first, std::int32_t count) {
        requests.push_back(std::to_string(first) + "-" + std::to_string(first + count - 1));
        Unit_Answer answer;
        answer.end = Unit_End::Answered;
        for (std::int32_t number = first; number < first + count; ++number)
            answer.values.push_back(static_cast<std::uint16_t>(number));
        return answer;
    };
    const auto values = readRegisters(registers, blocks, never, read);
    for (const std::int32_t number : registers)
        EXPECT_EQ(values.valueAt(number), number);
    return requests;
}

TEST(TouchedReading, ABlockIsReadInOneRequestFromTheFirstRegisterToTheLast) {
    EXPECT_EQ(requestsFor({12, 13, 17, 31}, {{10, 20}, {30, 40}}, {}), (Requests{"12-17", "31-31"}));
}

TEST(TouchedReading, RegistersOutsideTheBlocksAreReadInRows) {
    EXPECT_EQ(requestsFor({2, 3, 5, 12}, {{10, 20}}, {}), (Requests{"12-12", "2-3", "5-5"}));
}

TEST(TouchedReading, AroundARegisterThatIsNeverReadEachRowIsReadByItself) {
    EXPECT_EQ(requestsFor({12, 13, 17}, {{10, 20}}, {{15, 15}}), (Requests{"12-13", "17-17"}));
    EXPECT_EQ(requestsFor({12, 13, 17}, {{10, 20}}, {{10, 11}, {18, 19}}), Requests{"12-17"})
        << "those lie beside what is read";
}

} // namespace
} // namespace zorvane::commission
