// SPDX-License-Identifier: MIT
#include "reports/export/byte_file.h"

#include "reports/export/replaced_file.h"

namespace zorvane {

void writeByteFile(const std::string& nativePath, const std::string& bytes) {
    Replaced_File file(nativePath);
    file.write(bytes);
    file.finish();
}

} // namespace zorvane
