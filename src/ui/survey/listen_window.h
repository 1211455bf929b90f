// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/line/port_finder.h"
#include "survey/desk/capture_file.h"
#include "survey/desk/listening_words.h"
#include "ui/base/file_dialog.h"
#include "ui/base/fixed_dialog.h"

#include <QDialog>
#include <QTemporaryFile>
#include <QTimer>

#include <memory>
#include <optional>

class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace zorvane::ui {

class Port_Choice;
class Rows_Table;

/// What listening works with.
struct Listen_Services {
    Port_Finder& finder;
    survey::Listening_Port& port; ///< nobody else's
    Link_Clock& clock;
    std::vector<survey::Known_Template> templates;
    std::int64_t sinceEpoch = 0; ///< what the clock's times lack to microseconds since 1970
    Ask_User ask;
};

/// "Listen": who asks what on a line, and how fast it is answered, without a byte of our own. What is heard
/// goes to a temporary file, which "Save As..." copies.
class Listen_Window final : public QDialog {
  public:
    Listen_Window(Listen_Services services, const Port_Settings& present, QWidget* owner);
    ~Listen_Window() override;

    [[nodiscard]] bool running() const { return listener_ != nullptr; }
    [[nodiscard]] bool saving() const { return copyFrom_ != nullptr; }
    /// Copies what was heard so far, a piece at a time. False when the file can't be written.
    bool save(const QString& path);

    void done(int result) override;

    File_Dialog SaveFile; ///< where the file is asked for

  private:
    void addFields(QFormLayout& form, const Port_Settings& present);
    void addTable();
    void addButtons();
    [[nodiscard]] std::string fault() const;
    void startOrStop();
    void start();
    void heard(const survey::Heard_Frame& frame);
    void ended(const survey::Listening_Report& report);
    void showReport(const survey::Listening_Report& report);
    void showNotes(const survey::Listening_Report& report);
    void showState();
    void saveAs();
    void copyPiece();

    Listen_Services services_;
    survey::Listening_Plan plan_;
    std::unique_ptr<survey::Line_Listener> listener_;
    std::unique_ptr<QTemporaryFile> held_; ///< holds the name
    std::optional<survey::Capture_File> capture_;
    QTimer showTimer_;
    bool closing_ = false; ///< as soon as nothing runs any more
    std::unique_ptr<QFile> copyFrom_;
    std::unique_ptr<QFile> copyTo_;
    QTimer copyTimer_;
    Port_Choice* port_ = nullptr;
    QLineEdit* settings_ = nullptr;
    QLabel* sums_ = nullptr;
    Rows_Table* table_ = nullptr;
    QPlainTextEdit* notes_ = nullptr;
    QPushButton* listen_ = nullptr;
    QPushButton* saveAs_ = nullptr;
};

} // namespace zorvane::ui
