// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/frame/rtu_frame.h"
#include "commission/plan/chosen_cells.h"
#include "compare/comparison.h"
#include "compare/controller_registers.h"
#include "template/identity_section.h"
#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::commission {

/// What of a register its cells set. The rest is the controller's own.
enum class Part {
    Kept, ///< nothing: it goes along in a block
    Whole,
    High,
    Low,
    Minutes,
    Seconds
};

/// A register with the part of `wanted` and the rest of `present`.
[[nodiscard]] std::uint16_t composed(Part part, std::uint16_t wanted, std::uint16_t present) noexcept;
/// Whether the part of two registers is the same.
[[nodiscard]] bool samePart(Part part, std::uint16_t a, std::uint16_t b) noexcept;

/// When a write goes out.
enum class Stage {
    Usual,
    Last, ///< it stops a process, or its watchdog
    Link, ///< it changes the line itself
};

/// One write of a plan.
struct Plan_Write {
    Function_Code function = Function_Code::PresetSingleRegister;
    std::int32_t address = 0;          ///< its first register, as the template numbers it
    std::vector<std::uint16_t> values; ///< of each register, composed from the plan's reading
    std::vector<Part> parts;           ///< the same registers
    std::vector<Cell_Place> cells;     ///< whose values it brings
    Stage stage = Stage::Usual;

    [[nodiscard]] std::int32_t last() const { return address + static_cast<std::int32_t>(values.size()) - 1; }
    /// Whether something of it is the controller's own, so that it is composed from a reading just before.
    [[nodiscard]] bool composedFromReading() const;

    bool operator==(const Plan_Write&) const = default;
};

/// A cell that a plan is for.
struct Planned_Cell {
    Cell_Place place;
    std::string address; ///< as the template writes it
    Register_Range registers;
    Part part = Part::Whole;          ///< of each of them
    std::optional<std::size_t> write; ///< the number of its write; nothing: it isn't sent
    std::string why;                  ///< why it isn't
};

/// What stops a plan before anything is sent: the cell on which a download would fail.
struct Plan_Failure {
    Cell_Place place;
    int number = 0; ///< of the run-time failure
    std::string description;
};

/// Which values would be written in which order, and what the registers held before.
struct Plan {
    compare::Comparison comparison; ///< of the document, left, with the controller
    std::vector<Plan_Write> writes;
    std::vector<Planned_Cell> cells;
    std::map<std::int32_t, std::uint16_t> before; ///< of every register that the writes touch
    /// The same of the kept plan that this one is sent for; empty where there is none.
    std::map<std::int32_t, std::uint16_t> planned;
    /// Registers that weren't read and that a write needs: nothing may be sent.
    std::vector<Register_Range> unread;
    std::optional<Plan_Failure> failure;
};

/// What a plan is made from.
struct Plan_Sources {
    const Declara_Zorvane& document;
    const Identity_Section& section;
    const compare::Controller_Registers& registers;
    const Chosen_Cells& chosen;
    /// Why values aren't sent unless they are named: they are outside their limits, or in no list.
    std::map<Cell_Place, std::string> stray{};
    const compare::Controller_Registers* earlier = nullptr; ///< an older reading of the same registers
};

/// The writes of the chosen cells that differ. Which register takes which value comes from the requests of a
/// download over a dry run; cells of one block go out in one write, and halves of one register too.
[[nodiscard]] Plan makePlan(const Plan_Sources& sources);

/// What a write sends over these present values of its registers. Nothing when one that it composes is
/// missing.
[[nodiscard]] std::optional<std::vector<std::uint16_t>>
composedWrite(const Plan_Write& write, const compare::Controller_Registers& present);

} // namespace zorvane::commission
