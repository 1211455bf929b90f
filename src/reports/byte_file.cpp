#include "reports/byte_file.h"

#include "values/run_time_failure.h"

#include <cerrno>
#include <fstream>

namespace zorvane {

namespace {

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
    errno = 0;
    std::ofstream file(nativePath, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw failureOfError(errno);
}

} // namespace zorvane
