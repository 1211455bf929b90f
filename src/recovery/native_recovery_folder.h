// SPDX-License-Identifier: MIT
#pragma once

#include "recovery/recovery.h"

#include <string>
#include <string_view>
#include <vector>

namespace zorvane {

/// Below the folder of recovery copies: where files lie as they were before a save. UTF-8, both.
[[nodiscard]] std::string filesFolder(const std::string& recoveryFolder);

/// Makes a file of those bytes (UTF-8 path) and has it reach the disk. 0, or the system's error: EEXIST for a
/// file that is there already, which stays as it is. One that can't be written to its end goes again.
[[nodiscard]] int makeFile(const std::string& path, std::string_view bytes);

/// Recovery copies in a folder of this machine, readable by its owner only. The folder is made when the first
/// copy is written.
class Native_Recovery_Folder : public Recovery_Folder {
  public:
    /// `folder` is a path of this platform (UTF-8), without a separator at its end. What a killed program
    /// left half written is swept away.
    explicit Native_Recovery_Folder(std::string folder);

    /// Writes a file of its own beside the old one, has it reach the disk, and puts it in the old one's
    /// place.
    [[nodiscard]] bool write(const std::string& name, const std::string& text) override;
    void remove(const std::string& name) override;
    [[nodiscard]] std::string beginning(const std::string& name) override;
    [[nodiscard]] std::vector<std::string> list() override;
    [[nodiscard]] std::string path(const std::string& name) const override;

  private:
    [[nodiscard]] std::string native(const std::string& name) const;
    void reachDisk() const;
    void sweep() const;

    std::string folder_;
};

} // namespace zorvane
