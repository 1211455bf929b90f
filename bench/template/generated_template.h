// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace zorvane::bench {

/// How large a template is made.
struct Template_Size {
    std::int32_t fields = 100;
    std::int32_t rows = 1000; ///< of each field
    std::int32_t columns = 20;
};

/// A template with all the usual keys: in every row addresses, both limits, formats and default values, one
/// list of messages a row, and the columns' definitions. No line is longer than 199 bytes.
[[nodiscard]] std::string generatedTemplate(const Template_Size& size);

} // namespace zorvane::bench
