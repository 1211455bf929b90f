// SPDX-License-Identifier: MIT
// The plan of a send, beside that of a download on a register file.
#include "commission/desk/session_parts.h"
#include "commission/plan/comparison_json.h"
#include "ctl/calls/plan.h"
#include "ctl/calls/qt/commission/commission_calls.h"
#include "ctl/calls/qt/commission/only_argument.h"
#include "ctl/calls/qt/commission/session_call.h"
#include "ctl/document/given_value.h"
#include "ctl/document/notices.h"
#include "ctl/text/text_table.h"
#include "template/services/native_files.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <fstream>
#include <ostream>
#include <system_error>

namespace zorvane::ctl {

namespace {

using commission::Controller_Look;
using commission::Plan;
using commission::Step;

constexpr Micros secondLookAfter = 2 * microsPerSecond;

class Port_Plan_Subcommand : public Plan_Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        Plan_Subcommand::addArguments(arguments);
        port_.addOptional(arguments);
        only_.add(arguments);
        arguments.add_option("--out", out_, "Keep the plan in this file, for \"send --plan\"")
            ->type_name("PLAN")
            ->check(givenValue());
    }

  protected:
    [[nodiscard]] bool needsRegisters() const override { return false; }

    [[nodiscard]] std::string complaint(bool registersGiven) const override {
        if (registersGiven && port_.named()) return "Give a register file or --port, not both.";
        if (!registersGiven && !port_.named())
            return "Give a register file, or --port for the controller's own.";
        if (registersGiven && (only_.given() || !out_.empty())) return "--only and --out need --port.";
        if (port_.named() && selectionGiven()) return "--selection needs a register file.";
        return port_.named() ? port_.fault() : "";
    }

    [[nodiscard]] int runByPort(const Call_Context& context, const Document_Arguments& files) const override {
        const Session_Opener opener(context, files, port_.settings(), port_.ownTimeOut());
        return opener.run(
            [this](Session_Work& work) { return plan(work); },
            [&] { print(context, nullptr, {}, commission::paperJson(unread(context, files))); });
    }

  private:
    /// What is known without a controller: nothing to write.
    [[nodiscard]] commission::Plan_Paper unread(const Call_Context& context,
                                                const Document_Arguments& files) const {
        commission::Plan_Paper paper;
        paper.templateFile = commission::namedFile(context.files, files.templatePath);
        paper.document = commission::namedFile(context.files, files.configurationPath);
        paper.port = port_.settings().port;
        paper.unit = port_.settings().slave;
        paper.settings = formatLineSettings(port_.settings().line);
        paper.counts = commission::countsJson(compare::Counts());
        paper.rows = Json::array();
        return paper;
    }

    [[nodiscard]] int plan(Session_Work& work) const {
        if (const std::string wrong = only_.fault(work.opened.document); !wrong.empty()) {
            tell(work.context.err, wrong);
            commission::Plan_Paper paper = work.session.paper({}, {});
            paper.identity = Json();
            print(work.context, nullptr, {}, commission::paperJson(paper));
            return Exit_Failed;
        }
        const Controller_Look earlier = work.session.look();
        if (earlier.step != Step::Good) return refuse(work, earlier);
        work.line.exchanges().pause(secondLookAfter);
        const Controller_Look look = work.session.look();
        if (look.step != Step::Good) return refuse(work, look);
        const Plan plan = work.session.plan(look, only_.cells(), &earlier);
        const Json paper = commission::paperJson(work.session.paper(plan, look));
        if (plan.failure) {
            tell(work.context.err, "A download fails on field " + std::to_string(plan.failure->place.field) +
                                       ", row " + std::to_string(plan.failure->place.row) + ", column " +
                                       std::to_string(plan.failure->place.column) + ": " +
                                       printable(plan.failure->description) + ".");
            print(work.context, &plan, look, paper);
            return Exit_Failed;
        }
        const bool kept = keep(work.context, paper);
        tellNotSent(work, plan, only_.cells());
        print(work.context, &plan, look, paper);
        if (!kept) return Exit_Failed;
        if (!plan.writes.empty()) return Exit_Differs;
        return plan.comparison.counts.of(compare::Sign::Not_Read) > 0 ? static_cast<int>(Exit_Cant_Tell)
                                                                      : static_cast<int>(Exit_Success);
    }

    [[nodiscard]] int refuse(const Session_Work& work, const Controller_Look& look) const {
        tell(work.context.err, printable(look.why));
        const Json paper = commission::paperJson(work.session.paper({}, look));
        print(work.context, nullptr, look, paper);
        return exitOf(look.step);
    }

    /// False when it couldn't be kept, which was told.
    [[nodiscard]] bool keep(const Call_Context& context, const Json& paper) const {
        if (out_.empty()) return true;
        for (const char* const what : {"template", "document"})
            if (std::error_code error; std::filesystem::equivalent(
                    out_, paper.at(what).at("path").get_ref<const std::string&>(), error)) {
                tell(context.err, out_ + " is the " + what + " itself. Choose another file for the plan.");
                return false;
            }
        std::ofstream file(out_, std::ios::binary | std::ios::trunc);
        printJson(file, paper);
        if (file.flush()) return true;
        tell(context.err, out_ + " could not be written. Choose another file.");
        return false;
    }

    static void print(const Call_Context& context, const Plan* plan, const Controller_Look&,
                      const Json& paper) {
        if (context.json) return printJson(context.out, paper);
        if (plan == nullptr) return;
        Text_Table table;
        table.add({"Function", "Register", "Values"});
        for (const commission::Plan_Write& write : plan->writes) {
            std::string values;
            for (const std::uint16_t value : write.values)
                values.append(values.empty() ? 0 : 1, ' ').append(std::to_string(value));
            table.add(
                {std::to_string(static_cast<int>(write.function)), std::to_string(write.address), values});
        }
        if (!plan->writes.empty()) table.print(context.out, 0);
        context.out << plan->writes.size() << (plan->writes.size() == 1 ? " write\n" : " writes\n");
    }

    Port_Arguments port_;
    Only_Argument only_;
    std::string out_;
};

} // namespace

std::unique_ptr<Subcommand> makePortPlanSubcommand() { return std::make_unique<Port_Plan_Subcommand>(); }

} // namespace zorvane::ctl
