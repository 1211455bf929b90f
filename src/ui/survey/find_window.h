// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_finder.h"
#include "survey/desk/find_fields.h"

#include <QDialog>

#include <functional>
#include <memory>

class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace zorvane::ui {

class Port_Choice;
class Rows_Table;

/// What the search for controllers works with.
struct Find_Services {
    Port_Finder& finder;
    Byte_Port& port; ///< closed, and nobody else's
    Link_Clock& clock;
    std::vector<survey::Known_Template> templates;
    std::optional<Line_Settings> lastGood;                            ///< with which one was found last
    std::function<void(const survey::Search_Report&)> keepLastGood{}; ///< told each end; may be empty
    /// Asks a controller whose it is, over `port`; it ends early once `cancelled` says so.
    std::function<survey::Found_Identity(const Port_Settings& settings,
                                         const std::function<bool()>& cancelled)>
        identify{};
};

/// "Find Controllers": what is tried, how far it is, and what was found. Its owner takes `chosen()` after it
/// was accepted.
class Find_Window final : public QDialog {
  public:
    Find_Window(Find_Services services, const Port_Settings& present, QWidget* owner);
    ~Find_Window() override;

    /// The settings in force, changed to those of the controller that was chosen.
    [[nodiscard]] Port_Settings chosen() const;
    [[nodiscard]] bool running() const { return search_ != nullptr || identifying_; }

    void done(int result) override;

  private:
    void addFields(QFormLayout& form);
    void addProgress();
    void addTable();
    void addButtons();
    [[nodiscard]] survey::Find_Fields fields() const;
    void startOrStop();
    void start();
    void showProgress(const survey::Search_Progress& progress);
    void searchEnded(const survey::Search_Report& report);
    void identifyAll();
    void showFound();
    void showNotes();
    void showState();
    [[nodiscard]] int chosenRow() const;

    Find_Services services_;
    Port_Settings present_;
    std::string searched_; ///< the port
    std::unique_ptr<survey::Line_Search> search_;
    survey::Search_Report report_;
    std::vector<survey::Found_Identity> identities_;
    bool identifying_ = false;
    bool stopping_ = false;
    std::optional<int> ending_; ///< closes with this result as soon as nothing runs any more
    Port_Choice* port_ = nullptr;
    QLineEdit* units_ = nullptr;
    QLineEdit* settings_ = nullptr;
    QLabel* tried_ = nullptr;
    QProgressBar* progress_ = nullptr;
    Rows_Table* table_ = nullptr;
    QPlainTextEdit* notes_ = nullptr;
    QPushButton* find_ = nullptr;
    QPushButton* use_ = nullptr;
};

} // namespace zorvane::ui
