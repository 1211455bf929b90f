// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/transfer_events.h"
#include "ctl/document/held_form.h"
#include "ctl/text/progress_printer.h"

#include <QTimer>

#include <iosfwd>
#include <set>

namespace zorvane::ctl {

/// The main form of a program in a terminal: waits serve the event loop, the timers of the upload and of the
/// live refresh tick, and people see the progress, the failed writes and the link's messages, each message
/// once. REQUIRES: a QCoreApplication.
class Terminal_Form : public Held_Form, public Transfer_Watcher {
  public:
    Terminal_Form(std::int32_t fields, const Grid_Selection& selection, std::ostream& err, bool terminal);

    int Msgb_Show(const std::string& prompt, int style, const std::string& title) override;
    void setTimerEnabled(Timer_Name timer, bool enabled) override;
    void wait_until(const std::function<bool()>& condition) override;
    void wait_ms(std::int32_t milliseconds) override;
    /// Shows a write that failed.
    void note(const Transfer_Event& event) override;

    /// A line to people, beside the progress.
    void tellLine(const std::string& text) { printer_.line("zorvanectl: " + text); }

    std::function<bool()> endsWaits;  ///< whether a `wait_ms` is over before its time; may be empty
    std::function<bool()> portFailed; ///< whether the port couldn't be opened; may be empty

  private:
    void addTimer(QTimer& timer, Timer_Name name, int milliseconds);
    void showProgress();

    Progress_Printer printer_;
    QTimer uploadTimer_;
    QTimer onlineTimer_;
    std::string shownLabel_;
    std::set<std::string> told_; ///< messages: each is told once
};

} // namespace zorvane::ctl
