// SPDX-License-Identifier: MIT
#include "app/sending/send_table.h"

#include "commission/desk/desk_words.h"
#include "ui/base/column_widths.h"
#include "ui/base/text.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QShowEvent>

#include <algorithm>
#include <array>
#include <vector>

namespace zorvane::app {

using commission::Desk_Row;
using commission::Desk_Stage;
using commission::Desk_State;
using commission::Desk_Task;

namespace {

constexpr int besideText = 12; // pixels of a cell
constexpr int aboveText = 6;
constexpr int leastNote = 13; // characters
constexpr int longestWord = 16;
constexpr int mostCharacters = 48;

enum Column { Tick, Page, Setting, Heading, Present, Wanted, Read_Back, Note, Column_Count };

} // namespace

Send_Table::Send_Table(QWidget* parent) : QTableWidget(0, Column_Count, parent) {
    ui::giveName(*this, QStringLiteral("LST_Values"));
    setAccessibleName(QStringLiteral("Values"));
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + aboveText);
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setTabKeyNavigation(false);
    connect(this, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* item) {
        if (filling_ || item->column() != Tick || !ticked) return;
        ticked(static_cast<std::size_t>(item->row()), item->checkState() == Qt::Checked);
    });
    connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
        if (!filling_) fitRows();
    });
}

void Send_Table::showRows(const Desk_State& state, bool other) {
    const QScopedValueRollback filling(filling_, true);
    const bool ended = state.stage == Desk_Stage::Ended;
    showHeadings(state);
    setColumnHidden(Read_Back, !ended);
    setRowCount(static_cast<int>(state.rows.size()));
    for (std::size_t i = 0; i < state.rows.size(); ++i) {
        const Desk_Row& row = state.rows[i];
        const int at = static_cast<int>(i);
        showState(at, row, state.task == Desk_Task::Send && !row.state && row.tickable);
        setCell(at, Page, ui::fromCore(row.page));
        setCell(at, Setting, ui::fromCore(row.name));
        setCell(at, Heading, ui::fromCore(row.heading));
        setCell(at, Present, ui::fromCore(row.present));
        setCell(at, Wanted, ui::fromCore(row.wanted));
        setCell(at, Read_Back, ui::fromCore(row.readBack));
        setCell(at, Note, ui::fromCore(row.note));
    }
    if (other) fitColumns();
    if (other && !state.rows.empty() && currentRow() < 0) setCurrentCell(0, Tick);
    setEnabled(state.stage == Desk_Stage::Ready || state.stage == Desk_Stage::Sending || ended);
}

void Send_Table::showHeadings(const Desk_State& state) {
    const bool ended = state.stage == Desk_Stage::Ended;
    std::array<const char*, Column_Count> captions = {"Send",       "Page",     "Setting",   "Column",
                                                      "Controller", "Document", "Read back", "Note"};
    if (ended || state.task == Desk_Task::Resume) captions[Tick] = "State";
    if (ended) captions[Present] = "Before";
    if (state.task == Desk_Task::Restore) captions[Wanted] = "Is put back";
    for (int column = 0; column < Column_Count; ++column)
        setHorizontalHeaderItem(
            column, new QTableWidgetItem(QString::fromLatin1(captions[static_cast<std::size_t>(column)])));
}

/// A tick before the values go out; after it a sign and a word.
void Send_Table::showState(int row, const Desk_Row& shown, bool ticks) {
    QString text;
    if (shown.state)
        text = QString::fromStdString(std::string(commission::stateMark(*shown.state)) + " " +
                                      commission::stateName(*shown.state));
    else if (!shown.tickable)
        text = QStringLiteral("can't be sent");
    else if (!ticks)
        text = QStringLiteral("goes out");
    setCell(row, Tick, text);
    QTableWidgetItem& cell = *item(row, Tick);
    if (ticks) {
        const Qt::CheckState wanted = shown.ticked ? Qt::Checked : Qt::Unchecked;
        cell.setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        if (cell.checkState() != wanted || cell.data(Qt::CheckStateRole).isNull()) cell.setCheckState(wanted);
    } else if (!cell.data(Qt::CheckStateRole).isNull()) {
        cell.setData(Qt::CheckStateRole, {});
        cell.setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    }
}

void Send_Table::setCell(int row, int column, const QString& text) {
    if (QTableWidgetItem* there = item(row, column)) {
        if (there->text() != text) there->setText(text);
        return;
    }
    auto* made = new QTableWidgetItem(text);
    made->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    setItem(row, column, made);
}

int Send_Table::widthOf(const QString& text) const {
    return fontMetrics().horizontalAdvance(text) + besideText;
}

int Send_Table::widthOf(int row, int column) const {
    const QTableWidgetItem* cell = item(row, column);
    return cell == nullptr ? 0 : widthOf(cell->text());
}

/// A column for its longest text at most, and for its longest word at least.
Send_Table::Column_Room Send_Table::roomOf(int column) const {
    const int character = fontMetrics().averageCharWidth();
    const int heading = horizontalHeader()->sectionSizeHint(column);
    Column_Room room{heading, heading};
    if (column == Note) room.least = std::max(heading, leastNote * character + besideText);
    for (int row = 0; row < rowCount(); ++row) {
        if (item(row, column) == nullptr) continue;
        const QString text = item(row, column)->text();
        room.wanted = std::max(room.wanted, widthOf(text));
        for (const QString& word : text.split(QLatin1Char(' ')))
            room.least = std::max(room.least, std::min(widthOf(word), longestWord * character));
    }
    room.wanted = std::min(room.wanted, mostCharacters * character + besideText);
    return room;
}

/// As wide as their texts where that fits, else narrower: then the texts wrap.
void Send_Table::fitColumns() {
    std::vector<int> wanted(Column_Count);
    std::vector<int> least(Column_Count);
    for (int column = 0; column < Column_Count; ++column) {
        if (isColumnHidden(column)) continue;
        const Column_Room room = roomOf(column);
        wanted[static_cast<std::size_t>(column)] = room.wanted;
        least[static_cast<std::size_t>(column)] = std::min(room.least, room.wanted);
    }
    const int room = contentsRect().width() - verticalScrollBar()->sizeHint().width();
    const std::vector<int> widths = ui::fittedWidths(wanted, least, room);
    for (int column = 0; column < Column_Count; ++column)
        if (!isColumnHidden(column)) setColumnWidth(column, widths[static_cast<std::size_t>(column)]);
    fitRows();
}

/// Most rows need one line; only the others are measured.
void Send_Table::fitRows() {
    for (int row = 0; row < rowCount(); ++row) {
        bool wraps = false;
        for (int column = 0; column < Column_Count && !wraps; ++column)
            wraps = !isColumnHidden(column) && widthOf(row, column) > columnWidth(column);
        if (wraps)
            resizeRowToContents(row);
        else
            setRowHeight(row, verticalHeader()->defaultSectionSize());
    }
}

void Send_Table::toggleCurrent() {
    QTableWidgetItem* cell = currentRow() < 0 ? nullptr : item(currentRow(), Tick);
    if (cell == nullptr || !cell->flags().testFlag(Qt::ItemIsUserCheckable)) return;
    cell->setCheckState(cell->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
}

void Send_Table::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Space)
        toggleCurrent();
    else
        QTableWidget::keyPressEvent(event);
}

void Send_Table::showEvent(QShowEvent* event) {
    QTableWidget::showEvent(event);
    if (event->spontaneous()) return;
    const QScopedValueRollback filling(filling_, true);
    fitColumns();
}

} // namespace zorvane::app
