// SPDX-License-Identifier: MIT
#pragma once

#include "comm/main_form/transfer_events.h"
#include "ctl/document/held_form.h"
#include "ctl/line/terminal_asker.h"

#include <QTimer>

#include <string>

namespace zorvane::ctl {

/// The main form of a program in a terminal: waits serve the event loop, the timers of the upload and of the
/// live refresh tick, and people see the progress, the failed writes and the messages. REQUIRES: a
/// QCoreApplication.
class Terminal_Form : public Held_Form, public Transfer_Watcher {
  public:
    /// `asker` outlives it.
    Terminal_Form(std::int32_t fields, const Grid_Selection& selection, Terminal_Asker& asker);

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

    Terminal_Asker& asker_;
    Progress_Printer& printer_;
    QTimer uploadTimer_;
    QTimer onlineTimer_;
    std::string shownLabel_;
};

} // namespace zorvane::ctl
