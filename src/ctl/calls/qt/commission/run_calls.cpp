// SPDX-License-Identifier: MIT
// Calls that work on a run that is there: resume, restore, verify, runs.
#include "commission/folder/json_fields.h"
#include "commission/folder/state_folder.h"
#include "commission/taking_back.h"
#include "ctl/calls/qt/commission/commission_calls.h"
#include "ctl/calls/qt/commission/session_call.h"
#include "ctl/calls/qt/left_report.h"
#include "ctl/calls/qt/run_folder.h"
#include "ctl/document/notices.h"
#include "ctl/text/text_table.h"
#include "template/services/native_files.h"
#include "values/code_page.h"

#include <CLI/CLI.hpp>

#include <ostream>

namespace zorvane::ctl {

namespace {

using commission::Controller_Look;
using commission::Kept_Run;
using commission::Plan_Write;
using commission::Session_End;
using commission::Step;

/// What all calls on a run have in common.
class Run_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& arguments) override {
        arguments.add_option("RUN", run_, "The run: a folder's name, a path, or \"last\"")->required();
        port_.add(arguments);
    }

    int run(const Call_Context& context) override {
        if (const std::string wrong = port_.fault(); !wrong.empty()) {
            tell(context.err, wrong);
            return Exit_Usage;
        }
        const Run_Folder_Name place = runFolderOf(context.stateFolder, run_);
        commission::Native_Runs runs(place.folder);
        const auto kept = commission::readRun(runs, place.name);
        if (!kept) {
            tell(context.err, "There is no run \"" + run_ + "\" in " + place.folder + ".");
            refuse(context);
            return Exit_Failed;
        }
        Document_Arguments files;
        files.templatePath = kept->paper.templateFile.path;
        const Session_Opener opener(context, files, settingsFor(*kept), port_.ownTimeOut());
        return opener.run(
            [&](Session_Work& work) {
                if (work.session.document().templateFile.sha256 == kept->paper.templateFile.sha256)
                    return perform(work, place.name, *kept);
                tell(context.err,
                     "The template was changed since the run: " + kept->paper.templateFile.path + ".");
                refuse(context);
                return changedTemplateExit(work);
            },
            [&] { refuse(context); });
    }

  protected:
    [[nodiscard]] virtual int perform(Session_Work& work, const std::string& name,
                                      const Kept_Run& run) const = 0;
    /// The exit when the run's template isn't what it was. Another controller, or none, comes first.
    [[nodiscard]] virtual int changedTemplateExit(Session_Work& work) const {
        const Controller_Look look = work.session.look();
        if (look.step == Step::Good) return Exit_Stale;
        tell(work.context.err, printable(look.why));
        return exitOf(look.step);
    }
    /// Prints the result of a call that did nothing.
    virtual void refuse(const Call_Context& context) const = 0;

  private:
    /// The line as the run left it, unless the user says otherwise.
    [[nodiscard]] Port_Settings settingsFor(const Kept_Run& run) const {
        Port_Settings settings = port_.settings();
        if (!port_.ownSlave()) settings.slave = commission::unitOf(run);
        if (const auto line = parseLineSettings(commission::settingsOf(run)); line && !port_.ownLine())
            settings.line = *line;
        return settings;
    }

    std::string run_;
    Port_Arguments port_;
};

/// Calls that write.
class Further_Subcommand : public Run_Subcommand {
  protected:
    [[nodiscard]] virtual Session_End goOn(Session_Work& work, const std::string& name, const Kept_Run& run,
                                           const Controller_Look& look) const = 0;

    void refuse(const Call_Context& context) const override {
        Session_End end;
        end.step = Step::Failed;
        printEnd(context, end);
    }

    [[nodiscard]] int perform(Session_Work& work, const std::string& name,
                              const Kept_Run& run) const override {
        if (run.head.although) work.session.allow(*run.head.although);
        const Controller_Look look = work.session.look(touched(run));
        Session_End end;
        end.step = look.step;
        end.why = look.why;
        end.identity = look.identity;
        end.requests.reads = look.requests;
        if (end.step == Step::Good) {
            end.why = commission::anotherController(run, work.section, look.identity);
            if (!end.why.empty()) end.step = Step::Wrong_Controller;
        }
        if (end.step == Step::Good) {
            work.line.beginSending();
            end = goOn(work, name, run, look);
        }
        printEnd(work.context, end);
        return exitOf(end.step);
    }

  private:
    static std::set<std::int32_t> touched(const Kept_Run& run) {
        std::set<std::int32_t> registers;
        for (const Plan_Write& write : run.paper.writes)
            for (std::int32_t number = write.address; number <= write.last(); ++number)
                registers.insert(number);
        return registers;
    }
};

class Resume_Subcommand : public Further_Subcommand {
  protected:
    [[nodiscard]] Session_End goOn(Session_Work& work, const std::string& name, const Kept_Run& run,
                                   const Controller_Look& look) const override {
        return work.session.resume(name, run, look);
    }
};

class Restore_Subcommand : public Further_Subcommand {
  protected:
    [[nodiscard]] Session_End goOn(Session_Work& work, const std::string& name, const Kept_Run& run,
                                   const Controller_Look& look) const override {
        for (const auto& cell : work.session.restoration(run, look).impossible)
            tell(work.context.err, "Register " + printable(cell.address) + ": " + cell.why + ".");
        return work.session.restore(name, run, look);
    }
};

class Verify_Subcommand : public Run_Subcommand {
  protected:
    void refuse(const Call_Context& context) const override { printLeft(context, {}, {}); }
    [[nodiscard]] int changedTemplateExit(Session_Work& /*work*/) const override { return Exit_Failed; }

    [[nodiscard]] int perform(Session_Work& work, const std::string& name,
                              const Kept_Run& run) const override {
        if (run.head.although) work.session.allow(*run.head.although);
        std::vector<Plan_Write> writes = run.paper.writes;
        if (!commission::completeWrites(writes, work.opened.document, work.section)) {
            tell(work.context.err, "The template has other cells than the run's.");
            refuse(work.context);
            return changedTemplateExit(work);
        }
        const Controller_Look look = work.session.look();
        if (look.silent) tell(work.context.err, printable(look.why));
        if (look.step != Step::Good && !look.silent) {
            tell(work.context.err, printable(look.why));
            printLeft(work.context, name, {});
            return exitOf(look.step);
        }
        if (const std::string why = commission::anotherController(run, work.section, look.identity);
            !why.empty()) {
            tell(work.context.err, why);
            printLeft(work.context, name, {});
            return Exit_Wrong_Controller;
        }
        const auto rows = commission::leftRows(run, writes, look.registers);
        printLeft(work.context, name, rows);
        return exitOfLeft(rows);
    }
};

class Runs_Subcommand : public Subcommand {
  public:
    void addArguments(CLI::App& /*arguments*/) override {}

    int run(const Call_Context& context) override {
        const auto runs =
            commission::listRuns(commission::Native_Runs(commission::runsFolder(context.stateFolder)));
        if (context.json)
            printList(context, runs);
        else
            printTable(context, runs);
        return Exit_Success;
    }

  private:
    static void printList(const Call_Context& context, const std::vector<commission::Run_Entry>& runs) {
        Json list = Json::array();
        for (const commission::Run_Entry& run : runs)
            list.push_back({{"run", run.name},
                            {"started", run.head.started},
                            {"model", run.head.model},
                            {"unit", run.head.unit},
                            {"document", run.document},
                            {"state", commission::runStateWord(run.state)},
                            {"counts", run.counts}});
        printJson(context.out, {{"runs", list}});
    }

    static std::string countOf(const commission::Run_Entry& run, const char* name) {
        const auto count = commission::numberOf<std::int64_t>(commission::memberOf(run.counts, name));
        return std::to_string(count.value_or(0));
    }

    static void printTable(const Call_Context& context, const std::vector<commission::Run_Entry>& runs) {
        Text_Table table;
        table.add({"Run", "Started", "Kind", "State", "Verified", "Values"});
        for (const commission::Run_Entry& run : runs)
            table.add({run.name, run.head.startedLocal, std::string(commission::runKindWord(run.kind)),
                       std::string(commission::runStateWord(run.state)), countOf(run, "verified"),
                       countOf(run, "rows")});
        if (!runs.empty()) table.print(context.out, 0);
        context.out << runs.size() << (runs.size() == 1 ? " run\n" : " runs\n");
    }
};

} // namespace

std::unique_ptr<Subcommand> makeResumeSubcommand() { return std::make_unique<Resume_Subcommand>(); }
std::unique_ptr<Subcommand> makeRestoreSubcommand() { return std::make_unique<Restore_Subcommand>(); }
std::unique_ptr<Subcommand> makeVerifySubcommand() { return std::make_unique<Verify_Subcommand>(); }
std::unique_ptr<Subcommand> makeRunsSubcommand() { return std::make_unique<Runs_Subcommand>(); }

} // namespace zorvane::ctl
