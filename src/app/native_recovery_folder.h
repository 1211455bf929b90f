#pragma once

#include "app/recovery.h"

#include <string>
#include <vector>

namespace zorvane {

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
