// SPDX-License-Identifier: MIT
#pragma once

#include "cells/format/cell_paths.h"
#include "template/model/cell_rec.h"
#include "values/registers.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zorvane {

/// The bit count of a column's `Bits_Negative_Format`; nothing when it is blank or no number.
[[nodiscard]] std::optional<std::int32_t> negativeBits(const Cell_Rec& definition);

/// The minutes or seconds of a register of seconds. REQUIRES: a format of one of the two.
[[nodiscard]] std::int32_t timePart(Cell_Format format, std::int32_t seconds) noexcept;

/// A register of seconds with its minutes or its seconds replaced. REQUIRES: as above.
[[nodiscard]] double withTimePart(Cell_Format format, double part, std::int32_t seconds) noexcept;

/// A register with one half replaced. The new half isn't masked, so one above 255 spills over; beyond 32
/// bits it is failure 6.
[[nodiscard]] std::int32_t withHalf(Register_Half half, double value, std::int32_t whole);

/// What goes into the register of a cell whose format has a rule of its own on this path; nothing for one
/// that goes out by its number alone. `seconds` is asked for the other part of a shared time.
[[nodiscard]] std::optional<double> encodedByFormat(const Writing_Path& path, const Cell_Rec& cell,
                                                    std::string_view text,
                                                    const std::function<std::int32_t()>& seconds);

/// The register of a plain number.
[[nodiscard]] std::int32_t plainWord(const Writing_Path& path, double number);

/// The register of a negative number in the column's format: sign and magnitude below 16 bits, two's
/// complement from 16 on. Nothing for other numbers, and where the path makes none.
[[nodiscard]] std::optional<std::int32_t> negativeWord(const Writing_Path& path, const Cell_Rec& definition,
                                                       double number);

/// As a download has it, of the cell's `Value`.
[[nodiscard]] std::optional<std::int32_t> negativeWord(const Cell_Rec& definition, const Cell_Rec& cell);

/// As a live write has it, of a typed number; 0 where there is none. A text that is no number is failure 13.
[[nodiscard]] std::int32_t rawNegative(std::string_view number, const Cell_Rec& definition);

} // namespace zorvane
