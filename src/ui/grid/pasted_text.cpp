// SPDX-License-Identifier: MIT
#include "ui/grid/pasted_text.h"

#include "ui/base/text.h"

#include <QList>

#include <algorithm>

namespace zorvane::ui {

namespace {

bool separates(QChar character) {
    return character == u'\t' || character == u'\n' || character == u'\r' ||
           character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

} // namespace

QString asOneLine(QString text) {
    std::replace_if(text.begin(), text.end(), separates, QChar(u' '));
    return text;
}

Pasted_Text pastedText(QString clipboard) {
    clipboard.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (clipboard.endsWith(u'\n')) clipboard.chop(1);
    const bool severalCells = std::any_of(clipboard.cbegin(), clipboard.cend(), separates);
    return {asOneLine(std::move(clipboard)), severalCells};
}

std::string missingCharacter(const QString& text) {
    for (const uint code : text.toUcs4()) {
        const auto character = static_cast<char32_t>(code);
        if (fitsCodePage(QString::fromUcs4(&character, 1))) continue;
        return QStringLiteral("U+%1").arg(code, 4, 16, QLatin1Char('0')).toUpper().toStdString();
    }
    return {};
}

} // namespace zorvane::ui
