// SPDX-License-Identifier: MIT
#include "commission/desk/send_desk.h"

#include "commission/desk/session_parts.h"
#include "values/code_page.h"

#include <algorithm>
#include <utility>

namespace zorvane::commission {

namespace {

/// What was read is looked at again before it is written over, if somebody thought about it for longer.
constexpr Micros freshFor = 5 * microsPerSecond;

std::set<std::int32_t> registersOf(const std::vector<Plan_Write>& writes) {
    std::set<std::int32_t> registers;
    for (const Plan_Write& write : writes)
        for (std::int32_t number = write.address; number <= write.last(); ++number)
            registers.insert(number);
    return registers;
}

bool isOpenQuestion(Desk_Stage stage) {
    return stage == Desk_Stage::Model_Asked || stage == Desk_Stage::Serial_Asked ||
           stage == Desk_Stage::Ready;
}

} // namespace

/// The line is at work as long as it is there.
class Send_Desk::Work {
  public:
    explicit Work(Send_Desk& desk) : desk_(desk) {
        desk_.atWork_ = true;
        desk_.stopAsked_ = false;
        if (desk_.services_.busy) desk_.services_.busy(true);
    }
    ~Work() {
        desk_.atWork_ = false;
        desk_.state_.stopping = false;
        desk_.state_.waiting.clear();
        if (desk_.services_.busy) desk_.services_.busy(false);
    }
    Work(const Work&) = delete;
    Work& operator=(const Work&) = delete;

  private:
    Send_Desk& desk_;
};

Send_Desk::Send_Desk(Desk_Services services, Session_Document document, Chosen_Cells chosen)
    : services_(std::move(services)), document_(std::move(document)), chosen_(std::move(chosen)) {}

bool Send_Desk::endsAtOnce() const {
    return abandoned_ || (stopAsked_ && state_.stage != Desk_Stage::Sending);
}

// What goes on.

void Send_Desk::enter(Desk_Stage stage) {
    state_.stage = stage;
    if (services_.changed) services_.changed();
}

/// What is pressed while the line is at work comes after it.
void Send_Desk::run(const std::function<void()>& work) {
    if (atWork_) {
        pending_ = work;
        return;
    }
    {
        const Work atWork(*this);
        work();
    }
    if (services_.changed) services_.changed();
    if (const auto next = std::exchange(pending_, nullptr); next && !abandoned_) run(next);
}

void Send_Desk::stop() {
    if (!atWork_) return;
    stopAsked_ = true;
    state_.stopping = state_.stage == Desk_Stage::Sending;
    if (services_.changed) services_.changed();
}

void Send_Desk::abandon() {
    abandoned_ = true;
    stopAsked_ = true;
}

void Send_Desk::close() {
    if (std::exchange(open_, false)) services_.line.close();
}

void Send_Desk::stopWith(Step step, const std::string& why) {
    close();
    state_.step = step;
    state_.why = why;
    enter(Desk_Stage::Stopped);
}

void Send_Desk::watch() {
    if (atWork_ || !open_ || !isOpenQuestion(state_.stage)) return;
    const std::vector<Register_Range> blocks = readBlocks(document_.document);
    if (blocks.empty()) return;
    atWork_ = true;
    stopAsked_ = false;
    const Unit_Answer answer = services_.line.exchanges().read(document_.unit, blocks.front().first, 1);
    if (answer.end == Unit_End::PortLost) (void)services_.line.exchanges().openAgain();
    atWork_ = false;
    const bool silent = !answer.good() && answer.end != Unit_End::Refused;
    const bool other = std::exchange(state_.silent, silent) != silent;
    if (other && services_.changed) services_.changed();
    if (const auto next = std::exchange(pending_, nullptr); next && !abandoned_) run(next);
}

// Looking.

void Send_Desk::begin() {
    run([this] { start(Desk_Task::Send, {}); });
}

void Send_Desk::start(Desk_Task task, const std::string& run) {
    close();
    state_.task = task;
    state_.rows.clear();
    state_.why.clear();
    state_.step = Step::Good;
    state_.writes = 0;
    plan_ = {};
    kept_.reset();
    if (task != Desk_Task::Send) {
        kept_ = readRun(services_.runs, run);
        if (!kept_) return stopWith(Step::Failed, "The run " + run + " can't be read.");
        if (kept_->paper.templateFile.sha256 != document_.templateFile.sha256)
            return stopWith(Step::Stale, "The template was changed since the run " + run + ".");
        if (kept_->head.although && !although_) although_ = kept_->head.although;
    }
    state_.run = run;
    findWay();
    look();
}

/// The unit and the line under which the controller answered last.
void Send_Desk::findWay() {
    const auto last = kept_                       ? kept_
                      : state_.restorable.empty() ? std::nullopt
                                                  : readRun(services_.runs, state_.restorable.back());
    if (!last) return;
    document_.unit = unitOf(*last);
    if (const auto line = parseLineSettings(settingsOf(*last))) document_.line = *line;
}

void Send_Desk::look() {
    state_.silent = false;
    enter(Desk_Stage::Looking);
    if (const std::string why = services_.line.open(document_.unit, document_.line); !why.empty())
        return stopWith(Step::Failed, why);
    open_ = true;
    session_.emplace(Session_Services{services_.line.exchanges(), services_.runs, services_.clock,
                                      [this] { return stopAsked_; },
                                      [this](std::size_t done, std::size_t) {
                                          state_.done = done;
                                          state_.waiting.clear();
                                          if (services_.changed) services_.changed();
                                      },
                                      services_.controllerFile,
                                      [this](const std::string& why) {
                                          state_.waiting = why;
                                          if (services_.changed) services_.changed();
                                      }},
                     document_);
    if (although_) session_->allow(*although_);
    look_ = session_->look(kept_ ? registersOf(kept_->paper.writes) : std::set<std::int32_t>{});
    lookedAt_ = services_.line.exchanges().now();
    state_.identity.reset();
    if (look_.step != Step::Failed) state_.identity = look_.identity;
    if (look_.step == Step::Wrong_Controller) {
        state_.why = look_.why;
        return enter(Desk_Stage::Model_Asked);
    }
    if (look_.step != Step::Good) return stopWith(look_.step, look_.why);
    afterLook();
}

/// The controller is the template's, or somebody goes on all the same.
void Send_Desk::afterLook() {
    const auto& serial = look_.identity.serial;
    if (serial && *serial != agreedSerial_) {
        const std::string known =
            services_.serials.known(serialKey(document_.documentFile.path, document_.port, document_.unit))
                .value_or("");
        state_.why = anotherSerial(known, toUtf8(*serial));
        if (!state_.why.empty()) return enter(Desk_Stage::Serial_Asked);
    }
    prepare();
}

bool Send_Desk::agreeToModel(const std::string& name) {
    if (state_.stage != Desk_Stage::Model_Asked || !isFoundModel(look_.identity, name)) return false;
    run([this, name] {
        although_ = name;
        session_->allow(name);
        look_.step = Step::Good;
        state_.why.clear();
        afterLook();
    });
    return true;
}

void Send_Desk::agreeToSerial() {
    if (state_.stage != Desk_Stage::Serial_Asked) return;
    run([this] {
        agreedSerial_ = *look_.identity.serial;
        state_.why.clear();
        prepare();
    });
}

// The rows.

void Send_Desk::prepare() {
    if (state_.task == Desk_Task::Send)
        prepareSend();
    else
        prepareFurther();
}

void Send_Desk::prepareSend() {
    findInterrupted();
    const Plan usual = session_->plan(look_, chosen_);
    if (usual.failure) {
        const Session_End end = session_->send(usual, look_);
        return stopWith(end.step, end.why);
    }
    Plan named = session_->plan(look_, Chosen_Cells::allByName());
    if (named.failure) named = usual;
    state_.rows = sendRows({document_.document, document_.section}, usual, named);
    if (state_.rows.empty() && state_.interrupted.empty())
        return stopWith(Step::Good,
                        "The controller holds all values of the document: there is nothing to send.");
    replan();
    enter(Desk_Stage::Ready);
}

void Send_Desk::prepareFurther() {
    const bool resumes = state_.task == Desk_Task::Resume;
    const Further_Writes further =
        resumes ? session_->continuation(*kept_, look_) : session_->restoration(*kept_, look_);
    if (!further.strange.empty() || !further.unread.empty()) {
        const Session_End end = resumes ? session_->resume(state_.run, *kept_, look_)
                                        : session_->restore(state_.run, *kept_, look_);
        return stopWith(end.step, end.why);
    }
    state_.rows = furtherRows({document_.document, document_.section}, further, look_.registers);
    state_.writes = further.writes.size() - further.done.size();
    if (!resumes && further.writes.empty())
        return stopWith(Step::Good,
                        "The controller holds what was there before: there is nothing to put back.");
    enter(Desk_Stage::Ready);
}

/// The newest run of this document with this controller, when it was interrupted.
void Send_Desk::findInterrupted() {
    state_.interrupted.clear();
    for (const Run_Entry& entry : listRuns(services_.runs)) {
        if (entry.document != document_.documentFile.path) continue;
        const auto run = readRun(services_.runs, entry.name);
        const bool same = run && run->paper.port == document_.port &&
                          run->paper.templateFile.sha256 == document_.templateFile.sha256 &&
                          (run->paper.unit == document_.unit || unitOf(*run) == document_.unit);
        if (!same) continue;
        if (entry.state == Run_State::Interrupted) state_.interrupted = entry.name;
        return;
    }
}

Chosen_Cells Send_Desk::ticked() const {
    std::vector<Cell_Place> places;
    for (const Desk_Row& row : state_.rows)
        if (row.ticked) places.push_back(row.place);
    return Chosen_Cells::these(places);
}

void Send_Desk::replan() {
    plan_ = session_->plan(look_, ticked());
    state_.writes = plan_.writes.size();
}

void Send_Desk::tick(std::size_t row, bool ticked) {
    if (state_.stage != Desk_Stage::Ready || state_.task != Desk_Task::Send) return;
    if (row >= state_.rows.size() || !state_.rows[row].tickable || state_.rows[row].ticked == ticked) return;
    state_.rows[row].ticked = ticked;
    replan();
    if (services_.changed) services_.changed();
}

void Send_Desk::tickAll(bool ticked) {
    if (state_.stage != Desk_Stage::Ready || state_.task != Desk_Task::Send) return;
    for (Desk_Row& row : state_.rows)
        row.ticked = ticked && row.tickable;
    replan();
    if (services_.changed) services_.changed();
}

// Sending.

void Send_Desk::act() {
    if (state_.stage != Desk_Stage::Ready) return;
    run([this] {
        if (!stillFits()) return;
        state_.done = 0;
        state_.why.clear();
        enter(Desk_Stage::Sending);
        if (state_.task == Desk_Task::Send)
            conclude(session_->send(plan_, look_));
        else if (state_.task == Desk_Task::Resume)
            conclude(session_->resume(state_.run, *kept_, look_));
        else
            conclude(session_->restore(state_.run, *kept_, look_));
    });
}

/// What was read a while ago is read again. False when it was otherwise, so that somebody has to look.
bool Send_Desk::stillFits() {
    if (services_.line.exchanges().now() - lookedAt_ <= freshFor) return true;
    enter(Desk_Stage::Looking);
    const std::size_t requests = look_.requests;
    Controller_Look fresh =
        session_->look(kept_ ? registersOf(kept_->paper.writes) : std::set<std::int32_t>{});
    fresh.requests += requests;
    lookedAt_ = services_.line.exchanges().now();
    if (fresh.step != Step::Good) {
        stopWith(fresh.step, fresh.why);
        return false;
    }
    const bool otherSerial = fresh.identity.serial != look_.identity.serial;
    const Plan_Paper paper = session_->paper(plan_, look_);
    const bool sends = state_.task == Desk_Task::Send;
    const bool fits = !sends || session_->checkRegisters(paper, plan_.writes, fresh).step == Step::Good;
    look_ = std::move(fresh);
    state_.identity = look_.identity;
    if (otherSerial) {
        afterLook();
        return false;
    }
    if (fits) return true;
    prepareSend();
    if (state_.stage == Desk_Stage::Ready)
        state_.why = "Values of the controller have changed since they were read. Look at the rows again.";
    return false;
}

void Send_Desk::conclude(Session_End end) {
    close();
    if (!end.run.empty() && look_.identity.serial) {
        const auto& writes = kept_ ? kept_->paper.writes : plan_.writes;
        const std::string fault = services_.serials.remember(
            serialKey(document_.documentFile.path, document_.port, document_.unit),
            setsSerial(writes, document_.section) ? "" : toUtf8(*look_.identity.serial));
        if (!fault.empty()) end.why += (end.why.empty() ? "" : " ") + fault;
    }
    state_.rows = endRows({document_.document, document_.section}, end.report, state_.rows);
    state_.counts = end.report.counts;
    state_.step = end.step;
    state_.why = end.why;
    auto& runs = state_.restorable;
    if (state_.task == Desk_Task::Restore) {
        const auto restored = readRun(services_.runs, state_.run);
        if (restored && restored->state == Run_State::Restored)
            runs.erase(std::remove(runs.begin(), runs.end(), state_.run), runs.end());
    } else if (!end.run.empty() && end.requests.writes > 0 &&
               std::find(runs.begin(), runs.end(), end.run) == runs.end()) {
        runs.push_back(end.run);
    }
    state_.run = end.run;
    findInterrupted();
    enter(Desk_Stage::Ended);
}

// Further tasks.

bool Send_Desk::canRetry() const {
    const auto failed = [](const Desk_Row& row) { return row.state && *row.state != Value_State::Verified; };
    return state_.stage == Desk_Stage::Ended && state_.task != Desk_Task::Restore &&
           std::any_of(state_.rows.begin(), state_.rows.end(), failed);
}

void Send_Desk::retryFailed() {
    if (!canRetry()) return;
    std::vector<Cell_Place> places;
    for (const Desk_Row& row : state_.rows)
        if (row.state && *row.state != Value_State::Verified) places.push_back(row.place);
    chosen_ = Chosen_Cells::these(places);
    run([this] { start(Desk_Task::Send, {}); });
}

void Send_Desk::resumeInterrupted() {
    if (state_.interrupted.empty()) return;
    run([this, name = state_.interrupted] { start(Desk_Task::Resume, name); });
}

void Send_Desk::restoreLast() {
    const std::string name = !state_.restorable.empty() ? state_.restorable.back() : state_.interrupted;
    if (name.empty()) return;
    run([this, name] { start(Desk_Task::Restore, name); });
}

} // namespace zorvane::commission
