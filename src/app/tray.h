// SPDX-License-Identifier: MIT
#pragma once

#include "app/form/app_context.h"

#include <string>

namespace zorvane::app {

/// The icon in the desktop's tray.
class Tray_Icon {
  public:
    virtual ~Tray_Icon() = default;
    /// Puts the icon there, with a tip of at most 63 characters. False when the desktop has no tray.
    [[nodiscard]] virtual bool add(const std::string& tip) = 0;
    virtual void remove() = 0;
    /// `MNU_Tray`, at the mouse.
    virtual void popUpMenu() = 0;
};

/// What the tray asks of the main form.
class Tray_Form {
  public:
    virtual ~Tray_Form() = default;
    [[nodiscard]] virtual bool hidden() const = 0;
    [[nodiscard]] virtual bool minimized() const = 0;
    [[nodiscard]] virtual std::string caption() const = 0;
    virtual void hide() = 0;
    /// Shows it in its normal size.
    virtual void showNormal() = 0;
    /// Brings the program to the front.
    virtual void activate() = 0;
    /// The mark of `MNU_Minimizetotray`.
    virtual void setEntryChecked(bool checked) = 0;
};

/// What the icon tells of the mouse, by number.
enum class Tray_Message : int { LeftDoubleClick = 515, RightButtonUp = 517 };

/// The window in the desktop's tray: while `In_Tray` is set, the icon is there, and a minimized main form
/// hides, the monitor window with it.
class Tray {
  public:
    /// All three outlive it.
    Tray(const App_Context& app, Tray_Icon& icon, Tray_Form& form) : app_(app), icon_(icon), form_(form) {}

    /// The user marks or unmarks "Minimize to tray". On a desktop without a tray a message says so, and
    /// nothing changes: a hidden window could not be brought back.
    void MNU_Minimizetotray_Click();
    void MNU_Tray_All_Click();
    void MNU_Tray_Application_Window_Click();
    void MNU_Tray_Monitor_Window_Click();

    /// The icon was used: the message's number stands in place of x. Calls that arrive while one runs are
    /// ignored, and so are its failures.
    void Form_MouseMove(int x, int y);
    /// The main form was minimized.
    void formMinimized();
    /// Takes the icon away if it is there.
    void unload();

  private:
    [[nodiscard]] bool Tray_Icon_Add();
    void Tray_Icon_Remove();
    void showForm();
    void activateHiddenMonitor();
    [[nodiscard]] bool monitorHidden() const;
    void leftDoubleClick();
    void rightButtonUp(int y);
    [[nodiscard]] bool& In_Tray() { return app_.form().In_Tray; }

    const App_Context& app_;
    Tray_Icon& icon_;
    Tray_Form& form_;
    bool iconThere_ = false;
    bool handling_ = false;
};

} // namespace zorvane::app
