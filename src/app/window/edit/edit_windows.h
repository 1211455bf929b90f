// SPDX-License-Identifier: MIT
#pragma once

#include "app/compare/difference_marks.h"
#include "app/desktop/event_edge.h"
#include "app/edit/fit_question.h"
#include "app/form/app_context.h"
#include "app/window/edit/find_window.h"
#include "ui/main/main_window.h"

#include <QPointer>

#include <functional>
#include <string>

class QFileDialog;

namespace zorvane::app {

struct Step_Entry;

/// The window's menu "Edit", and what the lower grid shows of changes and differences. All four outlive it.
class Edit_Windows {
  public:
    Edit_Windows(ui::Main_Window& window, const App_Context& app, Event_Edge& edge, Difference_Marks& marks);
    Edit_Windows(const Edit_Windows&) = delete;
    Edit_Windows& operator=(const Edit_Windows&) = delete;

    /// Shows the question and waits for the answer; whatever drives the program in a test replaces this.
    Ask_Fit askFit;

    /// Runs the dialogs for files of values; whatever drives the program in a test replaces this.
    std::function<bool(QFileDialog& dialog)> runFileDialog;

    /// While it was ever asked for.
    [[nodiscard]] Find_Window* findWindow() const { return findWindow_; }

    /// Takes part in the lower grid's events, once those have their other handlers.
    void connectGrid();

    /// Something happened on which the entries or the marks may depend: they follow once the events are
    /// served.
    void scheduleRefresh();

  private:
    void connectFind();
    void connectFiles();
    void connectClipboard();
    void pasteBlock(const QString& text);
    [[nodiscard]] bool ask(const Fit_Question& question) const;
    [[nodiscard]] QRect shownCell() const;
    void onChosen(const char* entry, const std::function<void()>& handler);
    void refresh();
    void connectMarks();
    void showEntry(const char* name, const Step_Entry& entry);
    void allow(const char* name, const std::string& why);

    ui::Main_Window& window_;
    const App_Context& app_;
    Event_Edge& edge_;
    Difference_Marks& marks_;
    Find_Session find_;
    QPointer<Find_Window> findWindow_;
    bool refreshPending_ = false;
};

} // namespace zorvane::app
