// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/units/unit_access.h"
#include "commission/folder/run_store.h"
#include "commission/folder/wall_clock.h"
#include "commission/plan/plan_paper.h"
#include "commission/runs.h"
#include "commission/send_report.h"
#include "commission/taking_back.h"
#include "commission/whole_reading.h"
#include "compare/identity.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zorvane::commission {

/// What a session with a controller works with. All must outlive it.
struct Session_Services {
    Unit_Writer& line;
    Run_Store& runs;
    const Wall_Clock& clock;
    std::function<bool()> stopWanted{};                            ///< may be empty
    std::function<void(std::size_t done, std::size_t all)> told{}; ///< may be empty
    /// The controller's values as a configuration file; may be empty.
    std::function<std::string(const compare::Controller_Registers&)> controllerFile{};
    std::function<void(const std::string& why)> waits{}; ///< as of `Send_Services`; may be empty
};

/// The document of a session, and the line to its controller.
struct Session_Document {
    const Declara_Zorvane& document;
    const Identity_Section& section;
    Named_File templateFile;
    Named_File documentFile;
    std::string controllerFileName; ///< under which the controller's values are kept with a run
    std::string port;               ///< UTF-8
    std::int32_t unit = 1;
    Line_Settings line;
    std::int32_t retries = 3;
    std::string program;                       ///< which program it is, for the run's head
    std::map<Cell_Place, std::string> stray{}; ///< values that aren't sent unless they are named, and why
    std::string adapter{};                     ///< what the system calls that of the port; UTF-8
};

/// How a step of a session ended, in the order in which a program tells of it by its exit.
enum class Step {
    Good,
    Failed, ///< before the first write, or nothing to do with one
    Wrong_Controller,
    Stale,      ///< the plan no longer fits what is there
    Cant_Tell,  ///< registers that are needed weren't read
    Incomplete, ///< partly written, or not all of it verified
};

/// What a controller was found to be and to hold.
struct Controller_Look {
    Step step = Step::Good;
    std::string why;
    compare::Identity identity;
    compare::Controller_Registers registers;
    std::size_t requests = 0;
    bool silent = false; ///< failed, since nobody answered on a port that is there
};

/// What came of a send, a resumption or a restoration.
struct Session_End {
    Step step = Step::Good;
    std::string why; ///< for people; empty when all is well
    std::string run; ///< the run's name; empty when none was begun
    std::optional<compare::Identity> identity;
    Send_Report report;
    Request_Counts requests;
    std::vector<Strange_Register> strange; ///< of a plan that no longer fits
};

/// One document with its controller: looks, sends, goes on, takes back. Nothing of it asks a question;
/// whoever calls asks between the looking and the sending.
class Session {
  public:
    Session(Session_Services services, Session_Document document)
        : services_(std::move(services)), document_(std::move(document)) {}

    /// Somebody goes on with a controller that isn't the template's.
    void allow(const std::string& model) { although_ = model; }
    [[nodiscard]] const std::optional<std::string>& although() const { return although_; }

    /// Reads all and tells who is there.
    [[nodiscard]] Controller_Look look(const std::set<std::int32_t>& more = {});
    /// The plan for what a look found, and for an earlier look at the same registers.
    [[nodiscard]] Plan plan(const Controller_Look& look, const Chosen_Cells& chosen,
                            const Controller_Look* earlier = nullptr) const;
    [[nodiscard]] Plan_Paper paper(const Plan& plan, const Controller_Look& look) const;

    /// Whether a kept plan still fits: its files, its unit, and what the registers hold. Lists those that
    /// hold neither what was there nor what it would write.
    [[nodiscard]] Session_End checkPaper(const Plan_Paper& paper) const;
    [[nodiscard]] Session_End checkRegisters(const Plan_Paper& paper, const std::vector<Plan_Write>& writes,
                                             const Controller_Look& look) const;

    /// Whether a kept plan's writes are those that its document makes. A file that was changed by hand isn't
    /// sent.
    [[nodiscard]] static Session_End checkWrites(const Plan_Paper& paper, const Plan& plan);

    /// Sends a plan. `requests` of the look that it was made from count along.
    [[nodiscard]] Session_End send(const Plan& plan, const Controller_Look& look);

    /// Goes on with a run whose controller was looked at.
    [[nodiscard]] Session_End resume(const std::string& name, const Kept_Run& run,
                                     const Controller_Look& look);
    /// Puts back what was there before a run, as a run of its own.
    [[nodiscard]] Session_End restore(const std::string& name, const Kept_Run& run,
                                      const Controller_Look& look);
    /// The writes with which a run would go on.
    [[nodiscard]] Further_Writes continuation(const Kept_Run& run, const Controller_Look& look) const;
    /// The writes of a restoration, and what it can't put back.
    [[nodiscard]] Further_Writes restoration(const Kept_Run& run, const Controller_Look& look) const;

    [[nodiscard]] const Session_Document& document() const { return document_; }

  private:
    struct Task {
        std::vector<Plan_Write> writes;
        std::vector<Planned_Cell> cells;
        std::map<std::int32_t, std::uint16_t> before;  ///< for the rows
        std::map<std::int32_t, std::uint16_t> present; ///< what the registers hold now
        std::set<std::size_t> done{};
    };
    [[nodiscard]] std::optional<std::vector<Plan_Write>> completed(const Plan_Paper& paper) const;
    [[nodiscard]] Run_Head head() const;
    /// The paper of a restoration.
    [[nodiscard]] Plan_Paper paperBack(const std::string& name, const Kept_Run& run,
                                       const std::vector<Plan_Write>& writes,
                                       const Controller_Look& look) const;
    /// What stands against the writes of a resumption or a restoration; `Step::Good` when nothing does.
    [[nodiscard]] Session_End objection(const Further_Writes& further, const std::vector<Plan_Write>& writes,
                                        const Kept_Run& run, const Controller_Look& look) const;
    /// Performs the task in a run folder of its own.
    [[nodiscard]] Session_End performAsRun(const Run_Head& head, const Plan_Paper& paper, const Task& task,
                                           const Controller_Look& look);
    [[nodiscard]] Session_End perform(const Task& task, Run_Folder& folder, const Controller_Look& look);
    [[nodiscard]] static Session_End failed(Step step, std::string why);
    /// An end after a look and before the first write.
    [[nodiscard]] static Session_End endOf(const Controller_Look& look, Step step = Step::Good,
                                           std::string why = {});
    void conclude(Session_End& end, const Send_Outcome& outcome, Run_Folder& folder);

    Session_Services services_;
    Session_Document document_;
    std::optional<std::string> although_;
};

/// The result of a send as one object: run, identity, counts, rows, requests.
[[nodiscard]] Json endJson(const Session_End& end);

/// Verdict, model, unit, serial number, firmware and evidence as one object.
[[nodiscard]] Json identityJson(const compare::Identity& identity);

} // namespace zorvane::commission
