#include "ctl/calls/qt/port_calls.h"
#include "ctl/calls/qt/transfer_call.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/register_argument.h"

#include <CLI/CLI.hpp>

namespace zorvane {

namespace {

class Upload_Call : public Transfer_Call {
  public:
    Upload_Call() : Transfer_Call("Upload") {}

    void addArguments(CLI::App& arguments) override {
        Transfer_Call::addArguments(arguments);
        arguments.add_option("--save", document_, "Write the document, filled, to this file")
            ->type_name("OUT");
        arguments.add_option("--registers", registers_, "Write the registers read to this JSON file")
            ->type_name("OUT");
    }

  protected:
    [[nodiscard]] Transfer_Report transfer(const Port_Work& work) const override {
        return runUpload(work.comm, work.frame, work.stop);
    }

    [[nodiscard]] bool keep(const Surroundings& surroundings, Opened_Document& opened,
                            const Comm_Context& comm) const override {
        const bool saved = document_.empty() || saveDocument(surroundings, opened, document_).empty();
        const bool imaged =
            registers_.empty() || writeRegisterFile(surroundings, registers_, scannedRegisters(comm));
        return saved && imaged;
    }

  private:
    std::string document_;
    std::string registers_;
};

} // namespace

std::unique_ptr<Call> makeUploadCall() { return std::make_unique<Upload_Call>(); }

} // namespace zorvane
