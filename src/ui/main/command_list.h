// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QPointer>
#include <QString>

#include <vector>

class QAction;
class QLineEdit;
class QListWidget;
class QMenuBar;

namespace zorvane::ui {

/// An entry of a menu by the way to it.
struct Named_Command {
    QString name; ///< "File > Save As..."
    QString keys; ///< "Ctrl+Shift+S", or nothing
    QPointer<QAction> action;
};

/// Every entry of a menu bar that does something, in the order of the menus.
[[nodiscard]] std::vector<Named_Command> commandsOf(const QMenuBar& bar);

/// Those whose names hold every word of a text, in any letter case. Those whose own caption begins with the
/// first word come first, otherwise in their order.
[[nodiscard]] std::vector<Named_Command> matchingCommands(const std::vector<Named_Command>& commands,
                                                          const QString& words);

/// Finds a command by a part of its name, and does it when the dialog is gone. What is disabled now is shown
/// as such and can't be chosen.
class Command_List final : public QDialog {
  public:
    Command_List(std::vector<Named_Command> commands, QWidget* parent);

    /// The chosen one; null before, and after Escape.
    [[nodiscard]] QAction* chosen() const { return chosen_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void fill(const QString& words);
    void choose();

    std::vector<Named_Command> commands_;
    std::vector<Named_Command> shown_;
    QLineEdit* words_;
    QListWidget* list_;
    QPointer<QAction> chosen_;
};

} // namespace zorvane::ui
