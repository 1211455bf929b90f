// SPDX-License-Identifier: MIT
#include "ctl/calls/document_calls.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/notices.h"
#include "ctl/text/json_text.h"
#include "template/services/native_files.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace zorvane::ctl {

namespace {

class Save_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addConfiguration(arguments);
        arguments.add_option("OUT", out_, "The file to write")->required();
    }

    int run(const Call_Context& context) override {
        Opened_Document opened = files_.open(context);
        const std::string result = saveDocument(context, opened, out_);
        if (context.json)
            printJson(context.out,
                      {{"Save_Failed", opened.document.Save_Failed}, {"result", jsonText(result)}});
        else if (result.empty())
            context.out << "Written: " << printablePath(pathFromNative(out_)) << '\n';
        return result.empty() && opened.readToTheEnd() ? Exit_Success : Exit_Failed;
    }

  private:
    Document_Arguments files_;
    std::string out_;
};

} // namespace

std::unique_ptr<Subcommand> makeSaveSubcommand() { return std::make_unique<Save_Subcommand>(); }

} // namespace zorvane::ctl
