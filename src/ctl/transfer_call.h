#pragma once

#include "ctl/document_arguments.h"
#include "ctl/port_arguments.h"
#include "ctl/terminal_frame.h"
#include "ctl/transfer.h"

#include <string>

namespace zorvane {

/// A call that reads a document and runs one transfer on a serial port. Ctrl+C gives the transfer up, in
/// order.
class Transfer_Call : public Call {
  public:
    /// `name` is "Upload" or "Download".
    explicit Transfer_Call(std::string name) : name_(std::move(name)) {}

    void addArguments(CLI::App& arguments) override;
    [[nodiscard]] int run(const Surroundings& surroundings) override;

  protected:
    [[nodiscard]] virtual Transfer_Report transfer(const Comm_Context& comm, Terminal_Frame& frame) const = 0;
    /// What is done with a finished transfer; false when that failed.
    [[nodiscard]] virtual bool keep(const Surroundings& /*surroundings*/, Opened_Document& /*opened*/,
                                    const Comm_Context& /*comm*/) const {
        return true;
    }

  private:
    [[nodiscard]] int refuse(const Surroundings& surroundings) const;

    std::string name_;
    Document_Arguments files_;
    Port_Arguments port_;
};

} // namespace zorvane
