// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/twips_scale.h"
#include "ui/grid/cell_editors.h"
#include "ui/grid/flex_grid_model.h"

#include <QPointer>
#include <QTableView>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QMenu;

namespace zorvane::ui {

class Flex_Grid_Delegate;

/// What a grid tells its owner. Rows and columns are the grid's, from 0, row 0 being the heading; places are
/// twips from the grid's upper left corner, headings included, and held to 16 bits. A handler may fill the
/// grid again, and may serve events; it lets no exception out.
struct Flex_Grid_Events {
    /// The grid is about to offer an editor on a cell: after each move of the user onto one, and again right
    /// before an edit starts. `cancel` refuses it.
    std::function<void(std::int32_t row, std::int32_t col, bool& cancel)> BeforeEdit;
    /// An edit starts, right after its `BeforeEdit`.
    std::function<void(std::int32_t row, std::int32_t col, bool& cancel)> StartEdit;
    /// An edit ended with a text or an entry taken; the cell has it already and is the current one.
    std::function<void(std::int32_t row, std::int32_t col)> AfterEdit;
    /// Whether a cell takes a pasted text of several cells or lines as one line; without it each does.
    std::function<bool(std::int32_t row, std::int32_t col)> TakesBlock;
    /// One text is pasted while several cells are selected. True when that was dealt with; else, and without
    /// it, the current cell takes the text.
    std::function<bool(const QString& text)> PasteIntoSelection;
    /// The cells that are copied as an HTML table, row by row; without it they are copied as text only.
    std::function<std::string(const std::vector<std::vector<std::string>>& rows)> CopiedTable;
    /// Something that was typed or pasted isn't taken.
    std::function<void(std::int32_t row, std::int32_t col, const Refused_Input& what)> Refused;
    /// The user drags a column's border; the column is that wide now, in twips.
    std::function<void(std::int32_t col, std::int32_t twips)> UserResizing;
    /// The user changed a column's width and let go of it; the row is -1.
    std::function<void(std::int32_t row, std::int32_t col)> AfterUserResize;
    std::function<void()> RowColChange; ///< the user moved to another cell
    std::function<void()> SelChange;    ///< the user selected something else; a move comes before it
    std::function<void(std::int16_t keyCode, std::int16_t shift)> KeyUp;
    std::function<void(QMenu& menu)> ContextMenu; ///< the grid's menu opens: the owner adds entries

    using Mouse = std::function<void(std::int16_t button, std::int16_t shift, float x, float y)>;
    Mouse MouseDown;
    Mouse MouseMove;
    Mouse MouseUp;
    std::function<void()> Click;    ///< after the release that ends a click
    std::function<void()> DblClick; ///< at the second press; no `Click` follows
};

/// The widget of a grid. What the owner writes goes into the model's store; the view follows when the events
/// are served next, all changes at once, and never shows half a fill.
class Flex_Grid_View final : public QTableView {
  public:
    explicit Flex_Grid_View(QWidget* parent);
    ~Flex_Grid_View() override;

    Flex_Grid_Events events;

    /// Whether cells can be edited at all; off at first.
    void setEditable(bool editable) { editable_ = editable; }
    /// The grid chooses rows and no single cells.
    void setSelectsRows(bool rows);
    /// A double click on a heading's border gives the column the width of its widest text, as if the user had
    /// dragged it.
    void setFitsColumns();
    /// The last column that is seen is painted over the room that is left. Its width in the store stays, and
    /// is what the user drags.
    void setFillsRoom(bool on);
    /// On a dark desktop pale grounds of cells are painted dark. The store's colours stay.
    void setDarkGrounds(bool on);

    [[nodiscard]] Flex_Grid_Model& cells() { return model_; }
    [[nodiscard]] const Flex_Grid_Model& cells() const { return model_; }
    [[nodiscard]] Memory_Grid& store() { return model_.store; }
    [[nodiscard]] const Memory_Grid& store() const { return model_.store; }

    /// Something floats over so many pixels at the lower end of the cells. The rows scroll that much further,
    /// and the current cell doesn't stay under it.
    void setCoveredBelow(int pixels);

    // What the owner changed in the store. The view follows later.

    void cellChanged(std::int32_t row, std::int32_t col);
    void columnsChanged();
    void rowHeightsChanged();
    void currentChangedByOwner();
    void visibleChanged();

    /// Shows all that changed so far.
    void flush();

    [[nodiscard]] bool isEditing() const { return editor_ != nullptr; }
    /// Takes the text of an edit in progress, as if the user had clicked elsewhere.
    void finishEdit();
    /// Copies the selected cells: a tab between columns, a line feed between rows; as a table, too, where the
    /// owner makes one.
    void copySelection() const;
    /// Commits the clipboard's text into the current cell.
    void paste();
    /// Commits an empty text into the current cell. A cell with a list stays as it is.
    void clearCell();

    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void commitData(QWidget* editor) override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void updateGeometries() override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    bool focusNextPrevChild(bool next) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

  private:
    struct Cell_Range {
        std::int32_t firstRow, firstCol, lastRow, lastCol;
    };
    enum class Edit_Start { All, AtEnd, Empty };

    void fillMenu(QMenu& menu);
    void openMenuByKey();
    void scheduleFlush();
    void flushSizes();
    void flushColumns();
    void widenLast();
    void flushRowHeights();
    void flushCells();
    void flushCurrent();
    void selectInView(std::int32_t row, std::int32_t col);
    [[nodiscard]] bool scrollsFurther() const;
    void alignTopRow();
    [[nodiscard]] int freeHeight() const;
    [[nodiscard]] int topRowFor(int lastRow) const;

    /// Runs Qt's own handling of the user's input, then tells what it moved.
    template <class Handling> void asUser(Handling&& handling);
    void noteMove();
    void tellMoves();
    void takeViewCurrent();
    void standOnLastCell();
    void moveTo(std::int32_t row, std::int32_t col);
    void moveAfter(Edit_End how, std::int32_t row, std::int32_t col);
    [[nodiscard]] QModelIndex nextSeen(const QModelIndex& from, int step, bool overRows) const;
    void moveToNextSeen(std::int32_t row, std::int32_t col, int step);

    bool handleEditKey(QKeyEvent* event);
    [[nodiscard]] bool askEdit(std::int32_t row, std::int32_t col);
    bool beginEdit(Edit_Start how);
    void typeInto(const QString& text);
    QWidget* makeEditor(QWidget* parent, const QModelIndex& index);
    void endEdit(Edit_End how);
    void acceptText(std::int32_t row, std::int32_t col, const std::string& text);
    void acceptEntry(std::int32_t row, std::int32_t col, const Combo_Entry& entry);
    void tellAfterEdit(std::int32_t row, std::int32_t col);
    [[nodiscard]] bool takesBlock(std::int32_t row, std::int32_t col) const;
    [[nodiscard]] bool severalSelected() const;
    void refuse(std::int32_t row, std::int32_t col, const Refused_Input& what) const;

    void tellMouse(const Flex_Grid_Events::Mouse& handler, const QMouseEvent& event, const QWidget& source,
                   Qt::MouseButtons buttons);
    void headerMouse(const QMouseEvent& event);
    void abandonEdit();
    void sectionDragged(int column, int pixels);
    [[nodiscard]] int headingWidth(int column) const;
    void tellHeading(const QHelpEvent& event) const;
    void fitColumn(int column);
    void tellUserResize();

    Flex_Grid_Model model_;
    Flex_Grid_Delegate* delegate_ = nullptr;
    QPointer<QWidget> editor_;
    std::int32_t editRow_ = -1;
    std::int32_t editCol_ = -1;
    std::int32_t lastRow_ = -1; ///< where keys go on from while no cell is current
    std::int32_t lastCol_ = -1;
    std::optional<Cell_Range> changed_;
    int resizedColumn_ = -1;
    int coveredBelow_ = 0;
    int handlingDepth_ = 0;
    bool editable_ = false;
    bool fillsRoom_ = false;
    bool selectsRows_ = false;
    bool flushPending_ = false;
    bool flushing_ = false;
    bool columnsChanged_ = false;
    bool rowHeightsChanged_ = false;
    bool currentChanged_ = false;
    bool visibleChanged_ = false;
    bool moved_ = false;
    bool selected_ = false;
    bool doubleClicked_ = false;
};

} // namespace zorvane::ui
