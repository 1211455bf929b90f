// SPDX-License-Identifier: MIT
#pragma once

#include "commission/plan/plan.h"
#include "commission/send_report.h"
#include "commission/taking_back.h"

#include <optional>
#include <string>
#include <vector>

namespace zorvane::commission {

/// A value as people see it before and after a send. Texts are in the code page.
struct Desk_Row {
    Cell_Place place;
    std::string page;
    std::string name;
    std::string heading;
    std::string address;
    std::string present;   ///< what the controller had, as the grids show it
    std::string wanted;    ///< what it is to have
    bool tickable = false; ///< it can be sent
    bool ticked = false;
    std::string note;                 ///< why it isn't sent, what it may do, or what the controller said
    std::optional<Value_State> state; ///< once it has one
    std::string readBack;             ///< what the controller had after it
};

/// What rows are made from.
struct Row_Sources {
    const Declara_Zorvane& document;
    const Identity_Section& section;
};

/// The rows of a send: all that differ. `usual` is the plan for the cells that are to be ticked, `named` the
/// one for all by name: what it doesn't send either can't be.
[[nodiscard]] std::vector<Desk_Row> sendRows(const Row_Sources& sources, const Plan& usual,
                                             const Plan& named);

/// The rows of writes that go on with a run or take it back.
[[nodiscard]] std::vector<Desk_Row> furtherRows(const Row_Sources& sources, const Further_Writes& further,
                                                const compare::Controller_Registers& now);

/// The rows of a send that ended. `shown` are those that stood there before it: what wasn't sent keeps its
/// texts.
[[nodiscard]] std::vector<Desk_Row> endRows(const Row_Sources& sources, const Send_Report& report,
                                            const std::vector<Desk_Row>& shown);

/// How many of the rows can't be sent, can be and have no tick, and have one.
struct Row_Counts {
    std::size_t ticked = 0;
    std::size_t unticked = 0;
    std::size_t impossible = 0;

    [[nodiscard]] std::size_t rows() const { return ticked + unticked + impossible; }
};
[[nodiscard]] Row_Counts countsOf(const std::vector<Desk_Row>& rows);

} // namespace zorvane::commission
