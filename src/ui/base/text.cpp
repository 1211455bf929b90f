// SPDX-License-Identifier: MIT
#include "ui/base/text.h"

#include "values/code_page.h"

#include <QTextDocument>
#include <QWidget>

#include <algorithm>

namespace zorvane::ui {

namespace {

bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

QString fromCore(std::string_view text) {
    if (isAscii(text)) return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    return QString::fromStdString(toUtf8(text));
}

std::string toCore(const QString& text) { return fromUtf8(text.toStdString()); }

std::string toCore(const QTextDocument& document) {
    QString text = document.toRawText();
    for (const QChar lineEnd : {QChar(QChar::ParagraphSeparator), QChar(QChar::LineSeparator)})
        text.replace(lineEnd, QStringLiteral("\r\n"));
    return toCore(text);
}

bool fitsCodePage(const QString& text) {
    bool whole = true;
    (void)fromUtf8(text.toStdString(), &whole);
    return whole;
}

QString plainTip(const QString& text) {
    if (text.isEmpty()) return text;
    return QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(text.toHtmlEscaped());
}

QString literalTip(const QString& text) { return Qt::mightBeRichText(text) ? plainTip(text) : text; }

void giveName(QWidget& widget, const QString& name) {
    widget.setObjectName(name);
    widget.setAccessibleDescription(name);
}

} // namespace zorvane::ui
