// SPDX-License-Identifier: MIT
#include "reports/export/xls/export_xls.h"

#include "reports/bands/paper_kinds.h"
#include "reports/export/xls/biff_records.h"
#include "reports/export/xls/biff_styles.h"
#include "reports/export/xls/sheet_number.h"
#include "values/twips.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

namespace zorvane {

namespace {

constexpr std::size_t sheetRows = 65536;
constexpr std::size_t sheetColumns = 256;
constexpr std::size_t longestText = 32767;
constexpr double twipsOfCharacter = 105; ///< a digit of the default font, by which columns are measured
constexpr double widestColumn = 255;     ///< in characters

/// The number of a page's paper; that of Letter for one without a number.
std::uint32_t paperNumber(const Page_Settings& page) {
    return paperKinds.at(paperKindOf(page).value_or(0)).workbookNumber;
}

/// A part of the report that has room on one sheet.
struct Sheet_Room {
    std::size_t firstRow;
    std::size_t firstColumn;
    std::size_t rows;
    std::size_t columns;
};

/// Bytes of both kinds of streams begin alike.
Biff_Bytes beginOfStream(std::uint32_t kind) {
    constexpr std::uint32_t biff8 = 0x0600;
    return Biff_Bytes().u16(biff8).u16(kind).u16(0x0DBB).u16(0x07CC).u32(0x41).u32(0x06);
}

/// In page headers and footers, & begins a code. All of a header has room for 255 characters, so a text that
/// may double has a quarter of it.
std::string pageText(const std::string& text) {
    constexpr std::size_t room = 60;
    std::string doubled;
    for (const char character : text.substr(0, room))
        doubled += character == '&' ? std::string("&&") : std::string(1, character);
    return doubled;
}

class Workbook {
  public:
    explicit Workbook(const Report_Content& content) : content_(content) {}

    std::string bytes() && {
        const std::vector<Sheet_Room> rooms = sheets();
        std::vector<std::string> cells;
        cells.reserve(rooms.size());
        for (const Sheet_Room& room : rooms)
            cells.push_back(cellsOf(room)); // first: they settle texts and looks
        const std::size_t firstPlace = writeGlobals(rooms.size());
        std::size_t place = firstPlace;
        for (std::size_t index = 0; index < rooms.size(); ++index) {
            stream_.patch(place, static_cast<std::uint32_t>(stream_.size()));
            place += boundSheet(index).size() + 4;
            writeSheet(rooms[index], cells[index], index == 0);
        }
        return stream_.take();
    }

  private:
    [[nodiscard]] std::vector<Sheet_Room> sheets() const {
        std::vector<Sheet_Room> rooms;
        for (std::size_t row = 0; row == 0 || row < content_.rows.size(); row += sheetRows) {
            const std::size_t rows = std::min(sheetRows, content_.rows.size() - row);
            std::size_t widest = 0;
            for (std::size_t index = row; index < row + rows; ++index)
                widest = std::max(widest, content_.rows[index].cells.size());
            for (std::size_t column = 0; column == 0 || column < widest; column += sheetColumns)
                rooms.push_back({row, column, rows, std::min(sheetColumns, widest - column)});
        }
        return rooms;
    }

    std::string cellsOf(const Sheet_Room& room) {
        Biff_Stream cells;
        for (std::size_t row = 0; row < room.rows; ++row) {
            const Content_Row& source = content_.rows[room.firstRow + row];
            const std::size_t end = std::min(source.cells.size(), room.firstColumn + room.columns);
            for (std::size_t column = room.firstColumn; column < end; ++column) {
                Biff_Bytes place;
                place.u16(static_cast<std::uint32_t>(row));
                place.u16(static_cast<std::uint32_t>(column - room.firstColumn));
                writeCell(cells, place, source.cells[column], source.kind);
            }
        }
        return cells.take();
    }

    void writeCell(Biff_Stream& cells, Biff_Bytes place, const Content_Cell& cell, Content_Kind kind) {
        const Text_Style& style = content_.styles[cell.style];
        const auto number = kind == Content_Kind::Row ? sheetNumber(cell.text) : std::nullopt;
        place.u16(styles_.cellFormat(style, number ? number->format : ""));
        if (number)
            cells.record(Biff::Number, place.real(number->value));
        else if (cell.text.empty())
            cells.record(Biff::Blank, place);
        else
            cells.record(Biff::LabelSst, place.u32(textNumber(cell.text.substr(0, longestText))));
    }

    std::uint32_t textNumber(const std::string& text) {
        ++textUses_;
        const auto [entry, added] = textNumbers_.try_emplace(text, static_cast<std::uint32_t>(texts_.size()));
        if (added) texts_.push_back(text);
        return entry->second;
    }

    [[nodiscard]] static std::string boundSheet(std::size_t index) {
        const std::string name = index == 0 ? "Report" : "Report " + std::to_string(index + 1);
        return Biff_Bytes().u32(0).u8(0).u8(0).shortText(name).bytes();
    }

    /// Gives the place at which the first sheet's place is to be written.
    std::size_t writeGlobals(std::size_t sheetCount) {
        constexpr std::uint32_t globals = 0x0005;
        constexpr std::uint32_t utf16 = 0x04B0;
        stream_.record(Biff::Bof, beginOfStream(globals));
        stream_.record(Biff::CodePage, Biff_Bytes().u16(utf16));
        Biff_Bytes window;
        window.u16(0).u16(0).u16(16000).u16(9000).u16(0x38).u16(0).u16(0).u16(1).u16(600);
        stream_.record(Biff::Window1, window);
        styles_.write(stream_);
        const std::size_t place = stream_.size() + 4;
        for (std::size_t index = 0; index < sheetCount; ++index)
            stream_.record(Biff::BoundSheet, boundSheet(index));
        stream_.textTable(texts_, textUses_);
        stream_.record(Biff::Eof, "");
        return place;
    }

    void writeSheet(const Sheet_Room& room, const std::string& cells, bool selected) {
        constexpr std::uint32_t worksheet = 0x0010;
        constexpr std::uint32_t automatic = 1;
        stream_.record(Biff::Bof, beginOfStream(worksheet));
        // A sheet may begin with its page header, but then LibreOffice passes over it.
        stream_.record(Biff::CalcMode, Biff_Bytes().u16(automatic));
        writePage();
        writeColumns(room);
        Biff_Bytes dimensions;
        dimensions.u32(0).u32(static_cast<std::uint32_t>(room.rows)).u16(0);
        dimensions.u16(static_cast<std::uint32_t>(room.columns)).u16(0);
        stream_.record(Biff::Dimensions, dimensions);
        stream_.append(cells);
        constexpr std::uint32_t shown = 0x00B6;
        constexpr std::uint32_t selectedAndActive = 0x0600;
        Biff_Bytes window;
        window.u16(shown | (selected ? selectedAndActive : 0)).u16(0).u16(0).u32(0x40).u16(0).u16(0).u32(0);
        stream_.record(Biff::Window2, window);
        stream_.record(Biff::Eof, "");
    }

    void writePage() {
        const std::string header = "&L" + pageText(content_.title) + "&RPage:  &P / &N";
        const std::string footer = "&L" + pageText(content_.route) + "&R" + pageText(content_.date);
        stream_.record(Biff::Header, Biff_Bytes().longText(header));
        stream_.record(Biff::Footer, Biff_Bytes().longText(footer));
        const Page_Settings& paper = content_.paper;
        stream_.record(Biff::LeftMargin, Biff_Bytes().real(paper.LeftMargin / twipsPerInch));
        stream_.record(Biff::RightMargin, Biff_Bytes().real(paper.RightMargin / twipsPerInch));
        stream_.record(Biff::TopMargin, Biff_Bytes().real(paper.TopMargin / twipsPerInch));
        stream_.record(Biff::BottomMargin, Biff_Bytes().real(paper.BottomMargin / twipsPerInch));
        const std::uint32_t portrait = paper.PaperWidth > paper.PaperHeight ? 0 : 2;
        Biff_Bytes setup;
        setup.u16(paperNumber(paper)).u16(100).u16(1).u16(1).u16(1).u16(portrait).u16(600).u16(600);
        setup.real(0.5).real(0.5).u16(1);
        stream_.record(Biff::Setup, setup);
    }

    /// As wide as the widest text, so that all of it is seen.
    void writeColumns(const Sheet_Room& room) {
        std::vector<double> widths(room.columns);
        for (std::size_t row = room.firstRow; row < room.firstRow + room.rows; ++row) {
            const Content_Row& source = content_.rows[row];
            if (source.kind == Content_Kind::Line || source.kind == Content_Kind::Text) continue;
            const std::size_t end = std::min(source.cells.size(), room.firstColumn + room.columns);
            for (std::size_t column = room.firstColumn; column < end; ++column) {
                const Content_Cell& cell = source.cells[column];
                double& width = widths[column - room.firstColumn];
                width = std::max(
                    {width, cell.width / twipsOfCharacter, static_cast<double>(cell.text.size()) + 2});
            }
        }
        for (std::uint32_t column = 0; column < widths.size(); ++column) {
            if (widths[column] <= 0) continue;
            const double units = std::min(widths[column], widestColumn) * 256;
            Biff_Bytes data;
            data.u16(column).u16(column).u16(static_cast<std::uint32_t>(std::lround(units)));
            stream_.record(Biff::ColInfo, data.u16(15).u16(0).u16(0));
        }
    }

    const Report_Content& content_;
    Biff_Stream stream_;
    Biff_Styles styles_;
    std::vector<std::string> texts_;
    std::unordered_map<std::string, std::uint32_t> textNumbers_;
    std::uint32_t textUses_ = 0;
};

} // namespace

std::string biffWorkbook(const Report_Content& content) { return Workbook(content).bytes(); }

} // namespace zorvane
