// SPDX-License-Identifier: MIT
#include "app/desktop/qt_settings_store.h"

#include "template/services/asker.h"
#include "ui/base/text.h"

namespace zorvane::app {

namespace {

QString keyOf(const std::string& section, const std::string& key) {
    return ui::fromCore(section) + u'/' + ui::fromCore(key);
}

/// A text with commas that somebody typed into the file by hand is read as a list.
QString textOf(const QVariant& value) {
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(u',') : value.toString();
}

} // namespace

Qt_Settings_Store::Qt_Settings_Store()
    : settings_(QSettings::UserScope, ui::fromCore(applicationTitle), ui::fromCore(applicationTitle)) {}

Qt_Settings_Store::Qt_Settings_Store(const QString& file) : settings_(file, QSettings::IniFormat) {}

std::string Qt_Settings_Store::GetSetting(const std::string& /*app*/, const std::string& section,
                                          const std::string& key, const std::string& defaultText) {
    const QVariant value = settings_.value(keyOf(section, key));
    return value.isValid() ? ui::toCore(textOf(value)) : defaultText;
}

void Qt_Settings_Store::SaveSetting(const std::string& /*app*/, const std::string& section,
                                    const std::string& key, const std::string& text) {
    settings_.setValue(keyOf(section, key), ui::fromCore(text));
}

} // namespace zorvane::app
