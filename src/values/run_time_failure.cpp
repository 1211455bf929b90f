// SPDX-License-Identifier: MIT
#include "values/run_time_failure.h"

namespace zorvane {

const char* failureText(Failure kind) noexcept {
    switch (kind) {
    case Failure::InvalidCall:
        return "Invalid procedure call or argument";
    case Failure::Overflow:
        return "Overflow";
    case Failure::Subscript:
        return "Subscript out of range";
    case Failure::TypeMismatch:
        return "Type mismatch";
    case Failure::FileNotFound:
        return "File not found";
    case Failure::DiskFull:
        return "Disk full";
    case Failure::PermissionDenied:
        return "Permission denied";
    case Failure::PathFileAccess:
        return "Path/File access error";
    case Failure::PathNotFound:
        return "Path not found";
    }
    return "";
}

} // namespace zorvane
