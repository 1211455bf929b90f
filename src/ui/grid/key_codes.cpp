// SPDX-License-Identifier: MIT
#include "ui/grid/key_codes.h"

#include <algorithm>
#include <array>

namespace zorvane::ui {

namespace {

struct Key_Number {
    int qtKey;
    std::int16_t code;
};

constexpr std::array<Key_Number, 22> keyNumbers = {
    {{Qt::Key_Backspace, 8}, {Qt::Key_Tab, 9},       {Qt::Key_Backtab, 9},  {Qt::Key_Return, 13},
     {Qt::Key_Enter, 13},    {Qt::Key_Shift, 16},    {Qt::Key_Control, 17}, {Qt::Key_Alt, 18},
     {Qt::Key_Pause, 19},    {Qt::Key_CapsLock, 20}, {Qt::Key_Escape, 27},  {Qt::Key_Space, 32},
     {Qt::Key_PageUp, 33},   {Qt::Key_PageDown, 34}, {Qt::Key_End, 35},     {Qt::Key_Home, 36},
     {Qt::Key_Left, 37},     {Qt::Key_Up, 38},       {Qt::Key_Right, 39},   {Qt::Key_Down, 40},
     {Qt::Key_Insert, 45},   {Qt::Key_Delete, 46}}};

constexpr std::int16_t f1Code = 112;

} // namespace

std::int16_t keyCodeOf(int qtKey) {
    if ((qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) || (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z))
        return static_cast<std::int16_t>(qtKey);
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F16)
        return static_cast<std::int16_t>(f1Code + qtKey - Qt::Key_F1);
    const auto found = std::find_if(keyNumbers.begin(), keyNumbers.end(),
                                    [&](const Key_Number& entry) { return entry.qtKey == qtKey; });
    return found == keyNumbers.end() ? std::int16_t{0} : found->code;
}

std::int16_t shiftOf(Qt::KeyboardModifiers modifiers) {
    int sum = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) sum += 1;
    if (modifiers.testFlag(Qt::ControlModifier)) sum += 2;
    if (modifiers.testFlag(Qt::AltModifier)) sum += 4;
    return static_cast<std::int16_t>(sum);
}

std::int16_t buttonsOf(Qt::MouseButtons buttons) {
    int sum = 0;
    if (buttons.testFlag(Qt::LeftButton)) sum += 1;
    if (buttons.testFlag(Qt::RightButton)) sum += 2;
    if (buttons.testFlag(Qt::MiddleButton)) sum += 4;
    return static_cast<std::int16_t>(sum);
}

} // namespace zorvane::ui
