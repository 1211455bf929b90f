// SPDX-License-Identifier: MIT
#include "ui/forms/msgb_buttons.h"

#include "template/services/asker.h"

namespace zorvane::ui {

namespace {

using Button = Msgb_Look::Button;

constexpr std::array defaultButtonValues = {768, 512, 256};

/// What the buttons are when the rest of a style has a bit of the mask.
struct Mask_Row {
    int mask;
    std::array<Button, 3> buttons;
};

constexpr Button hidden{};

constexpr std::array<Mask_Row, 5> maskTable = {{
    {5, {hidden, {true, "Retry", Msgb_Code_Retry}, {true, "Cancel", Msgb_Code_Cancel}}},
    {2,
     {{{true, "Abort", Msgb_Code_Abort},
       {true, "Retry", Msgb_Code_Retry},
       {true, "Ignore", Msgb_Code_Ignore}}}},
    {1, {hidden, {true, "Ok", Msgb_Code_Ok}, {true, "Cancel", Msgb_Code_Cancel}}},
    {4, {{{true, "Yes", Msgb_Code_Yes}, {true, "No", Msgb_Code_No}, hidden}}},
    {3, {{{true, "Yes", Msgb_Code_Yes}, {true, "No", Msgb_Code_No}, {true, "Cancel", Msgb_Code_Cancel}}}},
}};

/// Takes `value` off the style if it is that large.
bool take(int& style, int value) {
    if (style < value) return false;
    style -= value;
    return true;
}

} // namespace

Msgb_Look msgbLook(int style) {
    for (const int value : defaultButtonValues)
        take(style, value);
    Msgb_Look look;
    look.information = take(style, Msgb_Information);
    look.exclamation = take(style, Msgb_Exclamation);
    look.question = take(style, Msgb_Question);
    look.critical = take(style, Msgb_Critical);
    look.buttons[1] = {true, "Ok", Msgb_Code_Ok};
    for (const Mask_Row& row : maskTable)
        if ((style & row.mask) != 0) look.buttons = row.buttons;
    return look;
}

} // namespace zorvane::ui
