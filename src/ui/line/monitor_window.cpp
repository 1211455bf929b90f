// SPDX-License-Identifier: MIT
#include "ui/line/monitor_window.h"

#include "template/services/asker.h"
#include "ui/base/roles.h"
#include "ui/base/text.h"
#include "ui/line/traffic_delegate.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

namespace zorvane::ui {

namespace {

/// Column widths in characters.
constexpr std::array columnWidths = {13, 8, 5, 14, 13, 13, 34, 34};
constexpr int byteLines = 4;
constexpr int startWidth = 980;
constexpr int startHeight = 480;

} // namespace

Monitor_Window::Monitor_Window(Micros midnight, Ask_User ask, QWidget* owner)
    : QWidget(owner, Qt::Window), ask_(std::move(ask)), model_(midnight),
      feed_([this](std::vector<Traffic_Entry> entries) { showNew(std::move(entries)); }) {
    giveRole(*this, QAccessible::Window);
    giveName(*this, QStringLiteral("ModbusMonitor"));
    setWindowTitle(QStringLiteral("Modbus Monitor"));
    auto* whole = new QVBoxLayout(this);
    whole->addWidget(makeButtons());
    auto* splitter = new QSplitter(Qt::Vertical);
    whole->addWidget(splitter, 1);
    makeTable();
    splitter->addWidget(table_);
    bytes_ = new QPlainTextEdit;
    giveName(*bytes_, QStringLiteral("TXT_Bytes"));
    bytes_->setAccessibleName(QStringLiteral("Raw bytes"));
    bytes_->setReadOnly(true);
    bytes_->setTabChangesFocus(true);
    bytes_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    bytes_->setPlaceholderText(QStringLiteral("Select a row to see its bytes."));
    splitter->addWidget(bytes_);
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    splitter->setSizes({startHeight, bytes_->fontMetrics().lineSpacing() * byteLines});
    resize(startWidth, startHeight);
    auto* escape = new QAction(this);
    escape->setShortcut(Qt::Key_Escape);
    connect(escape, &QAction::triggered, this, &QWidget::close);
    addAction(escape);
    table_->setFocus(); // not a button, which a key would press at once
    showCount();
}

void Monitor_Window::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    feed_.setWatched(true);
}

void Monitor_Window::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    feed_.setWatched(false);
}

QWidget* Monitor_Window::makeButtons() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    pause_ = &addButton(*row, "BOT_Pause", QStringLiteral("&Pause"), nullptr);
    pause_->setCheckable(true);
    // Not clicked: a screen reader toggles without a click.
    connect(pause_, &QPushButton::toggled, this, [this](bool held) {
        feed_.setHeld(held);
        showCount();
    });
    addButton(*row, "BOT_Clear", QStringLiteral("C&lear"), [this] { clear(); });
    addButton(*row, "BOT_Copy", QStringLiteral("&Copy"), [this] { copy(); });
    addButton(*row, "BOT_Save", QStringLiteral("&Save..."), [this] { saveAs(); });
    count_ = new QLabel;
    giveName(*count_, QStringLiteral("LBL_Count"));
    layout->addStretch();
    layout->addWidget(count_);
    return row;
}

QPushButton& Monitor_Window::addButton(QWidget& row, const char* name, const QString& text,
                                       std::function<void()> chosen) {
    auto* button = new QPushButton(text);
    giveName(*button, QString::fromLatin1(name));
    if (chosen) connect(button, &QPushButton::clicked, this, std::move(chosen));
    row.layout()->addWidget(button);
    return *button;
}

void Monitor_Window::makeTable() {
    table_ = new QTableView;
    giveName(*table_, QStringLiteral("TBL_Exchanges"));
    table_->setAccessibleName(QStringLiteral("Exchanges"));
    table_->setModel(&model_);
    table_->setItemDelegate(new Traffic_Delegate(table_));
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    table_->setWordWrap(false);
    table_->setShowGrid(false);
    table_->setAlternatingRowColors(true);
    table_->verticalHeader()->hide();
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(table_->fontMetrics().height() + 4);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->horizontalHeader()->setHighlightSections(false);
    const int character = table_->fontMetrics().averageCharWidth();
    for (std::size_t i = 0; i < columnWidths.size(); ++i)
        table_->setColumnWidth(static_cast<int>(i), columnWidths[i] * character + 12);
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { showBytes(); });
    connect(&model_, &QAbstractItemModel::modelReset, this, [this] { showBytes(); });
    auto* copyKey = new QAction(table_);
    copyKey->setShortcut(QKeySequence::Copy);
    copyKey->setShortcutContext(Qt::WidgetShortcut);
    connect(copyKey, &QAction::triggered, this, [this] { copy(); });
    table_->addAction(copyKey);
}

/// Whoever looks at the end goes on seeing the newest row; whoever has scrolled away stays there.
void Monitor_Window::showNew(std::vector<Traffic_Entry> entries) {
    const QScrollBar& bar = *table_->verticalScrollBar();
    const bool atEnd = bar.value() == bar.maximum();
    model_.add(std::move(entries));
    if (atEnd) table_->scrollToBottom();
    showCount();
}

void Monitor_Window::showBytes() {
    const int row = table_->currentIndex().row();
    bytes_->setPlainText(row < 0 ? QString()
                                 : fromCore(rawBytes(model_.rows().at(static_cast<std::size_t>(row)))));
}

void Monitor_Window::showCount() {
    QString text = QStringLiteral("%1 rows").arg(model_.rowCount());
    if (feed_.held()) text += QStringLiteral(", paused");
    count_->setText(text);
}

void Monitor_Window::clear() {
    feed_.clear();
    model_.clear();
    showCount();
}

QString Monitor_Window::text() const {
    std::vector<int> rows;
    for (const QModelIndex& index : table_->selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    if (rows.empty())
        for (int row = 0; row < model_.rowCount(); ++row)
            rows.push_back(row);
    std::string text = trafficHeadingLine() + "\n";
    for (const int row : rows)
        text += trafficLine(model_.rows().at(static_cast<std::size_t>(row)), model_.midnight()) + "\n";
    return fromCore(text);
}

void Monitor_Window::copy() const { QApplication::clipboard()->setText(text()); }

void Monitor_Window::saveAs() {
    OpenFile.FileName.clear();
    OpenFile.DialogTitle = QStringLiteral("Save the monitor as...");
    OpenFile.Filter = QStringLiteral("Text with tabs (*.txt)|*.txt|");
    OpenFile.DefaultExt = QStringLiteral("txt");
    OpenFile.Flags = File_Dialog::OverwritePrompt;
    if (!OpenFile.ShowSave(this) || save(OpenFile.FileName)) return;
    ask_(QStringLiteral("The file can't be written:\n%1\n\nChoose another folder or name.")
             .arg(OpenFile.FileName),
         Msgb_Critical, QStringLiteral("Zorvane"));
}

bool Monitor_Window::save(const QString& path) const {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Text) && file.write(text().toUtf8()) >= 0 &&
           file.commit();
}

Window_Place Monitor_Window::place() const {
    const Twips_Scale scale = scaleOf(*this);
    return {static_cast<std::int32_t>(scale.twipsX(x())), static_cast<std::int32_t>(scale.twipsY(y())),
            static_cast<std::int32_t>(scale.twipsX(width())),
            static_cast<std::int32_t>(scale.twipsY(height()))};
}

void Monitor_Window::setPlace(const Window_Place& place) {
    const Twips_Scale scale = scaleOf(*this);
    const QRect wanted(scale.pixelsX(place.left), scale.pixelsY(place.top), scale.pixelsX(place.width),
                       scale.pixelsY(place.height));
    if (wanted.isEmpty()) return;
    resize(wanted.size().boundedTo(screen()->virtualSize())); // stored numbers know no bounds
    const QList<QScreen*> screens = QApplication::screens();
    const bool seen = std::any_of(screens.begin(), screens.end(), [&wanted](const QScreen* screen) {
        return screen->availableGeometry().intersects(wanted);
    });
    if (seen) move(wanted.topLeft());
}

} // namespace zorvane::ui
