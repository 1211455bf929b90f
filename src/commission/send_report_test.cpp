// SPDX-License-Identifier: MIT
// What is said of a text that is too long for one write.
#include "commission/plan/plan_paper.h"
#include "commission/send_report.h"

#include <gtest/gtest.h>

namespace zorvane::commission {
namespace {

const Cell_Place place{1, 2, 2};

Plan_Write writeOf(std::int32_t address, std::vector<std::uint16_t> values) {
    Plan_Write write;
    write.function = Function_Code::PresetMultipleRegisters;
    write.address = address;
    write.parts.assign(values.size(), Part::Whole);
    write.values = std::move(values);
    write.cells = {place};
    return write;
}

Write_Record sent(const Plan_Write& write) {
    Write_Record record;
    record.progress = Write_Progress::Sent;
    record.sent = write.values;
    record.readBack.assign(write.values.begin(), write.values.end());
    return record;
}

/// A text in registers 10 to 13, which goes out in two writes.
struct Long_Text : ::testing::Test {
    [[nodiscard]] Sent_Row row() const {
        const Planned_Cell cell{place, "10-13", {10, 13}, Part::Whole, 0, {}};
        return reportOf({cell}, writes, {{10, 1}, {11, 1}, {12, 1}, {13, 1}}, outcome).rows.at(0);
    }
    std::vector<Plan_Write> writes = {writeOf(10, {65, 66, 67}), writeOf(13, {68})};
    Send_Outcome outcome = [this] {
        Send_Outcome made;
        made.writes = {sent(writes[0]), sent(writes[1])};
        return made;
    }();
};

TEST_F(Long_Text, IsVerifiedWhenAllItsWritesAre) {
    EXPECT_EQ(row().state, Value_State::Verified);
    EXPECT_EQ(row().sent, (Known_Registers{65, 66, 67, 68}));
    EXPECT_EQ(row().readBack, (Known_Registers{65, 66, 67, 68}));
}

TEST_F(Long_Text, IsRefusedWhenOneOfItsWritesIs) {
    outcome.writes[1].progress = Write_Progress::Refused;
    outcome.writes[1].readBack.clear();
    outcome.writes[1].answer = "Illegal data address (exception 2)";
    EXPECT_EQ(row().state, Value_State::Refused);
    EXPECT_EQ(row().answer, "Illegal data address (exception 2)");
    EXPECT_EQ(row().readBack, (Known_Registers{65, 66, 67, std::nullopt}));
}

TEST_F(Long_Text, IsStoredOtherwiseWhenOnlyOneOfItsWritesWentOut) {
    outcome.writes[1] = {};
    EXPECT_EQ(row().state, Value_State::Stored_Otherwise);
    outcome.writes[0] = {};
    EXPECT_EQ(row().state, Value_State::Not_Sent);
}

TEST_F(Long_Text, ShowsItsRegistersInTheirOrderThoughARestorationWritesTheLastOnesFirst) {
    std::swap(writes[0], writes[1]);
    std::swap(outcome.writes[0], outcome.writes[1]);
    EXPECT_EQ(row().sent, (Known_Registers{65, 66, 67, 68}));
    EXPECT_EQ(row().state, Value_State::Verified);
}

} // namespace
} // namespace zorvane::commission
