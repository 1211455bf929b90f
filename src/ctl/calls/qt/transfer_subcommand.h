// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/calls/qt/port_subcommand.h"
#include "ctl/line/transfer.h"

#include <string>

namespace zorvane::ctl {

/// A call that runs one transfer. Ctrl+C gives it up, in order; so do SIGTERM and SIGHUP.
class Transfer_Subcommand : public Port_Subcommand {
  public:
    /// `name` is "Upload" or "Download".
    explicit Transfer_Subcommand(std::string name) : name_(std::move(name)) {}

  protected:
    [[nodiscard]] virtual Transfer_Report transfer(const Port_Work& work) const = 0;
    /// What is done with a finished transfer; false when that failed.
    [[nodiscard]] virtual bool keep(const Call_Context& /*context*/, Opened_Document& /*opened*/,
                                    const Comm_Context& /*comm*/) const {
        return true;
    }

  private:
    [[nodiscard]] int work(const Port_Work& work) const override;
    [[nodiscard]] int refuse(const Call_Context& context) const override;

    std::string name_;
};

} // namespace zorvane::ctl
