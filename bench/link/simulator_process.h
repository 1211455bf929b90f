// SPDX-License-Identifier: MIT
#pragma once

#include "bench/link/wire.h"

#include <QProcess>
#include <QStringList>

#include <string>

namespace zorvane::bench {

/// A zorvane-sim on a pseudo-terminal of its own, paced as the wire says.
class Simulator_Process {
  public:
    Simulator_Process(const std::string& program, const std::string& link, const Wire& wire,
                      const QStringList& arguments);
    Simulator_Process(const Simulator_Process&) = delete;
    Simulator_Process& operator=(const Simulator_Process&) = delete;
    ~Simulator_Process();

    [[nodiscard]] const std::string& device() const { return link_; }

  private:
    std::string link_;
    QProcess process_;
};

} // namespace zorvane::bench
