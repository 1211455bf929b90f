// SPDX-License-Identifier: MIT
#include "reports/bands/page_layout.h"

#include "values/numbers.h"

#include <algorithm>
#include <utility>

namespace zorvane {

namespace {

/// Puts bands on a sheet.
class Sheet_Painter {
  public:
    Sheet_Painter(const Style_Table& styles, double left) : styles_(styles), left_(left) {}

    void put(Page& page, double top, Printed_Band band) const {
        for (Printed_Text& text : band.texts)
            putText(page, top, std::move(text));
        for (const Printed_Line& line : band.lines)
            page.items.emplace_back(
                Line_Item{left_ + line.x1, top + line.y1, left_ + line.x2, top + line.y2, 0, Border_Solid});
    }

  private:
    void putText(Page& page, double top, Printed_Text text) const {
        const Text_Style& style = styles_[text.style];
        const double left = left_ + text.left;
        const double upper = top + text.top;
        // What has no width is hidden, but for its sides: the last one of them closes the table.
        if (text.width == 0)
            return putBorder(page, withoutEnds(style.Border), {left, upper, left, upper + text.height});
        if (style.BackStyle == Back_Opaque)
            page.items.emplace_back(Box_Item{left, upper, text.width, text.height, style.BackColor});
        if (!text.text.empty())
            page.items.emplace_back(
                Text_Item{left, upper, text.width, text.height, text.style, std::move(text.text)});
        putBorder(page, style.Border, {left, upper, left + text.width, upper + text.height});
    }

    static Report_Border withoutEnds(Report_Border border) {
        border.TopStyle = border.BottomStyle = Border_None;
        return border;
    }

    static void putBorder(Page& page, const Report_Border& border, const Line_Item& corners) {
        const auto& [x1, y1, x2, y2, colour, style] = corners;
        const auto side = [&page](const Line_Item& line) {
            if (line.style != Border_None) page.items.emplace_back(line);
        };
        side({x1, y1, x1, y2, border.LeftColor, border.LeftStyle});
        side({x2, y1, x2, y2, border.RightColor, border.RightStyle});
        side({x1, y1, x2, y1, border.TopColor, border.TopStyle});
        side({x1, y2, x2, y2, border.BottomColor, border.BottomStyle});
    }

    const Style_Table& styles_;
    double left_;
};

/// Where on the paper the bands between header and footer may stand.
struct Body {
    double top;
    double bottom;
};

/// Fills page after page with bands.
class Page_Filler {
  public:
    Page_Filler(Page_Document& document, const Sheet_Painter& painter, Body body)
        : document_(document), painter_(painter), body_(body) {}

    /// `together` is the height of what must stand on one page, beginning with the band.
    void add(Printed_Band band, double together) {
        const bool fits = !document_.pages.empty() && y_ + together <= body_.bottom;
        if (band.role == Band_Role::Foot && band.texts.empty() && band.lines.empty() && !fits) {
            full_ = true;
            return;
        }
        if (document_.pages.empty() || full_ || (!fits && y_ > body_.top)) begin(band);
        if (band.contentsTitle)
            document_.contents.push_back(
                {*band.contentsTitle, static_cast<std::int32_t>(document_.pages.size())});
        put(std::move(band));
    }

  private:
    void begin(const Printed_Band& first) {
        document_.pages.emplace_back();
        y_ = body_.top;
        full_ = false;
        if (first.again) put(*first.again);
    }
    void put(Printed_Band band) {
        const double height = band.height;
        painter_.put(document_.pages.back(), y_, std::move(band));
        y_ += height;
    }

    Page_Document& document_;
    const Sheet_Painter& painter_;
    Body body_;
    double y_ = 0;
    bool full_ = false; ///< a foot took the rest of the page
};

double heightTogether(const std::vector<Printed_Band>& bands, std::size_t index) {
    double height = bands[index].height;
    while (bands[index].role == Band_Role::Head && index + 1 < bands.size()) {
        ++index;
        if (bands[index].role == Band_Role::Foot) break;
        height += bands[index].height;
    }
    return height;
}

Printed_Band withTotal(Printed_Band band, std::size_t total) {
    for (Printed_Text& text : band.texts)
        if (text.totalPages) text.text = numberText(static_cast<std::int32_t>(total));
    return band;
}

} // namespace

Page_Document layoutPages(Printed_Report report, const Page_Settings& paper, const Page_Band& header,
                          const Page_Band& footer, const Keeps_On& keepsOn) {
    Page_Document document{paper.PaperWidth, paper.PaperHeight, std::move(report.styles), {}, {}};
    const Sheet_Painter painter(document.styles, paper.LeftMargin);
    const double footerTop = paper.PaperHeight - paper.BottomMargin - footer.height;
    Page_Filler filler(document, painter, {paper.TopMargin + header.height, footerTop});
    for (std::size_t index = 0; index < report.bands.size(); ++index) {
        if (keepsOn && !keepsOn()) break;
        const double together = heightTogether(report.bands, index);
        filler.add(std::move(report.bands[index]), together);
    }
    const std::size_t total = document.pages.size();
    for (std::size_t index = 0; index < total; ++index) {
        const auto number = static_cast<std::int32_t>(index + 1);
        painter.put(document.pages[index], paper.TopMargin,
                    withTotal(header.print(number, document.styles), total));
        painter.put(document.pages[index], footerTop,
                    withTotal(footer.print(number, document.styles), total));
    }
    return document;
}

} // namespace zorvane
