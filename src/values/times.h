// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zorvane {

/// Times are whole seconds; as text they are minutes, a colon and seconds, without hours: 3725 s is `62:05`.

/// Seconds to text. A negative time keeps its sign in both parts: -90 is `-1:-30`.
void PRO_Tiempo_Texto(std::int32_t seconds, std::string& text);

/// Text to seconds; 0 for a text without a colon. The seconds part has no bound: `1:300` is 360.
void PRO_Texto_Tiempo(std::string_view text, std::int32_t& seconds);

/// True for a colon between two numbers; signs and decimal points pass.
void PRO_Valida_Tiempo(std::string_view text, bool& ok);

/// The three as plain functions.
[[nodiscard]] std::string timeText(std::int32_t seconds);
[[nodiscard]] std::int32_t timeSeconds(std::string_view text);
[[nodiscard]] bool isTime(std::string_view text);

/// Whole minutes and remaining seconds of a register that counts seconds, cut toward zero.
[[nodiscard]] constexpr std::int32_t wholeMinutes(std::int32_t seconds) noexcept { return seconds / 60; }
[[nodiscard]] constexpr std::int32_t restSeconds(std::int32_t seconds) noexcept { return seconds % 60; }

} // namespace zorvane
