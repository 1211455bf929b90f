// SPDX-License-Identifier: MIT
#include "app/window/window_link.h"

#include "app/form/port_store.h"
#include "template/services/native_files.h"

namespace zorvane::app {

Window_Link::Window_Link(const App_Context& app, Window_Form& mainForm, const std::string& programFolder,
                         const Port_Settings& settings)
    : app_(app), mainForm_(mainForm),
      simulator_([this] { return openTemplate(); },
                 Qt_Simulator::programIn(QString::fromStdString(programFolder))),
      windows_(&mainForm.window(), simulator_,
               {[this](const Port_Settings& chosen) { storePortSettings(app_.settings, chosen); },
                [this] { return testRegister(); },
                [this](const QString& prompt, int style, const QString& title) {
                    return mainForm_.ask(prompt, style, title);
                }}),
      link_(settings, mainForm, &windows_, &simulator_) {
    windows_.attach(link_.link(), link_.finder(), link_.clock());
}

/// The template that the model was read from, as the platform names it; letter case doesn't matter.
std::string Window_Link::openTemplate() const {
    const std::string& type = app_.state.documentType;
    if (type.empty()) return {};
    return pathToNative(Native_Files().found(app_.applicationFolder + folderSeparator + type + ".ZTP"));
}

std::int32_t Window_Link::testRegister() const {
    const Declara_Zorvane& document = app_.document();
    return document.Holding_Block_Count > 0 ? document.Holding_Blocks(1).First_Address : 0;
}

/// Transfers disable the form and enable it again; how one ended is settled when the events after it are
/// served.
void Window_Link::connect(const Menu_Context& menu, ui::Transfer_Status_Window::Print_Log printLog) {
    status_.emplace(app_.grids.comm, &mainForm_.window(),
                    ui::Transfer_Status_Hooks{
                        [this](const QString& prompt, int style, const QString& title) {
                            return mainForm_.ask(prompt, style, title);
                        },
                        std::move(printLog),
                        [&edge = menu.edge](const std::function<void()>& handler) { edge.run(handler); }});
    mainForm_.extras.showFrmStatus = [this](bool isUpload) { status_->PRO_Muestra_Status(isUpload); };
    mainForm_.extras.unloadFrmStatus = [this] { status_->unload(); };
    mainForm_.extras.formEnabledSet = [this] {
        enableReport(mainForm_.window().formEnabled());
        QMetaObject::invokeMethod(
            &mainForm_.window().StatusBar1(), [this] { showLogButton(); }, Qt::QueuedConnection);
    };
    mainForm_.window().StatusBar1().logChosen = [this, &edge = menu.edge] {
        edge.run([this] { mainForm_.showFrmStatus(app_.form().Transfer_Was_Upload); });
    };
}

/// Its Connect and Retry would cut into a transfer.
void Window_Link::enableReport(bool enabled) {
    mainForm_.window().StatusBar1().setLogEnabled(enabled);
    status_->setEnabled(enabled);
}

void Window_Link::showLogButton() {
    mainForm_.window().StatusBar1().setLogOffered(ui::transferLogOffered(app_.form()));
}

} // namespace zorvane::app
