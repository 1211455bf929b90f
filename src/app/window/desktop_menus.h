// SPDX-License-Identifier: MIT
#pragma once

#include "app/desktop/keep_awake.h"
#include "app/form/transfer_attention.h"
#include "app/help.h"
#include "app/tray.h"
#include "app/window/form/menu_context.h"
#include "ui/forms/font_dialog.h"

#include <QPointer>

#include <memory>

class QSystemTrayIcon;

namespace zorvane::ui {
class Acercade;
} // namespace zorvane::ui

namespace zorvane::app {

/// The icon in the tray of this desktop.
class Desktop_Tray_Icon final : public Tray_Icon {
  public:
    Desktop_Tray_Icon(ui::Main_Window& window, std::function<void(Tray_Message message)> used);
    ~Desktop_Tray_Icon() override;

    [[nodiscard]] bool add(const std::string& tip) override;
    void remove() override;
    void popUpMenu() override;

  private:
    ui::Main_Window& window_;
    std::function<void(Tray_Message message)> used_;
    std::unique_ptr<QSystemTrayIcon> icon_;
};

/// The main form as the tray knows it.
class Window_Tray_Form final : public Tray_Form {
  public:
    explicit Window_Tray_Form(ui::Main_Window& window) : window_(window) {}

    [[nodiscard]] bool hidden() const override { return window_.isHidden(); }
    /// A window that hid while it was minimized still counts as such, though some desktops forget it.
    [[nodiscard]] bool minimized() const override { return hiddenByTray_ || window_.isMinimized(); }
    [[nodiscard]] std::string caption() const override;
    void hide() override;
    void showNormal() override;
    void activate() override;
    void setEntryChecked(bool checked) override;

  private:
    ui::Main_Window& window_;
    bool hiddenByTray_ = false;
};

/// What the desktop has to do with the window: its menus "View", "Windows" and "Help", the tray, the tip at a
/// column's border, the font dialog.
class Desktop_Menus {
  public:
    /// What is in `menu` outlives it.
    explicit Desktop_Menus(const Menu_Context& menu);
    Desktop_Menus(const Desktop_Menus&) = delete;
    Desktop_Menus& operator=(const Desktop_Menus&) = delete;

    /// Opens files and addresses outside the program; whatever drives it in a test replaces this.
    Shell_Execute shell;
    /// Shows a note of the desktop; likewise.
    std::function<void(const QString& summary, const QString& text)> note;

    [[nodiscard]] Tray& tray() { return tray_; }
    /// While it is there.
    [[nodiscard]] ui::Font_Dialog* FontSizeDialog() const { return fontDialog_; }

  private:
    void connectViewCommands();
    void connectWindowCommands();
    void connectHelpCommands();
    void connectColumnTip();
    void connectAttention();
    void connectLooks();
    void keepAwake(bool on);
    void tellOnDesktop(const std::string& text);
    void openAsText(const std::string& path);
    void MNU_FontSize_Click();
    void MNU_Commands_Click();
    void MNU_About_Click();

    Menu_Context menu_;
    Desktop_Tray_Icon icon_;
    Window_Tray_Form form_;
    Tray tray_;
    Keep_Awake awake_;
    Transfer_Attention attention_;
    QPointer<ui::Font_Dialog> fontDialog_;
    QPointer<ui::Acercade> about_;
};

} // namespace zorvane::app
