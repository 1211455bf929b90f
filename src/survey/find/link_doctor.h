// SPDX-License-Identifier: MIT
#pragma once

#include "survey/find/unit_trial.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zorvane::survey {

/// What may be wrong between a program and its controller.
enum class Ailment {
    None,
    PortFailed,
    OtherMaster,
    TimeOut,   ///< it answers later than the time-out
    Parity,    ///< it has another parity
    StopBits,  ///< it has another number of stop bits
    Speed,     ///< it has another baud rate
    Settings,  ///< it has another baud rate and another parity
    Unit,      ///< another number near by answers
    Twins,     ///< two controllers have this number
    Noise,     ///< some answers come damaged
    Gateway,   ///< a gateway can't reach the unit
    EchoUnset, ///< the adapter echoes, and the settings don't say so
    EchoSet,   ///< the settings say so, and it doesn't
    OnlyEcho,  ///< nothing but the adapter's echo comes back
    Stranger,  ///< another unit answers for it
    Rubbish,   ///< what comes back is never whole
    Silence,
};

/// What is tried: reads of one unit, with these settings. Each of them is harmless.
struct Doctor_Step {
    Ailment shows = Ailment::None; ///< what is wrong if a controller answers
    Line_Settings line;
    std::uint8_t unit = 1;
    Micros timeOut = 0;
    int reads = 3;
};

/// What came of a step.
struct Step_Outcome {
    bool answered = false; ///< the unit is there for certain
    Try_Kind first = Try_Kind::Silence;
    bool echoed = false;
    bool lineRefused = false; ///< nothing was asked: a server on the network doesn't take the settings
    std::int32_t damaged = 0; ///< answers that came damaged
    std::int32_t again = 0;   ///< answers that came twice
    Answer_Times times{};
};

/// The end: one sentence with cause and remedy, and what was tried, a line each, to be copied.
struct Diagnosis {
    Ailment ailment = Ailment::Silence;
    std::string sentence;
    std::vector<std::string> report;
    std::int32_t proposedTimeOutMs = 0; ///< 0: none
};

/// "9600,n,8,1, unit 3, 200 ms"; without the line at a port that takes none.
[[nodiscard]] std::string stepWords(const Doctor_Step& step, bool lineCounts);

/// All that is known, to be copied: the settings, what was tried, and the sentence, a line each.
[[nodiscard]] std::string reportText(const Port_Settings& settings, const Diagnosis& diagnosis);

/// The questions that one read can't answer, in the order of what is wrong most often: as set, with a long
/// time-out, other parities, stop bits, the numbers near by, other speeds, and both other where that is
/// usual. A port that takes no settings of a line is asked with other time-outs and numbers alone. It decides
/// and sends nothing.
class Link_Doctor {
  public:
    explicit Link_Doctor(const Port_Settings& settings);

    /// Whether there is a further step, and which.
    [[nodiscard]] bool done() const { return at_ >= steps_.size(); }
    [[nodiscard]] const Doctor_Step& step() const { return steps_[at_]; }
    /// The step has ended. An answer ends the sequence.
    void take(const Step_Outcome& outcome);

    /// REQUIRES: done.
    [[nodiscard]] Diagnosis diagnosis() const;
    /// The ends that need no steps.
    [[nodiscard]] static Diagnosis portFailed(const std::string& reason);
    [[nodiscard]] static Diagnosis otherMaster(const std::string& text);

  private:
    void planSteps();
    void planOtherLines(std::uint8_t unit, Micros wait);
    void planOtherSpeeds(std::uint8_t unit, Micros wait);
    void planUsualLines(std::uint8_t unit, Micros wait);
    [[nodiscard]] bool lineCounts() const;
    [[nodiscard]] std::string silenceText() const;
    [[nodiscard]] Diagnosis ofAnswer(const Doctor_Step& step, const Step_Outcome& outcome) const;
    [[nodiscard]] Diagnosis ofAnswerAsSet(const Step_Outcome& outcome) const;
    [[nodiscard]] Diagnosis ofNothing() const;
    [[nodiscard]] Diagnosis ofGateway() const;
    [[nodiscard]] std::string otherUnitText(std::uint8_t other) const;
    [[nodiscard]] std::string unitText(std::uint8_t unit) const;

    Port_Settings settings_;
    std::vector<Doctor_Step> steps_;
    std::vector<Step_Outcome> outcomes_;
    std::vector<std::string> report_;
    std::size_t at_ = 0;
};

} // namespace zorvane::survey
