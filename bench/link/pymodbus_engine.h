// SPDX-License-Identifier: MIT
#pragma once

#include "bench/link/engine.h"
#include "bench/link/wire.h"

#include <QProcess>

namespace zorvane::bench {

/// pymodbus in a process of its own. It takes its times itself, so that the pipe to it isn't measured.
class Pymodbus_Engine final : public Engine {
  public:
    Pymodbus_Engine(const std::string& python, const std::string& script, const std::string& device,
                    const Wire& wire);
    Pymodbus_Engine(const Pymodbus_Engine&) = delete;
    Pymodbus_Engine& operator=(const Pymodbus_Engine&) = delete;
    ~Pymodbus_Engine() override;

    [[nodiscard]] std::string name() const override { return "pymodbus"; }
    [[nodiscard]] std::vector<double> exchange(const Rtu_Request& request, int count) override;

  private:
    [[nodiscard]] std::string answerLine();

    QProcess process_;
};

} // namespace zorvane::bench
