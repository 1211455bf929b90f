// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_settings.h"
#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <optional>
#include <string>

namespace zorvane::survey {

/// A template as those need it who look at a line for its controllers.
struct Known_Template {
    Declara_Zorvane* document = nullptr; ///< somebody else's; never null
    std::string text;                    ///< of the whole file
    std::int32_t addressBase = 0;        ///< taken off a register's number to give its address on the wire
    std::optional<Line_Settings> line{}; ///< as the controller leaves the works
    std::optional<std::uint8_t> unit{};  ///< the same

    /// A register that stands still rather than one that is polled; none where the template has no blocks.
    [[nodiscard]] std::optional<std::uint16_t> addressToRead() const;
};

/// The template of the document, whose file has that text. The document must outlive it.
[[nodiscard]] Known_Template knownTemplate(Declara_Zorvane& document, std::string text,
                                           std::int32_t addressBase);

} // namespace zorvane::survey
