// SPDX-License-Identifier: MIT
#pragma once

#include "app/comparing/compare_command.h"
#include "app/desktop/qt_text_widths.h"
#include "app/form/app_context.h"
#include "app/window/desktop_menus.h"
#include "app/window/edit/edit_windows.h"
#include "app/window/files/document_ways.h"
#include "app/window/form/menu_context.h"
#include "app/window/form/window_form.h"
#include "app/window/report_windows.h"
#include "app/window/survey/survey_commands.h"
#include "app/window/system_end.h"
#include "app/window/window_link.h"
#include "commission/folder/native_runs.h"
#include "recovery/native_recovery_folder.h"
#include "template/services/native_files.h"
#include "template/services/qt/qt_settings_store.h"

#include <QElapsedTimer>
#include <QTimer>

#include <string>

namespace zorvane::app {

/// Where the program finds its things.
struct Program_Places {
    std::string applicationFolder; ///< of the templates; the system's text, no separator at its end
    std::string recoveryFolder;    ///< of the recovery copies; UTF-8, no separator at its end
    QString settingsFile;          ///< empty for the desktop's own place
    QString handoverPlace{};       ///< where files are handed over; empty for nowhere
};

/// The places of this program for this user. REQUIRES: a QCoreApplication.
[[nodiscard]] Program_Places programPlaces();

/// The program: the main form with all that it works on. It puts the parts together and gives every menu
/// entry, grid event and timer its handler; what those do is written elsewhere. REQUIRES: a QApplication.
class KVRT_Principal {
  public:
    explicit KVRT_Principal(const Program_Places& places);
    ~KVRT_Principal();
    KVRT_Principal(const KVRT_Principal&) = delete;
    KVRT_Principal& operator=(const KVRT_Principal&) = delete;

    /// Loads the form and starts the timers that show it.
    void start();
    /// Starts, serves events until the program ends, and gives its exit code.
    [[nodiscard]] int run();
    /// The system wants the program to end: it does, soon and without a question.
    void endBySystem() { systemEnd_.begin(); }

    [[nodiscard]] const App_Context& app() const { return app_; }
    [[nodiscard]] ui::Main_Window& window() { return window_; }
    [[nodiscard]] Window_Form& mainForm() { return mainForm_; }
    [[nodiscard]] Modbus_Link& link() { return line_.link(); }
    [[nodiscard]] Window_Link& line() { return line_; }
    [[nodiscard]] Transfer_Log_Form& transferLog() { return transferLog_; }
    [[nodiscard]] Event_Edge& edge() { return edge_; }
    [[nodiscard]] Report_Windows& reports() { return reports_; }
    /// What "Compare..." works on.
    [[nodiscard]] Comparing_Services& comparing() { return comparing_; }
    [[nodiscard]] Desktop_Menus& desktop() { return desktop_; }
    [[nodiscard]] Document_Ways& ways() { return ways_; }
    [[nodiscard]] Edit_Windows& edit() { return edit_; }
    /// An edit in progress brings the recovery copy up to date this often.
    [[nodiscard]] QTimer& TMR_Copia() { return copyTimer_; }

  private:
    /// What the grids' handlers ask of the windows around them.
    class Form_Windows final : public Grid_Windows {
      public:
        explicit Form_Windows(Window_Form& mainForm) : mainForm_(mainForm) {}
        void showFrmDebug() override;
        void updateColumnTip() override;
        [[nodiscard]] Mouse_Place mousePlace() const override;
        void showCurrentCell() override;

      private:
        Window_Form& mainForm_;
    };

    void connectForm();
    void connectTimers();
    void connectLink();
    void connectSending();
    [[nodiscard]] Comparing_Services comparingServices();
    void connectComparing();
    void stopOnFailure(const Run_Time_Failure& failure);

    Program_Places places_;
    Event_Edge edge_;
    Declara_Zorvane document_;
    Main_Form_State form_;
    Navigation_State navigation_;
    Hidden_Editors editors_;
    App_State state_;
    Native_Files files_;
    Qt_Settings_Store settings_;
    Native_Recovery_Folder recoveryFolder_;
    Native_Recovery_Folder savedFolder_; ///< of files as they were before a save
    Recovery recovery_;
    ui::Main_Window window_;
    Window_Form mainForm_;
    Window_Link line_;
    Form_Windows formWindows_;
    Qt_Text_Widths widths_;
    App_Context app_;
    Menu_Context menu_;
    Report_Windows reports_;
    Transfer_Log_Form transferLog_;
    Desktop_Menus desktop_;
    Document_Ways ways_;
    commission::Native_Runs runs_;
    Difference_Marks marks_;
    Comparing_Services comparing_;
    Survey_Commands survey_;
    Edit_Windows edit_;
    System_End systemEnd_;
    QTimer copyTimer_;
    QElapsedTimer clock_;
};

} // namespace zorvane::app
