// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/comm_context.h"
#include "comm/modbus_control/modbus_link.h"
#include "ctl/calls/qt/terminal_form.h"
#include "ctl/document/document_arguments.h"
#include "ctl/line/port_arguments.h"
#include "ctl/line/stop_wish.h"

namespace zorvane::ctl {

/// What a call works with once its document is read.
struct Port_Work {
    const Call_Context& context;
    Opened_Document& opened;
    const Comm_Context& comm;
    Terminal_Form& mainForm;
    const Modbus_Link& line; ///< the link of `comm`, to be asked about its port
    const Stop_Wish& stop;
};

/// A call that reads a document and works with a controller on a serial port. A signal that asks for the
/// end stops the transfer.
class Port_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override;
    [[nodiscard]] int run(const Call_Context& context) override;

  protected:
    /// What stands in the way of working with this document, in words; empty when nothing does.
    [[nodiscard]] virtual std::string fault(const Opened_Document& /*opened*/) const { return {}; }
    /// Works with a document whose blocks are registered at a link whose port is closed; gives the exit code.
    [[nodiscard]] virtual int work(const Port_Work& work) const = 0;
    /// The exit code when the document can't be used, after the reason was told.
    [[nodiscard]] virtual int refuse(const Call_Context& context) const = 0;
    /// Where the user of the window would stand in the grids.
    [[nodiscard]] virtual Grid_Selection selection(const Declara_Zorvane& document) const;

  private:
    Document_Arguments files_;
    Port_Arguments port_;
};

} // namespace zorvane::ctl
