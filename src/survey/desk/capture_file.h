// SPDX-License-Identifier: MIT
#pragma once

#include "survey/listen/frame_finder.h"

#include <cstdint>
#include <fstream>
#include <string>

namespace zorvane::survey {

/// A file of frames for Wireshark and tshark, each handed to the system as it comes, so that a crash
/// loses none.
class Capture_File {
  public:
    /// `path` is UTF-8, `line` names the interface. What is in a file of that name is lost.
    /// `sinceEpoch` is what the clock's times lack to microseconds since 1970, UTC.
    Capture_File(const std::string& path, std::string_view line, std::int64_t sinceEpoch);

    /// False once something couldn't be written.
    [[nodiscard]] bool good() const { return file_.good(); }
    void add(const Heard_Frame& frame);
    /// Writes what is left; false when that fails, or failed before.
    [[nodiscard]] bool end();

  private:
    std::ofstream file_;
    std::int64_t sinceEpoch_;
};

} // namespace zorvane::survey
