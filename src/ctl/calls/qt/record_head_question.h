// SPDX-License-Identifier: MIT
#pragma once

#include "commission/record/record.h"
#include "ctl/document/subcommand.h"

#include <optional>
#include <string>

namespace zorvane::ctl {

/// What is wrong with a text of a head that can't be taken.
inline constexpr const char* noRecordHolds =
    "A character of the text is none that a record holds (Windows-1252).";

/// What the command line says of a record's head; nothing for what it doesn't say. UTF-8.
struct Head_Arguments {
    std::optional<std::string> site;
    std::optional<std::string> panel;
    std::optional<std::string> order;
    std::optional<std::string> testedBy;
    std::optional<std::string> witnessedBy;

    [[nodiscard]] bool any() const { return site || panel || order || testedBy || witnessedBy; }
    /// The option whose text has a character that no record holds, such as "--site"; nullptr when all can be
    /// taken.
    [[nodiscard]] const char* unheld() const;
    /// The same head with what is said here in its place.
    [[nodiscard]] commission::Record_Head over(commission::Record_Head head) const;
};

/// Asks for each part of a head that has none, one line each. REQUIRES: the standard input is a terminal.
void askForHead(const Call_Context& context, commission::Record_Head& head);

} // namespace zorvane::ctl
