// SPDX-License-Identifier: MIT
#include "app/form/transfer_attention.h"

#include <utility>

namespace zorvane::app {

void Transfer_Attention::progressShown() {
    if (!std::exchange(running_, true)) hooks_.keepAwake(true);
}

void Transfer_Attention::formEnabled(bool enabled, const std::string& message) {
    if (!enabled || !std::exchange(running_, false)) return;
    hooks_.keepAwake(false);
    if (!hooks_.inFront())
        hooks_.tell(message.empty() ? "The transfer has ended." : "The transfer has ended: " + message);
}

} // namespace zorvane::app
