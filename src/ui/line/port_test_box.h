// SPDX-License-Identifier: MIT
#pragma once

#include "comm/modbus_control/exchange/trial_verdict.h"
#include "survey/find/doctor_visit.h"

#include <QWidget>

#include <functional>
#include <memory>

class QPlainTextEdit;
class QPushButton;

namespace zorvane::ui {

/// What the test of a port works with.
struct Port_Test_Services {
    Byte_Port& port; ///< closed, and nobody else's
    Link_Clock& clock;
    std::function<Trial_Request()> request; ///< with what is entered
    std::function<std::string()> fault;     ///< what is wrong with that; empty when it is usable
    std::function<void()> lendPort;         ///< the link leaves its port to the test; may be empty
    std::function<void()> takePortBack;     ///< the test is over; may be empty
    std::int32_t templateTimeOutMs = 0;     ///< in force in place of what is entered; 0 or below: none
    std::function<void(std::int32_t timeOutMs)> takeTimeOut;
};

/// The test in the port dialog: one read, and where that can't tell, a sequence of harmless reads that ends
/// in one sentence. The sequence also measures the answer times.
class Port_Test_Box final : public QWidget {
  public:
    explicit Port_Test_Box(Port_Test_Services services);
    ~Port_Test_Box() override;

    [[nodiscard]] bool running() const { return (test_ && test_->running()) || visit_; }
    void stop();
    /// Shows it in place of a verdict.
    void say(const std::string& text);

  private:
    QPushButton& addButton(QWidget& column, const char* name, const QString& text, const QString& tip,
                           std::function<void()> chosen);
    QPlainTextEdit& addText(const char* name, const QString& words, int lines);
    void startOrStop();
    void startTest();
    void tested(const Trial_Request& request, const Trial_Report& report);
    void startVisit();
    void visited(const survey::Diagnosis& diagnosis);
    void takeTimeOut();
    void copyReport() const;
    void showState();
    [[nodiscard]] bool begins();

    Port_Test_Services services_;
    std::unique_ptr<Trial_Exchange> test_; ///< the last one
    std::unique_ptr<survey::Doctor_Visit> visit_;
    Port_Settings asked_;
    std::string report_; ///< of the visit; empty without one
    std::int32_t proposedTimeOutMs_ = 0;
    QPushButton* testButton_ = nullptr;
    QPushButton* timesButton_ = nullptr;
    QPushButton* copyButton_ = nullptr;
    QPushButton* timeOutButton_ = nullptr;
    QPlainTextEdit* verdict_ = nullptr;
    QPlainTextEdit* diagnosis_ = nullptr;
};

} // namespace zorvane::ui
