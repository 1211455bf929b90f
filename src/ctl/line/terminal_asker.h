// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/text/progress_printer.h"
#include "template/services/asker.h"

#include <iosfwd>
#include <set>
#include <string>

namespace zorvane::ctl {

/// Messages and progress of a call on a terminal. Only what is wrong is worth a line, each message once; a
/// question is about what the user of the terminal has just asked for, and gets Yes.
class Terminal_Asker final : public Asker {
  public:
    Terminal_Asker(std::ostream& err, bool terminal) : printer_(err, terminal) {}

    int Msgb_Show(const std::string& prompt, int style, const std::string& title) override;
    [[nodiscard]] Progress_Printer& printer() noexcept { return printer_; }

  private:
    Progress_Printer printer_;
    std::set<std::string> told_;
};

} // namespace zorvane::ctl
