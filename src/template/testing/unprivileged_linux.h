// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <stdexcept>
#include <unistd.h>

namespace zorvane::doubles {

/// Takes the super-user's rights away for its lifetime, so that permissions count in a container too.
class Unprivileged {
  public:
    Unprivileged() {
        constexpr uid_t nobody = 65534;
        if (before_ == 0 && seteuid(nobody) != 0) throw std::runtime_error("can't become an ordinary user");
    }
    ~Unprivileged() {
        if (before_ == 0 && seteuid(before_) != 0) std::abort();
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    Unprivileged(Unprivileged&&) = delete;
    Unprivileged& operator=(Unprivileged&&) = delete;

  private:
    uid_t before_ = geteuid();
};

} // namespace zorvane::doubles
