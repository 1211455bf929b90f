// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_settings.h"
#include "ctl/document/document_arguments.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::ctl {

/// A template as those need it who look at a line for its controllers.
struct Known_Template {
    Opened_Document opened;
    std::string text;                  ///< of the whole file
    std::int32_t addressBase = 0;      ///< taken off a register's number to give its address on the wire
    std::optional<Line_Settings> line; ///< as the controller leaves the works
    std::optional<std::uint8_t> unit;  ///< the same

    /// A register that stands still rather than one that is polled; none where the template has no blocks.
    [[nodiscard]] std::optional<std::uint16_t> addressToRead() const;
};

/// Reads a template by the name on the command line. What goes wrong is told to people; nothing when it can't
/// be read to its end.
[[nodiscard]] std::optional<Known_Template> readKnownTemplate(const Call_Context& context,
                                                              const std::string& name);

/// Reads all of them, or nothing when one can't be read.
[[nodiscard]] std::optional<std::vector<Known_Template>>
readKnownTemplates(const Call_Context& context, const std::vector<std::string>& names);

} // namespace zorvane::ctl
