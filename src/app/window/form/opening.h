// SPDX-License-Identifier: MIT
#pragma once

#include "app/window/form/menu_context.h"

#include <functional>
#include <utility>

namespace zorvane::app {

/// Mouse positions over the upper grid aren't recorded while a document opens or closes.
class Mouse_Track_Held {
  public:
    explicit Mouse_Track_Held(Navigation_State& state)
        : state_(state), before_(std::exchange(state.Mouse_Track_Off, true)) {}
    ~Mouse_Track_Held() { state_.Mouse_Track_Off = before_; }
    Mouse_Track_Held(const Mouse_Track_Held&) = delete;
    Mouse_Track_Held& operator=(const Mouse_Track_Held&) = delete;

  private:
    Navigation_State& state_;
    bool before_;
};

/// Every way to another document goes through here: runs `open`, brings the form's timers up to date, and
/// tells `Window_Extras::documentOpened` when the document isn't the one it was.
void openAnother(const Menu_Context& menu, const std::function<void()>& open);

} // namespace zorvane::app
