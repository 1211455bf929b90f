// SPDX-License-Identifier: MIT
#include "app/sending/send_changes.h"

#include "app/document/recovery_keeper.h"
#include "app/sending/record_dialog.h"
#include "app/sending/send_window.h"
#include "app/sending/sending_line.h"
#include "commission/desk/session_parts.h"
#include "commission/folder/digests.h"
#include "commission/folder/native_runs.h"
#include "commission/folder/state_folder.h"
#include "commission/folder/wall_clock.h"
#include "recovery/recovery.h"
#include "template/services/native_files.h"
#include "values/code_page.h"

#include <QTimer>

namespace zorvane::app {

namespace {

constexpr int watchPeriodMs = 1000;

/// The template that the open document was read from.
std::string templatePath(const App_Context& app) {
    return Native_Files().found(app.applicationFolder + folderSeparator + app.state.documentType + ".ZTP");
}

/// The open document as a run keeps it: the file, or what a save would write where that is something else.
commission::Named_File documentFile(const App_Context& app) {
    const Declara_Zorvane& document = app.document();
    commission::Named_File file;
    if (!document.No_Place)
        file =
            commission::namedFile(app.files, Native_Files().found(document.File_Folder + document.File_Stem +
                                                                  "." + document.File_Extension));
    if (document.No_Place || hasChanges(app)) file.sha256 = commission::sha256(recoveryText(document));
    return file;
}

/// A send with all that it works on.
class Sending {
  public:
    Sending(const Sending_Services& services, const commission::Chosen_Cells& chosen)
        : services_(services), state_(commission::userStateFolder()),
          section_(readIdentity(app().files.bytes(templatePath(app())).value_or(""))),
          line_({services.simulator, services.link.portSettings(), commission::locksFolder(state_),
                 [this] { return services_.edge.ended() || desk_.endsAtOnce(); },
                 [this](Unit_Exchanges& line) { prepare(line); }}),
          runs_(commission::runsFolder(state_)), serials_(state_),
          desk_(deskServices(), sessionDocument(), chosen),
          window_(desk_,
                  {[this](const std::function<void()>& handler) { services_.edge.run(handler); },
                   [this] { record(); }},
                  services.dialogParent()) {}

    void run() {
        QTimer::singleShot(0, &window_, [this] { services_.edge.run([this] { desk_.begin(); }); });
        watch_.setInterval(watchPeriodMs);
        QObject::connect(&watch_, &QTimer::timeout, &watch_,
                         [this] { services_.edge.run([this] { desk_.watch(); }); });
        watch_.start();
        shown_ = true;
        window_.exec();
        shown_ = false;
        watch_.stop();
        desk_.close();
    }

  private:
    [[nodiscard]] const App_Context& app() const { return services_.app; }

    /// What the template says of its line, as the link knows it.
    void prepare(Unit_Exchanges& line) const {
        line.SetTimings(services_.link.templatePauseMs(), services_.link.templateTimeOutMs());
        line.SetAddressBase(services_.link.addressBase());
        commission::keepTextsTogether(app().document(), line);
    }

    commission::Desk_Services deskServices() {
        return {line_,
                runs_,
                clock_,
                serials_,
                [this] {
                    if (shown_ && !services_.edge.ended()) window_.refresh();
                },
                [this](bool atWork) {
                    if (!services_.edge.ended()) services_.enableForm(!atWork);
                },
                [this](const compare::Controller_Registers& registers) {
                    return commission::controllerFile(app().document(), registers);
                }};
    }

    commission::Session_Document sessionDocument() {
        const Port_Settings settings = services_.link.portSettings();
        return {app().document(),
                section_,
                commission::namedFile(app().files, templatePath(app())),
                documentFile(app()),
                "controller." + toUtf8(upperCase(app().state.documentType)),
                settings.port,
                settings.slave,
                settings.line,
                settings.retries,
                "zorvane",
                commission::strayReasons(app().document()),
                line_.adapter()};
    }

    void record() {
        askForRecord({app().files, app().applicationFolder, commission::runsFolder(state_)}, state_,
                     desk_.state().run, services_.ask, &window_);
    }

    const Sending_Services& services_;
    std::string state_;
    Identity_Section section_;
    Sending_Line line_;
    commission::Native_Runs runs_;
    commission::System_Wall_Clock clock_;
    commission::Native_Serials serials_;
    commission::Send_Desk desk_;
    Send_Window window_;
    QTimer watch_;
    bool shown_ = false;
};

} // namespace

void sendChanges(const Sending_Services& services, const commission::Chosen_Cells& chosen) {
    if (services.finishEdit) services.finishEdit();
    Sending(services, chosen).run();
    services.edge.throwIfEnded();
}

} // namespace zorvane::app
