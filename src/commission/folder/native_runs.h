// SPDX-License-Identifier: MIT
#pragma once

#include "commission/folder/run_store.h"

namespace zorvane::commission {

/// The runs of a user in folders of this computer, which nobody else may look into.
class Native_Runs final : public Run_Store {
  public:
    /// The folder above them; it is made when a run is. UTF-8, without a separator at its end.
    explicit Native_Runs(std::string root) : root_(std::move(root)) {}

    [[nodiscard]] std::string place() const override { return root_; }
    [[nodiscard]] std::vector<std::string> names() const override;
    [[nodiscard]] Opened_Run make(const std::string& stem) override;
    [[nodiscard]] Opened_Run open(const std::string& name) override;
    [[nodiscard]] std::optional<std::string> read(const std::string& name,
                                                  std::string_view file) const override;
    void remove(const std::string& name) override;

  private:
    [[nodiscard]] std::string folderOf(const std::string& name) const { return root_ + "/" + name; }

    std::string root_;
};

} // namespace zorvane::commission
