// SPDX-License-Identifier: MIT
#pragma once

#include "ui/grid/flex_grid_view.h"

namespace zorvane::ui {

/// A grid control on the screen: what its owner writes goes into the cells at once, and is shown when events
/// are served next.
///
/// A cell takes the desktop's colour until it is given one. A column of width 0 isn't seen.
class Flex_Grid final : public VSFlexGrid {
  public:
    /// `view` is the grid's widget and outlives it.
    explicit Flex_Grid(Flex_Grid_View& view) : view_(view), store_(view.store()) { setFontSize(8.25); }

    [[nodiscard]] Flex_Grid_View& view() const { return view_; }
    [[nodiscard]] Flex_Grid_Events& events() const { return view_.events; }
    /// For a cell's description to a screen reader.
    [[nodiscard]] Memory_Grid::Colours coloursOf(std::int32_t row, std::int32_t col) const {
        return store_.coloursOf(row, col);
    }

    [[nodiscard]] std::int32_t Rows() const override { return store_.Rows(); }
    void setRows(std::int32_t rows) override;
    [[nodiscard]] std::int32_t Cols() const override { return store_.Cols(); }
    void setCols(std::int32_t cols) override;
    [[nodiscard]] std::int32_t FixedRows() const override { return store_.FixedRows(); }
    void setFixedRows(std::int32_t rows) override { store_.setFixedRows(rows); }
    [[nodiscard]] std::int32_t Row() const override { return store_.Row(); }
    void setRow(std::int32_t row) override;
    [[nodiscard]] std::int32_t Col() const override { return store_.Col(); }
    void setCol(std::int32_t col) override;
    [[nodiscard]] std::int32_t RowSel() const override { return store_.RowSel(); }
    void setRowSel(std::int32_t row) override;
    [[nodiscard]] std::int32_t ColSel() const override { return store_.ColSel(); }
    void setColSel(std::int32_t col) override;
    void setSelectionHighlight(std::int32_t kind) override { store_.setSelectionHighlight(kind); }
    [[nodiscard]] std::int32_t TopRow() const override;
    [[nodiscard]] std::string Text() const override { return store_.Text(); }
    void setText(const std::string& text) override;
    [[nodiscard]] std::string TextMatrix(std::int32_t row, std::int32_t col) const override {
        return store_.TextMatrix(row, col);
    }
    void setTextMatrix(std::int32_t row, std::int32_t col, const std::string& text) override;
    [[nodiscard]] std::int32_t CellBackColor() const override { return store_.CellBackColor(); }
    void setCellBackColor(std::int32_t colour) override;
    [[nodiscard]] std::int32_t CellForeColor() const override { return store_.CellForeColor(); }
    void setCellForeColor(std::int32_t colour) override;
    [[nodiscard]] std::int32_t ColWidth(std::int32_t col) const override { return store_.ColWidth(col); }
    void setColWidth(std::int32_t col, std::int32_t twips) override;
    [[nodiscard]] std::int32_t RowHeight(std::int32_t row) const override { return store_.RowHeight(row); }
    void setRowHeight(std::int32_t row, std::int32_t twips) override;
    [[nodiscard]] std::int32_t ColAlignment(std::int32_t col) const override {
        return store_.ColAlignment(col);
    }
    void setColAlignment(std::int32_t col, std::int32_t alignment) override;
    [[nodiscard]] std::int32_t FixedAlignment(std::int32_t col) const override {
        return store_.FixedAlignment(col);
    }
    void setFixedAlignment(std::int32_t col, std::int32_t alignment) override;
    [[nodiscard]] double FontSize() const override { return store_.FontSize(); }
    void setFontSize(double points) override;
    [[nodiscard]] std::string ComboList() const override { return store_.ComboList(); }
    void setComboList(const std::string& list) override { store_.setComboList(list); }
    [[nodiscard]] std::string ComboData() const override { return store_.ComboData(); }
    [[nodiscard]] std::int32_t EditMaxLength() const override { return store_.EditMaxLength(); }
    void setEditMaxLength(std::int32_t characters) override { store_.setEditMaxLength(characters); }
    [[nodiscard]] bool Visible() const override { return store_.Visible(); }
    void setVisible(bool visible) override;
    [[nodiscard]] bool TabStop() const override { return store_.TabStop(); }
    void setTabStop(bool on) override;
    /// An edit in progress keeps the focus, which is then in the grid already.
    void SetFocus() override;
    void Refresh() override;

  private:
    void currentCellChanged();

    Flex_Grid_View& view_;
    Memory_Grid& store_;
};

} // namespace zorvane::ui
