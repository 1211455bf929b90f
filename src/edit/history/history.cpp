// SPDX-License-Identifier: MIT
#include "edit/history/history.h"

#include "grids/rules/cell_fill.h"
#include "grids/rules/value_findings.h"
#include "values/numbers.h"
#include "values/run_time_failure.h"

#include <algorithm>
#include <utility>

namespace zorvane::edit {

namespace {

/// Whether the cell still holds a value that was put there. The filling of a page may have brought it into
/// another writing.
bool holds(const Declara_Zorvane& document, const Cell_Place& place, const std::string& value) {
    if (!hasCell(document, place)) return false;
    const Cell_Rec& cell = document.Fields(place.field).Cells(place.row, place.column);
    if (cell.Value == value) return true;
    bool filled = false;
    ignoringFailure([&] {
        Cell_Rec asPut = cell;
        asPut.Value = value;
        const Cell_Fill fill = offlineFill(asPut);
        filled = fill.stored && *fill.stored == cell.Value;
    });
    return filled;
}

std::size_t sizeOf(const std::vector<Value_Change>& changes) {
    std::size_t bytes = 0;
    for (const Value_Change& change : changes)
        bytes += sizeof change + change.before.capacity() + change.after.capacity();
    return bytes;
}

/// One change for each cell, from its first value to its last; none that changes nothing.
void merge(std::vector<Value_Change>& changes) {
    std::stable_sort(changes.begin(), changes.end(),
                     [](const Value_Change& a, const Value_Change& b) { return a.place < b.place; });
    std::size_t kept = 0;
    for (std::size_t at = 0; at < changes.size(); ++at) {
        if (kept > 0 && changes[kept - 1].place == changes[at].place)
            changes[kept - 1].after = std::move(changes[at].after);
        else if (kept++ != at)
            changes[kept - 1] = std::move(changes[at]);
    }
    changes.resize(kept);
    std::erase_if(changes, [](const Value_Change& change) { return change.before == change.after; });
}

} // namespace

std::string stepName(const std::string& what, std::size_t values) {
    return what + " of " + numberText(static_cast<std::int32_t>(values)) +
           (values == 1 ? " value" : " values");
}

void History::changed(const std::string& name, std::vector<Value_Change> changes) {
    merge(changes);
    if (changes.empty()) return;
    forget(undone_);
    const std::size_t bytes = sizeof(Step) + name.capacity() + sizeOf(changes);
    done_.push_back({++newest_, name, std::move(changes), bytes});
    bytes_ += bytes;
    trim();
}

void History::changedForGood() { noteUnwritten(); }

std::optional<std::string> History::undoName() const {
    return done_.empty() ? std::nullopt : std::optional(done_.back().name);
}

std::optional<std::string> History::redoName() const {
    return undone_.empty() ? std::nullopt : std::optional(undone_.back().name);
}

std::optional<Step_Result> History::undo(Declara_Zorvane& document) { return move(document, Way::Back); }

std::optional<Step_Result> History::redo(Declara_Zorvane& document) { return move(document, Way::Forth); }

std::optional<Step_Result> History::move(Declara_Zorvane& document, Way way) {
    std::deque<Step>& from = way == Way::Back ? done_ : undone_;
    if (from.empty()) return std::nullopt;
    Step step = std::move(from.back());
    from.pop_back();
    bytes_ -= step.bytes;
    Step_Result result{step.name, {}, {}, false};
    std::erase_if(step.changes, [&](const Value_Change& change) {
        if (holds(document, change.place, way == Way::Back ? change.after : change.before)) return false;
        result.leftOut.push_back(change.place);
        return true;
    });
    for (const Value_Change& change : step.changes) {
        Cell_Rec& cell = document.Fields(change.place.field).Cells(change.place.row, change.place.column);
        cell.Value = way == Way::Back ? change.before : change.after;
        result.changed.push_back(change.place);
    }
    if (!result.leftOut.empty()) written_.reset();
    if (!step.changes.empty()) {
        step.bytes = sizeof(Step) + step.name.capacity() + sizeOf(step.changes);
        bytes_ += step.bytes;
        (way == Way::Back ? undone_ : done_).push_back(std::move(step));
    }
    result.asWritten = written_ == state();
    return result;
}

bool History::dropFrom(std::deque<Step>& steps, const Declara_Zorvane& document, Way way) {
    bool dropped = false;
    while (!steps.empty()) {
        const std::vector<Value_Change>& changes = steps.back().changes;
        const bool alive = std::any_of(changes.begin(), changes.end(), [&](const Value_Change& change) {
            return holds(document, change.place, way == Way::Back ? change.after : change.before);
        });
        if (alive) break;
        bytes_ -= steps.back().bytes;
        steps.pop_back();
        dropped = true;
    }
    return dropped;
}

void History::dropStale(const Declara_Zorvane& document) {
    if (dropFrom(done_, document, Way::Back)) written_.reset();
    (void)dropFrom(undone_, document, Way::Forth);
}

void History::noteWritten() { written_ = state(); }

void History::noteUnwritten() { written_.reset(); }

void History::forget(std::deque<Step>& steps) {
    for (const Step& step : steps)
        bytes_ -= step.bytes;
    steps.clear();
}

void History::clear() {
    forget(done_);
    forget(undone_);
    ground_ = ++newest_;
    written_.reset();
}

void History::trim() {
    while (!done_.empty() && (done_.size() > limits_.steps || bytes_ > limits_.bytes)) {
        ground_ = done_.front().state;
        bytes_ -= done_.front().bytes;
        done_.pop_front();
    }
}

} // namespace zorvane::edit
