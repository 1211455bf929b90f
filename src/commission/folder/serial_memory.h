// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

namespace zorvane::commission {

/// What stands for a document's controller in the memory of serial numbers. All texts in UTF-8.
[[nodiscard]] std::string serialKey(const std::string& documentPath, const std::string& port,
                                    std::int32_t unit);

/// The serial numbers of the controllers to which something was sent last.
class Serial_Memory {
  public:
    virtual ~Serial_Memory() = default;
    [[nodiscard]] virtual std::optional<std::string> known(const std::string& key) const = 0;
    /// Why it can't be kept, for people; empty when it is.
    [[nodiscard]] virtual std::string remember(const std::string& key, const std::string& serial) = 0;
};

/// In the file "serials.json" of a folder.
class Native_Serials final : public Serial_Memory {
  public:
    /// UTF-8, without a separator at its end.
    explicit Native_Serials(std::string folder) : folder_(std::move(folder)) {}

    [[nodiscard]] std::optional<std::string> known(const std::string& key) const override;
    [[nodiscard]] std::string remember(const std::string& key, const std::string& serial) override;

  private:
    [[nodiscard]] std::string file() const { return folder_ + "/serials.json"; }

    std::string folder_;
};

} // namespace zorvane::commission
