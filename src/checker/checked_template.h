// SPDX-License-Identifier: MIT
#pragma once

#include "cells/format/cell_format.h"
#include "template/identity_section.h"
#include "template/model/declara_zorvane.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace zorvane::checker {

/// What stopped the reader on a line.
struct Line_Failure {
    int number = 0;
    std::string description;
};

struct Table_Size {
    std::int32_t rows = 0;
    std::int32_t columns = 0;
};

enum class Line_Kind {
    Empty,
    Comment,
    Header, ///< begins with "["
    Key,    ///< has a "=" after its first character
    Stray   ///< anything else
};

/// A line of the file, and what stood in the document when the reader came to it.
struct Source_Line {
    std::int32_t number = 0; ///< from 1
    std::string_view text;
    Line_Kind kind = Line_Kind::Empty;
    std::string section;            ///< the section in force, upper case, "#" for its number; "" before any
    std::int32_t sectionNumber = 0; ///< 0 for a section without one
    bool sectionKnown = false;

    // Of key lines only.
    std::string_view rawKey; ///< untrimmed
    std::string_view value;  ///< as the reader takes it: trimmed, then cut at the first ";"
    std::string key;         ///< upper case with "#" for its number; as spelt in an unknown section
    std::int32_t keyNumber = 0;
    bool keyKnown = false;

    std::optional<Line_Failure> failure;
    std::optional<Table_Size>
        table;                     ///< of the field that the section or the size line names, before the line
    std::int32_t upperColumns = 0; ///< CONFIGURATION_NC, before the line
    std::int32_t scanBlocks = 0;   ///< before the line

    [[nodiscard]] bool is(std::string_view wantedSection, std::string_view wantedKey) const {
        return keyKnown && section == wantedSection && key == wantedKey;
    }
    [[nodiscard]] bool in(std::string_view wantedSection) const {
        return kind == Line_Kind::Key && section == wantedSection;
    }
    /// The items of the value between commas.
    [[nodiscard]] std::vector<std::string_view> items() const;
};

/// Registers from first to last, both included; not in order if the template says so.
struct Register_Span {
    std::int64_t first = 0;
    std::int64_t last = 0;

    [[nodiscard]] std::int64_t count() const { return last - first + 1; }
    [[nodiscard]] bool holds(const Register_Span& other) const {
        return first <= other.first && other.last <= last;
    }
    [[nodiscard]] bool meets(const Register_Span& other) const {
        return first <= other.last && other.first <= last;
    }
};

/// A cell that some line speaks of, with the lines that made it what it is. A line that didn't reach the cell
/// is null.
struct Checked_Cell {
    std::int32_t field = 0;
    std::int32_t row = 0;
    std::int32_t column = 0;
    const Cell_Rec* cell = nullptr;       ///< as the whole template left it
    const Cell_Rec* definition = nullptr; ///< of its column
    const Source_Line* address = nullptr;
    const Source_Line* format = nullptr;
    const Source_Line* minimum = nullptr;
    const Source_Line* maximum = nullptr;
    const Source_Line* messages = nullptr;
    const Source_Line* value = nullptr;

    /// The line to blame for what has no line of its own.
    [[nodiscard]] const Source_Line& line() const;
    /// "field 1, row 2, column 3"
    [[nodiscard]] std::string place() const;
    /// The cell's item of a line that reached it.
    [[nodiscard]] std::string_view itemOf(const Source_Line& list) const;
    /// What transfers take the format word for.
    [[nodiscard]] Cell_Format formatKind() const;
    /// The registers of a well-formed address; nothing for a cell without one.
    [[nodiscard]] std::optional<Register_Span> registers() const;
};

/// A scan block whose line could be read.
struct Scan_Block {
    std::int32_t index = 0; ///< from 1, in the file's order
    const Source_Line* line = nullptr;
    Register_Span span;
    std::string request;
};

/// A template as the rules see it: its lines, and the document that the real interpreter made of them. Unlike
/// the reader, this reading goes on after a line that fails, so that one mistake doesn't hide the others.
class Checked_Template {
  public:
    Checked_Template(std::string_view fileName, std::string_view text);
    ~Checked_Template() = default;
    Checked_Template(const Checked_Template&) = delete;
    Checked_Template(Checked_Template&&) = delete;
    Checked_Template& operator=(const Checked_Template&) = delete;
    Checked_Template& operator=(Checked_Template&&) = delete;

    [[nodiscard]] const std::string& fileName() const { return fileName_; }
    [[nodiscard]] const std::vector<Source_Line>& lines() const { return lines_; }
    [[nodiscard]] const Declara_Zorvane& document() const { return document_; }
    [[nodiscard]] std::optional<double> imageSize() const { return imageSize_; }
    [[nodiscard]] std::int32_t addressBase() const { return addressBase_; }
    [[nodiscard]] const Identity_Section& identity() const { return identity_; }

    /// The lines of a key, in the file's order; the numbers are 0 where section or key has none.
    [[nodiscard]] std::vector<const Source_Line*> named(std::string_view section, std::int32_t sectionNumber,
                                                        std::string_view key, std::int32_t keyNumber) const;
    /// The lines of a key whatever their numbers.
    [[nodiscard]] std::vector<const Source_Line*> named(std::string_view section, std::string_view key) const;
    /// The first header of a section, or null.
    [[nodiscard]] const Source_Line* header(std::string_view section, std::int32_t sectionNumber = 0) const;
    /// The file's last line. A file without any counts as one empty line.
    [[nodiscard]] const Source_Line& lastLine() const { return lines_.back(); }

    /// The cells of rows and columns from 1 on that some line speaks of, field by field, row by row.
    [[nodiscard]] std::span<const Checked_Cell> cells() const { return cells_; }
    [[nodiscard]] std::span<const Scan_Block> scanBlocks() const { return scanBlocks_; }
    /// Whether a download looks up DOWNLOAD blocks for this controller.
    [[nodiscard]] bool boardFamily() const;

  private:
    using Cell_Place = std::tuple<std::int32_t, std::int32_t, std::int32_t>;
    class Reading;

    const std::string fileName_;
    const std::string text_; ///< the lines are views of it
    std::vector<Source_Line> lines_;
    Declara_Zorvane document_;
    std::optional<double> imageSize_;
    std::int32_t addressBase_ = 0;
    Identity_Section identity_;
    std::vector<Checked_Cell> cells_;
    std::vector<Scan_Block> scanBlocks_;
};

/// The value of a text that is a number as a whole; nothing for any other text, or beyond all bounds.
[[nodiscard]] std::optional<double> numberOf(std::string_view text);

/// A register's number as it should be written: digits and nothing else. Nothing for any other text.
[[nodiscard]] std::optional<std::int64_t> plainNumber(std::string_view text);

/// `first-last`, each well written. Nothing for any other text.
[[nodiscard]] std::optional<Register_Span> plainSpan(std::string_view text);

} // namespace zorvane::checker
