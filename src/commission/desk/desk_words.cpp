// SPDX-License-Identifier: MIT
#include "commission/desk/desk_words.h"

#include "values/code_page.h"

#include <algorithm>
#include <array>

namespace zorvane::commission {

namespace {

std::string counted(std::size_t count, const char* one, const char* more) {
    return std::to_string(count) + " " + (count == 1 ? one : more);
}

std::string evidenceText(const compare::Evidence& evidence) {
    std::string text = compare::isObject(evidence) ? "" : "Register ";
    text += toUtf8(evidence.registers);
    if (!evidence.what.empty()) text += " (" + toUtf8(evidence.what) + ")";
    switch (evidence.result) {
    case compare::Fit::Fits:
        return text + " fits: \"" + toUtf8(evidence.found) + "\".";
    case compare::Fit::Doesnt_Fit:
        if (compare::isRefusedBlock(evidence))
            return text + " doesn't fit: it can't be read, " + toUtf8(evidence.found) + ".";
        return text + " doesn't fit: \"" + toUtf8(evidence.found) + "\" instead of \"" +
               toUtf8(evidence.expected) + "\".";
    case compare::Fit::Not_Read:
        break;
    }
    return text + " wasn't read" + (evidence.unread ? ": " + toUtf8(evidence.unread->text()) : "") + ".";
}

/// The rows whose note begins with these words.
std::string namesOf(const std::vector<Desk_Row>& rows, std::string_view note) {
    constexpr std::size_t most = 3;
    std::string names;
    std::size_t count = 0;
    for (const Desk_Row& row : rows) {
        if (!row.ticked || row.note.rfind(note, 0) != 0) continue;
        if (++count > most) continue;
        names += (names.empty() ? "" : ", ") + toUtf8(row.page) + "/" + toUtf8(row.name);
    }
    if (count > most) names += " and " + std::to_string(count - most) + " more";
    return names;
}

std::string workText(const Desk_State& state) {
    if (state.stopping) return "Ending after the present value...";
    static constexpr std::array<const char*, 3> words = {"Sending", "Going on with the interrupted send",
                                                         "Putting back what was there before"};
    std::string text = words[static_cast<std::size_t>(state.task)];
    return text + ": " + std::to_string(state.done) + " of " + counted(state.writes, "write", "writes") + ".";
}

std::string readyText(const Desk_State& state) {
    switch (state.task) {
    case Desk_Task::Send:
        return state.rows.empty()
                   ? "The controller holds all values of the document."
                   : "These values of the controller differ from the document. Nothing goes out "
                     "before you press Send.";
    case Desk_Task::Resume:
        return state.rows.empty()
                   ? "All values of the interrupted send are there already. Resume reads them back."
                   : "These values of the interrupted send are still to go out.";
    case Desk_Task::Restore:
        break;
    }
    return "These values are put back as they were before the send, in reverse order.";
}

std::string endText(const Desk_State& state) {
    const bool restored = state.task == Desk_Task::Restore;
    if (state.step == Step::Good)
        return restored ? "All of it was put back." : "All of it was sent and read back.";
    if (state.step == Step::Failed) return "Nothing was sent.";
    return restored ? "Not all of it was put back." : "Not all of it was sent and read back.";
}

} // namespace

std::string identityText(const compare::Identity& identity) {
    const std::string model = toUtf8(identity.model);
    std::string text;
    switch (identity.verdict) {
    case compare::Verdict::Is:
        text = "The controller at unit " + std::to_string(identity.unit) + " is a " + model + ".";
        break;
    case compare::Verdict::Isnt:
        text = "The controller at unit " + std::to_string(identity.unit) + " isn't a " + model + ".";
        break;
    case compare::Verdict::Cant_Tell:
        text = "It can't be told whether the controller at unit " + std::to_string(identity.unit) + " is a " +
               model + ".";
        break;
    }
    if (identity.serial) text += " Its serial number is " + toUtf8(*identity.serial) + ".";
    if (identity.firmware) text += " Its firmware is " + toUtf8(*identity.firmware) + ".";
    return text;
}

std::vector<std::string> evidenceTexts(const compare::Identity& identity) {
    std::vector<std::string> texts;
    for (const compare::Evidence& each : identity.evidence)
        texts.push_back(evidenceText(each));
    if (texts.empty() && identity.verdict == compare::Verdict::Cant_Tell)
        texts.emplace_back(
            "The template doesn't say by what its controller is told; what was read doesn't speak "
            "against it.");
    return texts;
}

std::string waitText(const std::string& why) {
    return why + " It is waited for, for " + std::to_string(comeBackTime / microsPerSecond) +
           " seconds at most.";
}

std::string headline(const Desk_State& state) {
    switch (state.stage) {
    case Desk_Stage::Looking:
        return "Reading the controller...";
    case Desk_Stage::Stopped:
        return state.step == Step::Good ? state.why : "Nothing is sent. " + state.why;
    case Desk_Stage::Model_Asked:
        return state.why + " To go on all the same, type the name of the model " +
               (state.identity ? toUtf8(state.identity->model) : "") + ".";
    case Desk_Stage::Serial_Asked:
        return state.why + " Do you want to send to this one?";
    case Desk_Stage::Ready:
        return state.why.empty() ? readyText(state) : state.why;
    case Desk_Stage::Sending:
        return workText(state);
    case Desk_Stage::Ended:
        break;
    }
    return endText(state) + (state.why.empty() ? "" : " " + state.why);
}

std::string notice(const Desk_State& state) {
    std::string text;
    const auto add = [&text](const std::string& sentence) { text += (text.empty() ? "" : " ") + sentence; };
    if (state.stage == Desk_Stage::Ready) {
        if (const std::string names = namesOf(state.rows, "goes out after all others"); !names.empty())
            add("This may stop a process: " + names + ". It goes out after all others.");
        if (const std::string names = namesOf(state.rows, "goes out last of all"); !names.empty())
            add("This changes the line itself: " + names + ". It goes out last of all.");
        if (state.task == Desk_Task::Send && !state.interrupted.empty())
            add("The send " + state.interrupted +
                " was interrupted. Resume goes on with it, Restore takes it "
                "back.");
    }
    const bool asks = state.stage == Desk_Stage::Model_Asked || state.stage == Desk_Stage::Serial_Asked ||
                      state.stage == Desk_Stage::Ready;
    if (asks && state.silent) add("The controller doesn't answer now.");
    if (state.stage == Desk_Stage::Sending && !state.waiting.empty()) add(waitText(state.waiting));
    if (state.stage == Desk_Stage::Ended && state.step != Step::Good && !state.restorable.empty())
        add("The controller works with what it has now; it takes nothing back by itself.");
    return text;
}

std::string sumLine(const Desk_State& state) {
    if (state.stage == Desk_Stage::Ended) return state.counts.rows() == 0 ? "" : countsText(state.counts);
    if (state.stage != Desk_Stage::Ready && state.stage != Desk_Stage::Sending) return "";
    const Row_Counts counts = countsOf(state.rows);
    const std::string chosen = state.task == Desk_Task::Send
                                   ? " with a tick, " + std::to_string(counts.unticked) + " without, "
                                   : std::string(counts.ticked == 1 ? " goes out, " : " go out, ");
    const std::string text = counted(counts.rows(), "value: ", "values: ") + std::to_string(counts.ticked) +
                             chosen + std::to_string(counts.impossible) + " can't be sent. ";
    return text + counted(state.writes, "write", "writes") + ".";
}

std::string countsText(const Value_Counts& counts) {
    std::string text = std::to_string(counts.of(Value_State::Verified)) + " of " +
                       std::to_string(counts.rows()) + " values verified";
    for (const Value_State state :
         {Value_State::Refused, Value_State::Stored_Otherwise, Value_State::Unknown, Value_State::Not_Sent})
        if (counts.of(state) > 0) text += ", " + std::to_string(counts.of(state)) + " " + stateName(state);
    return text + ".";
}

std::string stateName(Value_State state) {
    std::string word(valueStateWord(state));
    std::replace(word.begin(), word.end(), '_', ' ');
    return word;
}

std::string_view stateMark(Value_State state) noexcept {
    // A tick, a cross, the sign of inequality, a question mark and a dash.
    static constexpr std::array<std::string_view, allValueStates.size()> marks = {
        "\xE2\x9C\x93", "\xE2\x9C\x97", "\xE2\x89\xA0", "?", "\xE2\x80\x93"};
    return marks[static_cast<std::size_t>(state)];
}

std::string_view actCaption(Desk_Task task) noexcept {
    static constexpr std::array<std::string_view, 3> words = {"Send", "Resume", "Restore"};
    return words[static_cast<std::size_t>(task)];
}

bool canAct(const Desk_State& state) {
    if (state.stage != Desk_Stage::Ready) return false;
    return state.writes > 0 || state.task == Desk_Task::Resume;
}

} // namespace zorvane::commission
