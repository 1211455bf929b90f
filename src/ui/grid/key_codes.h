// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

#include <cstdint>

namespace zorvane::ui {

/// What the handlers of the forms know keys by: the number of the key on the keyboard, whatever it types; a
/// letter or digit is its own upper-case character, Home is 36. 0 for a key without a number.
[[nodiscard]] std::int16_t keyCodeOf(int qtKey);

/// 1 for Shift, 2 for Ctrl, 4 for Alt, added up.
[[nodiscard]] std::int16_t shiftOf(Qt::KeyboardModifiers modifiers);

/// 1 for the left button, 2 for the right, 4 for the middle, added up.
[[nodiscard]] std::int16_t buttonsOf(Qt::MouseButtons buttons);

} // namespace zorvane::ui
