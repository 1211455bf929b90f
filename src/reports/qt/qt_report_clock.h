// SPDX-License-Identifier: MIT
#pragma once

#include "reports/documents/footer_texts.h"

namespace zorvane {

/// The present moment by this computer's clock, its date in the short form of the user's locale.
[[nodiscard]] Report_Time presentTime();

} // namespace zorvane
