// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/document_arguments.h"

#include <string>

namespace zorvane::ctl {

/// What a download would write on a register file. A program with a port adds the plan of a send.
class Plan_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override;
    int run(const Call_Context& context) override;

  protected:
    [[nodiscard]] bool selectionGiven() const { return !selection_.empty(); }
    [[nodiscard]] virtual bool needsRegisters() const { return true; }
    /// What is wrong with the command line as a whole; empty when nothing is.
    [[nodiscard]] virtual std::string complaint(bool /*registersGiven*/) const { return {}; }
    /// The plan without a register file; gives the exit code.
    [[nodiscard]] virtual int runByPort(const Call_Context& /*context*/,
                                        const Document_Arguments& /*files*/) const {
        return Exit_Usage;
    }

  private:
    [[nodiscard]] int runOnRegisters(const Call_Context& context) const;

    Document_Arguments files_;
    std::string registers_;
    std::string selection_;
};

} // namespace zorvane::ctl
