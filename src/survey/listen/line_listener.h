// SPDX-License-Identifier: MIT
#pragma once

#include "survey/listen/line_table.h"
#include "survey/listen/listening_port.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace zorvane::survey {

/// What to listen to, and until when.
struct Listening_Plan {
    std::string port;
    Line_Settings line;
    std::optional<Micros> duration;      ///< none: until `stop`
    std::optional<std::uint64_t> frames; ///< ends after so many
};

/// What was heard on a line.
struct Listening_Report {
    bool opened = false;
    std::string reason; ///< why the port couldn't be opened, or that it went away; else empty
    Line_Table table;
    std::uint64_t frames = 0;
    std::uint64_t bytes = 0;      ///< all that came in
    std::uint64_t noiseBytes = 0; ///< of them in no frame
    Micros duration = 0;
};

/// Listens to a line without a byte of its own: finds the frames, puts requests and answers together, and
/// counts.
class Line_Listener final : private Byte_Port_Listener {
  public:
    using Heard = std::function<void(const Heard_Frame&)>;
    using Done = std::function<void(const Listening_Report&)>;

    /// Both must outlive it. `heard` is called for each frame as it comes.
    Line_Listener(Listening_Port& port, Link_Clock& clock, Listening_Plan plan, Heard heard = {});
    Line_Listener(const Line_Listener&) = delete;
    Line_Listener& operator=(const Line_Listener&) = delete;
    ~Line_Listener() override;

    /// Opens the port; `done` is called once, from the event loop, after the port was closed again.
    void start(Done done);
    void stop();
    /// What was heard so far.
    [[nodiscard]] const Listening_Report& reportSoFar();

  private:
    void bytesArrived(Byte_View bytes) override;
    void portLost(const std::string& reason) override;

    void ring();
    void finish();
    void count();
    void take(Byte_View bytes);
    void frameHeard(const Heard_Frame& frame);
    [[nodiscard]] Micros endTime() const;
    void arm();

    Listening_Port& port_;
    Link_Clock& clock_;
    Listening_Plan plan_;
    Heard heard_;
    Done done_;
    std::unique_ptr<Alarm> alarm_;
    Frame_Finder finder_;
    Heard_Exchanges exchanges_;
    Listening_Report report_;
    Micros startedAt_ = 0;
    Micros lastByteAt_ = 0;
    bool ended_ = false;
};

} // namespace zorvane::survey
