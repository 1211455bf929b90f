// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/controller/controller.h"
#include "simulator/line/frame_log.h"
#include "simulator/line/line_framing.h"
#include "simulator/line/line_pace.h"
#include "simulator/line/line_port.h"
#include "simulator/line/send_queue.h"
#include "simulator/wire/unique_fd_linux.h"

#include <chrono>
#include <optional>

namespace zorvane::simulator {

/// Serves a controller on a line: gathers requests, and lets answers out at the line's pace. It sleeps until
/// bytes, a signal or a moment of the schedule come.
class Line_Server {
  public:
    struct Timing {
        Line_Pace pace;
        std::chrono::milliseconds turnaround{0}; ///< from the end of the request's silence to the answer
    };

    /// All must outlive it.
    Line_Server(Line_Port& port, Line_Framing& framing, Controller& controller, Frame_Log& log,
                Timing timing);

    /// Until `stopFd` becomes readable. Throws `std::runtime_error` when the line is lost for good.
    void run(int stopFd);

  private:
    [[nodiscard]] std::optional<Instant> nextMoment() const;
    void armTimer();
    /// Whether to go on.
    [[nodiscard]] bool waitAndServe(int stopFd);
    void serveClients();
    void receive();
    void forgetClient();
    void handleArrivals();
    void handle(const Arrival& arrival);
    void schedule(const Arrival& arrival, Outgoing outgoing);
    void sendDue();
    void unplug(std::chrono::milliseconds duration);
    void plugInWhenDue();
    void letTimePass();

    Line_Port& port_;
    Line_Framing& framing_;
    Controller& controller_;
    Frame_Log& log_;
    Timing timing_;
    Send_Queue queue_;
    Unique_Fd timer_;
    std::optional<Instant> plugInAt_;
};

} // namespace zorvane::simulator
