// SPDX-License-Identifier: MIT
#include "ctl/compare/identify_subcommand.h"

#include "ctl/compare/identity_text.h"
#include "ctl/compare/looked_at.h"
#include "ctl/document/notices.h"

#include <CLI/CLI.hpp>

#include <utility>

namespace zorvane::ctl {

namespace {

class Identify_Subcommand : public Subcommand {
  public:
    explicit Identify_Subcommand(Make_Controller_Line makeLine) : makeLine_(std::move(makeLine)) {}

    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        port_.add(arguments);
    }

    int run(const Call_Context& context) override {
        if (const std::string wrong = port_.fault(); !wrong.empty()) {
            tell(context.err, wrong);
            return Exit_Usage;
        }
        const Port_Settings settings = port_.settings();
        const std::unique_ptr<Controller_Line> line = makeLine_(settings);
        const Opened_Document opened = openFor(context, files_, port_, line.get());
        compare::Identity_Result asked;
        asked.identity.model = opened.document.Controller_Model;
        asked.identity.unit = settings.slave;
        std::string fault = documentFault(opened);
        if (fault.empty()) fault = line->open();
        if (fault.empty()) {
            const Identity_Section section = identitySectionOf(context, opened);
            asked = compare::askWhoIsThere({opened.document, section, line->reader(), settings.slave});
            if (asked.end != compare::Reading_End::Done)
                fault = readingFault(settings.port, asked.end, asked.fault);
            else if (!asked.answered)
                tell(context.err, nobodyAnswers);
        }
        print(context, asked.identity, fault);
        return fault.empty() ? identityExit(asked.identity.verdict) : static_cast<int>(Exit_Failed);
    }

  private:
    static void print(const Call_Context& context, const compare::Identity& identity,
                      const std::string& fault) {
        if (!fault.empty()) tell(context.err, fault);
        if (!context.json) {
            if (fault.empty()) printIdentity(context.out, identity);
            return;
        }
        Json json = identityJson(identity);
        if (!fault.empty()) json["failure"] = fault;
        printJson(context.out, json);
    }

    Make_Controller_Line makeLine_;
    Document_Arguments files_;
    Port_Arguments port_;
};

} // namespace

std::unique_ptr<Subcommand> makeIdentifySubcommand(Make_Controller_Line makeLine) {
    return std::make_unique<Identify_Subcommand>(std::move(makeLine));
}

} // namespace zorvane::ctl
