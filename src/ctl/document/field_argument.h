// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>

#include <cstdint>
#include <limits>

namespace zorvane::ctl {

/// What counts from 1.
inline CLI::Range countedFromOne() { return {1, std::numeric_limits<std::int32_t>::max(), "POSITIVE"}; }

/// The number of a field as a call takes it: from 1, as in the model.
inline void addField(CLI::App& arguments, std::int32_t& field) {
    arguments.add_option("FIELD", field, "The field's number, from 1")->required()->check(countedFromOne());
}

} // namespace zorvane::ctl
