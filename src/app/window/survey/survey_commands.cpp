// SPDX-License-Identifier: MIT
#include "app/window/survey/survey_commands.h"

#include "comm/modbus_control/units/qt/qt_unit_exchanges.h"
#include "survey/desk/last_good.h"
#include "template/services/native_files.h"
#include "ui/survey/find_window.h"
#include "ui/survey/listen_window.h"

#include <QAction>
#include <QDateTime>

namespace zorvane::app {

namespace {

/// The link's port is the window's while this lives.
class Lent_Port {
  public:
    explicit Lent_Port(Modbus_Link& link) : link_(link) { link_.lendPort(); }
    ~Lent_Port() { link_.takePortBack(); }
    Lent_Port(const Lent_Port&) = delete;
    Lent_Port& operator=(const Lent_Port&) = delete;

  private:
    Modbus_Link& link_;
};

} // namespace

Survey_Commands::Survey_Commands(const Menu_Context& menu, Modbus_Link& link, ui::Line_Windows& windows,
                                 Simulator& simulator)
    : menu_(menu), link_(link), windows_(windows), simulator_(simulator), port_(anyPort_.port(), simulator) {
    menu_.onChosen("MNU_Find_Controllers", [this] { find(); });
    menu_.onChosen("MNU_Listen", [this] { listen(); });
    QAction& online = menu_.window().menu().action(QStringLiteral("MNU_Disconnect"));
    QObject::connect(&online, &QAction::enabledChanged, &online, [this] { showEnabled(); });
}

/// "Disconnect" can be chosen while online, and then only.
void Survey_Commands::showEnabled() {
    const ui::Main_Menu& menu = menu_.window().menu();
    const bool online = menu.action(QStringLiteral("MNU_Disconnect")).isEnabled();
    for (const char* entry : {"MNU_Find_Controllers", "MNU_Listen"})
        menu.action(QString::fromLatin1(entry)).setEnabled(!online);
}

std::vector<survey::Known_Template> Survey_Commands::templates() const {
    const App_Context& app = menu_.app;
    const std::string& type = app.state.documentType;
    if (type.empty()) return {};
    const std::string file = app.applicationFolder + folderSeparator + type + ".ZTP";
    return {survey::knownTemplate(app.document(), app.files.bytes(file).value_or(""), link_.addressBase())};
}

void Survey_Commands::find() {
    const Lent_Port lent(link_);
    Settings_Store& settings = menu_.app.settings;
    ui::Find_Services services{finder_, port_, clock_, templates(), survey::lastGoodLine(settings)};
    services.keepLastGood = [&settings](const survey::Search_Report& report) {
        survey::keepLastGoodLine(settings, report);
    };
    services.identify = [this, known = services.templates](const Port_Settings& port,
                                                           const std::function<bool()>& cancelled) {
        return survey::identityOfFound(
            port.slave, known, [&](const survey::Known_Template& each, const auto& ask) {
                Unit_Exchanges exchanges({port_, clock_, finder_, serveEventsUntil, cancelled}, port);
                exchanges.SetAddressBase(each.addressBase);
                if (exchanges.open().opened) ask(exchanges);
            });
    };
    ui::Find_Window window(std::move(services), link_.portSettings(), menu_.mainForm.dialogParent());
    const bool accepted = window.exec() == QDialog::Accepted;
    if (accepted) windows_.use(link_, window.chosen());
    if (link_.portSettings().port != simulatedPortName) simulator_.stop();
}

void Survey_Commands::listen() {
    const Lent_Port lent(link_);
    ui::Listen_Services services{finder_,
                                 listeningPort_,
                                 clock_,
                                 templates(),
                                 QDateTime::currentMSecsSinceEpoch() * microsPerMs - clock_.now(),
                                 menu_.mainForm.ask};
    ui::Listen_Window(std::move(services), link_.portSettings(), menu_.mainForm.dialogParent()).exec();
}

} // namespace zorvane::app
