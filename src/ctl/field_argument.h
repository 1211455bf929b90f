#pragma once

#include <CLI/CLI.hpp>

#include <cstdint>

namespace zorvane {

/// The number of a field as a call takes it: from 1, as in the model.
inline void addField(CLI::App& arguments, std::int32_t& field) {
    arguments.add_option("FIELD", field, "The field's number, from 1")
        ->required()
        ->check(CLI::PositiveNumber);
}

} // namespace zorvane
