// SPDX-License-Identifier: MIT
#include "comm/modbus_control/qt/qt_simulator.h"

#include "comm/modbus_control/qt/child_process.h"
#include "comm/modbus_control/qt/log_categories.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUuid>

#include <utility>

namespace zorvane {

namespace {

constexpr int startLimitMs = 5000;
constexpr int stopLimitMs = 2000;
const QString programName = QStringLiteral("zorvane-sim");

/// A path for the pseudo-terminal that nobody else has. The folder of the session is this user's own.
QString freshLine() {
    QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!QFileInfo(folder).isWritable()) folder = QDir::tempPath();
    return QDir(folder).filePath(QStringLiteral("zorvane-line-") +
                                 QUuid::createUuid().toString(QUuid::Id128));
}

} // namespace

Qt_Simulator::Qt_Simulator(std::function<std::string()> templatePath, QString program)
    : templatePath_(std::move(templatePath)), program_(std::move(program)) {}

Qt_Simulator::~Qt_Simulator() { stop(); }

QString Qt_Simulator::programIn(const QString& folder) {
    const QString own = QStandardPaths::findExecutable(programName, {folder});
    return own.isEmpty() ? QStandardPaths::findExecutable(programName) : own;
}

std::int64_t Qt_Simulator::processId() const { return process_ ? process_->processId() : 0; }

Simulator::Start Qt_Simulator::start(std::int32_t slave) {
    const std::string templatePath = templatePath_();
    if (templatePath.empty())
        return {{}, "No document is open: open one first, the simulated controller takes its template."};
    const bool runs = process_ && process_->state() == QProcess::Running;
    if (runs && templatePath == runningTemplate_ && slave == runningSlave_) return {line_.toStdString(), {}};
    stop();
    return launch(templatePath, slave);
}

Simulator::Start Qt_Simulator::launch(const std::string& templatePath, std::int32_t slave) {
    if (program_.isEmpty())
        return {{}, "The program zorvane-sim is missing: install it beside this program."};
    line_ = freshLine();
    process_ = std::make_unique<QProcess>();
    endWithParent(*process_);
    process_->start(program_,
                    {QStringLiteral("--template"), QString::fromStdString(templatePath),
                     QStringLiteral("--slave"), QString::number(slave), QStringLiteral("--pty"), line_},
                    QIODevice::ReadOnly);
    if (!becomesReady()) {
        const std::string why = complaint();
        qCDebug(simulatorLog) << why.c_str();
        stop();
        return {{}, why};
    }
    qCDebug(simulatorLog) << "started on" << line_ << "unit" << slave << templatePath.c_str();
    runningTemplate_ = templatePath;
    runningSlave_ = slave;
    return {line_.toStdString(), {}};
}

/// It says "ready" on a line of its own once its line is there.
bool Qt_Simulator::becomesReady() {
    const QDeadlineTimer limit(startLimitMs);
    while (!process_->canReadLine())
        if (!process_->waitForReadyRead(static_cast<int>(limit.remainingTime()))) return false;
    return process_->readLine().startsWith("ready");
}

std::string Qt_Simulator::complaint() {
    process_->waitForFinished(0);
    const QByteArray said = process_->readAllStandardError().trimmed();
    return "The simulated controller didn't start: " +
           (said.isEmpty() ? process_->errorString().toStdString() : said.toStdString());
}

void Qt_Simulator::stop() {
    if (!process_) return;
    process_->terminate();
    if (!process_->waitForFinished(stopLimitMs)) {
        process_->kill();
        process_->waitForFinished(stopLimitMs);
    }
    process_.reset();
}

} // namespace zorvane
