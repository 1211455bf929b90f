// SPDX-License-Identifier: MIT
#include "ctl/calls/document_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/given_value.h"
#include "ctl/document/model_json.h"
#include "ctl/document/model_text.h"
#include "ctl/document/notices.h"
#include "ctl/document/register_argument.h"
#include "ctl/document/rehearsal.h"

#include <CLI/CLI.hpp>

namespace zorvane::ctl {

namespace {

class Apply_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addConfiguration(arguments);
        arguments.add_option("REGISTERS", registers_, "JSON file {\"address\": value, ...}")->required();
        arguments.add_option("--save", out_, "Write the document, filled, to this file")
            ->type_name("OUT")
            ->check(givenValue());
    }

    int run(const Call_Context& context) override {
        const auto registers = readRegisterFile(context, registers_);
        if (!registers) return Exit_Failed;
        Opened_Document opened = files_.open(context);
        const auto failure = applyRegisters(opened.document, *registers);
        if (failure) tellFailure(context.err, "The registers could not all be applied", *failure);
        const bool saved = out_.empty() || save(context, opened, !failure);
        print(context, opened, failure);
        return opened.readToTheEnd() && !failure && saved ? Exit_Success : Exit_Failed;
    }

  private:
    /// A document that was filled in part only is not written.
    [[nodiscard]] bool save(const Call_Context& context, Opened_Document& opened, bool filled) const {
        if (filled) return saveDocument(context, opened, out_).empty();
        tell(context.err, "The document was not written.");
        return false;
    }

    static void print(const Call_Context& context, const Opened_Document& opened,
                      const std::optional<Failure_Note>& failure) {
        if (!context.json) return printModel(context.out, opened);
        Json_Stream json(context.out);
        json.openObject();
        json.member("failure", jsonFailure(failure));
        writeModel(json, opened);
        json.close();
    }

    Document_Arguments files_;
    std::string registers_;
    std::string out_;
};

} // namespace

std::unique_ptr<Subcommand> makeApplySubcommand() { return std::make_unique<Apply_Subcommand>(); }

} // namespace zorvane::ctl
