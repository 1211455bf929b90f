// SPDX-License-Identifier: MIT
#pragma once

#include "survey/traffic/traffic_file.h"

#include <fstream>

namespace zorvane::survey {

/// Files of this computer. What is written is with the system when `write` returns.
class Native_Traffic_Files final : public Traffic_Sink {
  public:
    [[nodiscard]] bool exists(const std::string& name) const override;
    [[nodiscard]] bool begin(const std::string& name) override;
    [[nodiscard]] bool write(std::string_view text) override;
    /// Ends the present file.
    void end() { file_.close(); }

  private:
    std::ofstream file_;
};

} // namespace zorvane::survey
