// SPDX-License-Identifier: MIT
#include "ui/grid/flex_grid_view.h"
#include "ui/grid/key_codes.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <limits>
#include <utility>

namespace zorvane::ui {

namespace {

bool isTyping(const QKeyEvent& key) {
    const Qt::KeyboardModifiers commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return !key.text().isEmpty() && key.text().at(0).isPrint() && !(key.modifiers() & commands);
}

/// Qt itself knows only the menu key on this platform.
bool asksForMenu(const QKeyEvent& key) {
    return key.key() == Qt::Key_F10 && key.modifiers() == Qt::ShiftModifier;
}

/// Whoever keeps a place keeps it in 16 bits, and a wide screen has more twips than those hold.
float keptPlace(double twips) {
    using Kept = std::numeric_limits<std::int16_t>;
    return static_cast<float>(std::clamp<double>(twips, Kept::min(), Kept::max()));
}

} // namespace

template <class Handling> void Flex_Grid_View::asUser(Handling&& handling) {
    flush();
    ++handlingDepth_;
    std::forward<Handling>(handling)();
    if (--handlingDepth_ == 0) tellMoves();
}

/// A move that no key or mouse made, such as one by a screen reader, is told once the events are served.
void Flex_Grid_View::noteMove() {
    if (handlingDepth_ == 0)
        QMetaObject::invokeMethod(
            this, [this] { tellMoves(); }, Qt::QueuedConnection);
}

void Flex_Grid_View::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (flushing_ || !current.isValid()) return;
    moved_ = true;
    noteMove();
}

void Flex_Grid_View::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QTableView::selectionChanged(selected, deselected);
    if (flushing_ || (selected.isEmpty() && deselected.isEmpty())) return; // a new view tells of nothing, too
    selected_ = true;
    noteMove();
}

void Flex_Grid_View::tellMoves() {
    const bool moved = std::exchange(moved_, false);
    const bool selected = std::exchange(selected_, false);
    if (!moved && !selected) return;
    takeViewCurrent();
    const std::int32_t row = store().Row();
    const std::int32_t col = store().Col();
    if (moved && events.RowColChange) events.RowColChange();
    if (selected && events.SelChange) events.SelChange();
    bool refused = false;
    if (moved && events.BeforeEdit && row < store().Rows() && col < store().Cols())
        events.BeforeEdit(row, col, refused);
}

void Flex_Grid_View::takeViewCurrent() {
    const QModelIndex current = currentIndex();
    if (!current.isValid() || current.row() + 1 >= store().Rows() || current.column() >= store().Cols())
        return;
    store().setRow(lastRow_ = current.row() + 1);
    store().setCol(lastCol_ = current.column());
    if (selectsRows_) store().setColSel(store().Cols() - 1);
    const QItemSelection selection = selectionModel()->selection();
    if (selectsRows_ || selection.size() != 1) return;
    const QItemSelectionRange& range = selection.first();
    store().setRowSel((range.top() == current.row() ? range.bottom() : range.top()) + 1);
    store().setColSel(range.left() == current.column() ? range.right() : range.left());
}

/// While the owner says that no cell is current, keys go on from where the user was last.
void Flex_Grid_View::standOnLastCell() {
    if (currentIndex().isValid() || lastRow_ < 1 || model_.rowCount() == 0 || model_.columnCount() == 0)
        return;
    const QModelIndex last = model_.index(std::min<int>(lastRow_ - 1, model_.rowCount() - 1),
                                          std::clamp<int>(lastCol_, 0, model_.columnCount() - 1));
    const bool flushing = std::exchange(flushing_, true);
    selectionModel()->setCurrentIndex(last, QItemSelectionModel::ClearAndSelect);
    flushing_ = flushing;
    takeViewCurrent();
}

void Flex_Grid_View::moveTo(std::int32_t row, std::int32_t col) {
    asUser([&] { setCurrentIndex(model_.index(row - 1, col)); });
}

/// The next cell to the right (step 1) or left (-1) whose column has a width; invalid when there is none.
QModelIndex Flex_Grid_View::nextSeen(const QModelIndex& from, int step, bool overRows) const {
    int row = from.row();
    int col = from.column();
    while (true) {
        col += step;
        if (col < 0 || col >= model_.columnCount()) {
            row += step;
            col = step > 0 ? 0 : model_.columnCount() - 1;
            if (!overRows || row < 0 || row >= model_.rowCount()) return {};
        }
        if (columnWidth(col) > 0) return model_.index(row, col);
    }
}

void Flex_Grid_View::moveToNextSeen(std::int32_t row, std::int32_t col, int step) {
    const QModelIndex next = nextSeen(model_.index(row - 1, col), step, true);
    if (next.isValid()) moveTo(next.row() + 1, next.column());
}

/// Keys pass over a column without a width: nobody sees what is typed there.
QModelIndex Flex_Grid_View::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    const QModelIndex reached = QTableView::moveCursor(action, modifiers);
    if (!reached.isValid() || columnWidth(reached.column()) > 0) return reached;
    const auto orStay = [&](const QModelIndex& seen) { return seen.isValid() ? seen : currentIndex(); };
    switch (action) {
    case MoveRight:
    case MoveHome:
        return orStay(nextSeen(reached, 1, false));
    case MoveLeft:
    case MoveEnd:
        return orStay(nextSeen(reached, -1, false));
    case MoveNext:
        return orStay(nextSeen(reached, 1, true));
    case MovePrevious:
        return orStay(nextSeen(reached, -1, true));
    default:
        return reached;
    }
}

/// The move stays away when the commit has put the current cell elsewhere, or the user edits the next one by
/// now.
void Flex_Grid_View::moveAfter(Edit_End how, std::int32_t row, std::int32_t col) {
    if (isEditing() || store().Row() != row || store().Col() != col) return;
    const std::int32_t lastRow = store().Rows() - 1;
    switch (how) {
    case Edit_End::Enter:
    case Edit_End::Down:
        return moveTo(std::min(row + 1, lastRow), col);
    case Edit_End::Up:
        return moveTo(std::max(row - 1, 1), col);
    case Edit_End::Next:
        return moveToNextSeen(row, col, 1);
    case Edit_End::Previous:
        return moveToNextSeen(row, col, -1);
    case Edit_End::Stay:
    case Edit_End::Escape:
        return;
    }
}

bool Flex_Grid_View::handleEditKey(QKeyEvent* event) {
    if (!editable_) return false;
    switch (event->key()) {
    case Qt::Key_F2:
        return beginEdit(Edit_Start::AtEnd), true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return beginEdit(Edit_Start::All), true;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
        return beginEdit(Edit_Start::Empty), true;
    default:
        break;
    }
    if (!isTyping(*event)) return false;
    typeInto(event->text());
    return true;
}

void Flex_Grid_View::keyPressEvent(QKeyEvent* event) {
    if (isEditing()) return event->ignore(); // a key that the editor has no use for
    flush();
    standOnLastCell();
    if (asksForMenu(*event)) return openMenuByKey();
    if (event->matches(QKeySequence::Copy)) return copySelection();
    if (event->matches(QKeySequence::Paste)) return paste();
    if (handleEditKey(event)) return;
    asUser([&] { QTableView::keyPressEvent(event); });
}

/// A character put together from several keys comes this way.
void Flex_Grid_View::inputMethodEvent(QInputMethodEvent* event) {
    if (!editable_ || isEditing() || event->commitString().isEmpty())
        return QTableView::inputMethodEvent(event);
    flush();
    standOnLastCell();
    typeInto(event->commitString());
    event->accept();
}

void Flex_Grid_View::keyReleaseEvent(QKeyEvent* event) {
    QTableView::keyReleaseEvent(event);
    if (event->isAutoRepeat() || !events.KeyUp) return;
    events.KeyUp(keyCodeOf(event->key()), shiftOf(event->modifiers()));
}

/// Tab goes from cell to cell, and out of the grid at its end; in a grid of rows it leaves at once.
bool Flex_Grid_View::focusNextPrevChild(bool next) {
    const bool leaves =
        !editable_ || !currentIndex().isValid() || !nextSeen(currentIndex(), next ? 1 : -1, true).isValid();
    if (!leaves) return QTableView::focusNextPrevChild(next);
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): the table's own goes on to the next cell
    return QWidget::focusNextPrevChild(next);
}

void Flex_Grid_View::tellMouse(const Flex_Grid_Events::Mouse& handler, const QMouseEvent& event,
                               const QWidget& source, Qt::MouseButtons buttons) {
    if (!handler) return;
    const QPoint place = source.mapTo(this, event.position().toPoint()) - QPoint(frameWidth(), frameWidth());
    const Twips_Scale scale = scaleOf(*this);
    // A row's height in pixels is rounded; counted by rows the place stays on the row that the user sees.
    const int rowPixels = horizontalHeader()->height();
    const bool hasRows = store().Rows() > 0 && rowPixels > 0;
    const double perPixelY = hasRows ? store().RowHeight(0) / double(rowPixels) : scale.perPixelY;
    handler(buttonsOf(buttons), shiftOf(event.modifiers()), keptPlace(scale.twipsX(place.x())),
            keptPlace(place.y() * perPixelY));
}

void Flex_Grid_View::mousePressEvent(QMouseEvent* event) {
    doubleClicked_ = false;
    asUser([&] { QTableView::mousePressEvent(event); });
    tellMouse(events.MouseDown, *event, *viewport(), event->button());
}

void Flex_Grid_View::mouseMoveEvent(QMouseEvent* event) {
    asUser([&] { QTableView::mouseMoveEvent(event); });
    tellMouse(events.MouseMove, *event, *viewport(), event->buttons());
}

void Flex_Grid_View::mouseReleaseEvent(QMouseEvent* event) {
    asUser([&] { QTableView::mouseReleaseEvent(event); });
    tellMouse(events.MouseUp, *event, *viewport(), event->button());
    if (!std::exchange(doubleClicked_, false) && events.Click) events.Click();
}

void Flex_Grid_View::mouseDoubleClickEvent(QMouseEvent* event) {
    asUser([&] { QTableView::mouseDoubleClickEvent(event); });
    doubleClicked_ = true;
    if (events.DblClick) events.DblClick();
    if (event->button() == Qt::LeftButton && indexAt(event->position().toPoint()).isValid())
        beginEdit(Edit_Start::All);
}

void Flex_Grid_View::headerMouse(const QMouseEvent& event) {
    const QWidget& header = *horizontalHeader()->viewport();
    switch (event.type()) {
    case QEvent::MouseButtonPress:
        doubleClicked_ = false;
        return tellMouse(events.MouseDown, event, header, event.button());
    case QEvent::MouseMove:
        return tellMouse(events.MouseMove, event, header, event.buttons());
    case QEvent::MouseButtonDblClick:
        doubleClicked_ = true;
        if (events.DblClick) events.DblClick();
        return;
    case QEvent::MouseButtonRelease:
        QMetaObject::invokeMethod(
            this, [this] { tellUserResize(); }, Qt::QueuedConnection);
        tellMouse(events.MouseUp, event, header, event.button());
        if (!std::exchange(doubleClicked_, false) && events.Click) events.Click();
        return;
    default:
        return;
    }
}

bool Flex_Grid_View::eventFilter(QObject* watched, QEvent* event) {
    if (watched == horizontalHeader()->viewport() && event->type() == QEvent::ToolTip)
        return tellHeading(*static_cast<const QHelpEvent*>(event)), true;
    if (watched == horizontalHeader()->viewport())
        if (const auto* mouse = dynamic_cast<const QMouseEvent*>(event)) headerMouse(*mouse);
    return QTableView::eventFilter(watched, event);
}

} // namespace zorvane::ui
