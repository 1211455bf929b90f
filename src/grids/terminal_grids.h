// SPDX-License-Identifier: MIT
#pragma once

#include "grids/fill/grid_context.h"
#include "grids/fill/memory_grid.h"
#include "values/run_time_failure.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane {

/// The lower grid as a table of texts. After a failure it holds what was filled in so far.
struct Settings_Table {
    std::vector<std::string> headings;
    std::vector<std::vector<std::string>> grid; ///< a row for each row of the field
    std::optional<Run_Time_Failure> failure;
};

/// Fills the lower grid with a field: offline, or online when the form says so, from the link's register
/// image and for the request word in `Current_Request`.
[[nodiscard]] Settings_Table settingsTable(const Comm_Context& comm, std::int32_t field);

/// What came of a user's entry.
struct Entry_Outcome {
    std::optional<std::string> refused; ///< "read only" or "not modifiable": no editor opened
    std::string Value;                  ///< the cell's members afterwards
    std::string Min_Value;
    std::string Max_Value;
    std::string grid; ///< what the lower grid shows in the cell
    std::optional<Run_Time_Failure> failure;
};

/// Commits a user's entry in a cell of the model (`row` and `column` from 1) through the handlers of the
/// lower grid. In a list cell the text is the entry's number, counted from 0. The length limit of the editor
/// isn't applied: the text is committed whole. Messages go to the main form; its state tells whether the
/// document is now marked.
[[nodiscard]] Entry_Outcome enterValue(const Comm_Context& comm, std::int32_t field, std::int32_t row,
                                       std::int32_t column, const std::string& text);

/// Two grids in memory and all that goes with them, for a program without a window.
class Terminal_Grids {
  public:
    explicit Terminal_Grids(const Comm_Context& comm)
        : context_{comm, configuration_, settings_, navigation_, editors_, windows_} {}
    ~Terminal_Grids() = default;
    Terminal_Grids(const Terminal_Grids&) = delete;
    Terminal_Grids(Terminal_Grids&&) = delete;
    Terminal_Grids& operator=(const Terminal_Grids&) = delete;
    Terminal_Grids& operator=(Terminal_Grids&&) = delete;

    [[nodiscard]] const Grid_Context& context() const noexcept { return context_; }
    [[nodiscard]] Memory_Grid& configuration() noexcept { return configuration_; }
    [[nodiscard]] Memory_Grid& settings() noexcept { return settings_; }

    /// Selects a field in the upper grid and shows it in the lower one, as the document's opening does: a
    /// failure of the fill is dropped. A field that no grid can have a row for is failure 9.
    void select(std::int32_t field);

  private:
    class No_Windows final : public Grid_Windows {
      public:
        void showFrmDebug() override {}
        void updateColumnTip() override {}
        [[nodiscard]] Mouse_Place mousePlace() const override { return {}; }
    };

    Memory_Grid configuration_;
    Memory_Grid settings_;
    Navigation_State navigation_;
    Hidden_Editors editors_;
    No_Windows windows_;
    Grid_Context context_;
};

} // namespace zorvane
