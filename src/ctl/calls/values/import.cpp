// SPDX-License-Identifier: MIT
#include "ctl/calls/document_calls.h"
#include "ctl/calls/values/commit_values.h"
#include "ctl/document/document_arguments.h"
#include "ctl/document/given_value.h"
#include "ctl/document/text_file.h"
#include "template/services/native_files.h"

#include <CLI/CLI.hpp>

namespace zorvane::ctl {

namespace {

class Import_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addConfiguration(arguments);
        arguments.add_option("F.csv", values_, "The file of values")->required();
        arguments.add_option("--save", out_, "Write the document with them to this file")
            ->type_name("OUT")
            ->check(givenValue())
            ->required();
        arguments.add_flag("--all-that-fit", allThatFit_, "Write it also where some values are left out");
    }

    int run(const Call_Context& context) override {
        const auto bytes = readFile(context, values_);
        if (!bytes) return commitNothing(context);
        Opened_Document opened = files_.open(context);
        return commitValues(context, opened,
                            {pathFromNative(values_), edit::readValueFile(*bytes), {}, out_, allThatFit_});
    }

  private:
    Document_Arguments files_;
    std::string values_; ///< UTF-8, as on the command line
    std::string out_;
    bool allThatFit_ = false;
};

} // namespace

std::unique_ptr<Subcommand> makeImportSubcommand() { return std::make_unique<Import_Subcommand>(); }

} // namespace zorvane::ctl
