// SPDX-License-Identifier: MIT
#include "commission/identity_question.h"

#include "comm/modbus_control/line/port_texts.h"
#include "compare/controller_reading.h"

#include <algorithm>
#include <string>
#include <utility>

namespace zorvane::commission {

namespace {

/// How a reading that brought nothing ends the question; nothing for a refusal, which is an answer.
std::optional<Question_End> endOf(const Unit_Answer& answer) {
    switch (answer.end) {
    case Unit_End::Answered:
    case Unit_End::Refused:
        return std::nullopt;
    case Unit_End::PortLost:
        return Question_End::Lost;
    case Unit_End::Cancelled:
        return Question_End::Cancelled;
    case Unit_End::Silent:
    case Unit_End::NotSent:
        break;
    }
    return Question_End::Silent;
}

Question_Answer ended(Question_Answer answer, Question_End end, const std::string& fault) {
    answer.end = end;
    answer.word = compare::verdictWord(compare::Verdict::Cant_Tell);
    answer.why = end == Question_End::Cancelled ? "Stopped."
                                                : "The controller doesn't answer: " + endOfSentence(fault);
    return answer;
}

/// "register 320-327 (model) holds KVRT100 instead of KVRT207D".
std::string misfitText(const compare::Evidence& evidence) {
    std::string text = compare::placeText(evidence);
    if (!evidence.what.empty()) text += " (" + evidence.what + ")";
    return text + " holds \"" + evidence.found + "\" instead of \"" + evidence.expected + "\"";
}

} // namespace

std::vector<Register_Range> Identity_Question::reads() const {
    std::vector<Register_Range> ranges = identityReadsAgain(setup_.document, setup_.section);
    const auto& blocks = setup_.document.Holding_Blocks;
    if (ranges.empty() && blocks.dimensioned() && blocks.upperBound() >= 1)
        ranges.push_back({blocks(1).First_Address, blocks(1).First_Address});
    return ranges;
}

Question_Answer Identity_Question::ask(std::int32_t unit) {
    Question_Answer answer;
    answer.word = compare::verdictWord(setup_.first.verdict);
    compare::Controller_Registers registers;
    for (const Register_Range& range : reads()) {
        const Unit_Answer read = setup_.line.read(unit, range.first, range.last - range.first + 1);
        answer.requests += read.requests;
        if (const auto end = endOf(read)) return ended(answer, *end, read.fault);
        if (read.good())
            registers.take(range.first, read.values);
        else
            registers.fail(range, {read.exception});
    }
    compare::Objects_Reading objects;
    if (toldByObjects()) {
        objects = compare::readObjects(setup_.line, unit, setup_.section);
        answer.requests += objects.answer.requests;
        if (const auto end = endOf(objects.answer)) return ended(answer, *end, objects.answer.fault);
    }
    if (objects.objects || !identityReadsAgain(setup_.document, setup_.section).empty())
        judge(answer, compare::identityByMarks(setup_.section, setup_.document.Controller_Model, unit,
                                               {registers, std::move(objects.objects), objects.unread}));
    return answer;
}

/// A controller that gave no objects at first isn't asked for them again and again.
bool Identity_Question::toldByObjects() const {
    const auto& evidence = setup_.first.evidence;
    return std::any_of(evidence.begin(), evidence.end(), [](const compare::Evidence& each) {
        return compare::isObject(each) && each.result != compare::Fit::Not_Read;
    });
}

void Identity_Question::judge(Question_Answer& answer, compare::Identity now) const {
    now = compare::identityAgain(setup_.first, std::move(now));
    answer.word = compare::verdictWord(now.verdict);
    if (now.serial && setup_.first.serial && *now.serial != *setup_.first.serial) {
        answer.end = Question_End::Wrong;
        answer.word = compare::verdictWord(compare::Verdict::Isnt);
        answer.why = "Another controller answers: its serial number is \"" + *now.serial + "\" and was \"" +
                     *setup_.first.serial + "\".";
        return;
    }
    if (now.verdict != compare::Verdict::Isnt || setup_.although) return;
    answer.end = Question_End::Wrong;
    answer.why = "The controller isn't a " + now.model;
    for (const compare::Evidence& each : now.evidence)
        if (each.result == compare::Fit::Doesnt_Fit) {
            answer.why += ": " + misfitText(each);
            break;
        }
    answer.why += ".";
}

} // namespace zorvane::commission
