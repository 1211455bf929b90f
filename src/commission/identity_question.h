// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/unit_access.h"
#include "commission/question.h"
#include "compare/identity.h"

#include <optional>

namespace zorvane::commission {

/// Asks by the template's marks, serial number and firmware; where it has none, whether anybody answers.
class Identity_Question final : public Controller_Question {
  public:
    /// All references must outlive it.
    struct Setup {
        Unit_Reader& line;
        const Declara_Zorvane& document;
        const Identity_Section& section;
        compare::Identity first; ///< what the plan was made by
        bool although = false;   ///< somebody goes on with a controller that isn't the template's
    };
    explicit Identity_Question(Setup setup) : setup_(std::move(setup)) {}

    [[nodiscard]] Question_Answer ask(std::int32_t unit) override;

  private:
    [[nodiscard]] std::vector<Register_Range> reads() const;
    [[nodiscard]] bool toldByObjects() const;
    void judge(Question_Answer& answer, compare::Identity now) const;

    Setup setup_;
};

} // namespace zorvane::commission
