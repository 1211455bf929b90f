// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/journal.h"
#include "commission/folder/run_store.h"
#include "commission/folder/wall_clock.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace zorvane::commission {

/// Writes the journal of a run. Once a line couldn't be written no further one is, and `fault` says why: then
/// nothing may be sent any more.
class Run_Journal {
  public:
    Run_Journal(Run_Folder& folder, const Wall_Clock& clock) : folder_(folder), clock_(clock) {}

    /// True when the line is on disk.
    bool note(const char* event, Json members = Json::object());

    [[nodiscard]] const std::string& fault() const noexcept { return fault_; }
    [[nodiscard]] Run_Folder& folder() noexcept { return folder_; }

  private:
    Run_Folder& folder_;
    const Wall_Clock& clock_;
    std::string fault_;
};

} // namespace zorvane::commission
