// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/last_traffic.h"
#include "comm/modbus_control/line/simulated_port.h"
#include "comm/modbus_control/modbus_link.h"
#include "comm/modbus_control/qt/qt_any_port.h"
#include "comm/modbus_control/qt/qt_port_finder.h"
#include "ui/line/monitor_window.h"
#include "ui/line/port_dialog.h"

#include <QPointer>

namespace zorvane::ui {

/// What the windows of the link need of the program.
struct Line_Windows_Hooks {
    std::function<void(const Port_Settings& settings)> keep; ///< the user has chosen these; may be empty
    std::function<std::int32_t()> testRegister;              ///< a register of the open template, or 0
    Ask_User ask;
};

/// The windows of the link: the port dialog and the monitor.
///
///     Line_Windows windows(mainWindow, simulator, hooks);
///     Qt_Link assembly(settings, asker, &windows, &simulator);
///     assembly.link().setTrafficListener(&windows.traffic());
class Line_Windows final : public Link_Windows {
  public:
    /// Owner and simulator must outlive it.
    Line_Windows(QWidget* owner, Simulator& simulator, Line_Windows_Hooks hooks);
    ~Line_Windows() override;
    Line_Windows(const Line_Windows&) = delete;
    Line_Windows& operator=(const Line_Windows&) = delete;

    void showPortSettings(Modbus_Link& link, bool modal) override;
    [[nodiscard]] bool monitorLoaded() const override { return !monitor_.isNull(); }
    [[nodiscard]] bool monitorVisible() const override;
    void showMonitor(Modbus_Link& link, const Window_Place& place) override;
    void activateMonitor() override;
    /// Where it stands, or where it stood last.
    [[nodiscard]] Window_Place monitorPlace() const override;
    /// Where the monitor counts as standing until it is opened.
    void rememberMonitorPlace(const Window_Place& place) { monitorPlace_ = place; }
    void unloadMonitor() override;
    void hideMonitor() override;
    void restoreMonitor() override;
    void minimizeMonitor() override;

    /// What the link tells its traffic to; the monitor shows what comes here.
    [[nodiscard]] Traffic_Listener& traffic() { return lastTraffic_; }
    /// The newest traffic, whether the monitor is open or not.
    [[nodiscard]] const Last_Traffic& lastTraffic() const { return lastTraffic_; }
    /// Settings that the user has chosen, in the port dialog or elsewhere, count from now on and are kept.
    void use(Modbus_Link& link, const Port_Settings& settings) const;

    /// While they are there.
    [[nodiscard]] Port_Dialog* portDialog() const { return dialog_; }
    [[nodiscard]] Monitor_Window* monitor() const { return monitor_; }

  private:
    [[nodiscard]] Port_Dialog_Services dialogParts();
    [[nodiscard]] Monitor_Line monitorLine();

    QWidget* owner_;
    Simulator& simulator_;
    Line_Windows_Hooks hooks_;
    Last_Traffic lastTraffic_{200};
    Modbus_Link* link_ = nullptr; ///< that of the windows shown
    Qt_Port_Finder finder_;
    Qt_Link_Clock clock_; ///< counts from where the link's own does
    Qt_Any_Port testAnyPort_;
    Simulated_Port testPort_;
    QPointer<Port_Dialog> dialog_;
    QPointer<Monitor_Window> monitor_;
    Window_Place monitorPlace_{1500, 1500, 14700, 7200};
    bool shownBeforeHiding_ = false;
};

} // namespace zorvane::ui
