#pragma once

namespace zorvane {

/// Templates, window layouts and reports measure in twips.
inline constexpr double twipsPerInch = 1440;
inline constexpr double twipsPerPoint = 20;

} // namespace zorvane
