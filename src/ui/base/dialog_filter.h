// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace zorvane::ui {

/// A file type on offer in a file dialog.
struct Dialog_Filter {
    QString text;    ///< "ABC Configuration (*.ABC)"
    QString pattern; ///< "*.ABC", or several with ";" between them

    bool operator==(const Dialog_Filter&) const = default;
};

/// The pairs of "text|pattern|text|pattern|"; the last bar may be missing. A text without a pattern offers
/// all files.
[[nodiscard]] std::vector<Dialog_Filter> dialogFilters(const QString& list);

/// The form that Qt's dialog takes: its text, and the patterns in brackets at the end. A character that Qt
/// would cut a pattern at stands as "?".
[[nodiscard]] QString nameFilter(const Dialog_Filter& filter);

/// The extension of the first pattern without its dot, "" for one like "*.*".
[[nodiscard]] QString firstExtension(const Dialog_Filter& filter);

} // namespace zorvane::ui
