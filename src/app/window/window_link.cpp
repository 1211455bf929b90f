// SPDX-License-Identifier: MIT
#include "app/window/window_link.h"

#include "app/form/port_store.h"
#include "template/services/native_files.h"

#include <utility>

namespace zorvane::app {

Window_Link::Window_Link(Link_Sources sources, Window_Form& mainForm)
    : sources_(std::move(sources)),
      simulator_([this] { return openTemplate(); },
                 Qt_Simulator::programIn(QString::fromStdString(pathToNative(sources_.applicationFolder)))),
      windows_(&mainForm.window(), simulator_,
               {[this](const Port_Settings& chosen) { storePortSettings(sources_.settings, chosen); },
                [this] { return testRegister(); },
                [&mainForm](const QString& prompt, int style, const QString& title) {
                    return mainForm.ask(prompt, style, title);
                }}),
      link_(storedPortSettings(sources_.settings), mainForm, &windows_, &simulator_) {
    link_.link().setTrafficListener(&windows_.traffic());
}

/// The template that the model was read from, as the platform names it; letter case doesn't matter.
std::string Window_Link::openTemplate() const {
    const std::string& type = sources_.state.documentType;
    if (type.empty()) return {};
    return pathToNative(Native_Files().found(sources_.applicationFolder + folderSeparator + type + ".ZTP"));
}

std::int32_t Window_Link::testRegister() const {
    const Declara_Zorvane& document = sources_.document;
    return document.Holding_Block_Count > 0 ? document.Holding_Blocks(1).First_Address : 0;
}

// The report of a transfer.

/// Transfers disable the form and enable it again; how one ended is settled when the events after it are
/// served.
Transfer_Log_Form::Transfer_Log_Form(const Menu_Context& menu, ui::Transfer_Status_Window::Print_Log printLog)
    : app_(menu.app), mainForm_(menu.mainForm),
      status_(app_.grids.comm, &mainForm_.window(),
              {[&form = mainForm_](const QString& prompt, int style, const QString& title) {
                   return form.ask(prompt, style, title);
               },
               std::move(printLog),
               [&edge = menu.edge](const std::function<void()>& handler) { edge.run(handler); }}) {
    mainForm_.extras.showFrmStatus = [this](bool isUpload) { status_.PRO_Muestra_Status(isUpload); };
    mainForm_.extras.unloadFrmStatus = [this] { status_.unload(); };
    mainForm_.extras.formEnabledSet = [this] {
        enableReport(mainForm_.window().formEnabled());
        QMetaObject::invokeMethod(
            &mainForm_.window().StatusBar1(), [this] { showLogButton(); }, Qt::QueuedConnection);
    };
    mainForm_.window().StatusBar1().logChosen = [this, &edge = menu.edge] {
        edge.run([this] { mainForm_.showFrmStatus(app_.form().Transfer_Was_Upload); });
    };
}

Transfer_Log_Form::~Transfer_Log_Form() {
    mainForm_.extras.showFrmStatus = {};
    mainForm_.extras.unloadFrmStatus = {};
    mainForm_.extras.formEnabledSet = {};
    mainForm_.window().StatusBar1().logChosen = {};
}

/// Its Connect and Retry would cut into a transfer.
void Transfer_Log_Form::enableReport(bool enabled) {
    mainForm_.window().StatusBar1().setLogEnabled(enabled);
    status_.setEnabled(enabled);
}

void Transfer_Log_Form::showLogButton() {
    mainForm_.window().StatusBar1().setLogOffered(ui::transferLogOffered(app_.form()));
}

} // namespace zorvane::app
