// SPDX-License-Identifier: MIT
#pragma once

#include "compare/controller_reading.h"
#include "ctl/document/document_arguments.h"
#include "ctl/line/controller_line.h"
#include "ctl/line/port_arguments.h"
#include "template/identity_section.h"

#include <memory>
#include <string>

namespace zorvane::ctl {

/// What the opened template says in [IDENTITY]; an empty section when its file can't be read any more.
[[nodiscard]] Identity_Section identitySectionOf(const Call_Context& context, const Opened_Document& opened);

/// Opens a document whose template is told to the line, which may be null. What is wrong with it is told
/// only where it can be worked with all the same: else `documentFault` says it. A time-out of the command
/// line wins over the template's.
[[nodiscard]] Opened_Document openFor(const Call_Context& context, const Document_Arguments& files,
                                      const Port_Arguments& port, Controller_Line* line);

/// What is told where nothing came back on a port that is there.
inline constexpr const char* nobodyAnswers =
    "Nobody answers. Check the cable, the port, its settings and the slave number.";

/// Why a reading of that port didn't come to its end, whole sentences.
[[nodiscard]] std::string readingFault(const std::string& port, compare::Reading_End end,
                                       const std::string& fault);

} // namespace zorvane::ctl
