// SPDX-License-Identifier: MIT
#include "values/file_descriptor.h"

#include <cerrno>
#include <cstddef>
#include <unistd.h>
#include <utility>

namespace zorvane {

File_Descriptor& File_Descriptor::operator=(File_Descriptor&& other) noexcept {
    if (this != &other) {
        close();
        number_ = other.release();
    }
    return *this;
}

int File_Descriptor::release() noexcept { return std::exchange(number_, -1); }

void File_Descriptor::close() noexcept {
    if (isOpen()) ::close(release());
}

bool writeAll(const File_Descriptor& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(file.number(), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count == 0) errno = EIO;
        if (count <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

} // namespace zorvane
