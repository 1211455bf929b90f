// SPDX-License-Identifier: MIT
#include "ui/base/text.h"
#include "ui/grid/combo_entries.h"
#include "ui/grid/flex_grid_view.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>

namespace zorvane::ui {

namespace {

QAction& addEntry(QMenu& menu, const char* name, const char* text) {
    QAction& entry = *menu.addAction(QString::fromLatin1(text));
    entry.setObjectName(QString::fromLatin1(name));
    return entry;
}

} // namespace

/// As an editor that was emptied and left by Enter. A list has no entry for it.
void Flex_Grid_View::clearCell() {
    const std::int32_t row = store().Row();
    const std::int32_t col = store().Col();
    if (!editable_ || isEditing() || row < 1 || col < 0 || !askEdit(row, col)) return;
    if (comboEntries(store().ComboList()).empty()) acceptText(row, col, "");
}

void Flex_Grid_View::fillMenu(QMenu& menu) {
    const bool onCell = store().Row() >= 1 && currentIndex().isValid();
    QAction& copy = addEntry(menu, "GRID_Copy", "&Copy\tCtrl+C");
    copy.setEnabled(onCell);
    connect(&copy, &QAction::triggered, this, [this] { copySelection(); });
    if (editable_) {
        QAction& paste = addEntry(menu, "GRID_Paste", "&Paste\tCtrl+V");
        const QMimeData* const clipboard = QGuiApplication::clipboard()->mimeData();
        paste.setEnabled(onCell && clipboard != nullptr && clipboard->hasText());
        connect(&paste, &QAction::triggered, this, [this] { this->paste(); });
        QAction& clear = addEntry(menu, "GRID_Clear", "C&lear");
        clear.setEnabled(onCell);
        connect(&clear, &QAction::triggered, this, [this] { clearCell(); });
    }
    if (events.ContextMenu) events.ContextMenu(menu);
}

void Flex_Grid_View::openMenuByKey() {
    const QPoint place = visualRect(currentIndex()).bottomLeft();
    QContextMenuEvent wish(QContextMenuEvent::Keyboard, place, viewport()->mapToGlobal(place));
    contextMenuEvent(&wish);
}

/// Where the pointer is, or at the current cell when a key asked for it.
void Flex_Grid_View::contextMenuEvent(QContextMenuEvent* event) {
    if (isEditing()) return;
    flush();
    auto* const menu = new QMenu(this);
    giveName(*menu, QStringLiteral("GRID_Menu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    fillMenu(*menu);
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft())
                      : event->globalPos());
}

} // namespace zorvane::ui
