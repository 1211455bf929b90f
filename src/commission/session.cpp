// SPDX-License-Identifier: MIT
#include "commission/session.h"

#include "comm/modbus_control/line/port_texts.h"
#include "commission/identity_question.h"
#include "commission/plan/comparison_json.h"
#include "compare/controller_reading.h"
#include "values/code_page.h"

#include <algorithm>
#include <utility>

namespace zorvane::commission {

namespace {

std::string lineText(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string rangeText(const std::vector<Register_Range>& ranges) {
    std::string text;
    for (const Register_Range& range : ranges)
        text += (text.empty() ? "" : ", ") + std::to_string(range.first) +
                (range.first == range.last ? "" : "-" + std::to_string(range.last));
    return text;
}

/// What is wrong with the controller, in a sentence.
std::string whyNot(const compare::Identity& identity) {
    std::string why = "The controller isn't a " + identity.model;
    for (const compare::Evidence& each : identity.evidence)
        if (each.result == compare::Fit::Doesnt_Fit) {
            why += ": " + compare::placeText(each) +
                   (compare::isRefusedBlock(each)
                        ? " can't be read, " + each.found
                        : " holds \"" + each.found + "\" and not \"" + each.expected + "\"");
            break;
        }
    return why + ".";
}

constexpr const char* otherCells = "The template has other cells than the run's.";

/// A kept plan as a run, so that its registers are judged by the same rule.
Kept_Run unsent(const Plan_Paper& paper) {
    Kept_Run run;
    run.paper = paper;
    return run;
}

std::map<std::int32_t, std::uint16_t> presentOf(const std::vector<Plan_Write>& writes,
                                                const compare::Controller_Registers& registers) {
    std::map<std::int32_t, std::uint16_t> present;
    for (const Plan_Write& write : writes)
        for (std::int32_t number = write.address; number <= write.last(); ++number)
            if (const auto value = registers.valueAt(number)) present[number] = *value;
    return present;
}

/// What the registers of a plan's writes hold; of those that a write only carries along what the kept plan
/// found there, so that one which is otherwise now holds its block back.
std::map<std::int32_t, std::uint16_t> plannedPresent(const Plan& plan) {
    std::map<std::int32_t, std::uint16_t> present = plan.before;
    for (const Plan_Write& write : plan.writes)
        for (std::size_t i = 0; i < write.parts.size(); ++i) {
            const auto was = plan.planned.find(write.address + static_cast<std::int32_t>(i));
            if (write.parts[i] == Part::Kept && was != plan.planned.end()) present[was->first] = was->second;
        }
    return present;
}

/// What the registers of all its cells held, of those that aren't sent too.
std::map<std::int32_t, std::uint16_t> rowsBefore(const Plan& plan,
                                                 const compare::Controller_Registers& registers) {
    std::map<std::int32_t, std::uint16_t> before = plan.before;
    for (const Planned_Cell& cell : plan.cells)
        for (std::int32_t number = cell.registers.first; number <= cell.registers.last; ++number)
            if (const auto value = registers.valueAt(number)) before.emplace(number, *value);
    return before;
}

/// What the writes of a kept plan put into a register.
std::vector<std::uint16_t> keptValues(const Plan_Paper& paper, std::int32_t number) {
    std::vector<std::uint16_t> values;
    for (const Plan_Write& write : paper.writes) {
        if (number < write.address || write.last() < number) continue;
        const auto at = static_cast<std::size_t>(number - write.address);
        if (write.parts[at] != Part::Kept) values.push_back(write.values[at]);
    }
    return values;
}

std::string strangeText(const std::vector<Strange_Register>& strange) {
    std::string text = "Nothing is written, since these registers hold neither what was there nor what the "
                       "run left:";
    for (const Strange_Register& each : strange)
        text += " " + std::to_string(each.number) + " (" +
                (each.before ? "was " + std::to_string(*each.before) + ", " : "") + "left " +
                std::to_string(each.left) + ", now " + std::to_string(each.now) + ")";
    return text + ".";
}

std::string stalePlanText(const std::vector<Strange_Register>& strange) {
    std::string text = "The plan is stale. Nothing is written, since these registers hold neither what was "
                       "there nor what the plan writes:";
    for (const Strange_Register& each : strange)
        text += " " + std::to_string(each.number) + " (" +
                (each.before ? "was " + std::to_string(*each.before) + ", " : "") + "now " +
                std::to_string(each.now) + ")";
    return text + ".";
}

} // namespace

Session_End Session::failed(Step step, std::string why) {
    Session_End end;
    end.step = step;
    end.why = std::move(why);
    return end;
}

Session_End Session::endOf(const Controller_Look& look, Step step, std::string why) {
    Session_End end = failed(step, std::move(why));
    end.identity = look.identity;
    end.requests.reads = look.requests;
    return end;
}

// Looking.

Controller_Look Session::look(const std::set<std::int32_t>& more) {
    Whole_Reading reading =
        readWhole(services_.line, document_.unit, document_.document, document_.section, more);
    Controller_Look look;
    look.requests = reading.requests;
    look.registers = std::move(reading.registers);
    compare::Objects_Reading objects;
    if (reading.answered && !reading.cancelled)
        objects = compare::readObjects(services_.line, document_.unit, document_.section);
    look.requests += static_cast<std::size_t>(objects.answer.requests);
    reading.cancelled = reading.cancelled || objects.answer.end == Unit_End::Cancelled;
    look.identity = compare::identityOf(document_.document, document_.section, document_.unit,
                                        {look.registers, std::move(objects.objects), objects.unread});
    if (reading.cancelled || !reading.answered) {
        look.step = Step::Failed;
        look.silent = !reading.cancelled && !reading.lost && reading.requests > 0;
        look.why = reading.cancelled       ? "Stopped."
                   : reading.requests == 0 ? "The template has no register that can be read."
                                           : "The controller doesn't answer: " + endOfSentence(reading.why);
    } else if (look.identity.verdict == compare::Verdict::Isnt && !although_) {
        look.step = Step::Wrong_Controller;
        look.why = whyNot(look.identity);
    }
    return look;
}

Plan Session::plan(const Controller_Look& look, const Chosen_Cells& chosen,
                   const Controller_Look* earlier) const {
    return makePlan({document_.document, document_.section, look.registers, chosen, document_.stray,
                     earlier != nullptr ? &earlier->registers : nullptr});
}

Plan_Paper Session::paper(const Plan& plan, const Controller_Look& look) const {
    Plan_Paper paper;
    paper.templateFile = document_.templateFile;
    paper.document = document_.documentFile;
    paper.identity = identityJson(look.identity);
    paper.port = document_.port;
    paper.unit = document_.unit;
    paper.settings = formatLineSettings(document_.line);
    paper.counts = countsJson(plan.comparison.counts);
    paper.rows = Json::array();
    for (const compare::Row& row : plan.comparison.rows)
        if (row.sign != compare::Sign::Equal) paper.rows.push_back(rowJson(row));
    paper.writes = plan.writes;
    paper.before = plan.before;
    return paper;
}

Session_End Session::checkPaper(const Plan_Paper& paper) const {
    if (paper.templateFile.sha256 != document_.templateFile.sha256)
        return failed(Step::Stale, "The template was changed since the plan was made. Make a new plan.");
    if (paper.document.sha256 != document_.documentFile.sha256)
        return failed(Step::Stale, "The document was changed since the plan was made. Make a new plan.");
    if (paper.unit != document_.unit)
        return failed(Step::Stale, "The plan is for unit " + std::to_string(paper.unit) + ", not for " +
                                       std::to_string(document_.unit) + ".");
    return {};
}

Session_End Session::checkRegisters(const Plan_Paper& paper, const std::vector<Plan_Write>& writes,
                                    const Controller_Look& look) const {
    const Further_Writes further = furtherWrites(unsent(paper), writes, look.registers, document_.section);
    if (further.strange.empty()) return {};
    Session_End end = failed(Step::Stale, stalePlanText(further.strange));
    end.strange = further.strange;
    end.report = strangeReport(plannedCells(writes, document_.document), paper.before, further.strange);
    end.identity = look.identity;
    return end;
}

Session_End Session::checkWrites(const Plan_Paper& paper, const Plan& plan) {
    for (const Plan_Write& write : plan.writes)
        for (std::size_t i = 0; i < write.values.size(); ++i) {
            const std::int32_t number = write.address + static_cast<std::int32_t>(i);
            const auto kept = keptValues(paper, number);
            const bool same = std::any_of(kept.begin(), kept.end(), [&](std::uint16_t value) {
                return samePart(write.parts[i], value, write.values[i]);
            });
            if (write.parts[i] == Part::Kept || same) continue;
            return failed(Step::Stale,
                          "The plan writes " + (kept.empty() ? "nothing" : std::to_string(kept.front())) +
                              " to register " + std::to_string(number) + ", and its document has " +
                              std::to_string(write.values[i]) + " for it. Make a new plan.");
        }
    return {};
}

std::optional<std::vector<Plan_Write>> Session::completed(const Plan_Paper& paper) const {
    std::vector<Plan_Write> writes = paper.writes;
    if (!completeWrites(writes, document_.document, document_.section)) return std::nullopt;
    return writes;
}

// Sending.

Session_End Session::perform(const Task& task, Run_Folder& folder, const Controller_Look& look) {
    Run_Journal journal(folder, services_.clock);
    compare::Identity first = look.identity;
    if (setsSerial(task.writes, document_.section)) first.serial.reset(); // it will be another one
    Identity_Question question(
        {services_.line, document_.document, document_.section, std::move(first), although_.has_value()});
    const Send_Order order{task.writes,
                           task.present,
                           readBlocks(document_.document),
                           document_.section.writeOnly,
                           lineChanges(document_.document, document_.section, task.writes),
                           document_.unit,
                           document_.line,
                           document_.retries,
                           task.done};
    const Send_Outcome outcome = commission::send(
        {services_.line, question, journal, services_.stopWanted, services_.told, services_.waits}, order);
    Session_End end;
    end.run = folder.name();
    end.identity = look.identity;
    end.report = reportOf(task.cells, task.writes, task.before, outcome);
    end.requests = outcome.requests;
    end.requests.reads += look.requests;
    conclude(end, outcome, folder);
    return end;
}

void Session::conclude(Session_End& end, const Send_Outcome& outcome, Run_Folder& folder) {
    const bool all = end.report.counts.of(Value_State::Verified) == end.report.counts.rows();
    end.why = outcome.why;
    switch (outcome.end) {
    case Send_End::Finished:
        end.step = all ? Step::Good : Step::Incomplete;
        break;
    case Send_End::Unit_Taken:
        end.step = Step::Failed;
        break;
    case Send_End::Wrong_Controller:
        end.step = Step::Wrong_Controller;
        break;
    case Send_End::Interrupted:
        end.step = outcome.somethingWritten() ? Step::Incomplete : Step::Failed;
        break;
    }
    Json result = endJson(end);
    result["state"] = outcome.end == Send_End::Finished ? "finished" : "interrupted";
    result["why"] = toUtf8(end.why);
    std::string fault = folder.put(afterFile, lineText(registersJson(outcome.after.values())));
    if (fault.empty()) fault = folder.put(resultFile, lineText(result));
    if (fault.empty() || end.step == Step::Failed) return;
    end.step = end.step == Step::Good ? Step::Incomplete : end.step;
    end.why += (end.why.empty() ? "" : " ") + ("The run's folder can't be written: " + fault);
}

Run_Head Session::head() const {
    Run_Head head;
    head.model = document_.document.Controller_Model;
    head.unit = document_.unit;
    head.although = although_;
    head.program = document_.program;
    head.adapter = document_.adapter;
    return head;
}

Session_End Session::performAsRun(const Run_Head& head, const Plan_Paper& paper, const Task& task,
                                  const Controller_Look& look) {
    const Opened_Run run =
        beginRun(services_.runs, services_.clock,
                 {head, paper, document_.controllerFileName,
                  services_.controllerFile ? services_.controllerFile(look.registers) : ""});
    if (!run.folder)
        return endOf(look, Step::Failed,
                     "No run folder can be made in " + services_.runs.place() + ": " + run.why +
                         ". Nothing was sent.");
    return perform(task, *run.folder, look);
}

Session_End Session::send(const Plan& plan, const Controller_Look& look) {
    if (plan.failure)
        return failed(Step::Failed, "A download fails on field " + std::to_string(plan.failure->place.field) +
                                        ", row " + std::to_string(plan.failure->place.row) + ", column " +
                                        std::to_string(plan.failure->place.column) + ": " +
                                        plan.failure->description + ". Nothing was sent.");
    if (!plan.unread.empty())
        return endOf(look, Step::Cant_Tell,
                     "Nothing is sent, since these registers couldn't be read and a write needs them: " +
                         rangeText(plan.unread) +
                         ". Leave their values out; on a terminal --only names others.");
    const std::map<std::int32_t, std::uint16_t> before = rowsBefore(plan, look.registers);
    if (plan.writes.empty()) {
        Session_End end = endOf(look);
        end.report = reportOf(plan.cells, plan.writes, before, {});
        if (end.report.counts.rows() > 0) end.step = Step::Incomplete;
        return end;
    }
    return performAsRun(head(), paper(plan, look),
                        {plan.writes, plan.cells, before, plannedPresent(plan), {}}, look);
}

Session_End Session::objection(const Further_Writes& further, const std::vector<Plan_Write>& writes,
                               const Kept_Run& run, const Controller_Look& look) const {
    if (!further.strange.empty()) {
        Session_End end = endOf(look, Step::Stale, strangeText(further.strange));
        end.strange = further.strange;
        end.report =
            strangeReport(plannedCells(writes, document_.document), run.paper.before, further.strange);
        return end;
    }
    if (!further.unread.empty())
        return endOf(look, Step::Cant_Tell,
                     "Nothing is sent, since these registers couldn't be read: " + rangeText(further.unread) +
                         ".");
    return endOf(look);
}

Session_End Session::resume(const std::string& name, const Kept_Run& run, const Controller_Look& look) {
    const auto writes = completed(run.paper);
    if (!writes) return failed(Step::Stale, otherCells);
    const Further_Writes further = furtherWrites(run, *writes, look.registers, document_.section);
    Session_End end = objection(further, *writes, run, look);
    end.run = name;
    if (end.step != Step::Good) return end;
    const Opened_Run opened = services_.runs.open(name);
    if (!opened.folder) {
        end.step = Step::Failed;
        end.why = "The run " + name + " can't be opened: " + opened.why + ". Nothing was sent.";
        return end;
    }
    if (run.state == Run_State::Restored)
        if (const std::string fault = opened.folder->put(restoredFile, ""); !fault.empty()) {
            end.step = Step::Failed;
            end.why = "The run " + name + " can't be marked as going on: " + fault + ". Nothing was sent.";
            return end;
        }
    return perform({*writes, plannedCells(*writes, document_.document), run.paper.before,
                    presentOf(*writes, look.registers), further.done},
                   *opened.folder, look);
}

Further_Writes Session::continuation(const Kept_Run& run, const Controller_Look& look) const {
    const auto writes = completed(run.paper);
    if (!writes) return {};
    return furtherWrites(run, *writes, look.registers, document_.section);
}

Further_Writes Session::restoration(const Kept_Run& run, const Controller_Look& look) const {
    const auto writes = completed(run.paper);
    if (!writes) return {};
    return restoringWrites(run, *writes, plannedCells(*writes, document_.document), look.registers,
                           document_.section);
}

Plan_Paper Session::paperBack(const std::string& name, const Kept_Run& run,
                              const std::vector<Plan_Write>& writes, const Controller_Look& look) const {
    Plan_Paper paper = run.paper;
    paper.identity = identityJson(look.identity);
    paper.unit = document_.unit;
    paper.settings = formatLineSettings(document_.line);
    paper.port = document_.port;
    paper.writes = writes;
    paper.before = presentOf(writes, look.registers);
    paper.run = name;
    return paper;
}

Session_End Session::restore(const std::string& name, const Kept_Run& run, const Controller_Look& look) {
    const auto writes = completed(run.paper);
    if (!writes) return failed(Step::Stale, otherCells);
    const Further_Writes back = restoration(run, look);
    if (Session_End end = objection(back, *writes, run, look); end.step != Step::Good) return end;
    std::vector<Planned_Cell> cells = back.impossible;
    for (Planned_Cell& cell : plannedCells(back.writes, document_.document))
        cells.push_back(std::move(cell));
    Run_Head head = this->head();
    head.restores = name;
    const Plan_Paper paper = paperBack(name, run, back.writes, look);
    Session_End end =
        performAsRun(head, paper, {back.writes, std::move(cells), paper.before, paper.before, {}}, look);
    // What was never read can't be put back; all else has to be there, and something at least.
    const std::size_t verified = end.report.counts.of(Value_State::Verified);
    const bool all = verified + back.impossible.size() == end.report.counts.rows();
    const bool ended = end.step == Step::Good || end.step == Step::Incomplete;
    if (!ended || !all || (verified == 0 && !back.impossible.empty())) return end;
    if (const Opened_Run original = services_.runs.open(name); original.folder)
        (void)original.folder->put(restoredFile, end.run + "\n");
    return end;
}

} // namespace zorvane::commission
