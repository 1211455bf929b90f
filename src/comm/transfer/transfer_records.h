// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/main_form_state.h"

#include <cstdint>
#include <functional>
#include <string>

namespace zorvane {

/// Empties both lists of the last transfer.
void PRO_Limpia_Errores(Transfer_Records& records);

/// A try's number as a record keeps it; more than 255 tries are failure 6.
[[nodiscard]] std::uint8_t retryNumber(std::int32_t tries);

/// The record of a failed read of a block, from its first and last address.
[[nodiscard]] Info_Rec_Errors uploadRecord(std::int32_t first, std::int32_t last, const std::string& response,
                                           std::int32_t tries);

/// Takes each text line of a transfer as it arrives, to show it to a tester.
using Debug_Line = std::function<void(const std::string& line)>;

/// The link's report of an exchange. It counts during a transfer only: its lines that aren't empty go to
/// `debug` (which may be empty) and a record to the log.
void modbus_control_Event10(Main_Form_State& form, const Debug_Line& debug, const std::string& line1,
                            const std::string& line2);

} // namespace zorvane
