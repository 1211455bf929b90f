// SPDX-License-Identifier: MIT
// Random cells, columns and texts: whatever comes in, a typed commit takes one of its ways out, and what each
// way out promises holds.

#include "grids/commit/commit_value.h"
#include "grids/testing/commit_outcome.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/times.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <random>

namespace zorvane {
namespace {

using doubles::Commit_Outcome;
using doubles::Grid_Bench;

/// Picks from words that matter, with now and then some noise.
class Random_Texts {
  public:
    explicit Random_Texts(std::uint32_t seed) : engine_(seed) {}

    bool chance(int percent) { return number(1, 100) <= percent; }
    int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    template <std::size_t N> std::string pick(const std::array<const char*, N>& words) {
        return words[static_cast<std::size_t>(number(0, static_cast<int>(N) - 1))];
    }
    std::string noise() {
        std::string text;
        for (int length = number(0, 8); length > 0; --length)
            text += static_cast<char>(number(0, 255));
        return text;
    }
    std::string typed() {
        switch (number(0, 5)) {
        case 0:
            return numberText(number(-70000, 70000));
        case 1:
            return numberText(number(-70000, 70000) / 8.0);
        case 2:
            return numberText(number(-9, 99)) + ":" + numberText(number(-9, 99));
        case 3:
            return noise();
        case 4:
            return pick(oddTexts);
        default:
            return pick(plainTexts);
        }
    }
    std::string limit() {
        if (chance(40)) return pick(oddLimits);
        return numberText(number(-1000, 1000));
    }

  private:
    static constexpr std::array<const char*, 14> oddTexts = {
        "", " ", ":", "1:", ":1", "1:1:1", "1e3", "1e999", "0x10", "+", "-", ".", "1.5.5", "99999999999:00"};
    static constexpr std::array<const char*, 6> plainTexts = {"0", "7", "-5", "Tank 1", "12abc", " 12 "};
    static constexpr std::array<const char*, 9> oddLimits = {"",  " ",     "abc",   "-32768", "32767",
                                                             "0", "65535", "99999", "1e999"};
    std::mt19937 engine_;
};

constexpr std::array<const char*, 9> columnTypes = {
    "NUMERIC", "numeric", "NUMERIC_UNSIGNED", "ASCII", "NUMERIC_OR_ASCII", "TIME", "", "TEXT", " TIME"};
constexpr std::array<const char*, 9> formats = {
    "", "TIME", "TIMEMM", "TIMESS", "NUMERIC_UNSIGNED", "numeric_unsigned", "NUMERIC", "time", "other"};
constexpr std::array<const char*, 9> negativeFormats = {"",  "8",    "15",     "16", "0",
                                                        "x", "15.6", "-40000", " 3 "};
constexpr std::array<const char*, 6> addresses = {"1004", "1004/HI", "1004/LO", "", "abc", "1004/hi"};
constexpr std::array<const char*, 6> values = {"0", "7", "-3", "2.5", "1:30", ""};

/// What a commit started from.
struct Scene {
    Cell_Rec definition;
    Cell_Rec cell;
    std::string text;
};

Scene randomScene(Random_Texts& random) {
    Scene scene;
    scene.definition.Modifiable = true;
    scene.definition.Column_Type = random.pick(columnTypes);
    if (random.chance(50)) scene.definition.Bits_Negative_Format = random.pick(negativeFormats);
    scene.cell.Format = random.pick(formats);
    scene.cell.Address = random.pick(addresses);
    scene.cell.Value = random.pick(values);
    if (random.chance(70)) scene.cell.Min_Value = random.limit();
    if (random.chance(70)) scene.cell.Max_Value = random.limit();
    if (random.chance(15)) {
        scene.cell.Is_Ascii_Range = true;
        scene.cell.Address_End = "1006";
    }
    scene.text = random.typed();
    return scene;
}

std::string describe(const Scene& scene) {
    return "type \"" + scene.definition.Column_Type.text() + "\", negative \"" +
           scene.definition.Bits_Negative_Format.text() + "\", format \"" + scene.cell.Format.text() +
           "\", address \"" + scene.cell.Address + "\", value \"" + scene.cell.Value + "\", limits \"" +
           scene.cell.Min_Value + "\" to \"" + scene.cell.Max_Value + "\", ascii " +
           (scene.cell.Is_Ascii_Range ? "yes" : "no") + ", text \"" + scene.text + "\"";
}

/// The scene put before the user, and the text committed.
struct Commit_Run {
    Commit_Outcome outcome;
    bool rejected = false;
    int failure = 0;
    Cell_Rec after;
};

Commit_Run run(const Scene& scene, bool online, bool good) {
    Grid_Bench bench;
    Field_Rec& field = bench.addTable(1, 1);
    field.Cells(0, 1) = scene.definition;
    field.Cells(1, 1) = scene.cell;
    bench.form.Online = online;
    if (!good) bench.link.writes = {{doubles::Exchange{false, "", nullptr, "", ""}}};
    bench.ownLower.setRow(1);
    bench.ownLower.setCol(0);
    bench.ownLower.setText(scene.text);
    Commit_Run result;
    try {
        PRO_Escribe_Valor(bench.grids, 1, 0, scene.text, result.rejected);
    } catch (const Run_Time_Failure& failure) {
        result.failure = failure.number();
    }
    result.after = bench.grids.cell(1, 0);
    result.outcome = doubles::outcomeOf(bench);
    return result;
}

/// The decision alone, on a copy of the cell with its limits filled in. Nothing when it fails.
std::optional<Way_Out> decide(const Scene& scene) {
    Cell_Rec cell = scene.cell;
    const Typed_Entry entry = typedEntry(scene.definition, cell, scene.text);
    if (entry.kind == Entry_Kind::Number) {
        const Limits limits = filledLimits(scene.definition, cell);
        cell.Min_Value = limits.low;
        cell.Max_Value = limits.high;
    }
    std::optional<Way_Out> way;
    ignoringFailure([&] { way = wayOutOf(scene.definition, cell, entry); });
    return way;
}

/// What must hold for each way out, as a check of its own.
class Promise {
  public:
    Promise(const Scene& scene, const Commit_Run& run) : scene_(scene), run_(run) {}

    void operator()(const Free_Text& way) const {
        expect(way.text, way.text, true, 0, false);
        EXPECT_EQ(way.text, scene_.text);
        EXPECT_TRUE(run_.outcome.scanStarted);
    }
    void operator()(const Time_Accepted& way) const {
        EXPECT_EQ(way.time, timeText(timeSeconds(way.time))) << "in the system's own form";
        expect(way.time, way.time, false, 0, false);
    }
    void operator()(const Time_Bad& /*way*/) const { expect("0:00", "0:00", false, 0, false); }
    void operator()(const Time_Refused& /*way*/) const {
        expect(scene_.cell.Value, scene_.text, false, 1, true);
    }
    void operator()(const Number_Accepted& way) const {
        if (!isNumeric(scene_.cell.Value)) {
            EXPECT_EQ(run_.failure, 13);
            EXPECT_EQ(run_.outcome.Value, scene_.cell.Value);
            EXPECT_EQ(run_.outcome.save, "as before");
            return;
        }
        EXPECT_TRUE(isNumeric(way.text));
        EXPECT_GE(Val(way.text), -32768.0);
        EXPECT_LE(Val(way.text), 65535.0);
        EXPECT_TRUE(way.Raw_Negative == 0 || Val(way.text) < 0.0);
        EXPECT_GE(way.Raw_Negative, 0);
        expect(numberText(Val(way.text)), way.text, true, 0, false);
    }
    void operator()(const Number_Refused& way) const {
        expect(way.limits.high, way.limits.high, false, 1, true);
    }
    void operator()(const Number_Too_Wide& /*way*/) const {
        expect(scene_.cell.Value, scene_.text, false, 1, false);
    }
    void operator()(const Not_Numeric& /*way*/) const {
        EXPECT_FALSE(isNumeric(scene_.text));
        expect("0", "0", false, 0, false);
    }
    void operator()(const Ascii_Text& way) const {
        EXPECT_TRUE(scene_.cell.Is_Ascii_Range);
        expect(way.text, way.text, false, 0, false);
    }

  private:
    void expect(const std::string& value, const std::string& grid, bool marked, std::size_t messages,
                bool rejected) const {
        EXPECT_EQ(run_.failure, 0);
        EXPECT_EQ(run_.outcome.Value, value);
        EXPECT_EQ(run_.outcome.grid, grid);
        EXPECT_EQ(run_.outcome.save, marked ? "on" : "as before");
        EXPECT_EQ(run_.outcome.title, marked ? "* site7.abc - Zorvane" : "site7.abc - Zorvane");
        EXPECT_EQ(run_.outcome.messages.size(), messages);
        EXPECT_EQ(run_.rejected, rejected);
        EXPECT_EQ(run_.outcome.writes, std::vector<std::string>{});
        EXPECT_EQ(run_.outcome.panel, "");
        EXPECT_EQ(run_.outcome.colours, "as before");
    }

    const Scene& scene_;
    const Commit_Run& run_;
};

/// Nothing but the three texts of the cell ever changes, and limits change for numbers alone.
void expectTheRestUntouched(const Scene& scene, const Commit_Run& run) {
    EXPECT_EQ(run.after.Address, scene.cell.Address);
    EXPECT_EQ(run.after.Format, scene.cell.Format);
    EXPECT_EQ(run.after.Is_Ascii_Range, scene.cell.Is_Ascii_Range);
    const bool number = typedEntry(scene.definition, scene.cell, scene.text).kind == Entry_Kind::Number;
    const Limits before{scene.cell.Min_Value, scene.cell.Max_Value};
    const Limits after{run.after.Min_Value, run.after.Max_Value};
    EXPECT_EQ(after, number ? filledLimits(scene.definition, scene.cell) : before);
    EXPECT_EQ(filledLimits(scene.definition, run.after),
              number ? after : filledLimits(scene.definition, scene.cell))
        << "filling in once is enough";
}

TEST(Typed_Commit_Property_Test, OfflineEachWayOutKeepsItsPromise) {
    Random_Texts random(20240501);
    std::map<std::size_t, int> taken;
    for (int i = 0; i < 8000; ++i) {
        const Scene scene = randomScene(random);
        SCOPED_TRACE(describe(scene));
        const std::optional<Way_Out> way = decide(scene);
        const Commit_Run result = run(scene, false, true);
        if (way) {
            ASSERT_LT(way->index(), std::variant_size_v<Way_Out>);
            ++taken[way->index()];
            std::visit(Promise(scene, result), *way);
        } else {
            EXPECT_EQ(result.failure, 6) << "only what no number holds has no way out";
            EXPECT_EQ(result.outcome.Value, scene.cell.Value);
        }
        expectTheRestUntouched(scene, result);
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_EQ(taken.size(), std::variant_size_v<Way_Out>) << "every way out was taken";
}

TEST(Typed_Commit_Property_Test, OnlineTheGridComesBackAndTheControllerIsAskedAtMostOnce) {
    Random_Texts random(7);
    for (int i = 0; i < 8000; ++i) {
        const Scene scene = randomScene(random);
        const bool good = random.chance(70);
        SCOPED_TRACE(describe(scene) + (good ? ", good" : ", failed"));
        const Commit_Run result = run(scene, true, good);
        EXPECT_TRUE(result.outcome.tabStop);
        EXPECT_LE(result.outcome.writes.size(), 1U);
        const std::optional<Way_Out> way = decide(scene);
        const bool accepted = way && (std::holds_alternative<Time_Accepted>(*way) ||
                                      std::holds_alternative<Number_Accepted>(*way) ||
                                      std::holds_alternative<Ascii_Text>(*way));
        EXPECT_TRUE(accepted || result.outcome.writes.empty());
        const bool marks = way && (std::holds_alternative<Free_Text>(*way) ||
                                   (std::holds_alternative<Number_Accepted>(*way) && result.failure == 0));
        EXPECT_EQ(result.outcome.save, marks ? "on" : "as before");
        if (way && std::holds_alternative<Number_Accepted>(*way))
            EXPECT_TRUE(result.outcome.writes.empty() || isNumeric(scene.cell.Address));
        expectTheRestUntouched(scene, result);
        if (testing::Test::HasFailure()) return;
    }
}

} // namespace
} // namespace zorvane
