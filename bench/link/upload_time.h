// SPDX-License-Identifier: MIT
#pragma once

#include "bench/link/exchange_cells.h"

namespace zorvane::bench {

/// Measures whole uploads of every model at 9600 baud, by the upload machine of the window, and prints their
/// medians beside the sum of the limits of their exchanges.
void measureUploads(const Bench_Setup& setup);

} // namespace zorvane::bench
