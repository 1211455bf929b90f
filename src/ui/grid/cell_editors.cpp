// SPDX-License-Identifier: MIT
#include "ui/grid/cell_editors.h"

#include "ui/base/text.h"
#include "ui/grid/pasted_text.h"

#include <QAbstractItemView>
#include <QAction>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <limits>

namespace zorvane::ui {

namespace {

/// Another window, a menu or a list of the editor's own took the focus: the edit goes on when it comes back.
bool comesBack(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

} // namespace

bool belongsToEditor(const QKeyEvent& key) {
    const Qt::KeyboardModifiers held = key.modifiers() & ~Qt::KeypadModifier;
    switch (key.key()) {
    case Qt::Key_Z:
        return held == Qt::ControlModifier || held == (Qt::ControlModifier | Qt::ShiftModifier);
    case Qt::Key_Y:
    case Qt::Key_K:
    case Qt::Key_F:
        return held == Qt::ControlModifier;
    default:
        return false;
    }
}

QValidator::State Code_Page_Validator::validate(QString& text, int&) const {
    text = asOneLine(text);
    if (fitsCodePage(text)) return Acceptable;
    if (onRefused) onRefused({missingCharacter(text)});
    return Invalid;
}

std::optional<Edit_End> editEndOf(const QKeyEvent& key) {
    switch (key.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return Edit_End::Enter;
    case Qt::Key_Tab:
        return Edit_End::Next;
    case Qt::Key_Backtab:
        return Edit_End::Previous;
    case Qt::Key_Up:
        return Edit_End::Up;
    case Qt::Key_Down:
        return Edit_End::Down;
    case Qt::Key_Escape:
        return Edit_End::Escape;
    default:
        return std::nullopt;
    }
}

Text_Cell_Editor::Text_Cell_Editor(const QString& text, int maxLength, QWidget* parent)
    : QLineEdit(parent), limit_(maxLength > 0 ? maxLength : std::numeric_limits<short>::max()) {
    setFrame(false);
    setAutoFillBackground(true);
    setMaxLength(std::max(limit_, static_cast<int>(text.size())));
    setText(text);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& edited) { keepWithinLimit(edited); });
    auto* validator = new Code_Page_Validator(this);
    validator->onRefused = [this](const Refused_Input& what) { refuse(what); };
    setValidator(validator);
    setTextMargins(1, 0, 1, 0);
}

/// The line's own limit stands at the cell's length as long as that is above the limit.
void Text_Cell_Editor::keepWithinLimit(const QString& edited) {
    if (maxLength() <= limit_) return;
    const int cursor = cursorPosition();
    const int length = static_cast<int>(edited.size());
    setMaxLength(length < maxLength() ? std::max(limit_, length) : limit_);
    setCursorPosition(std::min(cursor, static_cast<int>(text().size())));
}

void Text_Cell_Editor::refuse(const Refused_Input& what) const {
    if (onRefused) onRefused(what);
}

void Text_Cell_Editor::pasteFrom(QClipboard::Mode mode) {
    insertPasted(QGuiApplication::clipboard()->text(mode));
}

void Text_Cell_Editor::insertPasted(const QString& clipboard) {
    const Pasted_Text pasted = pastedText(clipboard);
    if (pasted.severalCells && takesBlock && !takesBlock()) return refuse({});
    insert(pasted.line);
}

void Text_Cell_Editor::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Paste))
        pasteFrom(QClipboard::Clipboard);
    else if (event->key() == Qt::Key_Y && belongsToEditor(*event))
        redo();
    else
        QLineEdit::keyPressEvent(event);
}

/// The menu's own "Paste" would go past the rules for what is pasted.
void Text_Cell_Editor::contextMenuEvent(QContextMenuEvent* event) {
    QMenu* menu = createStandardContextMenu();
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* action : menu->actions()) {
        if (!action->text().startsWith(QLineEdit::tr("&Paste"))) continue;
        action->disconnect(this);
        connect(action, &QAction::triggered, this, [this] { pasteFrom(QClipboard::Clipboard); });
    }
    menu->popup(event->globalPos());
}

void Text_Cell_Editor::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::MiddleButton || !QGuiApplication::clipboard()->supportsSelection())
        return QLineEdit::mouseReleaseEvent(event);
    deselect();
    pasteFrom(QClipboard::Selection);
}

/// A text that is moved inside the editor is one line already.
void Text_Cell_Editor::dropEvent(QDropEvent* event) {
    if (event->source() == this || !event->mimeData()->hasText()) return QLineEdit::dropEvent(event);
    deselect();
    setCursorPosition(cursorPositionAt(event->position().toPoint()));
    insertPasted(event->mimeData()->text());
    event->acceptProposedAction();
}

bool Text_Cell_Editor::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && belongsToEditor(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (const std::optional<Edit_End> how = editEndOf(key)) {
            event->accept();
            if (onEnd) onEnd(*how);
            return true;
        }
    }
    return QLineEdit::event(event);
}

void Text_Cell_Editor::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void Text_Cell_Editor::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (!comesBack(event->reason()) && onEnd) onEnd(Edit_End::Stay);
}

List_Cell_Editor::List_Cell_Editor(std::vector<Combo_Entry> entries, QWidget* parent)
    : QComboBox(parent), entries_(std::move(entries)) {
    setFrame(false);
    for (const Combo_Entry& entry : entries_)
        addItem(fromCore(entry.text));
    setMaxVisibleItems(16);
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    view()->installEventFilter(this);
    connect(this, &QComboBox::activated, this, [this] { end(Edit_End::Enter); });
}

const Combo_Entry& List_Cell_Editor::chosen() const {
    return entries_.at(static_cast<std::size_t>(currentIndex()));
}

void List_Cell_Editor::standOn(const std::string& text) {
    setCurrentIndex(static_cast<int>(entryWithText(entries_, text).value_or(0)));
}

void List_Cell_Editor::typeAhead(const QString& text) {
    if (view()->isVisible())
        view()->keyboardSearch(text);
    else
        typedFirst_ = text;
}

void List_Cell_Editor::showEvent(QShowEvent* event) {
    QComboBox::showEvent(event);
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (ended_) return;
            showPopup();
            if (!typedFirst_.isEmpty()) view()->keyboardSearch(typedFirst_);
        },
        Qt::QueuedConnection);
}

void List_Cell_Editor::hidePopup() {
    QComboBox::hidePopup();
    // A choice is told right after the list closes; a list that closes without one ends the edit as Escape.
    QMetaObject::invokeMethod(
        this, [this] { end(Edit_End::Escape); }, Qt::QueuedConnection);
}

bool List_Cell_Editor::event(QEvent* event) {
    if (event->type() != QEvent::ShortcutOverride || !belongsToEditor(static_cast<QKeyEvent&>(*event)))
        return QComboBox::event(event);
    event->accept();
    return true;
}

void List_Cell_Editor::keyPressEvent(QKeyEvent* event) {
    const std::optional<Edit_End> how = editEndOf(*event);
    if (how && *how != Edit_End::Up && *how != Edit_End::Down)
        end(*how);
    else
        QComboBox::keyPressEvent(event);
}

void List_Cell_Editor::focusOutEvent(QFocusEvent* event) {
    QComboBox::focusOutEvent(event);
    if (!comesBack(event->reason()) && !view()->isVisible()) end(Edit_End::Escape);
}

bool List_Cell_Editor::eventFilter(QObject* watched, QEvent* event) {
    if (watched == view() && event->type() == QEvent::ShortcutOverride &&
        belongsToEditor(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    if (watched == view() && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
            takeHighlighted(key == Qt::Key_Tab ? Edit_End::Next : Edit_End::Previous);
            return true;
        }
    }
    return QComboBox::eventFilter(watched, event);
}

void List_Cell_Editor::takeHighlighted(Edit_End how) {
    const QModelIndex highlighted = view()->currentIndex();
    if (highlighted.isValid()) setCurrentIndex(highlighted.row());
    end(how);
}

void List_Cell_Editor::end(Edit_End how) {
    if (ended_) return;
    ended_ = true;
    if (view()->isVisible()) QComboBox::hidePopup();
    if (onEnd) onEnd(how);
}

} // namespace zorvane::ui
