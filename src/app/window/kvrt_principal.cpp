// SPDX-License-Identifier: MIT
#include "app/window/kvrt_principal.h"

#include "app/document/document_rows.h"
#include "app/document/recovery_keeper.h"
#include "app/edit/history_commands.h"
#include "app/form_life.h"
#include "app/sending/send_changes.h"
#include "app/window/form_commands.h"
#include "app/window/grid_events.h"
#include "app/window/message_bar_buttons.h"
#include "app/window/support_command.h"
#include "comm/main_form/monitor.h"
#include "comm/transfer/cancel.h"
#include "comm/transfer/online.h"
#include "comm/transfer/transfer_records.h"
#include "comm/transfer/upload.h"
#include "commission/folder/state_folder.h"
#include "grids/fill/fill_settings.h"
#include "grids/fill/stopping_on_failure.h"
#include "ui/base/text.h"
#include "ui/compare/compare_window.h"
#include "ui/forms/frm_debug.h"
#include "values/numbers.h"

#include <QApplication>
#include <QCursor>
#include <QDateTime>
#include <QFileInfo>
#include <QStandardPaths>

namespace zorvane::app {

namespace {

std::string timeOfDay() {
    return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
}

Qt_Settings_Store openStore(const QString& file) {
    if (file.isEmpty()) return Qt_Settings_Store();
    return Qt_Settings_Store(file);
}

} // namespace

Program_Places programPlaces() {
    const QString program = QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath();
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return {pathFromNative(QFile::encodeName(QFileInfo(program).path()).toStdString()),
            QFile::encodeName(data + QStringLiteral("/Zorvane/Recovery")).toStdString(),
            {},
            handoverPlace()};
}

KVRT_Principal::KVRT_Principal(const Program_Places& places)
    : places_(places), settings_(openStore(places.settingsFile)), recoveryFolder_(places.recoveryFolder),
      savedFolder_(filesFolder(places.recoveryFolder)),
      recovery_(recoveryFolder_, timeOfDay, std::to_string(QCoreApplication::applicationPid()),
                &savedFolder_),
      mainForm_(window_, edge_), line_({document_, state_, settings_, places.applicationFolder}, mainForm_),
      formWindows_(mainForm_), widths_([this] { return window_.FLX_Settings().view().font(); },
                                       [this] { return window_.scale().perPixelX; }),
      app_{{{document_, form_, line_.link(), mainForm_},
            window_.FLX_Configuration(),
            window_.FLX_Settings(),
            navigation_,
            editors_,
            formWindows_,
            &state_.history},
           mainForm_,
           files_,
           settings_,
           widths_,
           recovery_,
           state_,
           places.applicationFolder},
      menu_{app_, mainForm_, edge_}, reports_(app_, mainForm_, edge_),
      transferLog_(menu_, [this](QTextEdit& log, const QString& file) { reports_.printLog(log, file); }),
      desktop_(menu_), ways_(menu_), runs_(commission::runsFolder(commission::userStateFolder())),
      marks_(app_), comparing_(comparingServices()),
      survey_(menu_, line_.link(), line_.windows(), line_.simulator()), edit_(window_, app_, edge_, marks_),
      systemEnd_(app_, mainForm_, edge_) {
    edge_.onFailure = [this](const Run_Time_Failure& failure) { stopOnFailure(failure); };
    connectForm();
    connectMessageBar(mainForm_, edge_);
    connectDocumentCommands(menu_);
    connectCommunicationCommands(menu_);
    connectGrids(window_, app_.grids, edge_);
    edit_.connectGrid();
    mainForm_.extras.stateChanged = [this] { edit_.scheduleRefresh(); };
    connectTimers();
    connectLink();
    connectComparing();
    reports_.connect(menu_);
    connectSupportReport(menu_, line_.link(), line_.windows().lastTraffic());
    connectSending();
}

/// The grids' handlers live on what is destroyed before the window is.
KVRT_Principal::~KVRT_Principal() {
    edge_.end();
    window_.events = {};
    mainForm_.extras.stateChanged = {};
    mainForm_.messageBar().changed = {};
}

void KVRT_Principal::connectForm() {
    for (const Form_Part part : {Form_Part::Frame2, Form_Part::Frame3, Form_Part::PicLineHoriz})
        mainForm_.setPartVisible(part, false);
    window_.events.resizing = [this](bool busy) { navigation_.Form_Resizing = busy; };
    window_.events.queryClose = [this] {
        std::int16_t cancel = 0;
        edge_.run([&] { Form_QueryUnload(app_, cancel, 0); });
        return cancel != 1;
    };
    mainForm_.grids().refill = [this](std::int32_t row) {
        PRO_Llena_Settings(app_.grids, toInteger(row), false);
    };
    mainForm_.Porcentaje().hooks.cancel = [this] { BOT_Cancel_Click(app_.grids.comm); };
}

void KVRT_Principal::connectTimers() {
    Form_Timers& timers = mainForm_.timers();
    const auto onTick = [&](Timer_Name timer, const std::function<void()>& handler) {
        timers.onTick(timer, [this, handler] { edge_.run(handler); });
    };
    const Comm_Context& comm = app_.grids.comm;
    onTick(Timer_Name::TMR_Abre_ZTP, [this] {
        TMR_Abre_ZTP_Timer(app_);
        mainForm_.timers().setInterval(Timer_Name::TMR_Forza_analogas, document_.Forza_Analogas_Ms);
        mainForm_.timers().setEnabled(Timer_Name::TMR_Forza_analogas, true);
    });
    onTick(Timer_Name::TMR_Inicial_ZTP, [this] {
        TMR_Inicial_ZTP_Timer(app_);
        if (!places_.handoverPlace.isEmpty()) ways_.listen(places_.handoverPlace);
    });
    onTick(Timer_Name::TMR_Verifica_monitor, [&comm] { TMR_Verifica_monitor_Timer(comm); });
    onTick(Timer_Name::TMR_Actualiza_valores, [this, &comm] {
        const bool uploading = form_.Upload_Active;
        TMR_Actualiza_valores_Timer(comm);
        if (uploading && !form_.Upload_Active && form_.Last_Upload.finished()) {
            noteUpload(app_);
            tellUploaded(app_);
            edit_.scheduleRefresh();
        }
    });
    onTick(Timer_Name::TMR_Actualiza_online, [&comm] { TMR_Actualiza_online_Timer(comm); });
    onTick(Timer_Name::TMR_TxRx, [&comm] { TMR_TxRx_Timer(comm); });
    onTick(Timer_Name::TMR_Forza_analogas, [&comm] { TMR_Forza_analogas_Timer(comm); });
    onTick(Timer_Name::TIM_Tamaño_normal, [this] { TIM_Tamaño_normal_Timer(app_); });
    copyTimer_.setInterval(recoveryLookMs);
    QObject::connect(&copyTimer_, &QTimer::timeout, &copyTimer_,
                     [this] { edge_.run([this] { TMR_Copia_Timer(app_, clock_.elapsed()); }); });
}

void KVRT_Principal::connectLink() {
    link().onExchange([this](const std::string& line1, const std::string& line2) {
        edge_.run([&] {
            const Debug_Line debug = [this](const std::string& line) {
                mainForm_.FrmDebug().addLine(ui::fromCore(line));
            };
            modbus_control_Event10(form_, debug, line1, line2);
        });
    });
}

void KVRT_Principal::connectSending() {
    mainForm_.extras.sendChanges = [this](const commission::Chosen_Cells& chosen) {
        sendChanges({app_, edge_, line_.link(), line_.simulator(), [this] { window_.finishEdit(); },
                     [this](bool enabled) { mainForm_.setFormEnabled(enabled); },
                     [this] { return mainForm_.dialogParent(); }, mainForm_.ask},
                    chosen);
    };
    menu_.onChosen("MNU_SendChanges", [this] { mainForm_.extras.sendChanges({}); });
}

Comparing_Services KVRT_Principal::comparingServices() {
    return {app_,
            edge_,
            line_.link(),
            line_.simulator(),
            runs_,
            marks_,
            reports_.metrics(),
            [this] { window_.finishEdit(); },
            [this] { return mainForm_.dialogParent(); },
            [this](const commission::Chosen_Cells& chosen) {
                if (mainForm_.extras.sendChanges) mainForm_.extras.sendChanges(chosen);
            },
            [this](ActiveReport& report, const std::string& title) {
                reports_.printOther(report, shownText(title));
            },
            [this](ActiveReport& report) { return reports_.commands().exportOther(report); },
            [](ui::Compare_Window& window) { window.exec(); }};
}

void KVRT_Principal::connectComparing() {
    const auto compare = [this](const std::optional<Side_Choice>& right) {
        compareDocument(comparing_, right);
        edit_.scheduleRefresh();
    };
    menu_.onChosen("MNU_Compare", [compare] { compare(std::nullopt); });
    mainForm_.extras.compare = [compare](const std::string& path) {
        compare(path.empty() ? Side_Choice{Side_Kind::Controller} : Side_Choice{Side_Kind::File, path});
    };
}

void KVRT_Principal::start() {
    clock_.start();
    edge_.run([this] {
        Form_Load(app_);
        if (const auto& place = form_.Monitor_Place)
            line_.windows().rememberMonitorPlace({(*place)[0], (*place)[1], (*place)[2], (*place)[3]});
        reports_.commands().LoadSettingsPrint();
        mainForm_.setTimerEnabled(Timer_Name::TMR_Abre_ZTP, true);
        mainForm_.setTimerEnabled(Timer_Name::TMR_Inicial_ZTP, true);
        copyTimer_.start();
    });
}

int KVRT_Principal::run() {
    start();
    return edge_.ended() ? mainForm_.exitCode() : QApplication::exec();
}

/// Nothing handled it: what the document holds is kept for "Recover...", and the program ends.
void KVRT_Principal::stopOnFailure(const Run_Time_Failure& failure) {
    ignoringFailure([this] {
        if (hasChanges(app_)) keepCopy(app_, "run-time error");
    });
    tellRunTimeFailure(mainForm_, failure);
    mainForm_.endProgram(1);
}

void KVRT_Principal::Form_Windows::showFrmDebug() { mainForm_.FrmDebug().show(); }

void KVRT_Principal::Form_Windows::updateColumnTip() {
    if (mainForm_.extras.updateColumnTip) mainForm_.extras.updateColumnTip();
}

void KVRT_Principal::Form_Windows::showCurrentCell() {
    for (ui::Flex_Grid* grid :
         {&mainForm_.window().FLX_Configuration(), &mainForm_.window().FLX_Settings()}) {
        grid->view().flush();
        grid->view().scrollTo(grid->view().currentIndex());
    }
}

Mouse_Place KVRT_Principal::Form_Windows::mousePlace() const {
    ui::Main_Window& window = mainForm_.window();
    const ui::Window_Layout& layout = window.formLayout();
    const QPoint origin = window.Frame3().parentWidget()->mapToGlobal(QPoint(0, 0));
    return {static_cast<double>(QCursor::pos().x()),
            static_cast<double>(QCursor::pos().y()),
            static_cast<double>(origin.x()),
            static_cast<double>(origin.y()),
            layout.Frame3.left,
            layout.Frame3.top,
            layout.scale.perPixelX,
            layout.scale.perPixelY,
            layout.FLX_Settings.left,
            layout.FLX_Settings.top,
            layout.FLX_Settings.width};
}

} // namespace zorvane::app
