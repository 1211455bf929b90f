// SPDX-License-Identifier: MIT
#pragma once

#include "values/run_time_failure.h"

#include <string>
#include <unordered_map>

namespace zorvane {

struct Report_Field {
    std::string Value;
};

/// The bound fields of a report: a value for each data field, by its name.
class Report_Fields {
  public:
    /// Adds a field; one of that name that is there already stays as it is.
    Report_Field& Add(const std::string& name) { return fields_[name]; }
    void Clear() { fields_.clear(); }
    [[nodiscard]] bool empty() const { return fields_.empty(); }
    /// A name that was not added is failure 9.
    [[nodiscard]] Report_Field& Item(const std::string& name) {
        const auto found = fields_.find(name);
        if (found == fields_.end()) throw Run_Time_Failure(Failure::Subscript);
        return found->second;
    }
    [[nodiscard]] bool has(const std::string& name) const { return fields_.contains(name); }

  private:
    std::unordered_map<std::string, Report_Field> fields_;
};

} // namespace zorvane
