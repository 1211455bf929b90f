// SPDX-License-Identifier: MIT
#pragma once

#include "template/model/declara_zorvane.h"
#include "values/run_time_failure.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <string>
#include <utility>

namespace zorvane::models {

using Json = nlohmann::json;

/// Texts are bytes of Windows-1252; in a case and its outcome each byte is the character of that number.
[[nodiscard]] std::string bytesOf(const Json& text);
[[nodiscard]] Json charactersOf(const std::string& bytes);

/// Gives a field its columns and cells.
void fillField(Field_Rec& field, const Json& table);
/// The `Value` of each cell, row by row.
[[nodiscard]] Json valuesOf(const Field_Rec& field);

/// The number of the run-time failure that ends a call; 0 for none.
template <class Call> std::int32_t failureOf(Call&& call) {
    try {
        std::forward<Call>(call)();
    } catch (const Run_Time_Failure& failure) {
        return failure.number();
    }
    return 0;
}

/// Each does one case with the system's own code and tells what came of it.
[[nodiscard]] Json filledTable(const Json& asked);
[[nodiscard]] Json committedEdit(const Json& asked);
[[nodiscard]] Json transfersDone(const Json& asked);
[[nodiscard]] Json stepsDone(const Json& asked);

} // namespace zorvane::models
