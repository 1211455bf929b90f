// SPDX-License-Identifier: MIT
// zorvane-open: opens a document in the window that runs, or starts one for it.
#include "app/handover/handed_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QLockFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include <CLI/CLI.hpp>

#include <cstdio>
#include <string>

namespace {

using zorvane::app::Handover;

constexpr int answerLimitMs = 10000;
constexpr int startLimitMs = 30000;
enum Exit_Code : int { Exit_Taken = 0, Exit_Failed = 1, Exit_Command_Line = 2 };

int complain(const QString& text) {
    std::fprintf(stderr, "zorvane-open: %s\n", qUtf8Printable(text));
    return Exit_Failed;
}

/// The program beside this one, else the one that the shell would find.
QString windowProgram() {
    const QString name =
        QStandardPaths::findExecutable(QStringLiteral("zorvane"), {QCoreApplication::applicationDirPath()});
    return name.isEmpty() ? QStandardPaths::findExecutable(QStringLiteral("zorvane")) : name;
}

/// Hands the file over as soon as a window listens: the socket's appearance in its folder tells.
Handover handOverWhenListening(const QString& place, const QString& path) {
    QEventLoop loop;
    Handover handover;
    const auto attempt = [&] {
        handover = zorvane::app::handOver(place, path, answerLimitMs);
        if (handover.end != Handover::End::NobodyThere) loop.quit();
    };
    QFileSystemWatcher watcher({QFileInfo(place).path()});
    QObject::connect(&watcher, &QFileSystemWatcher::directoryChanged, &loop, attempt);
    QTimer::singleShot(startLimitMs, &loop, &QEventLoop::quit);
    QTimer::singleShot(0, &loop, attempt); // it may have appeared before anybody watched
    loop.exec();
    return handover;
}

/// A window that lives on by itself, and keeps nobody waiting for the end of what this program says.
bool startsApart(const QString& program) {
    QProcess window;
    window.setProgram(program);
    window.setWorkingDirectory(QDir::homePath());
    window.setStandardOutputFile(QProcess::nullDevice());
    window.setStandardErrorFile(QProcess::nullDevice());
    return window.startDetached();
}

Handover handOverToANewWindow(const QString& place, const QString& path) {
    // Of two that start at once one starts the window and the other one finds it.
    QLockFile starting(place + QStringLiteral(".lock"));
    starting.tryLock(startLimitMs);
    Handover handover = zorvane::app::handOver(place, path, answerLimitMs);
    if (handover.end != Handover::End::NobodyThere) return handover;
    const QString program = windowProgram();
    if (program.isEmpty() || !startsApart(program)) return handover;
    return handOverWhenListening(place, path);
}

int told(const Handover& handover, const QString& path) {
    switch (handover.end) {
    case Handover::End::Taken:
        return Exit_Taken;
    case Handover::End::Refused:
        return complain(path + QStringLiteral(": ") + handover.why);
    case Handover::End::NoAnswer:
        return complain(path +
                        QStringLiteral(": The window of Zorvane doesn't answer. End it, and try again."));
    case Handover::End::NobodyThere:
        break;
    }
    return complain(path +
                    QStringLiteral(": No window of Zorvane could be started. Start zorvane, and open the "
                                   "file there."));
}

} // namespace

int main(int argc, char* argv[]) {
    CLI::App arguments("Opens a document in the window of Zorvane that runs, or starts one for it.");
    arguments.set_version_flag("--version", "zorvane-open " ZORVANE_VERSION);
    std::string given;
    arguments.add_option("FILE", given, "The document")->required();
    try {
        arguments.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return arguments.exit(error) == 0 ? Exit_Taken : Exit_Command_Line;
    }
    const QCoreApplication application(argc, argv);
    const QFileInfo file(QFile::decodeName(given.c_str()));
    if (!file.isFile())
        return complain(file.filePath() + QStringLiteral(": There is no such file. Check the path."));
    const QString path = file.absoluteFilePath();
    const QString place = zorvane::app::handoverPlace();
    Handover handover = zorvane::app::handOver(place, path, answerLimitMs);
    if (handover.end == Handover::End::NobodyThere) handover = handOverToANewWindow(place, path);
    return told(handover, path);
}
