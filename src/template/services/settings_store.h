// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace zorvane {

/// The per-user settings store. All values are text; a store never fails visibly.
class Settings_Store {
  public:
    virtual ~Settings_Store() = default;
    [[nodiscard]] virtual std::string GetSetting(const std::string& app, const std::string& section,
                                                 const std::string& key, const std::string& defaultText) = 0;
    virtual void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                             const std::string& text) = 0;
};

} // namespace zorvane
