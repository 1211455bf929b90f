// SPDX-License-Identifier: MIT
#include "simulator/line/frame_log.h"

#include <ostream>
#include <stdexcept>

namespace zorvane::simulator {

Frame_Log::Frame_Log(const std::string& file, std::ostream& standardOut, std::ostream& complaints,
                     Instant start)
    : complaints_(complaints), start_(start) {
    if (file.empty()) return;
    if (file == "-") {
        out_ = &standardOut;
        return;
    }
    file_.open(file, std::ios::trunc);
    if (!file_) throw std::runtime_error("log file " + file + " can't be written");
    out_ = &file_;
}

void Frame_Log::frame(const Frame_Record& record, Instant now, std::int32_t addressBase) {
    if (out_ != nullptr) write(logLine(record, now - start_, addressBase));
}

void Frame_Log::event(const std::string& text, Instant now) {
    if (out_ != nullptr) write(eventLine(text, now - start_));
}

void Frame_Log::write(const std::string& line) {
    *out_ << line << '\n' << std::flush;
    if (*out_) return;
    complaints_ << "zorvane-sim: the log can't be written any more\n";
    out_ = nullptr;
}

} // namespace zorvane::simulator
