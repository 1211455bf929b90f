// SPDX-License-Identifier: MIT
#pragma once

#include "commission/desk/send_desk.h"

#include <QDialog>

#include <functional>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QProgressBar;
class QPushButton;

namespace zorvane::app {

class Send_Table;

/// What the window of a send asks of the program.
struct Send_Window_Hooks {
    /// Runs what a button does: all failures end there.
    std::function<void(const std::function<void()>& handler)> run;
    std::function<void()> record; ///< "Record..."
};

/// "Send Changes": shows the state of a desk and hands on what is typed, ticked and pressed. It decides
/// nothing.
class Send_Window final : public QDialog {
  public:
    /// The desk must outlive it.
    Send_Window(commission::Send_Desk& desk, Send_Window_Hooks hooks, QWidget* parent);

    /// Brings it up to date with the desk.
    void refresh();
    /// Ends what is under way, else closes.
    void reject() override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void addWords();
    void addQuestion();
    void addTable();
    void addButtons();
    void showWords();
    void showQuestion();
    void showRows();
    void showButtons();
    void showProgress();
    void settleFocus();
    void goOn();
    void press(const std::function<void()>& handler);

    commission::Send_Desk& desk_;
    Send_Window_Hooks hooks_;
    QLabel* headline_ = nullptr;
    QLabel* identity_ = nullptr;
    QListWidget* evidence_ = nullptr;
    QLabel* notice_ = nullptr;
    QLabel* modelWords_ = nullptr;
    QLineEdit* model_ = nullptr;
    QPushButton* goOn_ = nullptr;
    Send_Table* table_ = nullptr;
    QLabel* sum_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QPushButton* all_ = nullptr;
    QPushButton* none_ = nullptr;
    QPushButton* retry_ = nullptr;
    QPushButton* resume_ = nullptr;
    QPushButton* restore_ = nullptr;
    QPushButton* record_ = nullptr;
    QPushButton* act_ = nullptr;
    QPushButton* close_ = nullptr;
    std::optional<commission::Desk_Stage> shownStage_;
    bool closesAfter_ = false;
};

} // namespace zorvane::app
