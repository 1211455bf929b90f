// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace zorvane {

/// What `ColAlignment` and `FixedAlignment` hold.
enum Grid_Alignment : std::int32_t {
    Align_Left_Top = 0,
    Align_Center_Top = 3,
    Align_Center_Center = 4,
    Align_Right_Top = 6,
};

/// What the logic of the two grids asks of a grid control. The window's widget and the grid in memory
/// implement it, and one suite of tests runs on both.
///
/// Rows and columns count from 0; the first `FixedRows` rows are headings. Widths and heights are twips,
/// colours are packed with blue in the high byte, text is Windows-1252. Fewer rows or columns cut cells off,
/// more add empty ones, and what overlaps keeps its text, its colours and its sizes.
///
/// The current cell is that of `Row` and `Col`; -1 in either means that no cell is current. Then `Text` reads
/// empty, both colours read 0, and writing any of them does nothing. Setting `Row` draws `RowSel` to it, and
/// `Col` draws `ColSel`. A row or column that the grid doesn't have is failure 9 wherever one is named; when
/// the grid shrinks, the current cell moves to the last row or column left.
class VSFlexGrid {
  public:
    virtual ~VSFlexGrid() = default;

    // Size.

    [[nodiscard]] virtual std::int32_t Rows() const = 0;
    virtual void setRows(std::int32_t rows) = 0;
    [[nodiscard]] virtual std::int32_t Cols() const = 0;
    virtual void setCols(std::int32_t cols) = 0;
    [[nodiscard]] virtual std::int32_t FixedRows() const = 0;
    virtual void setFixedRows(std::int32_t rows) = 0;

    // The current cell and the selection, which runs from it to its far corner.

    [[nodiscard]] virtual std::int32_t Row() const = 0;
    virtual void setRow(std::int32_t row) = 0;
    [[nodiscard]] virtual std::int32_t Col() const = 0;
    virtual void setCol(std::int32_t col) = 0;
    [[nodiscard]] virtual std::int32_t RowSel() const = 0;
    virtual void setRowSel(std::int32_t row) = 0;
    [[nodiscard]] virtual std::int32_t ColSel() const = 0;
    virtual void setColSel(std::int32_t col) = 0;
    /// 1 draws the selection always.
    virtual void setSelectionHighlight(std::int32_t kind) = 0;
    /// The first row below the headings that is now on screen.
    [[nodiscard]] virtual std::int32_t TopRow() const = 0;

    // Texts and looks.

    [[nodiscard]] virtual std::string Text() const = 0;
    virtual void setText(const std::string& text) = 0;
    [[nodiscard]] virtual std::string TextMatrix(std::int32_t row, std::int32_t col) const = 0;
    virtual void setTextMatrix(std::int32_t row, std::int32_t col, const std::string& text) = 0;
    [[nodiscard]] virtual std::int32_t CellBackColor() const = 0;
    virtual void setCellBackColor(std::int32_t colour) = 0;
    [[nodiscard]] virtual std::int32_t CellForeColor() const = 0;
    virtual void setCellForeColor(std::int32_t colour) = 0;
    [[nodiscard]] virtual std::int32_t ColWidth(std::int32_t col) const = 0;
    virtual void setColWidth(std::int32_t col, std::int32_t twips) = 0;
    [[nodiscard]] virtual std::int32_t RowHeight(std::int32_t row) const = 0;
    virtual void setRowHeight(std::int32_t row, std::int32_t twips) = 0;
    [[nodiscard]] virtual std::int32_t ColAlignment(std::int32_t col) const = 0;
    virtual void setColAlignment(std::int32_t col, std::int32_t alignment) = 0;
    [[nodiscard]] virtual std::int32_t FixedAlignment(std::int32_t col) const = 0;
    virtual void setFixedAlignment(std::int32_t col, std::int32_t alignment) = 0;
    /// Points.
    [[nodiscard]] virtual double FontSize() const = 0;
    virtual void setFontSize(double points) = 0;

    // The in-cell editor. Both settings stay until they are set again.

    /// "|#0;Off|#1;On" makes the editor a list of numbered entries; "" makes it free text.
    [[nodiscard]] virtual std::string ComboList() const = 0;
    virtual void setComboList(const std::string& list) = 0;
    /// The number of the entry chosen in the list, as text; "" when none was chosen.
    [[nodiscard]] virtual std::string ComboData() const = 0;
    /// The longest text that the free-text editor takes; 0 is no limit.
    [[nodiscard]] virtual std::int32_t EditMaxLength() const = 0;
    virtual void setEditMaxLength(std::int32_t characters) = 0;

    // The control as a whole.

    [[nodiscard]] virtual bool Visible() const = 0;
    virtual void setVisible(bool visible) = 0;
    [[nodiscard]] virtual bool TabStop() const = 0;
    virtual void setTabStop(bool on) = 0;
    virtual void SetFocus() = 0;
    virtual void Refresh() = 0;
};

} // namespace zorvane
