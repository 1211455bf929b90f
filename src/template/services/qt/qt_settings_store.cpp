// SPDX-License-Identifier: MIT
#include "template/services/qt/qt_settings_store.h"

#include "template/services/asker.h"
#include "values/code_page.h"

namespace zorvane {

namespace {

QString fromCore(const std::string& text) { return QString::fromStdString(toUtf8(text)); }

QString keyOf(const std::string& section, const std::string& key) {
    return fromCore(section) + u'/' + fromCore(key);
}

/// A text with commas that somebody typed into the file by hand is read as a list.
QString textOf(const QVariant& value) {
    return value.typeId() == QMetaType::QStringList ? value.toStringList().join(u',') : value.toString();
}

} // namespace

Qt_Settings_Store::Qt_Settings_Store()
    : settings_(QSettings::UserScope, fromCore(applicationTitle), fromCore(applicationTitle)) {}

Qt_Settings_Store::Qt_Settings_Store(const QString& file) : settings_(file, QSettings::IniFormat) {}

std::string Qt_Settings_Store::GetSetting(const std::string& /*app*/, const std::string& section,
                                          const std::string& key, const std::string& defaultText) {
    const QVariant value = settings_.value(keyOf(section, key));
    return value.isValid() ? fromUtf8(textOf(value).toStdString()) : defaultText;
}

void Qt_Settings_Store::SaveSetting(const std::string& /*app*/, const std::string& section,
                                    const std::string& key, const std::string& text) {
    settings_.setValue(keyOf(section, key), fromCore(text));
}

} // namespace zorvane
