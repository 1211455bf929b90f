// SPDX-License-Identifier: MIT
#pragma once

#include "app/compare/difference_marks.h"
#include "app/form/app_context.h"
#include "commission/runs.h"
#include "compare/comparison.h"
#include "compare/controller_reading.h"
#include "compare/report/comparison_report.h"
#include "compare/taking/taking.h"

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::app {

/// What a side of a comparison may be.
enum class Side_Kind { Document, Controller, Factory, File, Registers, Run };

/// A side as it was chosen.
struct Side_Choice {
    Side_Kind kind = Side_Kind::Document;
    std::string path{}; ///< of a file, of a register file; of a run its name. "" as long as none was chosen

    bool operator==(const Side_Choice&) const = default;
};

enum class Place_Of_Side { Left, Right };

/// What somebody learnt of the controller.
struct Controller_Look {
    compare::Looked_At seen;
    std::string name; ///< "controller on ttyUSB0, unit 1"
    std::string time; ///< when it was read: "14:03:22"
};

/// What a comparison came to.
struct Desk_Comparison {
    std::optional<compare::Comparison> comparison{}; ///< nothing as long as there is none
    std::optional<compare::Comparison> left{};       ///< of three sides: of the left one with the document
    std::string why{}; ///< what is missing for it, or why it failed, whole sentences
};

/// What compares the open document with whatever is chosen, without a window: the sides, the reading of the
/// controller, what may be taken over. It sends nothing.
class Comparison_Desk {
  public:
    /// Both must outlive it; the document mustn't change while a comparison of it is in use.
    Comparison_Desk(const App_Context& app, const commission::Run_Store& runs);

    /// The runs whose document before can be compared with, the newest first: those of the open document's
    /// model.
    [[nodiscard]] const std::vector<commission::Run_Entry>& runs() const { return runs_; }

    void choose(Place_Of_Side place, Side_Choice choice);
    [[nodiscard]] const Side_Choice& choice(Place_Of_Side place) const { return choices_[index(place)]; }
    /// Three sides, with the document in the middle: left and right are something else then. What stands on
    /// the document's side gives way to the factory values or the controller; without the third side the
    /// document is the left one.
    void setMiddle(bool on);
    [[nodiscard]] bool middle() const { return middle_; }
    /// A side as people call it: "site7.kvrt207d", "factory values".
    [[nodiscard]] std::string nameOf(Place_Of_Side place) const;

    [[nodiscard]] bool wantsController() const { return chosen(Side_Kind::Controller); }
    /// Whom a reading of the controller asks.
    [[nodiscard]] compare::Identity_Question question(Unit_Reader& reader, std::int32_t unit) const;
    void takeLook(Controller_Look look) { look_ = std::move(look); }
    /// The controller's identity, once it was read and is one of the sides.
    [[nodiscard]] std::string identityText() const;

    [[nodiscard]] Desk_Comparison compare() const;

    /// The side that the document takes values from: the other one, of three sides the right one. Nothing
    /// where none or both of them are the document.
    [[nodiscard]] std::optional<compare::Taken_Side> takenSide() const;
    /// Why nothing can be taken over now, a sentence; empty when it can.
    [[nodiscard]] std::string whyNotTake() const;
    /// Why ticked values can't be sent from here, a sentence; empty when they can.
    [[nodiscard]] std::string whyNotSend() const;

    /// The side that the document is compared with, for the marks in the grid. Nothing where there is none.
    [[nodiscard]] std::optional<Compared_With> comparedWith() const;

    [[nodiscard]] compare::Comparison_Head head(const std::string& filter) const;

  private:
    /// A side with what it stands on.
    struct Made_Side {
        std::unique_ptr<Declara_Zorvane> document;
        compare::Controller_Registers registers;
        std::unique_ptr<compare::Side> side;
        std::string why;
    };

    static constexpr std::size_t index(Place_Of_Side place) { return place == Place_Of_Side::Left ? 0 : 1; }
    [[nodiscard]] bool chosen(Side_Kind kind) const;
    [[nodiscard]] Made_Side make(const Side_Choice& choice) const;
    [[nodiscard]] Made_Side makeController() const;
    [[nodiscard]] Made_Side makeFile(const std::string& path) const;
    [[nodiscard]] Made_Side makeRegisters(const std::string& path) const;
    [[nodiscard]] const commission::Run_Entry* run(const std::string& name) const;
    [[nodiscard]] std::string documentOfRun(const commission::Run_Entry& run) const;

    const App_Context& app_;
    const commission::Run_Store& store_;
    Identity_Section section_;
    std::vector<commission::Run_Entry> runs_;
    std::array<Side_Choice, 2> choices_{Side_Choice{Side_Kind::Document}, Side_Choice{Side_Kind::Controller}};
    bool middle_ = false;
    std::optional<Controller_Look> look_;
};

/// Puts judged values into the document as one step of its history, "take of 3 values": the cells show them,
/// the title says that there are changes, and Save is offered. Nothing where no value changes anything.
void takeIntoDocument(const App_Context& app, const compare::Taking& taking);

} // namespace zorvane::app
