#include "reports/byte_file.h"

#include "values/run_time_failure.h"

#include <cerrno>
#include <cstdio>
#include <memory>

namespace zorvane {

namespace {

struct Close_File {
    void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
};

Run_Time_Failure failureOfError(int error) {
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return Run_Time_Failure(Failure::DiskFull);
    case EACCES:
    case EPERM:
    case EROFS:
        return Run_Time_Failure(Failure::PermissionDenied);
    case ENOENT:
    case ENOTDIR:
        return Run_Time_Failure(Failure::PathNotFound);
    default:
        return Run_Time_Failure(Failure::PathFileAccess);
    }
}

} // namespace

void writeByteFile(const std::string& nativePath, const std::string& bytes) {
    std::unique_ptr<std::FILE, Close_File> file(std::fopen(nativePath.c_str(), "wb"));
    if (!file) throw failureOfError(errno);
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
                         std::fflush(file.get()) == 0;
    if (!written) throw failureOfError(errno);
    if (std::fclose(file.release()) != 0) throw failureOfError(errno);
}

} // namespace zorvane
