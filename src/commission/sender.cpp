// SPDX-License-Identifier: MIT
#include "commission/sender.h"

#include "commission/line_following.h"
#include "commission/sending_rules.h"
#include "commission/touched_reading.h"

#include <algorithm>
#include <utility>

namespace zorvane::commission {

namespace {

constexpr Micros storingTime = 2 * microsPerSecond; ///< a controller may store a value so late
constexpr Micros betweenReadings = 200 * microsPerMs;
constexpr Micros questionPeriod = 5 * microsPerSecond;
constexpr std::size_t questionWrites = 50;
constexpr Micros comeBackPause = 500 * microsPerMs;

/// What a step leads to.
enum class Next { Go_On, Stop };

class Sender {
  public:
    Sender(const Send_Services& services, const Send_Order& order)
        : line_(services.line), question_(services.question), journal_(services.journal),
          stopWanted_(services.stopWanted), told_(services.told), waits_(services.waits), order_(order),
          states_(order.writes, order.writeOnly, order.done), way_{order.unit, order.line},
          present_(order.before) {}

    Send_Outcome run() {
        if (begin() == Next::Go_On) (void)sendAll();
        if (outcome_.end != Send_End::Wrong_Controller && outcome_.end != Send_End::Unit_Taken) readBack();
        end();
        return std::move(outcome_);
    }

  private:
    [[nodiscard]] const Plan_Write& write(std::size_t number) const { return states_.plan(number); }
    [[nodiscard]] Write_Record& record(std::size_t number) { return states_.record(number); }

    Next stop(Send_End end, std::string why) {
        outcome_.end = end;
        outcome_.why = std::move(why);
        return Next::Stop;
    }

    // Before the first write.

    Next begin() {
        if (!journal_.note("begin", {{"unit", way_.unit}, {"writes", states_.size()}})) return folderLost();
        if (!states_.someWait()) return Next::Go_On;
        if (askQuestion() == Next::Stop) return Next::Stop;
        return askNewUnits();
    }

    /// A number that somebody answers to would be two controllers' afterwards.
    Next askNewUnits() {
        for (const Line_Change& change : order_.lineChanges) {
            const bool open = record(change.write).progress == Write_Progress::Waiting;
            if (!open || !change.unit || *change.unit == way_.unit) continue;
            Unit_Answer answer = read(*change.unit, write(change.write).address, 1);
            if (answer.end == Unit_End::PortLost) { // nobody heard the question
                if (askQuestion() == Next::Stop) return Next::Stop;
                answer = read(*change.unit, write(change.write).address, 1);
            }
            const bool answered = answer.good() || answer.end == Unit_End::Refused || answer.damaged > 0;
            if (answered)
                return stop(Send_End::Unit_Taken,
                            "Unit " + std::to_string(*change.unit) +
                                " answers already, so the controller can't get this number.");
            if (answer.end == Unit_End::Cancelled) return stop(Send_End::Interrupted, "Stopped.");
            if (answer.end != Unit_End::Silent)
                return stop(Send_End::Interrupted, "Whether somebody answers to unit " +
                                                       std::to_string(*change.unit) +
                                                       " already couldn't be asked: " + answer.fault);
        }
        return Next::Go_On;
    }

    [[nodiscard]] bool isStopped() const { return line_.cancelled() || (stopWanted_ && stopWanted_()); }

    Next folderLost() {
        return stop(Send_End::Interrupted, "The run's folder can't be written: " + journal_.fault());
    }

    // Requests.

    Unit_Answer read(std::int32_t unit, std::int32_t first, std::int32_t count) {
        Unit_Answer answer = line_.read(unit, first, count);
        outcome_.requests.reads += static_cast<std::size_t>(answer.requests);
        outcome_.requests.damaged += static_cast<std::size_t>(answer.damaged);
        return answer;
    }

    Next askQuestion() {
        Question_Answer answer = question_.ask(way_.unit);
        outcome_.requests.reads += static_cast<std::size_t>(answer.requests);
        const Micros until = line_.now() + comeBackTime;
        const auto isAway = [&] {
            return answer.end == Question_End::Silent || answer.end == Question_End::Lost;
        };
        if (waits_ && isAway() && !isStopped()) waits_(answer.why);
        while (isAway()) {
            if (line_.now() >= until || isStopped()) break;
            line_.pause(comeBackPause);
            if (!line_.openAgain()) continue;
            answer = question_.ask(way_.unit);
            outcome_.requests.reads += static_cast<std::size_t>(answer.requests);
        }
        lastQuestion_ = line_.now();
        const std::set<std::size_t> since = std::exchange(sinceQuestion_, {});
        if (!journal_.note("identity", {{"verdict", answer.word}, {"why", answer.why}})) return folderLost();
        if (answer.end == Question_End::Go_On) return Next::Go_On;
        if (answer.end == Question_End::Wrong) return wrongController(since, answer.why);
        return stop(Send_End::Interrupted, answer.end == Question_End::Cancelled ? "Stopped." : answer.why);
    }

    /// What went out since the controller was last known may have gone to the other one.
    Next wrongController(const std::set<std::size_t>& since, std::string why) {
        for (const std::size_t number : since)
            record(number).astray = true;
        return stop(Send_End::Wrong_Controller, std::move(why));
    }

    // The writes.

    Next sendAll() {
        for (std::size_t number = 0; number < states_.size(); ++number) {
            if (record(number).progress != Write_Progress::Waiting) continue;
            if (isStopped()) return stop(Send_End::Interrupted, "Stopped.");
            if (questionIsDue() && checkWhatWasSent() == Next::Stop) return Next::Stop;
            if (sendOne(number) == Next::Stop) return Next::Stop;
            if (told_) told_(number + 1, states_.size());
        }
        return Next::Go_On;
    }

    [[nodiscard]] bool questionIsDue() const {
        return !sinceQuestion_.empty() &&
               (sinceQuestion_.size() >= questionWrites || line_.now() - lastQuestion_ >= questionPeriod);
    }

    /// What was read counts only once it is known whom it was read from.
    Next checkWhatWasSent() {
        const compare::Controller_Registers now = readTouched(false);
        if (askQuestion() == Next::Stop) return Next::Stop;
        judge(now, false);
        return Next::Go_On;
    }

    Next sendOne(std::size_t number) {
        for (std::int32_t tries = 0;; ++tries) {
            const auto values = compose(number);
            if (!values) return stopped_ ? Next::Stop : Next::Go_On;
            record(number).sent = *values;
            if (!noteIntent(number, *values)) return folderLost();
            const Unit_Answer answer =
                line_.write(way_.unit, write(number).function, write(number).address, *values);
            outcome_.requests.writes += static_cast<std::size_t>(answer.requests);
            outcome_.requests.damaged += static_cast<std::size_t>(answer.damaged);
            lastWrite_ = line_.now();
            if (const Next next = takeAnswer(number, answer); next == Next::Stop) return next;
            if (const Line_Change* change = changeOf(number)) return follow(number, *change, answer);
            if (!mayHaveBeenTaken(answer)) {
                if (!isBusy(answer) || tries >= order_.retries) return Next::Go_On;
                record(number).progress = Write_Progress::Waiting;
                line_.pause(betweenReadings);
                continue;
            }
            if (answer.good()) return Next::Go_On;
            // Who knows what became of it.
            if (askQuestion() == Next::Stop) return Next::Stop;
            if (wasTaken(number) || tries >= order_.retries) return Next::Go_On;
        }
    }

    /// What goes out over the registers as they are now. Nothing when it can't be sent.
    std::optional<std::vector<std::uint16_t>> compose(std::size_t number) {
        const Plan_Write& plan = write(number);
        stopped_ = false;
        if (!plan.composedFromReading()) return plan.values;
        const auto now = readPresent(number);
        if (!now) return std::nullopt;
        if (auto why = otherwiseThanBefore(plan, present_, *now)) {
            leaveOut(number, std::move(*why));
            return std::nullopt;
        }
        return composedWrite(plan, *now);
    }

    /// The registers of a write as they are now, without those that can only be written. Nothing when one
    /// can't be read.
    std::optional<compare::Controller_Registers> readPresent(std::size_t number) {
        compare::Controller_Registers now;
        for (const Register_Range& row : states_.readableRows(number)) {
            const Unit_Answer answer = read(way_.unit, row.first, row.last - row.first + 1);
            if (!answer.good()) {
                notRead(number, answer);
                return std::nullopt;
            }
            now.take(row.first, answer.values);
        }
        return now;
    }

    void notRead(std::size_t number, const Unit_Answer& answer) {
        stopped_ = answer.end == Unit_End::Cancelled;
        if (stopped_) {
            (void)stop(Send_End::Interrupted, "Stopped.");
            return;
        }
        leaveOut(number, "its registers couldn't be read just before: " + answer.fault);
        if (answer.end == Unit_End::Silent || answer.end == Unit_End::PortLost)
            stopped_ = askQuestion() == Next::Stop;
    }

    void leaveOut(std::size_t number, std::string why) {
        record(number).progress = Write_Progress::Left_Out;
        record(number).answer = std::move(why);
        journal_.note("left out", {{"write", number}, {"why", record(number).answer}});
    }

    bool noteIntent(std::size_t number, const std::vector<std::uint16_t>& values) {
        return journal_.note("write", {{"write", number},
                                       {"unit", way_.unit},
                                       {"function", static_cast<int>(write(number).function)},
                                       {"address", write(number).address},
                                       {"values", values}});
    }

    Next takeAnswer(std::size_t number, const Unit_Answer& answer) {
        Write_Record& each = record(number);
        each.answer = answer.fault;
        each.answered = answer.good();
        if (answer.end == Unit_End::Cancelled) {
            each.answer.clear();
            journal_.note("answer", {{"write", number}, {"end", "not sent"}});
            return stop(Send_End::Interrupted, "Stopped.");
        }
        if (mayHaveBeenTaken(answer)) {
            each.progress = Write_Progress::Sent;
            each.verified = false;
            sinceQuestion_.insert(number);
            for (std::size_t i = 0; i < each.sent.size() && answer.good(); ++i)
                present_[write(number).address + static_cast<std::int32_t>(i)] = each.sent[i];
        } else {
            each.progress =
                answer.end == Unit_End::Refused ? Write_Progress::Refused : Write_Progress::Left_Out;
        }
        Json members{{"write", number}, {"end", writeEndWord(answer.end)}};
        if (!answer.fault.empty()) members["fault"] = answer.fault;
        if (answer.answerTime > 0) members["us"] = answer.answerTime;
        return journal_.note("answer", std::move(members)) ? Next::Go_On : folderLost();
    }

    /// After a write without an answer: whether the controller has it, or something else than before, or
    /// can't be read. False when it still has what was there: then it may be sent again.
    bool wasTaken(std::size_t number) {
        const Plan_Write& plan = write(number);
        if (states_.cantBeReadBack(number)) return true;
        const Unit_Answer answer =
            read(way_.unit, plan.address, static_cast<std::int32_t>(plan.values.size()));
        if (!answer.good()) return true;
        journal_.note("read", {{"address", plan.address}, {"values", answer.values}});
        return !isAsBefore(plan, present_, answer.values);
    }

    // What changes the line.

    [[nodiscard]] const Line_Change* changeOf(std::size_t number) const {
        const auto found =
            std::find_if(order_.lineChanges.begin(), order_.lineChanges.end(),
                         [number](const Line_Change& change) { return change.write == number; });
        return found == order_.lineChanges.end() ? nullptr : &*found;
    }

    Next follow(std::size_t number, const Line_Change& change, const Unit_Answer& answer) {
        if (!mayHaveBeenTaken(answer)) return Next::Go_On;
        const auto followed = followLine(
            line_,
            [this](std::int32_t unit, std::int32_t first, std::int32_t count) {
                return read(unit, first, count);
            },
            write(number), change, way_, comeBackTime, [this] { return isStopped(); });
        if (!followed)
            return stop(Send_End::Interrupted,
                        "After the line was changed the controller answers neither in the "
                        "new way nor in the old one with the new value.");
        way_ = followed->way;
        record(number).answer = followed->fresh
                                    ? "the controller answers in the new way"
                                    : "the controller still answers in the old way: switch it off and on";
        const bool noted =
            journal_.note("line", {{"unit", way_.unit}, {"line", formatLineSettings(way_.line)}});
        return noted ? Next::Go_On : folderLost();
    }

    // Reading back.

    /// The registers of what was sent, `all` or only what isn't verified yet.
    compare::Controller_Registers readTouched(bool all) {
        return readRegisters(
            states_.touched(all), order_.blocks, order_.writeOnly,
            [this](std::int32_t first, std::int32_t count) { return read(way_.unit, first, count); });
    }

    /// What a reading after the writes says of them.
    void judge(const compare::Controller_Registers& now, bool last) {
        for (const std::size_t number : states_.judge(now, last))
            sinceQuestion_.erase(number);
        for (const auto& [address, value] : now.values())
            outcome_.after.take(address, {value});
    }

    /// Read back for as long as a controller may take to store; then all once more, unless that reading was
    /// of all. What was read counts only when the controller is still the same after it.
    void readBack() {
        if (!states_.someWereSent()) return;
        const bool early = states_.someAreVerified();
        compare::Controller_Registers now = readTouched(false);
        bool repeated = false;
        while (!states_.allThere(now) && line_.now() < lastWrite_ + storingTime && !line_.cancelled()) {
            line_.pause(betweenReadings);
            now = readTouched(false);
            repeated = true;
        }
        std::optional<compare::Controller_Registers> once;
        if (early || repeated) once = readTouched(true);
        if (confirmController() == Next::Stop) return;
        judge(now, false);
        if (once) judge(*once, true);
    }

    /// A send that is to end still asks who was read back.
    Next confirmController() {
        const Question_Answer answer = question_.ask(way_.unit);
        outcome_.requests.reads += static_cast<std::size_t>(answer.requests);
        journal_.note("identity", {{"verdict", answer.word}, {"why", answer.why}});
        if (answer.end == Question_End::Wrong) return wrongController(sinceQuestion_, answer.why);
        if (answer.end == Question_End::Go_On) return Next::Go_On;
        if (outcome_.end == Send_End::Finished) return stop(Send_End::Interrupted, answer.why);
        return Next::Stop;
    }

    void end() {
        outcome_.unit = way_.unit;
        Json verified = Json::array();
        for (std::size_t number = 0; number < states_.size(); ++number)
            if (record(number).verified) verified.push_back(number);
        journal_.note("end", {{"end", outcome_.end == Send_End::Finished ? "finished" : "interrupted"},
                              {"why", outcome_.why},
                              {"verified", verified}});
        outcome_.writes = states_.take();
    }

    Unit_Writer& line_;
    Controller_Question& question_;
    Run_Journal& journal_;
    std::function<bool()> stopWanted_;
    std::function<void(std::size_t, std::size_t)> told_;
    std::function<void(const std::string&)> waits_;
    const Send_Order& order_;
    Write_States states_;
    Line_Way way_; ///< how the controller is reached now
    Known_Values present_;
    Send_Outcome outcome_;
    Micros lastWrite_ = 0;
    Micros lastQuestion_ = 0;
    std::set<std::size_t> sinceQuestion_; ///< writes since somebody was known to be there
    bool stopped_ = false;
};

} // namespace

bool Send_Outcome::somethingWritten() const { return requests.writes > 0; }

Send_Outcome send(const Send_Services& services, const Send_Order& order) {
    return Sender(services, order).run();
}

} // namespace zorvane::commission
