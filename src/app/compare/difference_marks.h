// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"
#include "compare/kept_side.h"
#include "template/identity_section.h"

#include <cstdint>
#include <optional>
#include <string>

namespace zorvane::app {

/// A side that the document was compared with, as it was then.
struct Compared_With {
    std::string name; ///< "factory values"
    Identity_Section section;
    compare::Kept_Side side;
    Document_Mark document;
};

/// Which cells of the lower grid differ from the side that the document was last compared with. Off at first;
/// another document has none until it is compared.
class Difference_Marks {
  public:
    /// It must outlive them.
    explicit Difference_Marks(const App_Context& app);

    [[nodiscard]] bool on() const { return on_; }
    /// "Mark d&ifferences": turns the marks on or off, remembers it, and tells the message bar of what.
    void MNU_MarkDifferences_Click();
    /// From now on the cells are held against this side.
    void holdAgainst(Compared_With with);
    /// The line of the message bar about them, while it stands, says what is marked by now.
    void refresh() const;

    /// What a marked cell has on the other side: "factory values: 7". Nothing for a cell without a mark.
    /// While online none has one: its values are the controller's.
    [[nodiscard]] std::optional<std::string> at(std::int32_t row, std::int32_t col) const;

  private:
    [[nodiscard]] bool holds() const;
    [[nodiscard]] std::string text() const;
    void tell() const;

    const App_Context& app_;
    bool on_;
    std::optional<Compared_With> with_;
};

} // namespace zorvane::app
