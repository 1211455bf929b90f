// SPDX-License-Identifier: MIT
#include "grids/fill/memory_grid.h"

#include "values/run_time_failure.h"

#include <algorithm>
#include <limits>

namespace zorvane {

namespace {

std::size_t place(std::int32_t index) { return static_cast<std::size_t>(index); }

/// An index into `count` rows or columns; `lowest` is 0, or -1 where "none" may be said.
void require(std::int32_t index, std::int32_t count, std::int32_t lowest = 0) {
    if (index < lowest || index >= count) throw Run_Time_Failure(Failure::Subscript);
}

} // namespace

void Memory_Grid::setRows(std::int32_t rows) {
    if (rows < 0) throw Run_Time_Failure(Failure::Subscript);
    rows_.resize(place(rows));
    fixedRows_ = std::min(fixedRows_, rows);
    row_ = std::min(row_, rows - 1);
    rowSel_ = std::min(rowSel_, rows - 1);
}

void Memory_Grid::setCols(std::int32_t cols) {
    if (cols < 0) throw Run_Time_Failure(Failure::Subscript);
    const bool fewer = cols < Cols();
    columns_.resize(place(cols));
    col_ = std::min(col_, cols - 1);
    colSel_ = std::min(colSel_, cols - 1);
    if (!fewer) return;
    for (Line& row : rows_) {
        if (row.texts.size() > columns_.size()) row.texts.resize(columns_.size());
        if (row.colours.size() > columns_.size()) row.colours.resize(columns_.size());
    }
}

void Memory_Grid::setFixedRows(std::int32_t rows) {
    if (rows < 0 || rows > Rows()) throw Run_Time_Failure(Failure::Subscript);
    fixedRows_ = rows;
}

void Memory_Grid::setRow(std::int32_t row) {
    require(row, Rows(), -1);
    row_ = row;
    rowSel_ = row;
}

void Memory_Grid::setCol(std::int32_t col) {
    require(col, Cols(), -1);
    col_ = col;
    colSel_ = col;
}

void Memory_Grid::setRowSel(std::int32_t row) {
    require(row, Rows(), -1);
    rowSel_ = row;
}

void Memory_Grid::setColSel(std::int32_t col) {
    require(col, Cols(), -1);
    colSel_ = col;
}

std::string Memory_Grid::Text() const { return hasCurrent() ? TextMatrix(row_, col_) : std::string(); }

void Memory_Grid::setText(const std::string& text) {
    if (hasCurrent()) setTextMatrix(row_, col_, text);
}

std::string Memory_Grid::TextMatrix(std::int32_t row, std::int32_t col) const {
    require(col, Cols());
    const std::vector<std::string>& texts = line(row).texts;
    return place(col) < texts.size() ? texts[place(col)] : std::string();
}

void Memory_Grid::setTextMatrix(std::int32_t row, std::int32_t col, const std::string& text) {
    require(col, Cols());
    std::vector<std::string>& texts = line(row).texts;
    if (place(col) >= texts.size()) {
        if (text.empty()) return;
        texts.reserve(columns_.size());
        texts.resize(place(col) + 1);
    }
    texts[place(col)] = text;
}

void Memory_Grid::setCellBackColor(std::int32_t colour) {
    if (!hasCurrent()) return;
    std::uint16_t& entry = currentEntry();
    if (palette_[entry].back != colour) entry = paletteEntry(Colours{colour, palette_[entry].fore});
}

void Memory_Grid::setCellForeColor(std::int32_t colour) {
    if (!hasCurrent()) return;
    std::uint16_t& entry = currentEntry();
    if (palette_[entry].fore != colour) entry = paletteEntry(Colours{palette_[entry].back, colour});
}

Memory_Grid::Colours Memory_Grid::coloursOf(std::int32_t row, std::int32_t col) const {
    require(col, Cols());
    const std::vector<std::uint16_t>& colours = line(row).colours;
    return place(col) < colours.size() ? palette_[colours[place(col)]] : Colours{};
}

Memory_Grid::Colours Memory_Grid::currentColours() const {
    return hasCurrent() ? coloursOf(row_, col_) : Colours{};
}

std::uint16_t& Memory_Grid::currentEntry() {
    std::vector<std::uint16_t>& row = line(row_).colours;
    if (place(col_) >= row.size()) {
        row.reserve(columns_.size());
        row.resize(place(col_) + 1);
    }
    return row[place(col_)];
}

std::uint16_t Memory_Grid::paletteEntry(Colours colours) {
    // The words of a template give a handful of pairs, and neighbours mostly have the same.
    if (palette_[lastUsed_] == colours) return lastUsed_;
    std::size_t entry = 0;
    while (entry < palette_.size() && palette_[entry] != colours)
        ++entry;
    if (entry > std::numeric_limits<std::uint16_t>::max()) throw Run_Time_Failure(Failure::Overflow);
    if (entry == palette_.size()) palette_.push_back(colours);
    lastUsed_ = static_cast<std::uint16_t>(entry);
    return lastUsed_;
}

Memory_Grid::Column& Memory_Grid::column(std::int32_t col) {
    require(col, Cols());
    return columns_[place(col)];
}

const Memory_Grid::Column& Memory_Grid::column(std::int32_t col) const {
    require(col, Cols());
    return columns_[place(col)];
}

Memory_Grid::Line& Memory_Grid::line(std::int32_t row) {
    require(row, Rows());
    return rows_[place(row)];
}

const Memory_Grid::Line& Memory_Grid::line(std::int32_t row) const {
    require(row, Rows());
    return rows_[place(row)];
}

} // namespace zorvane
