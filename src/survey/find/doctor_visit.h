// SPDX-License-Identifier: MIT
#pragma once

#include "survey/find/link_doctor.h"
#include "survey/find/read_probe.h"
#include "survey/listen/frame_finder.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zorvane::survey {

/// Finds out on a port of its own why a controller doesn't answer well: listens, then goes through the steps
/// of a `Link_Doctor`, by reads alone. It never blocks: it is driven by port and clock.
class Doctor_Visit final : private Probe_Listener {
  public:
    using Done = std::function<void(const Diagnosis&)>;
    /// What is tried now, in words.
    using Told = std::function<void(const std::string&)>;

    /// Both must outlive it. `address` is the register to read, on the wire.
    Doctor_Visit(Byte_Port& port, Link_Clock& clock, const Port_Settings& settings, std::uint16_t address,
                 Told told = {});
    Doctor_Visit(const Doctor_Visit&) = delete;
    Doctor_Visit& operator=(const Doctor_Visit&) = delete;

    /// Opens the port; `done` is called once, from the event loop, after the port was closed again.
    void start(Done done);
    /// Closes the port; `done` isn't called any more.
    void cancel();

  private:
    enum class Phase { Idle, Listening, Asking, Ended };

    void readEnded(const Try_Result& result) override;
    void bytesHeard(Micros at, Byte_View bytes) override;
    void otherMasterHeard(const Foreign_Request& foreign) override;
    void portLost(const std::string& reason) override;

    void ring();
    void open();
    void endOfListening();
    void beginStep();
    void lineRefused();
    void ask();
    void endOfStep();
    void frameHeard(const Heard_Frame& frame);
    void end(Diagnosis diagnosis);

    Link_Clock& clock_;
    Port_Settings settings_;
    std::uint16_t address_;
    Link_Doctor doctor_;
    Told told_;
    Done done_;
    std::unique_ptr<Alarm> alarm_;
    Frame_Finder ear_;
    Read_Probe probe_;

    Phase phase_ = Phase::Idle;
    Line_Settings line_; ///< that the port is set to
    std::optional<Unit_Trial> trial_;
    Unit_Trial::Next next_ = Unit_Trial::Next::Ask;
    Step_Outcome outcome_;
    int ended_ = 0; ///< reads of the step
    Diagnosis diagnosis_;
};

} // namespace zorvane::survey
