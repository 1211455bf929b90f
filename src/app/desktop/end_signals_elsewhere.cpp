// SPDX-License-Identifier: MIT
#include "app/desktop/end_signals.h"

namespace zorvane::app {

class End_Signals::Listener {};

End_Signals::End_Signals(std::function<void()> /*asked*/) {}

End_Signals::~End_Signals() = default;

} // namespace zorvane::app
