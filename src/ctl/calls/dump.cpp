// SPDX-License-Identifier: MIT
#include "ctl/calls/document_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/model_json.h"
#include "ctl/document/model_text.h"

#include <CLI/CLI.hpp>

namespace zorvane::ctl {

namespace {

class Dump_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addOptionalConfiguration(arguments);
    }

    int run(const Call_Context& context) override {
        const Opened_Document opened = files_.open(context);
        if (context.json) {
            Json_Stream json(context.out);
            json.openObject();
            writeModel(json, opened);
            json.close();
        } else {
            printModel(context.out, opened);
        }
        return opened.whole() ? Exit_Success : Exit_Failed;
    }

  private:
    Document_Arguments files_;
};

} // namespace

std::unique_ptr<Subcommand> makeDumpSubcommand() { return std::make_unique<Dump_Subcommand>(); }

} // namespace zorvane::ctl
