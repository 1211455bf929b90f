// SPDX-License-Identifier: MIT
#include "reports/export/export_rtf.h"

#include "values/rtf_escape.h"

#include <algorithm>
#include <cmath>

namespace zorvane {

namespace {

constexpr double narrowestColumn = 360; ///< twips; less would take its text's place away

std::string number(double value) { return std::to_string(std::lround(value)); }

/// A measure of the paper, in twips. Readers of RTF take none beyond 22 inches, and nothing below 0.
std::string measure(double twips) {
    constexpr double largest = 31680;
    return number(std::clamp(twips, 0.0, largest));
}

/// A list in which each value has one place.
template <class Value> std::size_t placeIn(std::vector<Value>& list, const Value& value) {
    const auto found = std::find(list.begin(), list.end(), value);
    const auto place = static_cast<std::size_t>(found - list.begin());
    if (found == list.end()) list.push_back(value);
    return place;
}

const char* borderWord(int style) { return style == Border_Solid ? "\\brdrs" : "\\brdrdot"; }

class Rtf_Export {
  public:
    explicit Rtf_Export(const Report_Content& content) : content_(content) {}

    std::string text() && {
        forEachPart(
            content_, [this](const Content_Row& row) { addFreeRow(row); },
            [this](std::span<const Content_Row> table) { addTable(table); });
        const std::string pages = header() + footer();
        return "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1\n" + fontTable() + colourTable() + paper() + pages +
               "\\pard\\plain\n" + body_ + "}\n";
    }

  private:
    [[nodiscard]] std::string fontTable() const {
        std::string table = "{\\fonttbl";
        for (std::size_t index = 0; index < fonts_.size(); ++index)
            table +=
                "{\\f" + std::to_string(index) + "\\fswiss\\fcharset0 " + rtfEscaped(fonts_[index]) + ";}";
        return table + "}\n";
    }

    [[nodiscard]] std::string colourTable() const {
        std::string table = "{\\colortbl;";
        for (const Packed_Colour colour : colours_)
            table += "\\red" + std::to_string(colour & 0xFFU) + "\\green" +
                     std::to_string(colour >> 8 & 0xFFU) + "\\blue" + std::to_string(colour >> 16 & 0xFFU) +
                     ";";
        return table + "}\n";
    }

    [[nodiscard]] std::string paper() const {
        const Page_Settings& sheet = content_.paper;
        return "\\paperw" + measure(sheet.PaperWidth) + "\\paperh" + measure(sheet.PaperHeight) + "\\margl" +
               measure(sheet.LeftMargin) + "\\margr" + measure(sheet.RightMargin) + "\\margt" +
               measure(sheet.TopMargin) + "\\margb" + measure(sheet.BottomMargin) +
               (sheet.PaperWidth > sheet.PaperHeight ? "\\landscape" : "") + "\n";
    }

    [[nodiscard]] std::string rightEdge() const {
        const Page_Settings& sheet = content_.paper;
        return "\\tqr\\tx" + measure(sheet.PaperWidth - sheet.LeftMargin - sheet.RightMargin);
    }

    [[nodiscard]] std::string header() const {
        return "{\\header\\pard\\plain" + rightEdge() + "\\brdrb\\brdrs\\f0\\fs17 " +
               rtfEscaped(content_.title) +
               "\\tab Page:  \\chpgn  / {\\field{\\*\\fldinst {\\f0\\fs17 NUMPAGES}}{\\fldrslt {\\f0\\fs17 "
               "1}}}\\par}\n";
    }

    [[nodiscard]] std::string footer() const {
        return "{\\footer\\pard\\plain" + rightEdge() + "\\brdrt\\brdrs\\f0\\fs17 " +
               rtfEscaped(content_.route) + "\\tab " + rtfEscaped(content_.date) + "\\par}\n";
    }

    /// The look of a text and the text, in a group of its own.
    std::string run(const Content_Cell& cell) {
        const Text_Style& style = content_.styles[cell.style];
        std::string words =
            "\\f" + std::to_string(placeIn(fonts_, style.Font.Name)) + "\\fs" + number(style.Font.Size * 2);
        if (style.Font.Bold) words += "\\b";
        if (style.ForeColor != 0) words += "\\cf" + colour(style.ForeColor);
        return "{" + words + " " + rtfEscaped(cell.text) + "}";
    }

    /// The number of a colour; 0 is the reader's own.
    std::string colour(Packed_Colour packed) { return std::to_string(placeIn(colours_, packed) + 1); }

    void addFreeRow(const Content_Row& row) {
        body_ += "\\pard ";
        std::string between;
        for (const Content_Cell& cell : row.cells) {
            const Text_Style& style = content_.styles[cell.style];
            const bool label = style.BackStyle == Back_Opaque;
            body_ += between;
            body_ += label ? "{\\chcbpat" + colour(style.BackColor) + " " + run(cell) + "}" : run(cell);
            between = " ";
        }
        body_ += "\\par\n";
    }

    void addTable(std::span<const Content_Row> table) {
        body_ += "\\pard\\par\n";
        for (const Content_Row& row : table)
            addTableRow(row);
        body_ += "\\pard\n";
    }

    void addTableRow(const Content_Row& row) {
        body_ += "\\trowd\\trgaph60\\trkeep";
        if (row.kind == Content_Kind::Heading) body_ += "\\trhdr";
        double right = 0;
        for (const Content_Cell& cell : row.cells) {
            right += std::max(cell.width, narrowestColumn);
            addCellFrame(content_.styles[cell.style], right);
        }
        body_ += "\n";
        for (const Content_Cell& cell : row.cells)
            body_ += "\\pard\\intbl" + alignment(content_.styles[cell.style]) + run(cell) + "\\cell\n";
        body_ += "\\row\n";
    }

    void addCellFrame(const Text_Style& style, double right) {
        addSide("\\clbrdrt", style.Border.TopStyle, style.Border.TopColor);
        addSide("\\clbrdrl", style.Border.LeftStyle, style.Border.LeftColor);
        addSide("\\clbrdrb", style.Border.BottomStyle, style.Border.BottomColor);
        addSide("\\clbrdrr", style.Border.RightStyle, style.Border.RightColor);
        if (style.BackStyle == Back_Opaque) body_ += "\\clcbpat" + colour(style.BackColor);
        body_ += "\\cellx" + number(right);
    }

    void addSide(const char* side, int style, Packed_Colour packed) {
        if (style == Border_None) return;
        body_ += std::string(side) + borderWord(style) + "\\brdrw10\\brdrcf" + colour(packed);
    }

    static std::string alignment(const Text_Style& style) {
        if (style.Alignment == Align_Right) return "\\qr ";
        if (style.Alignment == Align_Center) return "\\qc ";
        return "\\ql ";
    }

    const Report_Content& content_;
    std::vector<std::string> fonts_{reportFont};
    std::vector<Packed_Colour> colours_;
    std::string body_;
};

} // namespace

std::string exportRtf(const Report_Content& content) { return Rtf_Export(content).text(); }

} // namespace zorvane
