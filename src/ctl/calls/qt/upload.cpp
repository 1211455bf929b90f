// SPDX-License-Identifier: MIT
#include "ctl/calls/qt/port_calls.h"
#include "ctl/calls/qt/transfer_subcommand.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/given_value.h"
#include "ctl/document/register_argument.h"

#include <CLI/CLI.hpp>

namespace zorvane::ctl {

namespace {

class Upload_Subcommand : public Transfer_Subcommand {
  public:
    Upload_Subcommand() : Transfer_Subcommand("Upload") {}

    void addArguments(CLI::App& arguments) override {
        Transfer_Subcommand::addArguments(arguments);
        arguments.add_option("--save", document_, "Write the document, filled, to this file")
            ->type_name("OUT")
            ->check(givenValue());
        arguments.add_option("--registers", registers_, "Write the registers read to this JSON file")
            ->type_name("OUT")
            ->check(givenValue());
    }

  protected:
    [[nodiscard]] Transfer_Report transfer(const Port_Work& work) const override {
        return runUpload(work.comm, work.mainForm, work.stop);
    }

    [[nodiscard]] bool keep(const Call_Context& context, Opened_Document& opened,
                            const Comm_Context& comm) const override {
        const bool saved = document_.empty() || saveDocument(context, opened, document_).empty();
        const bool imaged =
            registers_.empty() || writeRegisterFile(context, registers_, scannedRegisters(comm));
        return saved && imaged;
    }

  private:
    std::string document_;
    std::string registers_;
};

} // namespace

std::unique_ptr<Subcommand> makeUploadSubcommand() { return std::make_unique<Upload_Subcommand>(); }

} // namespace zorvane::ctl
