// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/value_watcher.h"
#include "template/model/declara_zorvane.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::edit {

/// How much a history keeps; the oldest steps go first.
struct History_Limits {
    std::size_t steps = 1000;
    std::size_t bytes = std::size_t{64} * 1024 * 1024;
};

/// What undoing or redoing a step did.
struct Step_Result {
    std::string name;                ///< of the step
    std::vector<Cell_Place> changed; ///< cells that have another value now
    std::vector<Cell_Place> leftOut; ///< cells that held something else than the step left, and keep it
    bool asWritten = false;          ///< the document is as it was when it was last written or opened
};

/// The steps by which the user changed a document, to be taken back and done again. A step whose cell holds
/// something else than the step left has lost that cell; one without a cell is dropped.
class History final : public Value_Watcher {
  public:
    History() = default;
    explicit History(const History_Limits& limits) : limits_(limits) {}

    /// A step: what was undone before can't be done again any more. Changes that change nothing don't count,
    /// and without any other there is no step.
    void changed(const std::string& name, std::vector<Value_Change> changes) override;
    void changedForGood() override;

    /// The name of the step that is next to be undone; nothing when there is none.
    [[nodiscard]] std::optional<std::string> undoName() const;
    [[nodiscard]] std::optional<std::string> redoName() const;
    /// Takes the last step back; nothing when there is none. Limits that were filled in stay.
    std::optional<Step_Result> undo(Declara_Zorvane& document);
    std::optional<Step_Result> redo(Declara_Zorvane& document);
    /// Drops the next steps either way of which no cell holds what they left.
    void dropStale(const Declara_Zorvane& document);

    /// The document was written without failure, or opened: it is as its file says.
    void noteWritten();
    /// No file has what the document holds.
    void noteUnwritten();
    /// The document is gone.
    void clear();

    [[nodiscard]] std::size_t steps() const noexcept { return done_.size() + undone_.size(); }
    [[nodiscard]] std::size_t bytes() const noexcept { return bytes_; }

  private:
    struct Step {
        std::uint64_t state = 0; ///< of the document after it
        std::string name;
        std::vector<Value_Change> changes;
        std::size_t bytes = 0;
    };
    enum class Way { Back, Forth };

    [[nodiscard]] std::uint64_t state() const { return done_.empty() ? ground_ : done_.back().state; }
    std::optional<Step_Result> move(Declara_Zorvane& document, Way way);
    bool dropFrom(std::deque<Step>& steps, const Declara_Zorvane& document, Way way);
    void forget(std::deque<Step>& steps);
    void trim();

    History_Limits limits_;
    std::deque<Step> done_;    ///< the last one is the next to be undone
    std::deque<Step> undone_;  ///< the last one is the next to be done again
    std::uint64_t ground_ = 0; ///< the state before the first step
    std::uint64_t newest_ = 0; ///< no state has a higher number
    std::optional<std::uint64_t> written_ = 0;
    std::size_t bytes_ = 0;
};

/// "upload of 312 values", "paste of 1 value": a step's name from what was done.
[[nodiscard]] std::string stepName(const std::string& what, std::size_t values);

} // namespace zorvane::edit
