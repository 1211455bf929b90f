// SPDX-License-Identifier: MIT
#include "template/services/file_limits.h"

#include <csignal>
#include <unistd.h>

namespace zorvane {

/// A handler, where ignoring the signal would be handed on to the programs that this one starts.
void takeFileSizeLimitAsFailure() {
    struct sigaction action {};
    action.sa_handler = [](int) {};
    action.sa_flags = SA_RESTART;
    ::sigaction(SIGXFSZ, &action, nullptr);
}

int syncToDisk(std::FILE* file) { return ::fsync(::fileno(file)); }

} // namespace zorvane
