// SPDX-License-Identifier: MIT
// Sending all that differs leaves the registers as a download would, with never more writes: random documents
// of all models over random controllers. Left aside are registers in which minutes and seconds stand
// together, since a download composes those of plain models from another register, and those that a send
// keeps away from.
//
// ZORVANE_STORM=10000 runs so many documents a model instead.
#include "commission/plan/plan.h"
#include "ctl/document/rehearsal.h"
#include "template/identity_section.h"
#include "template/services/native_files.h"
#include "values/numbers.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <set>
#include <string>

namespace zorvane::ctl {
namespace {

using Dice = std::mt19937;

int documents() {
    const char* wanted = std::getenv("ZORVANE_STORM");
    return wanted != nullptr ? std::atoi(wanted) : 25;
}

std::int32_t between(Dice& dice, std::int32_t low, std::int32_t high) {
    return low + static_cast<std::int32_t>(dice() % static_cast<std::uint32_t>(high - low + 1));
}

std::string twoDigits(std::int32_t number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::string randomText(Dice& dice, std::int32_t longest) {
    std::string text;
    for (std::int32_t left = between(dice, 1, longest); left > 0; --left)
        text += static_cast<char>('A' + between(dice, 0, 25));
    return text;
}

/// A number that the cell takes.
std::int32_t randomNumber(Dice& dice, const Cell_Rec& definition, const Cell_Rec& cell) {
    if (isNumeric(cell.Min_Value) && isNumeric(cell.Max_Value))
        return between(dice, longValue(cell.Min_Value), longValue(cell.Max_Value));
    if (cell.Address.find('/') != std::string::npos) return between(dice, 0, 255);
    return !definition.Bits_Negative_Format.empty() ? between(dice, -100, 100) : between(dice, 0, 30000);
}

std::string randomValue(Dice& dice, const Cell_Rec& definition, const Cell_Rec& cell) {
    if (cell.Has_Messages)
        return std::to_string(cell.Messages(between(dice, 1, cell.Messages.upperBound())).Code);
    if (cell.Is_Ascii_Range)
        return randomText(dice, 2 * (longValue(cell.Address_End) - longValue(cell.Address) + 1));
    const std::string format = cell.Format;
    const std::int32_t number = randomNumber(dice, definition, cell);
    if (format == "TIME") return std::to_string(number / 60) + ":" + twoDigits(number % 60);
    if (format == "TIMEMM") return std::to_string(between(dice, 0, 17));
    if (format == "TIMESS") return twoDigits(between(dice, 0, 59));
    return std::to_string(number);
}

class EachModel : public testing::TestWithParam<const char*> {
  protected:
    EachModel() : opened(openDocument({files, folder, folder + "/" + GetParam(), std::nullopt, nullptr})) {
        section = readIdentity(files.bytes(folder + "/" + GetParam()).value_or(""));
    }

    [[nodiscard]] Declara_Zorvane& document() { return opened.document; }

    template <class Visit> void forEachRegisterCell(Visit&& visit) {
        for (std::int32_t field = 1; field <= document().Field_Count; ++field) {
            const Cell_Table& cells = std::as_const(document()).Fields(field).Cells;
            for (std::int32_t row = 1; cells.dimensioned() && row <= cells.rows(); ++row)
                for (std::int32_t column = 1; column <= cells.lastWrittenColumn(row); ++column)
                    if (!cells(row, column).Address.empty()) visit(Cell_Place{field, row, column}, cells);
        }
    }

    void shake(Dice& dice) {
        forEachRegisterCell([&](const Cell_Place& place, const Cell_Table& cells) {
            const Cell_Rec& definition = cells(0, place.column);
            if (!definition.Modifiable) return;
            const std::string value = randomValue(dice, definition, cells(place.row, place.column));
            document().Fields(place.field).Cells(place.row, place.column).Value = value;
        });
    }

    [[nodiscard]] compare::Controller_Registers randomController(Dice& dice) {
        compare::Controller_Registers registers;
        for (std::int32_t i = 1; i <= document().Holding_Block_Count; ++i)
            for (std::int32_t at = document().Holding_Blocks(i).First_Address;
                 at <= document().Holding_Blocks(i).Last_Address; ++at)
                registers.take(at, {static_cast<std::uint16_t>(dice())});
        return registers;
    }

    /// Registers that a send and a download may leave otherwise.
    [[nodiscard]] std::set<std::int32_t> aside() {
        std::set<std::int32_t> registers;
        forEachRegisterCell([&](const Cell_Place& place, const Cell_Table& cells) {
            const std::string format = cells(place.row, place.column).Format;
            if (format == "TIMEMM" || format == "TIMESS")
                registers.insert(longValue(cells(place.row, place.column).Address));
        });
        for (const Register_Range& range : section.leaveOut)
            for (std::int32_t at = range.first; at <= range.last; ++at)
                registers.insert(at);
        for (const Line_Register& link : section.link)
            registers.insert(link.number);
        return registers;
    }

    static inline const std::string folder = ZORVANE_MODELS;
    Native_Files files;
    Opened_Document opened;
    Identity_Section section;
};

INSTANTIATE_TEST_SUITE_P(Models, EachModel,
                         testing::Values("kvrt.ztp", "KVRT100.ZTP", "KVRT207D.ZTP", "R7702-16.ZTP"),
                         [](const auto& model) {
                             std::string name;
                             for (const char* c = model.param; *c != '.'; ++c)
                                 if (*c != '-') name += *c;
                             return name;
                         });

TEST_P(EachModel, SendingAllLeavesWhatADownloadLeavesWithNeverMoreWrites) {
    ASSERT_TRUE(opened.ztp.toTheEnd());
    const std::set<std::int32_t> leftAside = aside();
    std::size_t sent = 0;
    for (int number = 0; number < documents(); ++number) {
        SCOPED_TRACE(number);
        Dice dice(static_cast<unsigned>(number));
        shake(dice);
        const compare::Controller_Registers before = randomController(dice);

        compare::Controller_Registers downloaded = before;
        const Download_Plan given = planDownload(document(), before.values(), freshSelection(document()));
        ASSERT_FALSE(given.failure.has_value()) << given.failure->description;
        for (const Planned_Write& write : given.writes)
            downloaded.take(write.address, write.values);

        compare::Controller_Registers after = before;
        const commission::Chosen_Cells all;
        const commission::Plan plan = commission::makePlan({document(), section, before, all, {}, nullptr});
        ASSERT_FALSE(plan.failure.has_value()) << plan.failure->description;
        ASSERT_TRUE(plan.unread.empty());
        for (const commission::Plan_Write& write : plan.writes) {
            const auto values = commission::composedWrite(write, after);
            ASSERT_TRUE(values.has_value());
            after.take(write.address, *values);
        }

        for (const auto& [at, value] : downloaded.values())
            if (!leftAside.contains(at)) {
                EXPECT_EQ(after.valueAt(at), value) << "register " << at;
            }
        EXPECT_LE(plan.writes.size(), given.writes.size());
        sent += plan.writes.size();
    }
    EXPECT_GT(sent, 0U);
}

/// A document that the controller holds already takes no write at all.
TEST_P(EachModel, AfterASendNothingIsLeftToSend) {
    Dice dice(7);
    for (int number = 0; number < documents(); ++number) {
        SCOPED_TRACE(number);
        shake(dice);
        compare::Controller_Registers registers = randomController(dice);
        const commission::Chosen_Cells all;
        const commission::Plan first =
            commission::makePlan({document(), section, registers, all, {}, nullptr});
        for (const commission::Plan_Write& write : first.writes)
            registers.take(write.address, *commission::composedWrite(write, registers));
        const commission::Plan again =
            commission::makePlan({document(), section, registers, all, {}, nullptr});
        EXPECT_EQ(again.writes.size(), 0U);
    }
}

} // namespace
} // namespace zorvane::ctl
