// SPDX-License-Identifier: MIT
#include "app/window/desktop_menus.h"

#include "app/desktop/desktop_note.h"
#include "app/desktop/desktop_shell.h"
#include "app/form/font_size.h"
#include "app/form/view_switches.h"
#include "template/services/file_names.h"
#include "ui/base/icons.h"
#include "ui/base/text.h"
#include "ui/forms/acercade.h"
#include "ui/grid/column_tip.h"
#include "ui/main/command_list.h"
#include "ui/main/iconic.h"

#include <QAction>
#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QMenuBar>
#include <QSystemTrayIcon>
#include <QTimer>

namespace zorvane::app {

Desktop_Tray_Icon::Desktop_Tray_Icon(ui::Main_Window& window, std::function<void(Tray_Message message)> used)
    : window_(window), used_(std::move(used)) {}

Desktop_Tray_Icon::~Desktop_Tray_Icon() = default;

/// Some hosts tell of single clicks only, so those count as double ones.
bool Desktop_Tray_Icon::add(const std::string& tip) {
    if (!QSystemTrayIcon::isSystemTrayAvailable()) return false;
    icon_ = std::make_unique<QSystemTrayIcon>(ui::icon(QStringLiteral("application")));
    icon_->setObjectName(QStringLiteral("Tray_Data"));
    icon_->setToolTip(ui::fromCore(tip));
    QObject::connect(icon_.get(), &QSystemTrayIcon::activated, icon_.get(),
                     [this](QSystemTrayIcon::ActivationReason reason) {
                         if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick)
                             used_(Tray_Message::LeftDoubleClick);
                         if (reason == QSystemTrayIcon::Context) used_(Tray_Message::RightButtonUp);
                     });
    icon_->show();
    return true;
}

/// It may be gone in an event of its own.
void Desktop_Tray_Icon::remove() {
    if (!icon_) return;
    icon_->hide();
    icon_.release()->deleteLater();
}

void Desktop_Tray_Icon::popUpMenu() { window_.menu().trayMenu().popup(QCursor::pos()); }

std::string Window_Tray_Form::caption() const { return ui::toCore(window_.windowTitle()); }

void Window_Tray_Form::hide() {
    hiddenByTray_ = true;
    window_.hide();
}

void Window_Tray_Form::showNormal() {
    hiddenByTray_ = false;
    window_.showNormal();
}

void Window_Tray_Form::activate() {
    window_.raise();
    window_.activateWindow();
}

void Window_Tray_Form::setEntryChecked(bool checked) {
    window_.menu().action(QStringLiteral("MNU_Minimizetotray")).setChecked(checked);
}

Desktop_Menus::Desktop_Menus(const Menu_Context& menu)
    : shell(openOnDesktop), note(showDesktopNote), menu_(menu),
      icon_(menu.window(),
            [this](Tray_Message message) {
                menu_.edge.run([&] { tray_.Form_MouseMove(static_cast<int>(message), 0); });
            }),
      form_(menu.window()), tray_(menu.app, icon_, form_),
      attention_({[this](bool on) { keepAwake(on); }, [this] { return menu_.window().isActiveWindow(); },
                  [this](const std::string& text) { tellOnDesktop(text); }}) {
    connectViewCommands();
    connectWindowCommands();
    connectHelpCommands();
    connectColumnTip();
    connectAttention();
    connectLooks();
    menu_.mainForm.extras.removeTrayIcon = [this] { tray_.unload(); };
    menu_.mainForm.extras.openAsText = [this](const std::string& path) { openAsText(path); };
}

/// With what the desktop has for such files.
void Desktop_Menus::openAsText(const std::string& path) {
    const Path_Parts place = splitPath(path);
    const std::string folder(place.folder.substr(0, place.folder.size() - (place.folder.empty() ? 0 : 1)));
    if (shell("Open", std::string(place.name), "", folder)) return;
    menu_.mainForm.messageBar().tell(
        {"open as text", Bar_Kind::Note, "Nothing on this desktop opens " + path + " as a text.", {}, false});
}

void Desktop_Menus::connectViewCommands() {
    menu_.onChosen("MNU_FontSize", [this] { MNU_FontSize_Click(); });
    menu_.onChosen("MNU_Commands", [this] { MNU_Commands_Click(); });
}

void Desktop_Menus::connectAttention() {
    menu_.mainForm.Porcentaje().shown = [this] { attention_.progressShown(); };
    menu_.window().events.formEnabledSet = [this](bool enabled) {
        // A transfer goes by the grids' rows, which a new size moves.
        if (fontDialog_ != nullptr) fontDialog_->setEnabled(enabled);
        const QString message = menu_.window().StatusBar1().text(static_cast<int>(Panel::Message));
        attention_.formEnabled(enabled, ui::toCore(message));
    };
}

void Desktop_Menus::connectLooks() {
    ui::Main_Window& window = menu_.window();
    const auto forBoth = [&window](void (ui::Flex_Grid_View::*look)(bool), bool on) {
        for (ui::Flex_Grid* grid : {&window.FLX_Configuration(), &window.FLX_Settings()})
            (grid->view().*look)(on);
    };
    const auto connect = [&](const QString& entry, const std::string& name,
                             void (ui::Flex_Grid_View::*look)(bool)) {
        QAction& action = window.menu().action(entry);
        const bool stored = viewSwitch(menu_.app.settings, name);
        action.setChecked(stored);
        forBoth(look, stored);
        menu_.onChosen(entry, [this, &action, name, look, forBoth] {
            action.setChecked(!action.isChecked());
            storeViewSwitch(menu_.app.settings, name, action.isChecked());
            forBoth(look, action.isChecked());
        });
    };
    connect(QStringLiteral("MNU_FillsRoom"), fillsRoomSwitch, &ui::Flex_Grid_View::setFillsRoom);
    connect(QStringLiteral("MNU_DarkGrounds"), darkGroundsSwitch, &ui::Flex_Grid_View::setDarkGrounds);
}

void Desktop_Menus::keepAwake(bool on) {
    if (on)
        awake_.hold(QStringLiteral("A transfer with a controller is running"));
    else
        awake_.release();
}

void Desktop_Menus::tellOnDesktop(const std::string& text) {
    QApplication::alert(&menu_.window());
    note(menu_.window().windowTitle(), ui::fromCore(text));
}

void Desktop_Menus::MNU_FontSize_Click() {
    ui::Font_Dialog* shown = fontDialog_.data();
    if (shown == nullptr) {
        std::int16_t stored = 1;
        PRO_Indice_Font(menu_.app, stored);
        auto* dialog = new ui::Font_Dialog(stored, &menu_.window());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->save = [this](std::int16_t index) { storeFontIndex(menu_.app, index); };
        dialog->ChangeFont = [this](double size) {
            fontDialog_.clear();
            menu_.edge.run([&] { FontSizeDialog_ChangeFont(menu_.app, size); });
        };
        fontDialog_ = shown = dialog;
    }
    shown->Guardar = true;
    shown->show();
    shown->raise();
    shown->activateWindow();
}

/// The chosen command goes its own way, once nothing is in front of the window any more.
void Desktop_Menus::MNU_Commands_Click() {
    ui::Command_List list(ui::commandsOf(*menu_.window().menuBar()), &menu_.window());
    if (list.exec() != QDialog::Accepted) return;
    if (QAction* const chosen = list.chosen()) QTimer::singleShot(0, chosen, [chosen] { chosen->trigger(); });
}

void Desktop_Menus::connectWindowCommands() {
    menu_.onChosen("MNU_Minimize", [this] { minimize(menu_.window()); });
    menu_.onChosen("MNU_Maximize", [this] { menu_.window().showMaximized(); });
    menu_.onChosen("MNU_Minimizetotray", [this] { tray_.MNU_Minimizetotray_Click(); });
    menu_.onChosen("MNU_Tray_All", [this] { tray_.MNU_Tray_All_Click(); });
    menu_.onChosen("MNU_Tray_Application_Window", [this] { tray_.MNU_Tray_Application_Window_Click(); });
    menu_.onChosen("MNU_Tray_Monitor_Window", [this] { tray_.MNU_Tray_Monitor_Window_Click(); });
    menu_.window().events.minimized = [this] { menu_.edge.run([this] { tray_.formMinimized(); }); };
}

void Desktop_Menus::connectHelpCommands() {
    menu_.onChosen("MNU_HelpIndex", [this] { MNU_HelpIndex_Click(menu_.app, shell); });
    menu_.onChosen("MNU_OnLine", [this] { MNU_OnLine_Click(menu_.app, shell); });
    menu_.onChosen("MNU_ContactUs", [this] { MNU_ContactUs_Click(menu_.app, shell); });
    menu_.onChosen("MNU_About", [this] { MNU_About_Click(); });
}

void Desktop_Menus::MNU_About_Click() {
    if (about_ == nullptr) {
        about_ = new ui::Acercade(menu_.mainForm.ask, &menu_.window());
        about_->setAttribute(Qt::WA_DeleteOnClose);
    }
    about_->show();
    about_->raise();
    about_->activateWindow();
}

void Desktop_Menus::connectColumnTip() {
    ui::Column_Tip& tip = menu_.window().picTip();
    menu_.window().FLX_Settings().events().UserResizing = [&tip](std::int32_t, std::int32_t twips) {
        tip.drag(twips);
    };
    menu_.mainForm.extras.updateColumnTip = [&tip] { tip.start(); };
    menu_.mainForm.extras.removeColumnTip = [&tip] { tip.stop(); };
}

} // namespace zorvane::app
