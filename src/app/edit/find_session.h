// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"
#include "edit/find_cells.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::app {

/// A cell that was found, as a list shows it.
struct Found_Row {
    Cell_Place place;
    std::string name;  ///< "Regulation/Set point/Value"
    std::string value; ///< as people see it
    std::string address;
};

/// "Find...": what is looked for on all pages of the document, and the way from one found cell to the next.
class Find_Session {
  public:
    /// It outlives the session.
    explicit Find_Session(const App_Context& app) : app_(app) {}

    edit::Find_Query query;

    /// The cells that the query stands for now.
    [[nodiscard]] std::vector<Found_Row> rows();
    /// Shows the found cell after the current one, or before it; beyond the last comes the first. The message
    /// bar tells that nothing was found.
    void next();
    void previous();
    void show(const Cell_Place& place) const;

    /// Which of them the current cell is, from 0.
    [[nodiscard]] std::optional<std::size_t> rowOf(const std::vector<Found_Row>& found) const;
    /// "3 of 17" where the current cell is one of those found, else "17 found"; "nothing found".
    [[nodiscard]] std::string position(const std::vector<Found_Row>& found) const;

  private:
    [[nodiscard]] std::vector<Cell_Place> places();
    [[nodiscard]] Cell_Place current() const;
    /// The values that the template alone gives.
    [[nodiscard]] const Declara_Zorvane& factory();
    void go(const std::optional<Cell_Place>& place) const;

    const App_Context& app_;
    std::unique_ptr<Declara_Zorvane> factory_;
    std::uint64_t factoryEdition_ = 0; ///< of the document that it belongs to
};

} // namespace zorvane::app
