// SPDX-License-Identifier: MIT
#include "app/desktop/desktop_shell.h"

#include "template/services/native_files.h"

#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QMimeDatabase>
#include <QProcess>
#include <QUrl>

#include <algorithm>

namespace zorvane::app {

namespace {

constexpr int answerMs = 3'000;

/// A desktop that can't be asked may have a program.
bool hasProgramFor(const QString& type) {
    QProcess question;
    question.start(QStringLiteral("xdg-mime"), {QStringLiteral("query"), QStringLiteral("default"), type});
    if (!question.waitForFinished(answerMs)) return true;
    return !question.readAllStandardOutput().trimmed().isEmpty();
}

/// What opens files on a desktop tells of no failure: without a program for them, nothing is seen at all, or
/// a browser offers the file for download. Pages for a browser always find one.
bool desktopOpens(const QString& path) {
    const QMimeType kind = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    if (kind.inherits(QStringLiteral("text/html"))) return true;
    QStringList types = kind.aliases();
    types.prepend(kind.name());
    return kind.isDefault() || std::any_of(types.cbegin(), types.cend(), hasProgramFor);
}

} // namespace

bool openOnDesktop(const std::string& /*operation*/, const std::string& file,
                   const std::string& /*parameters*/, const std::string& folder) {
    if (folder.empty()) return QDesktopServices::openUrl(QUrl(QString::fromStdString(file)));
    const std::string found = pathToNative(Native_Files().found(folder + folderSeparator + file));
    const QString path = QDir::cleanPath(QFile::decodeName(QByteArray::fromStdString(found)));
    return desktopOpens(path) && QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

} // namespace zorvane::app
