// SPDX-License-Identifier: MIT
#include "app/window/support_command.h"

#include "app/support_report.h"
#include "comm/modbus_control/modbus_link.h"
#include "comm/modbus_control/qt/qt_link_clock.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScreen>
#include <QSysInfo>
#include <QTime>

namespace zorvane::app {

namespace {

std::string screenText(const ui::Main_Window& window) {
    const QSize size = window.screen()->size();
    const bool dark = window.palette().window().color().lightness() < 128;
    return QStringLiteral("%1x%2 at %3 %%4")
        .arg(size.width())
        .arg(size.height())
        .arg(qRound(window.devicePixelRatioF() * window.logicalDpiX() / 96 * 100))
        .arg(dark ? QStringLiteral(", dark") : QString())
        .toStdString();
}

Support_Facts factsOf(const Menu_Context& menu, const Port_Settings& port) {
    const QString system = QStringLiteral("%1, %2 %3, %4")
                               .arg(QSysInfo::prettyProductName(), QSysInfo::kernelType(),
                                    QSysInfo::kernelVersion(), QSysInfo::currentCpuArchitecture());
    return {"Zorvane " ZORVANE_VERSION,
            std::string("Qt ") + qVersion(),
            system.toStdString(),
            screenText(menu.window()),
            menu.app.form().Document_Open ? menu.app.state.documentType : std::string(),
            reportedPort(port.port, formatLineSettings(port.line), port.slave)};
}

} // namespace

void connectSupportReport(const Menu_Context& menu, const Modbus_Link& link, const Last_Traffic& traffic) {
    menu.onChosen("MNU_Support", [menu, &link, &traffic] {
        const Micros midnight =
            Qt_Link_Clock().now() -
            static_cast<Micros>(QTime::currentTime().msecsSinceStartOfDay()) * microsPerMs;
        const std::string report =
            supportReport(factsOf(menu, link.portSettings()), traffic.entries(), midnight);
        QGuiApplication::clipboard()->setText(QString::fromStdString(report));
        menu.mainForm.messageBar().tell({"support",
                                         Bar_Kind::Note,
                                         "The report for support is in the clipboard: paste it into a mail. "
                                         "It names no file and no person.",
                                         {},
                                         false});
    });
}

} // namespace zorvane::app
