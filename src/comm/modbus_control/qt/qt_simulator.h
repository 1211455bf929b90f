// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/simulated_port.h"

#include <QString>

#include <functional>
#include <memory>

class QProcess;

namespace zorvane {

/// The simulated controller as a process: zorvane-sim on a pseudo-terminal. It ends with this object, and
/// with the program however that ends. REQUIRES: a QCoreApplication.
class Qt_Simulator final : public Simulator {
  public:
    /// `templatePath` gives the path of the open template (UTF-8), or nothing while none is open. `program`
    /// is the path of zorvane-sim.
    explicit Qt_Simulator(std::function<std::string()> templatePath, QString program);
    ~Qt_Simulator() override;
    Qt_Simulator(const Qt_Simulator&) = delete;
    Qt_Simulator& operator=(const Qt_Simulator&) = delete;

    [[nodiscard]] Start start(std::int32_t slave) override;
    void stop() override;

    /// The process, or 0 while none runs.
    [[nodiscard]] std::int64_t processId() const;

    /// zorvane-sim in that folder, the program's own, or else where programs are looked for; empty when there
    /// is none.
    [[nodiscard]] static QString programIn(const QString& folder);

  private:
    [[nodiscard]] Start launch(const std::string& templatePath, std::int32_t slave);
    [[nodiscard]] bool becomesReady();
    [[nodiscard]] std::string complaint();

    std::function<std::string()> templatePath_;
    QString program_;
    std::unique_ptr<QProcess> process_;
    std::string runningTemplate_;
    std::int32_t runningSlave_ = 0;
    QString line_;
};

} // namespace zorvane
