// SPDX-License-Identifier: MIT
#include "checker/checked_template.h"

#include "cells/format/cell_paths.h"
#include "template/board_family.h"
#include "template/line_scanner.h"
#include "template/pro_interpreta_linea.h"
#include "template/sections/comma_list.h"
#include "template/template_words.h"
#include "values/code_page.h"
#include "values/numbers.h"
#include "values/registers.h"

#include <charconv>
#include <cmath>
#include <map>
#include <utility>

namespace zorvane::checker {

namespace {

/// Keeps what rules want to know of what a template tells the link.
class Kept_Notices : public Link_Notice {
  public:
    Kept_Notices(std::optional<double>& imageSize, std::int32_t& addressBase)
        : imageSize_(imageSize), addressBase_(addressBase) {}
    void SetTimings(std::int32_t, std::int32_t) override {}
    void SetHoldingRegisters(std::int16_t, double count, bool, std::int16_t) override { imageSize_ = count; }
    void SetAddressBase(std::int32_t base) override { addressBase_ = base; }

  private:
    std::optional<double>& imageSize_;
    std::int32_t& addressBase_;
};

Line_Kind kindOf(std::string_view text) {
    if (trimBlanks(text).empty()) return Line_Kind::Empty;
    if (text.front() == ';') return Line_Kind::Comment;
    if (text.front() == '[') return Line_Kind::Header;
    const std::size_t equals = text.find('=');
    return equals == std::string_view::npos || equals == 0 ? Line_Kind::Stray : Line_Kind::Key;
}

bool hasNumber(std::string_view name) { return name.find('#') != std::string_view::npos; }

bool knows(std::string_view section, std::string_view key) {
    for (const std::string_view known : templateKeys(section))
        if (known == key) return true;
    return false;
}

/// The field whose table a line speaks of.
std::int32_t fieldOf(const Source_Line& line) {
    return line.section == "CONFIGURATION_FIELDS" ? line.keyNumber : line.sectionNumber;
}

using Line_Of_Cell = const Source_Line* Checked_Cell::*;

/// Which of a cell's lines a key of [FIELD_#_CONFIGURATION] or [FIELD_#_DEFAULT] is.
Line_Of_Cell memberOf(const Source_Line& line) {
    if (line.is("FIELD_#_DEFAULT", "ROW_#")) return &Checked_Cell::value;
    if (!line.keyKnown || line.section != "FIELD_#_CONFIGURATION") return nullptr;
    if (line.key == "ROWADDRESS_#" || line.key == "ROWASCIIRANGE_#") return &Checked_Cell::address;
    if (line.key == "ROWADDRESSFORMAT_#") return &Checked_Cell::format;
    return line.key.find("MINVALUE") != std::string::npos ? &Checked_Cell::minimum : &Checked_Cell::maximum;
}

} // namespace

std::vector<std::string_view> Source_Line::items() const {
    std::vector<std::string_view> list;
    forEachItem(value, [&](std::int32_t, std::string_view item) {
        list.push_back(item);
        return true;
    });
    return list;
}

const Source_Line& Checked_Cell::line() const {
    for (const Source_Line* each : {address, value, format, minimum})
        if (each != nullptr) return *each;
    return *maximum;
}

std::string Checked_Cell::place() const {
    return "field " + numberText(field) + ", row " + numberText(row) + ", column " + numberText(column);
}

std::string_view Checked_Cell::itemOf(const Source_Line& list) const {
    const auto items = list.items();
    const auto index = static_cast<std::size_t>(column) - 1;
    return index < items.size() ? items[index] : std::string_view{};
}

Cell_Format Checked_Cell::formatKind() const { return cellFormat(cell->Format, paths::transfer.words); }

std::optional<Register_Span> Checked_Cell::registers() const {
    const auto half = halfAddress(cell->Address);
    const auto first = plainNumber(half ? half->number : std::string_view(cell->Address));
    if (!first) return std::nullopt;
    if (half || !cell->Is_Ascii_Range) return Register_Span{*first, *first};
    const auto last = plainNumber(cell->Address_End);
    return last ? std::optional(Register_Span{*first, *last}) : std::nullopt;
}

/// Reads the lines one after the other into a template under construction.
class Checked_Template::Reading {
  public:
    explicit Reading(Checked_Template& target)
        : target_(target), link_(target.imageSize_, target.addressBase_) {
        PRO_Limpia_Modelo(target_.document_);
        PRO_Prepara_Lectura(target_.document_);
    }

    void run() {
        cutLines();
        for (Source_Line& line : target_.lines_)
            read(line);
        finishCells();
        finishScanBlocks();
    }

  private:
    void cutLines() {
        std::string_view rest = target_.text_;
        while (const auto text = takeLine(rest)) {
            Source_Line line;
            line.number = static_cast<std::int32_t>(target_.lines_.size()) + 1;
            line.text = *text;
            line.kind = kindOf(*text);
            target_.lines_.push_back(std::move(line));
        }
        if (target_.lines_.empty()) target_.lines_.emplace_back().number = 1;
    }

    /// Runs a step of the reading and keeps its failure with the line.
    template <class Step> void attempt(Source_Line& line, Step&& step) {
        try {
            std::forward<Step>(step)();
        } catch (const Run_Time_Failure& failure) {
            line.failure = Line_Failure{failure.number(), failure.description()};
        }
    }

    void read(Source_Line& line) {
        std::optional<Key_And_Value> entry;
        attempt(line, [&] { entry = scanner_.scan(line.text); });
        // The lines after a header that can't be read belong to no section.
        if (line.failure) scanner_ = {};
        line.section = upperCase(scanner_.section());
        line.sectionNumber = hasNumber(line.section) ? scanner_.sectionNumber() : 0;
        line.sectionKnown = isTemplateSection(line.section);
        if (!entry) return;
        line.rawKey = entry->key;
        line.value = entry->value;
        attempt(line, [&] { takeKey(line); });
        takeState(line);
        interpret(line);
        if (line.is("CONFIGURATION_FIELDS", "FIELD_#_RC")) forgetCells(line.keyNumber);
        noteCells(line);
        if (line.section != "FIELD_#_MESSAGES") sortedField_.reset(); // any other line may change the cells
        if (line.is("FIELD_#_MESSAGES", "ADDRESS_#")) noteMessages(line);
    }

    static void takeKey(Source_Line& line) {
        line.key = line.rawKey;
        const auto key = templateKey(line.section, line.rawKey);
        if (!key) return;
        line.key = key->key;
        line.keyNumber = key->number;
        line.keyKnown = knows(line.section, line.key);
    }

    void takeState(Source_Line& line) const {
        const Declara_Zorvane& document = target_.document_;
        line.upperColumns = document.Config_Columns.upperBound();
        line.scanBlocks = document.Holding_Block_Count;
        const std::int32_t number = fieldOf(line);
        if (number < 0 || number > highestField) return;
        const Field_Rec& field = document.Fields(number);
        if (field.Cells.dimensioned()) line.table = Table_Size{field.Cells.rows(), field.Cells.columns()};
    }

    void interpret(Source_Line& line) {
        attempt(line, [&] {
            bool ok = true;
            std::int32_t number = line.sectionNumber;
            PRO_Interpreta_Linea(target_.document_, link_, line.section, line.rawKey, line.value, number, ok);
        });
    }

    void forgetCells(std::int32_t field) {
        places_.erase(places_.lower_bound({field, 0, 0}), places_.lower_bound({field + 1, 0, 0}));
    }

    void noteCells(const Source_Line& line) {
        const Line_Of_Cell member = memberOf(line);
        if (member == nullptr || !line.table || line.keyNumber < 1 || line.keyNumber > line.table->rows)
            return;
        forEachItem(line.value, [&](std::int32_t column, std::string_view) {
            if (column > line.table->columns) return false;
            Checked_Cell& cell = places_[{line.sectionNumber, line.keyNumber, column}];
            cell.*member = &line;
            return true;
        });
    }

    /// A list is of the cells that have its register by then. Its page's cells are sorted once for all lists
    /// that follow each other: a page has as many as it has rows.
    void noteMessages(const Source_Line& line) {
        if (sortedField_ != line.sectionNumber) sortByRegister(line.sectionNumber);
        const auto [begin, end] = byRegister_.equal_range(line.keyNumber);
        for (auto it = begin; it != end; ++it)
            if (it->second->messages == nullptr) it->second->messages = &line;
    }

    void sortByRegister(std::int32_t number) {
        byRegister_.clear();
        const auto end = places_.lower_bound({number + 1, 0, 0});
        for (auto it = places_.lower_bound({number, 0, 0}); it != end; ++it) {
            const auto& [field, row, column] = it->first;
            const Cell_Rec& cell = std::as_const(target_.document_.Fields(field).Cells)(row, column);
            if (const auto known = registerOfAddress(cell.Address)) byRegister_.emplace(*known, &it->second);
        }
        sortedField_ = number;
    }

    void finishCells() {
        const Declara_Zorvane& document = target_.document_;
        for (auto& [place, cell] : places_) {
            std::tie(cell.field, cell.row, cell.column) = place;
            const Cell_Table& table = document.Fields(cell.field).Cells;
            if (cell.row > table.rows() || cell.column > table.columns()) continue;
            cell.cell = &table(cell.row, cell.column);
            cell.definition = &table(0, cell.column);
            target_.cells_.push_back(cell);
        }
    }

    void finishScanBlocks() {
        const auto lines = target_.named("PORT_CONFIGURATION", "HOLDINGREGISTERSBLOCK_#");
        std::int32_t index = 0;
        for (const Source_Line* line : lines) {
            ++index;
            const auto span = plainSpan(line->value);
            if (!span || span->first > span->last || index > target_.document_.Holding_Block_Count) continue;
            target_.scanBlocks_.push_back(
                {index, line, *span, target_.document_.Holding_Blocks(index).Request});
        }
    }

    Checked_Template& target_;
    Kept_Notices link_;
    Line_Scanner scanner_;
    std::map<Cell_Place, Checked_Cell> places_;
    std::optional<std::int32_t> sortedField_; ///< the page of which byRegister_ holds the cells
    std::multimap<std::int32_t, Checked_Cell*> byRegister_;
};

Checked_Template::Checked_Template(std::string_view fileName, std::string_view text)
    : fileName_(fileName), text_(text), identity_(readIdentity(text)) {
    Reading(*this).run();
}

std::vector<const Source_Line*> Checked_Template::named(std::string_view section, std::int32_t sectionNumber,
                                                        std::string_view key, std::int32_t keyNumber) const {
    std::vector<const Source_Line*> found;
    for (const Source_Line* line : named(section, key))
        if (line->sectionNumber == sectionNumber && line->keyNumber == keyNumber) found.push_back(line);
    return found;
}

std::vector<const Source_Line*> Checked_Template::named(std::string_view section,
                                                        std::string_view key) const {
    std::vector<const Source_Line*> found;
    for (const Source_Line& line : lines_)
        if (line.is(section, key)) found.push_back(&line);
    return found;
}

const Source_Line* Checked_Template::header(std::string_view section, std::int32_t sectionNumber) const {
    for (const Source_Line& line : lines_)
        if (line.kind == Line_Kind::Header && line.section == section && line.sectionNumber == sectionNumber)
            return &line;
    return nullptr;
}

bool Checked_Template::boardFamily() const { return isBoardFamily(document_.Controller_Model); }

std::optional<double> numberOf(std::string_view text) {
    if (!isNumeric(text)) return std::nullopt;
    const double value = Val(text);
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<std::int64_t> plainNumber(std::string_view text) {
    std::int32_t number = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc{} || stop != end || number < 0) return std::nullopt;
    if (text.size() > 1 && text.front() == '0') return std::nullopt;
    return number;
}

std::optional<Register_Span> plainSpan(std::string_view text) {
    const std::size_t dash = text.find('-');
    if (dash == std::string_view::npos) return std::nullopt;
    const auto first = plainNumber(text.substr(0, dash));
    const auto last = plainNumber(text.substr(dash + 1));
    return first && last ? std::optional(Register_Span{*first, *last}) : std::nullopt;
}

} // namespace zorvane::checker
