// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string_view>

namespace zorvane::ui {

/// What a style makes of the message box: which icons show, and what each button reads and returns.
struct Msgb_Look {
    struct Button {
        bool shown = false;
        std::string_view text;
        int code = 0;

        bool operator==(const Button&) const = default;
    };

    bool critical = false;
    bool question = false;
    bool exclamation = false;
    bool information = false;
    std::array<Button, 3> buttons; ///< BOT_1, BOT_2, BOT_3

    bool operator==(const Msgb_Look&) const = default;
};

/// Takes the default-button values and the icons off the style, then goes through the button masks, where a
/// later match overwrites an earlier one. The masks overlap: 0 gives Ok, 4 gives Yes and No, and each of 1,
/// 2, 3 and 5 gives Yes, No and Cancel.
[[nodiscard]] Msgb_Look msgbLook(int style);

} // namespace zorvane::ui
