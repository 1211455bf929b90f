// SPDX-License-Identifier: MIT
#pragma once

#include "template/services/file_limits.h"
#include "template/services/native_files.h"

#include <sys/resource.h>

namespace zorvane::doubles {

/// While it lives no file of this process has more than so many bytes, as on a disk that is nearly full.
class File_Size_Limit {
  public:
    explicit File_Size_Limit(rlim_t bytes) {
        takeFileSizeLimitAsFailure();
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~File_Size_Limit() { setrlimit(RLIMIT_FSIZE, &before_); }
    File_Size_Limit(const File_Size_Limit&) = delete;
    File_Size_Limit& operator=(const File_Size_Limit&) = delete;
    File_Size_Limit(File_Size_Limit&&) = delete;
    File_Size_Limit& operator=(File_Size_Limit&&) = delete;

  private:
    rlimit before_{};
};

} // namespace zorvane::doubles
