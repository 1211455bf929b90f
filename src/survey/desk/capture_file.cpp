// SPDX-License-Identifier: MIT
#include "survey/desk/capture_file.h"

#include "survey/listen/pcapng.h"

namespace zorvane::survey {

Capture_File::Capture_File(const std::string& path, std::string_view line, std::int64_t sinceEpoch)
    : file_(path, std::ios::binary | std::ios::trunc), sinceEpoch_(sinceEpoch) {
    file_ << pcapngBeginning(line) << std::flush;
}

void Capture_File::add(const Heard_Frame& frame) {
    file_ << pcapngPacket(frame.firstAt + sinceEpoch_, frame.bytes) << std::flush;
}

bool Capture_File::end() {
    file_.flush();
    return file_.good();
}

} // namespace zorvane::survey
