// SPDX-License-Identifier: MIT
#include "ui/base/text.h"
#include "ui/grid/flex_grid_view.h"
#include "ui/grid/pasted_text.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelection>
#include <QMimeData>

#include <algorithm>
#include <memory>
#include <utility>

namespace zorvane::ui {

namespace {

/// An editor has the colours of its cell.
void takeCellColours(QWidget& editor, const QModelIndex& index) {
    QPalette palette = editor.palette();
    const QVariant back = index.data(Qt::BackgroundRole);
    const QVariant fore = index.data(Qt::ForegroundRole);
    if (back.isValid()) palette.setColor(QPalette::Base, back.value<QBrush>().color());
    if (back.isValid()) palette.setColor(QPalette::Text, Qt::black);
    if (fore.isValid()) palette.setColor(QPalette::Text, fore.value<QBrush>().color());
    editor.setPalette(palette);
}

} // namespace

bool Flex_Grid_View::askEdit(std::int32_t row, std::int32_t col) {
    store().chooseEntry("");
    bool refused = false;
    if (events.BeforeEdit) events.BeforeEdit(row, col, refused);
    if (refused) return false;
    if (events.StartEdit) events.StartEdit(row, col, refused);
    return !refused && row < store().Rows() && col < store().Cols();
}

bool Flex_Grid_View::beginEdit(Edit_Start how) {
    const std::int32_t row = store().Row();
    const std::int32_t col = store().Col();
    if (!editable_ || isEditing() || row < 1 || col < 0 || !askEdit(row, col)) return false;
    flush();
    const QModelIndex index = model_.index(row - 1, col);
    editRow_ = row;
    editCol_ = col;
    scrollTo(index);
    edit(index);
    if (auto* line = dynamic_cast<Text_Cell_Editor*>(editor_.data())) {
        if (how == Edit_Start::Empty) line->clear();
        if (how == Edit_Start::AtEnd) line->end(false);
    }
    return isEditing();
}

void Flex_Grid_View::typeInto(const QString& text) {
    if (!fitsCodePage(text)) return refuse(store().Row(), store().Col(), {missingCharacter(text)});
    if (!beginEdit(Edit_Start::Empty)) return;
    if (auto* line = dynamic_cast<Text_Cell_Editor*>(editor_.data())) line->insert(text);
    if (auto* list = dynamic_cast<List_Cell_Editor*>(editor_.data())) list->typeAhead(text);
}

QWidget* Flex_Grid_View::makeEditor(QWidget* parent, const QModelIndex& index) {
    const QString heading = model_.headerData(index.column(), Qt::Horizontal).toString();
    const auto finish = [this](Edit_End how) { endEdit(how); };
    if (std::vector<Combo_Entry> entries = comboEntries(store().ComboList()); !entries.empty()) {
        auto* list = new List_Cell_Editor(std::move(entries), parent);
        list->standOn(store().TextMatrix(editRow_, editCol_));
        list->onEnd = finish;
        editor_ = list;
    } else {
        auto* line =
            new Text_Cell_Editor(index.data(Qt::EditRole).toString(), store().EditMaxLength(), parent);
        line->setAlignment(qtAlignment(store().ColAlignment(editCol_)));
        takeCellColours(*line, index);
        line->onEnd = finish;
        line->takesBlock = [this] { return takesBlock(editRow_, editCol_); };
        line->onRefused = [this](const Refused_Input& what) { refuse(editRow_, editCol_, what); };
        editor_ = line;
    }
    editor_->setFont(font());
    giveName(*editor_, objectName() + QStringLiteral("_Editor"));
    editor_->setAccessibleName(heading);
    return editor_;
}

void Flex_Grid_View::abandonEdit() {
    if (!isEditing()) return;
    const bool hadFocus = editor_->hasFocus();
    QTableView::closeEditor(std::exchange(editor_, nullptr), QAbstractItemDelegate::NoHint);
    if (hadFocus) setFocus();
}

void Flex_Grid_View::endEdit(Edit_End how) {
    if (!isEditing()) return;
    const QPointer<QWidget> editor = std::exchange(editor_, nullptr);
    const auto* list = dynamic_cast<const List_Cell_Editor*>(editor.data());
    const auto* line = dynamic_cast<const Text_Cell_Editor*>(editor.data());
    const Combo_Entry entry = list != nullptr ? list->chosen() : Combo_Entry{};
    const std::string text = line != nullptr ? toCore(line->text()) : std::string();
    const std::int32_t row = editRow_;
    const std::int32_t col = editCol_;
    QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
    if (how != Edit_End::Stay) setFocus();
    store().setRow(row);
    store().setCol(col);
    currentChangedByOwner();
    flush();
    if (how == Edit_End::Escape) return;
    if (list != nullptr)
        acceptEntry(row, col, entry);
    else
        acceptText(row, col, text);
    flush();
    moveAfter(how, row, col);
}

void Flex_Grid_View::acceptText(std::int32_t row, std::int32_t col, const std::string& text) {
    store().setTextMatrix(row, col, text);
    cellChanged(row, col);
    tellAfterEdit(row, col);
}

void Flex_Grid_View::acceptEntry(std::int32_t row, std::int32_t col, const Combo_Entry& entry) {
    store().chooseEntry(entry.number);
    acceptText(row, col, entry.text);
}

void Flex_Grid_View::tellAfterEdit(std::int32_t row, std::int32_t col) {
    if (events.AfterEdit) events.AfterEdit(row, col);
}

bool Flex_Grid_View::takesBlock(std::int32_t row, std::int32_t col) const {
    return !events.TakesBlock || events.TakesBlock(row, col);
}

void Flex_Grid_View::refuse(std::int32_t row, std::int32_t col, const Refused_Input& what) const {
    if (events.Refused) events.Refused(row, col, what);
}

void Flex_Grid_View::finishEdit() { endEdit(Edit_End::Stay); }

void Flex_Grid_View::commitData(QWidget* editor) {
    if (editor == editor_) endEdit(Edit_End::Stay);
}

void Flex_Grid_View::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
    if (editor != editor_ || !isEditing()) return;
    endEdit(hint == QAbstractItemDelegate::RevertModelCache ? Edit_End::Escape : Edit_End::Stay);
}

void Flex_Grid_View::copySelection() const {
    QItemSelection selection = selectionModel()->selection();
    if (selection.isEmpty()) selection.select(currentIndex(), currentIndex());
    if (selection.isEmpty() || !selection.first().isValid()) return;
    const QItemSelectionRange range = selection.first();
    QStringList lines;
    std::vector<std::vector<std::string>> rows;
    for (int row = range.top(); row <= range.bottom(); ++row) {
        QStringList texts;
        rows.emplace_back();
        for (int col = range.left(); col <= range.right(); ++col) {
            texts << model_.index(row, col).data().toString();
            rows.back().push_back(store().TextMatrix(row + 1, col));
        }
        lines << texts.join(u'\t');
    }
    auto data = std::make_unique<QMimeData>();
    data->setText(lines.join(u'\n'));
    if (events.CopiedTable) data->setHtml(QString::fromStdString(events.CopiedTable(rows)));
    QGuiApplication::clipboard()->setMimeData(data.release());
}

bool Flex_Grid_View::severalSelected() const {
    const QItemSelection selection = selectionModel()->selection();
    return selection.size() > 1 ||
           (selection.size() == 1 && selection.first().width() * selection.first().height() > 1);
}

void Flex_Grid_View::paste() {
    const std::int32_t row = store().Row();
    const std::int32_t col = store().Col();
    const bool hasText = QGuiApplication::clipboard()->mimeData()->hasText();
    if (!editable_ || isEditing() || row < 1 || col < 0 || !hasText) return;
    const Pasted_Text pasted = pastedText(QGuiApplication::clipboard()->text());
    const bool fills = !pasted.severalCells && severalSelected() && events.PasteIntoSelection;
    if (fills && events.PasteIntoSelection(pasted.line)) return;
    if (!askEdit(row, col)) return;
    const std::vector<Combo_Entry> entries = comboEntries(store().ComboList());
    if (pasted.severalCells && (!entries.empty() || !takesBlock(row, col))) return refuse(row, col, {});
    if (!fitsCodePage(pasted.line)) return refuse(row, col, {missingCharacter(pasted.line)});
    const std::string text = toCore(pasted.line);
    if (entries.empty()) {
        const std::int32_t limit = store().EditMaxLength();
        acceptText(row, col, limit > 0 ? text.substr(0, static_cast<std::size_t>(limit)) : text);
    } else if (const std::optional<std::size_t> place = entryWithText(entries, text)) {
        acceptEntry(row, col, entries[*place]);
    }
}

} // namespace zorvane::ui
