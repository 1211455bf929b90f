// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "ctl/document/held_form.h"
#include "ctl/text/json_text.h"

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <map>
#include <string>
#include <utility>

namespace zorvane::ctl {

/// What one refresh brought: the texts of the live cells of a field.
struct Live_Refresh {
    std::int32_t number = 0;                                            ///< from 1
    bool lost = false;                                                  ///< the controller doesn't answer
    std::map<std::pair<std::int32_t, std::int32_t>, std::string> texts; ///< by row and column, from 1
    /// Why a text is "???": the block and the answer. Not every such text has a reason.
    std::map<std::pair<std::int32_t, std::int32_t>, std::string> reasons;
    std::string time; ///< when it was shown, for people and in JSON; may be empty
};

/// {"refresh","lost","cells":[{"row","column","heading","text"}]}, with "time" after "refresh" and "reason"
/// after "text" where there is one.
[[nodiscard]] Json refreshJson(const Declara_Zorvane& document, std::int32_t field,
                               const Live_Refresh& refresh);

/// The live columns as a table, each row after the text of its first column, between the time and the
/// reasons.
void printRefresh(std::ostream& out, const Declara_Zorvane& document, std::int32_t field,
                  const Live_Refresh& refresh);

/// Why a field can't be watched, in words; empty when it can.
[[nodiscard]] std::string watchFault(const Declara_Zorvane& document, std::int32_t field);

/// How a watch goes.
struct Watch_Plan {
    std::int32_t field = 1;
    std::int32_t count = 0; ///< refreshes; 0 for no end
    std::function<void(const Live_Refresh& refresh)> show;
    std::function<bool()> portOpen;                      ///< whether the port could be opened at all
    std::function<std::string()> time{};                 ///< the time of a refresh; may be empty
    std::function<void(const std::string& why)> ended{}; ///< told why the watch is over; may be empty
};

/// Reads the live blocks once, then shows the field at each tick of the live refresh, until the count is
/// reached or the form's `Cancel_Requested` is set. A lost link is waited for. A text whose registers the
/// latest reading didn't bring is "???", with the reason. Gives false when the link was
/// lost at the end, or nothing was shown.
[[nodiscard]] bool runWatch(const Comm_Context& comm, Held_Form& mainForm, const Watch_Plan& plan);

} // namespace zorvane::ctl
