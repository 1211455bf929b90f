#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace zorvane {

/// Registers as ranges in rising order: "10-12" and "20-20" for 10, 11, 12 and 20.
[[nodiscard]] std::vector<std::string> rangeTexts(const std::set<std::int32_t>& registers);

/// The same for people in one text, a single register without its dash: "10-12, 20".
[[nodiscard]] std::string rangesText(const std::set<std::int32_t>& registers);

} // namespace zorvane
