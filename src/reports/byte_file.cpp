#include "reports/byte_file.h"

#include "template/native_files.h"

#include <cerrno>
#include <fstream>

namespace zorvane {

void writeByteFile(const std::string& nativePath, const std::string& bytes) {
    errno = 0;
    std::ofstream file(nativePath, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) throw Run_Time_Failure(writingFailure(errno));
}

} // namespace zorvane
