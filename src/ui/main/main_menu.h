// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <functional>
#include <map>
#include <memory>

class QAction;
class QMenu;
class QMenuBar;

namespace zorvane::ui {

struct Menu_Line;

/// The menu of the main form. Each entry is an action with its given name as object name, whether it is
/// enabled or not.
class Main_Menu final {
  public:
    explicit Main_Menu(QMenuBar& bar);
    ~Main_Menu();
    Main_Menu(const Main_Menu&) = delete;
    Main_Menu& operator=(const Main_Menu&) = delete;

    /// "MNU_Open", "separador4", also a menu's own entry, "MNU_Print". A name that no entry has is
    /// std::out_of_range.
    [[nodiscard]] QAction& action(const QString& name) const;
    /// What the entry does when it is chosen. Its check mark is as it was; only its owner changes it.
    void onChosen(const QString& name, std::function<void()> handler);
    /// The same for an entry that its owner put into one of the menus.
    void onChosen(QAction& entry, std::function<void()> handler);
    /// Runs before whatever an entry does.
    void beforeAny(std::function<void()> handler) { before_ = std::move(handler); }

    /// `MNU_Tray`, which belongs to no menu bar and pops up at the icon.
    [[nodiscard]] QMenu& trayMenu() const { return *tray_; }

  private:
    void fill(QMenu& menu, const Menu_Line* first, const Menu_Line* last);
    void add(QMenu& menu, const Menu_Line& line);

    std::map<QString, QAction*> actions_;
    std::function<void()> before_;
    std::unique_ptr<QMenu> tray_;
};

} // namespace zorvane::ui
