// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

#include <functional>

namespace zorvane::ui {

/// Paints the cells of a grid in their own colours, which say something about the controller and so stay
/// whatever is selected: the current cell has a border, other selected cells a tint. A cell without colours
/// of its own takes those of the desktop. Editors come from the view, through `makeEditor`.
class Flex_Grid_Delegate final : public QStyledItemDelegate {
  public:
    using Make_Editor = std::function<QWidget*(QWidget* parent, const QModelIndex& index)>;

    Flex_Grid_Delegate(QObject* parent, Make_Editor makeEditor)
        : QStyledItemDelegate(parent), makeEditor_(std::move(makeEditor)) {}

    /// Whole rows are selected: no cell of them stands out.
    void setRowsSelected(bool rows) { rows_ = rows; }
    /// On a dark desktop pale grounds of cells are painted dark.
    void setDarkGrounds(bool on) { darkGrounds_ = on; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// The view fills an editor once; what the user does with it is not overwritten by a refresh.
    void setEditorData(QWidget*, const QModelIndex&) const override {}
    void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const override {}
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

    /// A text that its cell cuts is shown whole, before whatever else there is to say of the cell.
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    /// How wide a cell must be to show its text whole, in pixels.
    [[nodiscard]] static int widthFor(const QString& text, const QFontMetrics& metrics);

  protected:
    /// The editors know their keys themselves.
    bool eventFilter(QObject*, QEvent*) override { return false; }

  private:
    Make_Editor makeEditor_;
    bool rows_ = false;
    bool darkGrounds_ = false;
};

} // namespace zorvane::ui
