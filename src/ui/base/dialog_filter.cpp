// SPDX-License-Identifier: MIT
#include "ui/base/dialog_filter.h"

#include <QRegularExpression>

namespace zorvane::ui {

namespace {

/// The characters that Qt takes inside the brackets of a name filter, blanks apart.
const QRegularExpression& oddCharacter() {
    static const QRegularExpression odd(QStringLiteral("[^a-zA-Z0-9_.,*?+;#\\-\\[\\]@{}/!<>$%&=^~:]"));
    return odd;
}

} // namespace

std::vector<Dialog_Filter> dialogFilters(const QString& list) {
    std::vector<Dialog_Filter> filters;
    QStringList pieces = list.split(u'|');
    if (!pieces.isEmpty() && pieces.last().isEmpty()) pieces.removeLast();
    for (qsizetype i = 0; i < pieces.size(); i += 2) {
        const QString pattern = i + 1 < pieces.size() ? pieces[i + 1] : QString();
        filters.push_back({pieces[i], pattern.isEmpty() ? QStringLiteral("*") : pattern});
    }
    return filters;
}

QString nameFilter(const Dialog_Filter& filter) {
    QString pattern = filter.pattern;
    pattern.replace(QStringLiteral("; "), QStringLiteral(";"));
    pattern.replace(oddCharacter(), QStringLiteral("?"));
    pattern.replace(u';', u' ');
    const QString tail = u'(' + pattern + u')';
    return filter.text.endsWith(tail) ? filter.text : filter.text + u' ' + tail;
}

QString firstExtension(const Dialog_Filter& filter) {
    const QString first = filter.pattern.section(u';', 0, 0).trimmed();
    if (!first.startsWith(QStringLiteral("*."))) return {};
    const QString extension = first.mid(2);
    return extension.contains(u'*') || extension.contains(u'?') ? QString() : extension;
}

} // namespace zorvane::ui
