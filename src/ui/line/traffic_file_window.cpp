// SPDX-License-Identifier: MIT
#include "ui/line/traffic_file_window.h"

#include "ui/base/beside.h"
#include "ui/base/roles.h"
#include "ui/base/text.h"

#include <QAction>
#include <QDateTime>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <utility>

namespace zorvane::ui {

namespace {

constexpr qint64 pieceSize = 256 * 1024;
constexpr int fileWindowWidth = 980;
constexpr int fileWindowHeight = 480;

Micros timeOf(const Traffic_Entry& entry) {
    return std::visit([](const auto& row) { return row.at; }, entry);
}

} // namespace

Traffic_File_Window::Traffic_File_Window(const QString& path, QWidget* owner)
    : QWidget(owner, Qt::Window), file_(path), model_(midnightOf(path)) {
    giveRole(*this, QAccessible::Window);
    giveName(*this, QStringLiteral("TrafficFile"));
    setWindowTitle(QStringLiteral("Modbus Monitor - ") + QFileInfo(path).fileName());
    makeParts(path);
    resize(withinScreen(*this, {fileWindowWidth, fileWindowHeight}));
    connect(&timer_, &QTimer::timeout, this, [this] { readPiece(); });
    if (file_.open(QIODevice::ReadOnly)) timer_.start(0);
    showCount();
}

/// The last local midnight before its first row, in the file's own times.
Micros Traffic_File_Window::midnightOf(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return 0;
    const QByteArray line = file.readLine(pieceSize);
    const auto first = survey::parseTrafficLine({line.constData(), static_cast<std::size_t>(line.size())});
    if (!first) return 0;
    const QDateTime at = QDateTime::fromMSecsSinceEpoch(timeOf(*first) / microsPerMs);
    return at.date().startOfDay().toMSecsSinceEpoch() * microsPerMs;
}

void Traffic_File_Window::makeParts(const QString& path) {
    auto* whole = new QVBoxLayout(this);
    auto* row = new QHBoxLayout;
    auto* copy = new QPushButton(QStringLiteral("&Copy"));
    giveName(*copy, QStringLiteral("BOT_Copy"));
    count_ = new QLabel;
    giveName(*count_, QStringLiteral("LBL_Count"));
    count_->setToolTip(plainTip(path));
    row->addWidget(copy);
    row->addStretch();
    row->addWidget(count_);
    whole->addLayout(row);
    view_ = new Traffic_View(model_);
    whole->addWidget(view_, 1);
    connect(copy, &QPushButton::clicked, this, [this] { view_->copy(); });
    auto* escape = new QAction(this);
    escape->setShortcut(Qt::Key_Escape);
    connect(escape, &QAction::triggered, this, &QWidget::close);
    addAction(escape);
    view_->table().setFocus();
}

void Traffic_File_Window::readPiece() {
    const QByteArray piece = file_.read(pieceSize);
    std::vector<Traffic_Entry> entries =
        piece.isEmpty() ? reader_.end()
                        : reader_.take({piece.constData(), static_cast<std::size_t>(piece.size())});
    if (piece.isEmpty()) timer_.stop();
    rows_ += entries.size();
    view_->add(std::move(entries));
    if (piece.isEmpty()) view_->table().scrollToTop();
    showCount();
}

void Traffic_File_Window::showCount() {
    if (reading()) {
        const qint64 whole = std::max<qint64>(file_.size(), 1);
        return count_->setText(
            QStringLiteral("Reading: %1 %, %2 rows").arg(100 * file_.pos() / whole).arg(rows_));
    }
    QString text = QStringLiteral("%1 rows").arg(rows_);
    if (rows_ > model_.rows().size()) text += QStringLiteral(", the newest %1 shown").arg(model_.rowCount());
    if (reader_.unread() > 0) text += QStringLiteral("; lines that are no traffic: %1").arg(reader_.unread());
    count_->setText(text);
}

} // namespace zorvane::ui
