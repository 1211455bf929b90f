// SPDX-License-Identifier: MIT
#include "comm/main_form/testing/recording_form.h"
#include "comm/modbus_control/testing/scripted_link.h"
#include "edit/block_paste.h"
#include "edit/history/history.h"
#include "edit/testing/relay.h"
#include "grids/flx_settings.h"
#include "grids/terminal_grids.h"
#include "template/model/each_cell.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <variant>

namespace zorvane::edit {
namespace {

constexpr int sequences = 10'000;
constexpr int longest = 30;

/// What a user does; a step, unless it changes nothing.
struct Typed {
    Cell_Place place;
    std::string text; ///< of a list the entry's number
};
struct Pasted {
    Cell_Range selection;
    std::string clipboard;
};
struct Page {
    std::int32_t field;
};
using Deed = std::variant<Typed, Pasted, Page>;

/// The window's grids and rules over the relay's template, without a window.
struct Desk : doubles::Relay {
    explicit Desk(Value_Watcher* watcher) : grids(memory.context()) {
        grids.watcher = watcher;
        forEachCell(document, [&](const Cell_Place& place, const Cell_Rec&, const Cell_Rec& each) {
            start.push_back({place, each});
        });
        memory.select(1);
    }

    /// As the template left it.
    void reset() {
        for (const auto& [place, cell] : start)
            document.Fields(place.field).Cells(place.row, place.column) = cell;
        document.Passing.settle();
        memory.select(1);
    }

    void operator()(const Typed& typed) {
        memory.select(typed.place.field);
        Memory_Grid& grid = memory.settings();
        grid.setRow(typed.place.row);
        grid.setCol(typed.place.column - 1);
        grid.chooseEntry(typed.text);
        grid.setText(typed.text);
        ignoringFailure([&] { FLX_Settings_AfterEdit(grids, typed.place.row, typed.place.column - 1); });
    }
    void operator()(const Pasted& pasted) {
        memory.select(pasted.selection.field);
        const Block_Check check = checkBlock(document, pasted.selection, textRows(pasted.clipboard));
        std::vector<Value_Change> changes = applyNoting(document, check.taken);
        if (grids.watcher != nullptr) grids.watcher->changed(nameOf(check), std::move(changes));
    }
    void operator()(const Page& page) { memory.select(page.field); }

    [[nodiscard]] std::string bytes() const {
        std::string all;
        forEachCell(document, [&](const Cell_Place&, const Cell_Rec&, const Cell_Rec& cell) {
            all += cell.Value + '\n';
        });
        return all;
    }

    struct Start {
        Cell_Place place;
        Cell_Rec cell;
    };
    doubles::Journal journal;
    Main_Form_State form;
    doubles::Scripted_Link controller{journal};
    doubles::Recording_Form mainForm{journal};
    Terminal_Grids memory{Comm_Context{document, form, controller, mainForm}};
    Grid_Context grids;
    std::vector<Start> start;
};

class Random_User {
  public:
    explicit Random_User(std::uint32_t seed) : random_(seed) {}

    int upTo(int highest) { return std::uniform_int_distribution<int>(0, highest)(random_); }

    Deed deed() {
        switch (upTo(5)) {
        case 0:
            return Page{1 + upTo(1)};
        case 1:
            return Pasted{selection(), text() + (upTo(1) ? "\t" : "\n") + text()};
        case 2:
            return Pasted{selection(), text()};
        default:
            return Typed{cell(), text()};
        }
    }

  private:
    Cell_Place cell() {
        const int field = 1 + upTo(1);
        return field == 1 ? Cell_Place{1, 1 + upTo(4), 2 + upTo(1)} : Cell_Place{2, 1 + upTo(1), 1 + upTo(1)};
    }
    Cell_Range selection() {
        const Cell_Place first = cell();
        return {first.field, first.row, first.column, first.row + upTo(1), first.column};
    }
    std::string text() {
        static const std::vector<std::string> texts = {"1200", "800", "9999", "-5",  "1:30", "0:45", "0:01",
                                                       "On",   "Off", "2",    "1",   "0",    "T-3",  "long",
                                                       "",     "a,b", "07",   "0,5", "x"};
        return texts[static_cast<std::size_t>(upTo(static_cast<int>(texts.size()) - 1))];
    }

    std::mt19937 random_;
};

/// What was done and not undone, as somebody without a history would note it. A page that was shown stays
/// shown, whatever is undone.
struct Notes {
    struct Line {
        int number; ///< of a step; 0 for a page
        Deed deed;
    };
    std::vector<Line> lines;
    std::vector<Line> undone;

    [[nodiscard]] std::vector<int> steps() const {
        std::vector<int> numbers;
        for (const Line& line : lines)
            if (line.number > 0) numbers.push_back(line.number);
        return numbers;
    }
    void undo() {
        const auto last =
            std::find_if(lines.rbegin(), lines.rend(), [](const Line& line) { return line.number > 0; });
        ASSERT_NE(last, lines.rend());
        undone.push_back(*last);
        lines.erase(std::next(last).base());
    }
    void redo() {
        ASSERT_FALSE(undone.empty());
        lines.push_back(undone.back());
        undone.pop_back();
    }
};

struct Any_Sequence : testing::Test {
    Any_Sequence() : desk(&history), replay(nullptr) {}

    void doOne(Random_User& user) {
        const Deed deed = user.deed();
        const std::string before = desk.bytes();
        std::visit(desk, deed);
        const bool page = std::holds_alternative<Page>(deed);
        const bool step = !page && desk.bytes() != before;
        if (step) notes.undone.clear();
        if (step || page) notes.lines.push_back({step ? ++steps : 0, deed});
        if (step && !history.undoName()) FAIL() << "a change without a step";
    }
    void move(bool back) {
        const std::string before = desk.bytes();
        const auto result = back ? history.undo(desk.document) : history.redo(desk.document);
        const bool any = back ? !notes.steps().empty() : !notes.undone.empty();
        ASSERT_EQ(result.has_value(), any);
        if (!result) return;
        ++moves;
        EXPECT_TRUE(result->leftOut.empty());
        EXPECT_NE(desk.bytes(), before);
        back ? notes.undo() : notes.redo();
        EXPECT_EQ(result->asWritten, notes.steps() == written);
    }
    void run(std::uint32_t seed) {
        Random_User user(seed);
        desk.reset();
        history.clear();
        history.noteWritten();
        notes = {};
        written = {};
        const int length = 1 + user.upTo(longest - 1);
        for (int i = 0; i < length && !HasFatalFailure(); ++i) {
            const int choice = user.upTo(9);
            if (choice < 6) {
                doOne(user);
            } else if (choice < 9) {
                move(choice < 8);
            } else {
                history.noteWritten();
                written = notes.steps();
            }
        }
        replay.reset();
        for (const Notes::Line& line : notes.lines)
            std::visit(replay, line.deed);
        EXPECT_EQ(desk.bytes(), replay.bytes());
    }

    History history;
    Desk desk;
    Desk replay;
    Notes notes;
    std::vector<int> written;
    int steps = 0;
    int moves = 0;
};

TEST_F(Any_Sequence, LeavesTheBytesOfAReplay) {
    for (int seed = 0; seed < sequences; ++seed) {
        run(static_cast<std::uint32_t>(seed));
        ASSERT_FALSE(HasFailure()) << "seed " << seed;
    }
    EXPECT_GT(steps, 3 * sequences) << "the sequences are about something";
    EXPECT_GT(moves, sequences);
}

} // namespace
} // namespace zorvane::edit
