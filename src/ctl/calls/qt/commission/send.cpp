// SPDX-License-Identifier: MIT
#include "commission/desk/session_parts.h"
#include "commission/folder/serial_memory.h"
#include "ctl/calls/qt/commission/commission_calls.h"
#include "ctl/calls/qt/commission/only_argument.h"
#include "ctl/calls/qt/commission/session_call.h"
#include "ctl/document/given_value.h"
#include "ctl/document/notices.h"
#include "ctl/text/terminal.h"
#include "template/services/native_files.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

#include <ostream>
#include <utility>

namespace zorvane::ctl {

namespace {

using commission::Chosen_Cells;
using commission::Controller_Look;
using commission::Plan;
using commission::Plan_Paper;
using commission::Plan_Write;
using commission::Session_End;
using commission::Step;

Session_End afterLook(Session_End end, const Controller_Look& look) {
    end.identity = look.identity;
    end.requests.reads = look.requests;
    return end;
}

Session_End ended(const Controller_Look& look) {
    Session_End end;
    end.step = look.step;
    end.why = look.why;
    return afterLook(std::move(end), look);
}

class Send_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        files_.addTemplate(arguments);
        files_.addConfiguration(arguments);
        port_.add(arguments);
        arguments
            .add_option("--plan", planPath_,
                        "A plan that \"plan --out\" has kept: sends that and nothing else")
            ->check(givenValue());
        only_.add(arguments);
        arguments.add_flag("--yes", yes_, "Send without asking");
        arguments.add_option("--although", although_, "Go on though the controller isn't a MODEL")
            ->type_name("MODEL")
            ->check(givenValue());
        arguments.add_flag("--although-serial", althoughSerial_,
                           "Go on though the controller has another serial number than before");
    }

    int run(const Call_Context& context) override {
        if (const std::string wrong = port_.fault(); !wrong.empty()) return usage(context, wrong);
        if (!yes_ && planPath_.empty() && !standardInputIsTerminal())
            return usage(context, "Nobody is there to answer the question: give --yes or --plan.");
        const Session_Opener opener(context, files_, port_.settings(), port_.ownTimeOut());
        return opener.run([this](Session_Work& work) { return finish(work, send(work)); },
                          [&] { printEnd(context, failedEnd()); });
    }

  private:
    static int usage(const Call_Context& context, const std::string& why) {
        tell(context.err, why);
        return Exit_Usage;
    }
    static Session_End failedEnd() {
        Session_End end;
        end.step = Step::Failed;
        return end;
    }
    static int finish(const Session_Work& work, const Session_End& end) {
        printEnd(work.context, end);
        return exitOf(end.step);
    }

    /// The kept plan; `end` says why there is none.
    std::optional<Plan_Paper> readPaper(const Session_Work& work, Session_End& end) const {
        const auto bytes = work.context.files.bytes(pathFromNative(planPath_));
        auto paper = bytes ? commission::parsePaper(*bytes) : std::nullopt;
        if (paper && commission::completeWrites(paper->writes, work.opened.document, work.section)) {
            end = work.session.checkPaper(*paper);
            return end.step == Step::Good ? paper : std::nullopt;
        }
        end = failedEnd();
        end.why = paper ? "The plan names cells that the template doesn't have."
                        : planPath_ + " is no plan that \"plan --out\" has written.";
        return std::nullopt;
    }

    [[nodiscard]] Session_End send(Session_Work& work) const {
        Session_End end;
        if (end.why = only_.fault(work.opened.document); !end.why.empty()) {
            end.step = Step::Failed;
            return end;
        }
        std::optional<Plan_Paper> paper;
        if (!planPath_.empty()) {
            paper = readPaper(work, end);
            if (!paper && end.step != Step::Stale) return end;
        }
        const Controller_Look look = knownController(work);
        if (look.step != Step::Good) return ended(look);
        if (paper) end = work.session.checkRegisters(*paper, paper->writes, look);
        if (end.step != Step::Good) return afterLook(std::move(end), look);
        Plan plan = work.session.plan(look, paper ? cellsOf(*paper) : only_.cells());
        if (paper) {
            plan.planned = paper->before;
            end = commission::Session::checkWrites(*paper, plan);
            if (end.step != Step::Good) return afterLook(std::move(end), look);
        }
        if (!agreed(work, plan, look)) {
            end = ended(look);
            end.step = Step::Failed;
            end.why = "Nothing was sent.";
            return end;
        }
        work.line.beginSending();
        end = work.session.send(plan, look);
        if (!end.run.empty()) remember(work, plan, look);
        return end;
    }

    /// Who is there and what it holds; good where it may be sent to.
    [[nodiscard]] Controller_Look knownController(Session_Work& work) const {
        Controller_Look look = work.session.look();
        if (look.step == Step::Wrong_Controller && commission::isFoundModel(look.identity, although_)) {
            work.session.allow(although_);
            look.step = Step::Good;
            look.why.clear();
        }
        if (look.step != Step::Good) return look;
        look.why = anotherSerial(work, look);
        if (!look.why.empty()) look.step = Step::Wrong_Controller;
        return look;
    }

    /// Tells what goes out, and asks unless that was agreed to by the call.
    [[nodiscard]] bool agreed(Session_Work& work, const Plan& plan, const Controller_Look& look) const {
        if (look.identity.verdict == compare::Verdict::Cant_Tell)
            tell(work.context.err, "Whether the controller is a " + printable(look.identity.model) +
                                       " can't be told; the run notes it.");
        if (plan.failure || !plan.unread.empty()) return true;
        tellNotSent(work, plan, only_.cells());
        if (plan.writes.empty()) return true;
        tellPlan(work, plan);
        return yes_ || !planPath_.empty() || confirmed(work, plan);
    }

    static void remember(const Session_Work& work, const Plan& plan, const Controller_Look& look) {
        if (!look.identity.serial) return;
        commission::Native_Serials serials(work.context.stateFolder);
        // A number that the send itself wrote is a new one: the next controller is asked for its own.
        const bool written = commission::setsSerial(plan.writes, work.section);
        const std::string why =
            serials.remember(serialKey(work), written ? "" : toUtf8(*look.identity.serial));
        if (!why.empty()) tell(work.context.err, why);
    }

    /// The cells of the kept plan, by name; those of `--only` where it is given too.
    [[nodiscard]] Chosen_Cells cellsOf(const Plan_Paper& paper) const {
        std::vector<Cell_Place> places;
        const Chosen_Cells only = only_.cells();
        for (const Plan_Write& write : paper.writes)
            for (const Cell_Place& place : write.cells)
                if (only.holds(place)) places.push_back(place);
        return Chosen_Cells::these(places);
    }

    [[nodiscard]] static std::string serialKey(const Session_Work& work) {
        const commission::Session_Document& document = work.session.document();
        return commission::serialKey(document.documentFile.path, document.port, document.unit);
    }

    /// Why the serial number stops the send; empty when it doesn't.
    [[nodiscard]] std::string anotherSerial(Session_Work& work, const Controller_Look& look) const {
        if (althoughSerial_ || !look.identity.serial) return {};
        const commission::Native_Serials serials(work.context.stateFolder);
        const std::string why = commission::anotherSerial(serials.known(serialKey(work)).value_or(""),
                                                          toUtf8(*look.identity.serial));
        if (why.empty()) return {};
        const bool asks = standardInputIsTerminal() && !yes_ && planPath_.empty();
        if (asks &&
            work.line.confirm(work.context, why + " Send to this one?", look.identity.unit, watched(work)))
            return {};
        return why + " --although-serial goes on.";
    }

    [[nodiscard]] static std::int32_t watched(const Session_Work& work) {
        const auto blocks = commission::readBlocks(work.opened.document);
        return blocks.empty() ? 0 : blocks.front().first;
    }

    static void tellPlan(const Session_Work& work, const Plan& plan) {
        for (const Plan_Write& write : plan.writes)
            if (write.stage == commission::Stage::Last)
                tell(work.context.err, "Register " + std::to_string(write.address) +
                                           " goes out after all others: it may stop a process.");
            else if (write.stage == commission::Stage::Link)
                tell(work.context.err, "Register " + std::to_string(write.address) +
                                           " goes out last: it changes the line itself.");
    }

    [[nodiscard]] static bool confirmed(Session_Work& work, const Plan& plan) {
        for (const Plan_Write& write : plan.writes) {
            std::string values;
            for (const std::uint16_t value : write.values)
                values += " " + std::to_string(value);
            work.context.err << "  function " << static_cast<int>(write.function) << ", register "
                             << write.address << ":" << values << "\n";
        }
        const commission::Session_Document& document = work.session.document();
        return work.line.confirm(work.context,
                                 "Send " + std::to_string(plan.writes.size()) + " writes to unit " +
                                     std::to_string(document.unit) + " on " + document.port + "?",
                                 document.unit, watched(work));
    }

    Document_Arguments files_;
    Port_Arguments port_;
    Only_Argument only_;
    std::string planPath_;
    bool yes_ = false;
    std::string although_;
    bool althoughSerial_ = false;
};

} // namespace

std::unique_ptr<Subcommand> makeSendSubcommand() { return std::make_unique<Send_Subcommand>(); }

} // namespace zorvane::ctl
