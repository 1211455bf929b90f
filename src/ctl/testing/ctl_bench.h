// SPDX-License-Identifier: MIT
#pragma once

#include "ctl/document/subcommand.h"

#include <filesystem>
#include <string>
#include <vector>

namespace zorvane::doubles {

/// What a run of the program gave.
struct Ctl_Run {
    int code = -1;
    std::string out;
    std::string err;
};

/// A fresh folder of files, and the program's calls over it. The folder goes with the bench.
class Ctl_Bench {
  public:
    Ctl_Bench();
    ~Ctl_Bench();
    Ctl_Bench(const Ctl_Bench&) = delete;
    Ctl_Bench& operator=(const Ctl_Bench&) = delete;

    /// Writes a file of the folder, byte for byte; gives its path.
    std::string file(const std::string& name, const std::string& bytes);
    [[nodiscard]] std::string path(const std::string& name) const { return folder_ / name; }
    [[nodiscard]] std::string bytes(const std::string& name) const;
    [[nodiscard]] bool exists(const std::string& name) const;
    /// The names of all that lies in the folder, in order.
    [[nodiscard]] std::vector<std::string> names() const;

    /// Runs the calls in this process. The application folder is "/opt/zorvane", and what a save writes over
    /// is kept in the folder `recovery()`, at `time`.
    [[nodiscard]] Ctl_Run run(const std::vector<std::string>& arguments) const;

    [[nodiscard]] std::string recovery() const { return folder_.string() + "-recovery"; }
    std::string time = "2026-11-21 03:20:05";

  private:
    std::filesystem::path folder_;
};

/// The lines, each ended by CR LF.
[[nodiscard]] std::string lines(const std::vector<std::string>& texts);

} // namespace zorvane::doubles
