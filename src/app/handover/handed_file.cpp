// SPDX-License-Identifier: MIT
#include "app/handover/handed_file.h"

#include <QLocalSocket>
#include <QStandardPaths>

#include <memory>
#include <utility>

namespace zorvane::app {

namespace {

constexpr char endOfText = '\0';
constexpr qint64 longestPath = 64 * 1024;

} // namespace

QString handoverPlace() {
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) +
           QStringLiteral("/zorvane-handover");
}

Handed_Files::Handed_Files(Take take) : take_(std::move(take)) {
    server_.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&server_, &QLocalServer::newConnection, &server_, [this] { serve(); });
}

bool Handed_Files::listen(const QString& place) {
    if (server_.listen(place)) return true;
    QLocalSocket other;
    other.connectToServer(place);
    if (other.waitForConnected(1000)) return false;
    QLocalServer::removeServer(place); // left behind by a window that was killed
    return server_.listen(place);
}

void Handed_Files::serve() {
    while (QLocalSocket* const socket = server_.nextPendingConnection()) {
        QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        const auto taken = std::make_shared<QByteArray>();
        QObject::connect(socket, &QLocalSocket::readyRead, socket, [this, socket, taken] {
            taken->append(socket->readAll());
            if (!taken->endsWith(endOfText)) {
                if (taken->size() > longestPath) socket->abort();
                return;
            }
            taken->chop(1);
            socket->write(take_(QString::fromUtf8(std::exchange(*taken, {}))).toUtf8() + endOfText);
            socket->disconnectFromServer();
        });
    }
}

Handover handOver(const QString& place, const QString& path, int limitMs) {
    QLocalSocket socket;
    socket.connectToServer(place);
    if (!socket.waitForConnected(limitMs)) return {};
    socket.write(path.toUtf8() + endOfText);
    QByteArray answer;
    while (!answer.endsWith(endOfText)) {
        if (socket.bytesAvailable() == 0 && !socket.waitForReadyRead(limitMs))
            return {Handover::End::NoAnswer, {}};
        answer += socket.readAll();
    }
    answer.chop(1);
    if (answer.isEmpty()) return {Handover::End::Taken, {}};
    return {Handover::End::Refused, QString::fromUtf8(answer)};
}

} // namespace zorvane::app
