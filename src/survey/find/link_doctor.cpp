// SPDX-License-Identifier: MIT
#include "survey/find/link_doctor.h"

#include "comm/modbus_control/line/network_port.h"
#include "survey/find/search_plan.h"

#include <algorithm>
#include <array>

namespace zorvane::survey {

namespace {

constexpr Micros longTimeOut = 3 * microsPerSecond;
constexpr Micros shortTimeOut = 300 * microsPerMs;
constexpr int readsAsSet = static_cast<int>(readsForProposal);
constexpr int nearBy = 5;
constexpr int lastUnitNear = 247;
constexpr std::array speeds = {9600, 19200, 38400, 115200, 57600, 4800, 2400, 1200};
/// So many of the likely settings are tried where speed and parity are both other ones.
constexpr std::size_t usualLines = 13;

std::string parityText(char parity) {
    if (parity == 'E') return "even parity";
    return parity == 'O' ? "odd parity" : "no parity";
}

std::string countText(std::int32_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

/// A gateway that speaks for the unit tells all that there is to know; one that takes its time does so in the
/// step with the long time-out.
bool gatewaySpeaks(const Doctor_Step& step, const Step_Outcome& outcome) {
    const bool asSet = step.shows == Ailment::None || step.shows == Ailment::TimeOut;
    return asSet && outcome.first == Try_Kind::Gateway;
}

std::string kindText(const Step_Outcome& outcome) {
    if (outcome.answered) return "an answer";
    if (outcome.lineRefused) return "the server doesn't take these settings";
    switch (outcome.first) {
    case Try_Kind::Silence:
        return outcome.echoed ? "only the adapter's echo" : "silence";
    case Try_Kind::Gateway:
        return "a gateway's exception";
    case Try_Kind::Stranger:
        return "an answer of another unit";
    default:
        return "no whole answer";
    }
}

} // namespace

std::string stepWords(const Doctor_Step& step, bool lineCounts) {
    return (lineCounts ? formatLineSettings(step.line) + ", " : "") + "unit " + std::to_string(step.unit) +
           ", " + std::to_string(step.timeOut / microsPerMs) + " ms";
}

std::string reportText(const Port_Settings& settings, const Diagnosis& diagnosis) {
    std::string text = "Port " + settings.port;
    if (takesLineSettings(settings.port)) text += ", " + formatLineSettings(settings.line);
    text += ", unit " + std::to_string(settings.slave) + ", time-out " + std::to_string(settings.timeOutMs) +
            " ms\n";
    for (const std::string& line : diagnosis.report)
        text += line + "\n";
    return text;
}

Link_Doctor::Link_Doctor(const Port_Settings& settings) : settings_(settings) { planSteps(); }

bool Link_Doctor::lineCounts() const { return takesLineSettings(settings_.port); }

void Link_Doctor::planSteps() {
    const Line_Settings& line = settings_.line;
    const auto unit = static_cast<std::uint8_t>(settings_.slave);
    const Micros timeOut = settings_.timeOutMs * microsPerMs;
    steps_.push_back({Ailment::None, line, unit, timeOut, readsAsSet});
    if (timeOut < longTimeOut) steps_.push_back({Ailment::TimeOut, line, unit, longTimeOut});
    const Micros wait = std::max(timeOut, shortTimeOut);
    if (lineCounts()) planOtherLines(unit, wait);
    for (int away = 1; away <= nearBy; ++away)
        for (const int other : {unit - away, unit + away})
            if (other >= 1 && other <= lastUnitNear)
                steps_.push_back({Ailment::Unit, line, static_cast<std::uint8_t>(other), wait});
    if (!lineCounts()) return;
    planOtherSpeeds(unit, wait);
    planUsualLines(unit, wait);
}

void Link_Doctor::planOtherLines(std::uint8_t unit, Micros wait) {
    const Line_Settings& line = settings_.line;
    for (const char parity : {'N', 'E', 'O'})
        if (parity != line.parity)
            steps_.push_back({Ailment::Parity, {line.baud, parity, line.dataBits, 2}, unit, wait});
    const std::int32_t otherStopBits = line.stopBits == 1 ? 2 : 1;
    steps_.push_back({Ailment::StopBits, {line.baud, line.parity, line.dataBits, otherStopBits}, unit, wait});
}

void Link_Doctor::planOtherSpeeds(std::uint8_t unit, Micros wait) {
    const Line_Settings& line = settings_.line;
    for (const std::int32_t baud : speeds)
        if (baud != line.baud)
            steps_.push_back({Ailment::Speed, {baud, line.parity, line.dataBits, 2}, unit, wait});
}

void Link_Doctor::planUsualLines(std::uint8_t unit, Micros wait) {
    const Line_Settings& line = settings_.line;
    const std::vector<Line_Candidate> likely = likelyLines({}, {});
    for (std::size_t i = 0; i < std::min(usualLines, likely.size()); ++i)
        if (likely[i].line.baud != line.baud && likely[i].line.parity != line.parity)
            steps_.push_back({Ailment::Settings, likely[i].probed(), unit, wait});
}

void Link_Doctor::take(const Step_Outcome& outcome) {
    report_.push_back(stepWords(step(), lineCounts()) + ": " + kindText(outcome));
    outcomes_.push_back(outcome);
    at_ = outcome.answered || gatewaySpeaks(step(), outcome) ? steps_.size() : at_ + 1;
}

Diagnosis Link_Doctor::diagnosis() const {
    const Step_Outcome& last = outcomes_.back();
    const Doctor_Step& step = steps_[outcomes_.size() - 1];
    Diagnosis diagnosis = last.answered               ? ofAnswer(step, last)
                          : gatewaySpeaks(step, last) ? ofGateway()
                                                      : ofNothing();
    diagnosis.report = report_;
    diagnosis.report.push_back(diagnosis.sentence);
    return diagnosis;
}

std::string Link_Doctor::unitText(std::uint8_t unit) const { return "Unit " + std::to_string(unit); }

Diagnosis Link_Doctor::ofAnswer(const Doctor_Step& step, const Step_Outcome& outcome) const {
    const std::string unit = unitText(step.unit);
    switch (step.shows) {
    case Ailment::TimeOut: {
        const std::int32_t proposal = proposedTimeOutMs(outcome.times);
        return {step.shows,
                unit + " answers only after " + std::to_string(outcome.times.p99() / microsPerMs) +
                    " ms: set the time-out to " + std::to_string(proposal) + " ms.",
                {},
                proposal};
    }
    case Ailment::Parity:
        return {step.shows, unit + " has " + parityText(step.line.parity) + ": set it here too.", {}, 0};
    case Ailment::StopBits:
        return {step.shows,
                unit + " has " + countText(step.line.stopBits, "stop bit") + ": set them here too.",
                {},
                0};
    case Ailment::Speed:
        return {
            step.shows, unit + " has " + std::to_string(step.line.baud) + " baud: set it here too.", {}, 0};
    case Ailment::Settings:
        return {step.shows,
                unit + " has " + std::to_string(step.line.baud) + " baud and " +
                    parityText(step.line.parity) + ": set both here too.",
                {},
                0};
    case Ailment::Unit:
        return {step.shows, otherUnitText(step.unit), {}, 0};
    default:
        return ofAnswerAsSet(outcome);
    }
}

/// It may as well be another controller of the line, which nobody should write to by mistake.
std::string Link_Doctor::otherUnitText(std::uint8_t other) const {
    const std::string asked = unitText(static_cast<std::uint8_t>(settings_.slave));
    return asked + " doesn't answer, but unit " + std::to_string(other) +
           " does: if that is the controller, set its number as the slave number; else check the supply "
           "and the wires of unit " +
           std::to_string(settings_.slave) + ".";
}

Diagnosis Link_Doctor::ofGateway() const {
    return {Ailment::Gateway,
            "A gateway answers, but it can't reach unit " + std::to_string(settings_.slave) +
                ": check the slave number, and the line behind the gateway.",
            {},
            0};
}

Diagnosis Link_Doctor::ofAnswerAsSet(const Step_Outcome& outcome) const {
    const std::string unit = unitText(static_cast<std::uint8_t>(settings_.slave));
    const std::int32_t proposal = proposedTimeOutMs(outcome.times);
    const std::string reads = countText(static_cast<std::int32_t>(outcome.times.count()), "read");
    if (outcome.again > 0)
        return {Ailment::Twins,
                unit + " answered twice " + countText(outcome.again, "time") + " in " + reads +
                    ": two controllers have this number; give one of them another.",
                {},
                proposal};
    if (outcome.damaged > 0)
        return {Ailment::Noise,
                countText(outcome.damaged, "answer") + " of " + unit + " came damaged beside " + reads +
                    ": terminate both ends of the line, bias it in one place, and join the grounds.",
                {},
                proposal};
    if (settings_.adapterEchoes && !outcome.echoed)
        return {Ailment::EchoSet,
                unit + " answers, but the adapter doesn't echo: clear \"Adapter echoes\".",
                {},
                proposal};
    if (!settings_.adapterEchoes && outcome.echoed)
        return {Ailment::EchoUnset,
                unit + " answers, and the adapter repeats what is sent: tick \"Adapter echoes\".",
                {},
                proposal};
    return {Ailment::None,
            "The line is good: " + unit + " answered " + reads + ", 99 % of them within " +
                std::to_string(outcome.times.p99() / microsPerMs) + " ms; a time-out of " +
                std::to_string(proposal) + " ms is enough.",
            {},
            proposal};
}

Diagnosis Link_Doctor::ofNothing() const {
    const Step_Outcome& asSet = outcomes_.front();
    const std::string unit = unitText(static_cast<std::uint8_t>(settings_.slave));
    const auto came = [this](Try_Kind kind) {
        return std::any_of(outcomes_.begin(), outcomes_.end(),
                           [kind](const Step_Outcome& outcome) { return outcome.first == kind; });
    };
    if (asSet.first == Try_Kind::Stranger)
        return {
            Ailment::Stranger,
            "Another unit answers in place of " + std::to_string(settings_.slave) +
                ": look for a gateway or an adapter that mixes up its answers, or set that unit's number.",
            {},
            0};
    if (came(Try_Kind::Damaged))
        return {Ailment::Rubbish,
                "Something answers, but never whole: two controllers have the number " +
                    std::to_string(settings_.slave) +
                    ", or the line is disturbed; leave one controller on it and test again.",
                {},
                0};
    if (asSet.echoed)
        return {Ailment::OnlyEcho,
                unit + " is silent, though the adapter repeats what is sent: exchange the wires A and B, and "
                       "check the "
                       "controller's supply.",
                {},
                0};
    return {Ailment::Silence, silenceText(), {}, 0};
}

std::string Link_Doctor::silenceText() const {
    const std::string unit = unitText(static_cast<std::uint8_t>(settings_.slave));
    const auto network = networkPort(settings_.port);
    if (network && !lineCounts())
        return unit + " is silent, though " + hostAndPort(*network) +
               " takes the connection: check the slave number, the controller's supply, and the settings of "
               "its line there.";
    return unit + " is silent at all usual settings: check its supply and its cable, exchange the wires A "
                  "and B, and "
                  "try another RTS mode.";
}

Diagnosis Link_Doctor::portFailed(const std::string& reason) {
    return {Ailment::PortFailed, reason, {reason}, 0};
}

Diagnosis Link_Doctor::otherMaster(const std::string& text) {
    return {Ailment::OtherMaster, text, {text}, 0};
}

} // namespace zorvane::survey
