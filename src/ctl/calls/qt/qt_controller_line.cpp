// SPDX-License-Identifier: MIT
#include "comm/modbus_control/line/port_texts.h"
#include "comm/modbus_control/units/qt/qt_unit_exchanges.h"
#include "ctl/calls/qt/port_calls.h"
#include "ctl/calls/qt/stop_signals.h"
#include "ctl/document/notices.h"

namespace zorvane::ctl {

namespace {

class Qt_Controller_Line : public Controller_Line {
  public:
    explicit Qt_Controller_Line(const Port_Settings& settings)
        : port_(settings.port), exchanges_(settings, [this] { return stop_.asked(); }) {}

    [[nodiscard]] Link_Notice& notices() override { return exchanges_.line(); }
    [[nodiscard]] std::string open() override {
        const Port_Opening opening = exchanges_.line().open();
        if (opening.opened) return {};
        if (stop_.asked()) return stoppedAtOpening;
        return printable(cannotOpenText(port_) + " " + opening.reason);
    }
    [[nodiscard]] Unit_Reader& reader() override { return exchanges_.line(); }

  private:
    std::string port_;
    Stop_Signals stop_{[](bool) {}}; // the waits ask for it after each event
    Qt_Unit_Exchanges exchanges_;
};

} // namespace

std::unique_ptr<Controller_Line> makeQtControllerLine(const Port_Settings& settings) {
    return std::make_unique<Qt_Controller_Line>(settings);
}

} // namespace zorvane::ctl
