// SPDX-License-Identifier: MIT
#pragma once

#include "survey/traffic/disk_sync.h"
#include "survey/traffic/traffic_file.h"

#include <cstdio>
#include <memory>
#include <optional>

namespace zorvane::survey {

/// Files of this computer. What is written is with the system when `write` returns, so that a crash of the
/// program loses nothing of it; `sync` brings it to the disk beside the program.
class Native_Traffic_Files final : public Traffic_Sink {
  public:
    Native_Traffic_Files() = default;
    Native_Traffic_Files(const Native_Traffic_Files&) = delete;
    Native_Traffic_Files& operator=(const Native_Traffic_Files&) = delete;
    /// Waits until the disk has all.
    ~Native_Traffic_Files() override { end(); }

    [[nodiscard]] bool exists(const std::string& name) const override;
    [[nodiscard]] bool begin(const std::string& name) override;
    /// False as well once the disk refused what was written before.
    [[nodiscard]] bool write(std::string_view text) override;
    void sync() override;
    /// Ends the present file. The disk may take what is left of it later.
    void end();

  private:
    struct Close {
        void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
    };
    std::unique_ptr<std::FILE, Close> file_;
    std::optional<Disk_Sync> disk_; ///< from the first file on
};

} // namespace zorvane::survey
