// SPDX-License-Identifier: MIT
#include "commission/folder/state_folder.h"
#include "ctl/calls/document_calls.h"
#include "ctl/calls/qt/commission/commission_calls.h"
#include "ctl/calls/qt/painted_calls.h"
#include "ctl/calls/qt/port_calls.h"
#include "ctl/document/notices.h"
#include "ctl/program.h"
#include "recovery/native_recovery_folder.h"
#include "recovery/recovery.h"
#include "template/services/file_limits.h"
#include "template/services/native_files.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QStandardPaths>

#include <algorithm>
#include <iostream>
#include <memory>

namespace {

/// Only calls that paint take the fonts' time to load. They need no screen.
std::unique_ptr<QCoreApplication> makeApplication(bool paints, int& count, char** arguments) {
    if (!paints) return std::make_unique<QCoreApplication>(count, arguments);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules("default.warning=false"); // about folders of a desktop session
    return std::make_unique<QGuiApplication>(count, arguments);
}

bool paints(const std::vector<std::string>& arguments) {
    const std::vector<zorvane::ctl::Subcommand_Entry> calls = zorvane::ctl::paintedCalls();
    return std::any_of(calls.begin(), calls.end(), [&](const zorvane::ctl::Subcommand_Entry& call) {
        return !arguments.empty() && arguments.front() == call.name;
    });
}

/// Adds a call, or puts it in the place of the one with its name.
void putCall(std::vector<zorvane::ctl::Subcommand_Entry>& calls, const zorvane::ctl::Subcommand_Entry& call) {
    const auto same =
        std::find_if(calls.begin(), calls.end(), [&](const zorvane::ctl::Subcommand_Entry& each) {
            return std::string_view(each.name) == call.name;
        });
    if (same == calls.end())
        calls.push_back(call);
    else
        *same = call;
}

std::string timeOfDay() {
    return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")).toStdString();
}

/// That of the window; UTF-8, no separator at its end.
std::string recoveryFolder() {
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    return QFile::encodeName(data + QStringLiteral("/Zorvane/Recovery")).toStdString();
}

} // namespace

int main(int argc, char* argv[]) {
    using namespace zorvane;
    using namespace zorvane::ctl;
    std::ios::sync_with_stdio(false);
    takeFileSizeLimitAsFailure();
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    int ownName = 1; // the program's name only: the other arguments are none of Qt's business
    const auto application = makeApplication(paints(arguments), ownName, argv);
    const QString folder =
        QFileInfo(QFileInfo(QCoreApplication::applicationFilePath()).canonicalFilePath()).path();

    Native_Files files;
    const std::string copies = recoveryFolder();
    Native_Recovery_Folder unsaved(copies);
    Native_Recovery_Folder saved(filesFolder(copies));
    Recovery recovery(unsaved, timeOfDay, std::to_string(QCoreApplication::applicationPid()), &saved);
    const Call_Context context{files,
                               std::cout,
                               std::cerr,
                               withoutEndSeparator(pathFromNative(folder.toStdString())),
                               false,
                               &recovery,
                               commission::userStateFolder()};
    std::vector<Subcommand_Entry> calls = documentCalls();
    for (const Subcommand_Entry& call : portCalls())
        calls.push_back(call);
    for (const Subcommand_Entry& call : commissionCalls())
        putCall(calls, call);
    for (const Subcommand_Entry& call : paintedCalls())
        calls.push_back(call);
    const int code = runProgram(calls, arguments, context);
    std::cout.flush();
    if (std::cout.good()) return code;
    tell(std::cerr, "The output can't be written to its end. Has its disk room?");
    return Exit_Failed;
}
