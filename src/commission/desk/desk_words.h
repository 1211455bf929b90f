// SPDX-License-Identifier: MIT
#pragma once

#include "commission/desk/send_desk.h"

#include <string>
#include <string_view>
#include <vector>

namespace zorvane::commission {

// What a desk says. All texts are UTF-8.

/// "The controller is a KVRT207D. Its serial number is A-17."
[[nodiscard]] std::string identityText(const compare::Identity& identity);
/// One line for each thing that speaks for or against it.
[[nodiscard]] std::vector<std::string> evidenceTexts(const compare::Identity& identity);

/// "The controller doesn't answer: no answer. It is waited for, for 10 seconds at most."
[[nodiscard]] std::string waitText(const std::string& why);

/// What is going on, or what somebody is asked.
[[nodiscard]] std::string headline(const Desk_State& state);
/// What somebody should know before the rows go out, or what else can be done; may be empty.
[[nodiscard]] std::string notice(const Desk_State& state);
/// "12 values differ: 10 with a tick, 1 without, 1 can't be sent. 7 writes." Its numbers add up.
[[nodiscard]] std::string sumLine(const Desk_State& state);

/// "8 of 10 values verified, 1 refused, 1 not sent."
[[nodiscard]] std::string countsText(const Value_Counts& counts);
/// "stored otherwise"
[[nodiscard]] std::string stateName(Value_State state);
/// A sign of its own for each state.
[[nodiscard]] std::string_view stateMark(Value_State state) noexcept;

/// The caption of the button that sends the rows: "Send", "Resume" or "Restore".
[[nodiscard]] std::string_view actCaption(Desk_Task task) noexcept;
/// Whether there is something to send.
[[nodiscard]] bool canAct(const Desk_State& state);

} // namespace zorvane::commission
