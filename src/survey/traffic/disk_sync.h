// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <functional>
#include <memory>
#include <string>

namespace zorvane::survey {

/// Brings what the system has of a file to the disk, where a power cut leaves it. A disk may take long, so
/// this goes on beside the program: whoever asks for it never waits.
class Disk_Sync {
  public:
    /// Waits until the disk has all of a file, by its descriptor: 0, or -1 with `errno`.
    using Wait = std::function<int(int descriptor)>;

    /// With the system's own `fdatasync`.
    Disk_Sync();
    explicit Disk_Sync(Wait wait);
    Disk_Sync(const Disk_Sync&) = delete;
    Disk_Sync& operator=(const Disk_Sync&) = delete;
    /// Waits for what was begun.
    ~Disk_Sync();

    /// Begins with what was flushed to an open file, which may be closed right after. A file that waits for
    /// its turn already isn't taken again.
    void begin(std::FILE* file);
    /// Begins with the folder in which a file stands: without it the name of a new file is lost.
    void beginFolderOf(const std::string& file);
    /// Whether a disk refused something. What isn't a file on a disk, as a pipe, counts as done.
    [[nodiscard]] bool failed() const;

  private:
    class Worker;
    std::unique_ptr<Worker> worker_;
};

} // namespace zorvane::survey
