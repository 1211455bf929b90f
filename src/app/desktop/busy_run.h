// SPDX-License-Identifier: MIT
#pragma once

#include "app/desktop/event_edge.h"

#include <QElapsedTimer>
#include <QObject>

#include <functional>
#include <memory>

namespace zorvane::ui {
class Mensaje;
} // namespace zorvane::ui

namespace zorvane::app {

/// The busy form of a long run on the program's one thread. While it stands the windows are painted and
/// timers served, but no window takes input except the busy form and a box that asks something, so what the
/// run works on stays as it is.
class Busy_Run final : public QObject {
  public:
    /// `makeForm` makes the form for each run.
    Busy_Run(Event_Edge& edge, std::function<std::unique_ptr<ui::Mensaje>()> makeForm);
    Busy_Run(const Busy_Run&) = delete;
    Busy_Run& operator=(const Busy_Run&) = delete;
    ~Busy_Run() override;

    /// Shows the form, painted when this returns. Runs may lie within each other: the form goes with the
    /// outermost.
    void show();
    void end();
    [[nodiscard]] bool active() const { return depth_ > 0; }

    /// For the run to call again and again; cheap when called often. False from when the user has cancelled
    /// until the form goes.
    [[nodiscard]] bool keepsRunning();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    [[nodiscard]] bool mayTakeInput(const QObject* watched) const;
    void serve();

    Event_Edge& edge_;
    std::function<std::unique_ptr<ui::Mensaje>()> makeForm_;
    std::unique_ptr<ui::Mensaje> form_;
    QElapsedTimer sinceServed_;
    int depth_ = 0;
    bool cancelled_ = false;
};

} // namespace zorvane::app
