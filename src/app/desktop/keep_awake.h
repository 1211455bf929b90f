// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QString;

namespace zorvane::app {

/// Keeps the computer from going to sleep by itself, by an inhibitor lock of the login manager
/// (https://systemd.io/INHIBITOR_LOCKS). Where there is none, as elsewhere than on Linux, nothing happens.
/// Nobody waits for its answer.
class Keep_Awake {
  public:
    Keep_Awake();
    ~Keep_Awake();
    Keep_Awake(const Keep_Awake&) = delete;
    Keep_Awake& operator=(const Keep_Awake&) = delete;

    /// `why` is for people who ask the system what keeps it awake.
    void hold(const QString& why);
    void release();

  private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace zorvane::app
