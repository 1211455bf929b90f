// SPDX-License-Identifier: MIT
#pragma once

#include "commission/plan/plan.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace zorvane::commission {

/// A cell that is to be sent, or that would be but for a reason.
struct Candidate {
    Cell_Place place;
    std::string address;
    Register_Range registers;
    Part part = Part::Whole;
    Stage stage = Stage::Usual;
    bool sent = true;
    std::string why; ///< of one that isn't sent
};

/// The order in which a download walks the cells.
[[nodiscard]] bool walksBefore(const Cell_Place& a, const Cell_Place& b) noexcept;

/// What a comparison asks to be sent.
struct Candidates {
    compare::Comparison comparison;
    std::vector<Candidate> cells;  ///< in the order of the comparison's rows
    std::set<std::int32_t> unread; ///< registers of chosen cells that weren't read
};

/// Compares the document with the registers and picks the cells that a plan is for.
[[nodiscard]] Candidates chooseCandidates(const Plan_Sources& sources);

} // namespace zorvane::commission
