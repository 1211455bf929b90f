// SPDX-License-Identifier: MIT
// What holds for any document: counts add up to the rows, and the right controller is no wrong one.

#include "compare/comparison.h"
#include "compare/filter.h"
#include "compare/identity.h"
#include "compare/testing/pump.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>
#include <string>

namespace zorvane::compare {
namespace {

using doubles::pumpRegisters;
using doubles::pumpTemplate;
using zorvane::doubles::Reading_Bench;

using Dice = std::mt19937;

std::size_t below(Dice& dice, std::size_t count) { return dice() % count; }

std::string randomValue(Dice& dice) {
    static const std::vector<std::string> values = {"",   " ",    "0",     "-5",   "1:30", "40000", "70000",
                                                    "On", "PUMP", "1e400", "0.5",  ":",    "-",     "\xE9",
                                                    "9",  "255",  "256",   "9999", "x"};
    return values[below(dice, values.size())];
}

/// Changes some cells of a document to anything at all.
void shake(Dice& dice, Declara_Zorvane& document) {
    for (std::size_t i = below(dice, 20); i > 0; --i) {
        const auto field = static_cast<std::int32_t>(below(dice, 2) + 1);
        const auto row = field == 1 ? static_cast<std::int32_t>(below(dice, 10) + 1) : 1;
        document.Fields(field).Cells(row, static_cast<std::int32_t>(below(dice, 3) + 1)).Value =
            randomValue(dice);
    }
}

Controller_Registers randomRegisters(Dice& dice) {
    Controller_Registers registers(pumpRegisters());
    for (std::size_t i = below(dice, 8); i > 0; --i) {
        const auto number = static_cast<std::int32_t>(10 + below(dice, 21));
        if (below(dice, 4) == 0)
            registers.fail({number, number}, {});
        else
            registers.take(number, {static_cast<std::uint16_t>(dice())});
    }
    return registers;
}

Identity_Section randomSection(Dice& dice) {
    static const std::vector<std::string> lines = {"LEAVEOUT=11\n", "LEAVEOUT=13,30\n", "WRITEONLY=12\n", ""};
    return readIdentity("[IDENTITY]\n" + lines[below(dice, lines.size())]);
}

void expectSumsThatAddUp(const Comparison& comparison) {
    Counts counted;
    for (const Row& row : comparison.rows)
        counted.add(row.sign);
    std::size_t sum = 0;
    for (const Sign sign : allSigns) {
        ASSERT_EQ(comparison.counts.of(sign), counted.of(sign));
        sum += comparison.counts.of(sign);
    }
    ASSERT_EQ(sum, comparison.rows.size());
    ASSERT_EQ(comparison.counts.rows(), comparison.rows.size());
}

TEST(ComparisonProperty, CountsAddUpForRandomDocuments) {
    Dice dice(17);
    for (int run = 0; run < 2000; ++run) {
        SCOPED_TRACE(run);
        Reading_Bench ours;
        Reading_Bench theirs;
        ours.readTemplate(pumpTemplate);
        theirs.readTemplate(pumpTemplate);
        shake(dice, ours.document);
        shake(dice, theirs.document);
        const Identity_Section section = randomSection(dice);
        const Controller_Registers now = randomRegisters(dice);
        const Controller_Registers earlier = randomRegisters(dice);
        const Document_Side left(ours.document);
        const Document_Side file(theirs.document);
        const Controller_Side controller(ours.document, section, now, &earlier);
        expectSumsThatAddUp(comparisonOf({ours.document, section, left, file, {{1, 2, 2}}}));
        expectSumsThatAddUp(comparisonOf({ours.document, section, left, controller}));
        expectSumsThatAddUp(comparisonOf({ours.document, section, controller, left, {{1, 2, 2}}}));
    }
}

TEST(ComparisonProperty, SidesThatChangePlacesKeepTheirSigns) {
    Dice dice(4);
    for (int run = 0; run < 500; ++run) {
        SCOPED_TRACE(run);
        Reading_Bench ours;
        ours.readTemplate(pumpTemplate);
        shake(dice, ours.document);
        const Identity_Section section = randomSection(dice);
        const Controller_Registers now = randomRegisters(dice);
        const Document_Side document(ours.document);
        const Controller_Side controller(ours.document, section, now);
        const Comparison one = comparisonOf({ours.document, section, document, controller});
        const Comparison other = comparisonOf({ours.document, section, controller, document});
        ASSERT_EQ(one.rows.size(), other.rows.size());
        for (std::size_t i = 0; i < one.rows.size(); ++i)
            ASSERT_EQ(one.rows[i].sign, other.rows[i].sign) << one.rows[i].name;
    }
}

/// A section with some marks of random kinds, and the registers of a controller that has them all.
struct Marked_Controller {
    explicit Marked_Controller(Dice& dice) {
        const std::size_t marks = 1 + below(dice, 4);
        for (std::size_t k = 1; k <= marks; ++k)
            addMark(dice, std::to_string(k), static_cast<std::int32_t>(10 * k));
        section = readIdentity("[IDENTITY]\n" + lines);
    }

    void addMark(Dice& dice, const std::string& k, std::int32_t at) {
        const std::string place = std::to_string(at);
        const auto value = static_cast<std::uint16_t>(dice());
        values[at] = value;
        switch (below(dice, 4)) {
        case 0:
            lines += "REGISTER_" + k + "=" + place + "\nVALUE_" + k + "=" + std::to_string(value) + "\n";
            break;
        case 1:
            lines += "REGISTER_" + k + "=" + place + "\nLOW_" + k + "=" + std::to_string(value) + "\nHIGH_" +
                     k + "=" + std::to_string(value) + "\n";
            break;
        case 2:
            values[at + 1] = static_cast<std::uint16_t>(dice());
            lines += "REGISTER_" + k + "=" + place + "-" + std::to_string(at + 1) + "\nVALUE_" + k + "=" +
                     std::to_string(value * 65536ULL + values[at + 1]) + "\n";
            break;
        default:
            values[at] = static_cast<std::uint16_t>((('A' + below(dice, 26)) << 8) | ('0' + below(dice, 10)));
            lines += "TEXTAT_" + k + "=" + place + "\nIS_" + k + "=" + static_cast<char>(values[at] >> 8) +
                     static_cast<char>(values[at] & 0xFF) + "\n";
        }
    }

    std::string lines;
    Identity_Section section;
    Controller_Registers::Values values;
};

Verdict verdictOn(const Marked_Controller& controller, const Controller_Registers& registers) {
    return identityByMarks(controller.section, "PUMP", 1, {registers}).verdict;
}

TEST(IdentityProperty, AThousandControllersAreToldWithoutAFalseAlarm) {
    Dice dice(1);
    for (int run = 0; run < 1000; ++run) {
        const Marked_Controller right(dice);
        SCOPED_TRACE(right.lines);
        ASSERT_EQ(verdictOn(right, Controller_Registers(right.values)), Verdict::Is);

        auto wrong = right.values;
        auto changed = std::next(wrong.begin(), static_cast<std::ptrdiff_t>(below(dice, wrong.size())));
        changed->second = static_cast<std::uint16_t>(changed->second ^ (1U << 8));
        ASSERT_EQ(verdictOn(right, Controller_Registers(wrong)), Verdict::Isnt);

        Controller_Registers silent(right.values);
        silent.fail({changed->first, changed->first}, {});
        ASSERT_EQ(verdictOn(right, silent), Verdict::Cant_Tell);
    }
}

TEST(IdentityProperty, ValuesThatADocumentMayHoldAreNoAlarm) {
    Reading_Bench bench;
    bench.readTemplate(pumpTemplate);
    Dice dice(2);
    for (int run = 0; run < 1000; ++run) {
        auto values = pumpRegisters();
        values[10] = static_cast<std::uint16_t>(below(dice, 3));
        values[11] = static_cast<std::uint16_t>(static_cast<int>(below(dice, 111)) - 20);
        values[12] = static_cast<std::uint16_t>(below(dice, 32768));
        for (const std::int32_t free : {13, 14, 15, 16, 18, 19, 20, 30})
            values[free] = static_cast<std::uint16_t>(dice());
        values[17] = static_cast<std::uint16_t>(below(dice, 32768));
        const Identity identity = identityByCells(bench.document, 1, Controller_Registers(values));
        ASSERT_EQ(identity.verdict, Verdict::Cant_Tell);
        ASSERT_TRUE(identity.evidence.empty());
    }
}

/// The promise is 50 ms on the product's build; tests run with checks and without optimisation.
TEST(FilterProperty, ThirtyTwoThousandRowsFilterInNoTime) {
    Row row;
    row.page = "Regulation";
    row.name = "Set point of the second stage";
    row.heading = "Value";
    row.left.shown = "1150";
    row.right.shown = "1200";
    row.registers = Register_Range{40010, 40010};
    const std::vector<Row> rows(32767, row);
    const Filter filter("page:regulation reg:40000-40020 stage 1200");
    std::size_t let = 0;
    const auto start = std::chrono::steady_clock::now();
    for (const Row& each : rows)
        if (filter.lets(each)) ++let;
    const auto spent = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(let, rows.size());
    EXPECT_LT(spent, std::chrono::seconds(5));
    RecordProperty("milliseconds",
                   static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(spent).count()));
}

} // namespace
} // namespace zorvane::compare
