// SPDX-License-Identifier: MIT
#pragma once

#include "grids/rules/vsflexgrid.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zorvane {

/// A grid without a screen, for the terminal program and the tests. Rows take memory only as far as something
/// was written to them, so the largest table of a template costs little.
class Memory_Grid final : public VSFlexGrid {
  public:
    /// No rows, no columns, no current cell.
    Memory_Grid() = default;

    // What a user at the control would do.

    /// Scrolls so that this row is the first below the headings.
    void scrollTo(std::int32_t topRow) { topRow_ = topRow; }
    /// Chooses an entry of the in-cell list by its number; "" chooses none.
    void chooseEntry(const std::string& number) { comboData_ = number; }

    // What whoever paints the cells wants to know besides.

    /// Packed colours; none where one was never set, while 0 is a black that was.
    struct Colours {
        std::optional<std::int32_t> back;
        std::optional<std::int32_t> fore;
        bool operator==(const Colours&) const = default;
    };
    [[nodiscard]] Colours coloursOf(std::int32_t row, std::int32_t col) const;

    // What a test wants to know besides.

    [[nodiscard]] std::int32_t selectionHighlight() const noexcept { return highlight_; }
    [[nodiscard]] std::int32_t refreshes() const noexcept { return refreshes_; }
    [[nodiscard]] std::int32_t focusCalls() const noexcept { return focusCalls_; }

    [[nodiscard]] std::int32_t Rows() const override { return static_cast<std::int32_t>(rows_.size()); }
    void setRows(std::int32_t rows) override;
    [[nodiscard]] std::int32_t Cols() const override { return static_cast<std::int32_t>(columns_.size()); }
    void setCols(std::int32_t cols) override;
    [[nodiscard]] std::int32_t FixedRows() const override { return fixedRows_; }
    void setFixedRows(std::int32_t rows) override;
    [[nodiscard]] std::int32_t Row() const override { return row_; }
    void setRow(std::int32_t row) override;
    [[nodiscard]] std::int32_t Col() const override { return col_; }
    void setCol(std::int32_t col) override;
    [[nodiscard]] std::int32_t RowSel() const override { return rowSel_; }
    void setRowSel(std::int32_t row) override;
    [[nodiscard]] std::int32_t ColSel() const override { return colSel_; }
    void setColSel(std::int32_t col) override;
    void setSelectionHighlight(std::int32_t kind) override { highlight_ = kind; }
    [[nodiscard]] std::int32_t TopRow() const override { return topRow_; }
    [[nodiscard]] std::string Text() const override;
    void setText(const std::string& text) override;
    [[nodiscard]] std::string TextMatrix(std::int32_t row, std::int32_t col) const override;
    void setTextMatrix(std::int32_t row, std::int32_t col, const std::string& text) override;
    [[nodiscard]] std::int32_t CellBackColor() const override { return currentColours().back.value_or(0); }
    void setCellBackColor(std::int32_t colour) override;
    [[nodiscard]] std::int32_t CellForeColor() const override { return currentColours().fore.value_or(0); }
    void setCellForeColor(std::int32_t colour) override;
    [[nodiscard]] std::int32_t ColWidth(std::int32_t col) const override { return column(col).width; }
    void setColWidth(std::int32_t col, std::int32_t twips) override { column(col).width = twips; }
    [[nodiscard]] std::int32_t RowHeight(std::int32_t row) const override { return line(row).height; }
    void setRowHeight(std::int32_t row, std::int32_t twips) override { line(row).height = twips; }
    [[nodiscard]] std::int32_t ColAlignment(std::int32_t col) const override { return column(col).alignment; }
    void setColAlignment(std::int32_t col, std::int32_t alignment) override {
        column(col).alignment = alignment;
    }
    [[nodiscard]] std::int32_t FixedAlignment(std::int32_t col) const override {
        return column(col).fixedAlignment;
    }
    void setFixedAlignment(std::int32_t col, std::int32_t alignment) override {
        column(col).fixedAlignment = alignment;
    }
    [[nodiscard]] double FontSize() const override { return fontSize_; }
    void setFontSize(double points) override { fontSize_ = points; }
    [[nodiscard]] std::string ComboList() const override { return comboList_; }
    void setComboList(const std::string& list) override { comboList_ = list; }
    [[nodiscard]] std::string ComboData() const override { return comboData_; }
    [[nodiscard]] std::int32_t EditMaxLength() const override { return editMaxLength_; }
    void setEditMaxLength(std::int32_t characters) override { editMaxLength_ = characters; }
    [[nodiscard]] bool Visible() const override { return visible_; }
    void setVisible(bool visible) override { visible_ = visible; }
    [[nodiscard]] bool TabStop() const override { return tabStop_; }
    void setTabStop(bool on) override { tabStop_ = on; }
    void SetFocus() override { ++focusCalls_; }
    void Refresh() override { ++refreshes_; }

  private:
    struct Column {
        std::int32_t width = 960;
        std::int32_t alignment = Align_Left_Top;
        std::int32_t fixedAlignment = Align_Left_Top;
    };
    /// Cells beyond the end of either list were never written. A colour is its place in the palette.
    struct Line {
        std::vector<std::string> texts;
        std::vector<std::uint16_t> colours;
        std::int32_t height = 240;
    };

    [[nodiscard]] bool hasCurrent() const noexcept { return row_ >= 0 && col_ >= 0; }
    [[nodiscard]] Colours currentColours() const;
    /// The current cell's place in the palette. REQUIRES: a cell is current.
    [[nodiscard]] std::uint16_t& currentEntry();
    [[nodiscard]] std::uint16_t paletteEntry(Colours colours);
    [[nodiscard]] Column& column(std::int32_t col);
    [[nodiscard]] const Column& column(std::int32_t col) const;
    [[nodiscard]] Line& line(std::int32_t row);
    [[nodiscard]] const Line& line(std::int32_t row) const;

    std::vector<Line> rows_;
    std::vector<Column> columns_;
    std::vector<Colours> palette_{Colours{}};
    std::uint16_t lastUsed_ = 0; ///< the palette's entry that was last asked for
    std::int32_t fixedRows_ = 0;
    std::int32_t row_ = -1;
    std::int32_t col_ = -1;
    std::int32_t rowSel_ = -1;
    std::int32_t colSel_ = -1;
    std::int32_t topRow_ = 1;
    std::int32_t highlight_ = 0;
    std::int32_t refreshes_ = 0;
    std::int32_t focusCalls_ = 0;
    double fontSize_ = 8.25;
    std::string comboList_;
    std::string comboData_;
    std::int32_t editMaxLength_ = 0;
    bool visible_ = true;
    bool tabStop_ = true;
};

} // namespace zorvane
