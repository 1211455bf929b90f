// SPDX-License-Identifier: MIT
#pragma once

#include "template/services/settings_store.h"

#include <QSettings>

namespace zorvane {

/// The user's settings of this desktop: a section is a group, and all values are text.
class Qt_Settings_Store final : public Settings_Store {
  public:
    /// In the desktop's own place.
    Qt_Settings_Store();
    /// In a file of its own.
    explicit Qt_Settings_Store(const QString& file);

    [[nodiscard]] std::string GetSetting(const std::string& app, const std::string& section,
                                         const std::string& key, const std::string& defaultText) override;
    void SaveSetting(const std::string& app, const std::string& section, const std::string& key,
                     const std::string& text) override;

  private:
    QSettings settings_;
};

} // namespace zorvane
