// SPDX-License-Identifier: MIT
// Random bands on a random sheet of paper: every text comes once and in its order, each page has a band, and
// what has room between header and footer stands there. And any text in lines of any width: no character is
// lost.

#include "fuzz/require.h"
#include "reports/bands/line_wrap.h"
#include "reports/bands/page_layout.h"
#include "reports/bands/report_content.h"
#include "reports/testing/even_metrics.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace {

using namespace zorvane;
using fuzz::require;

constexpr double headerHeight = 600;
constexpr double footerHeight = 400;

Printed_Text textAt(double left, double top, double height, std::string text, std::size_t style) {
    return {left, top, 500, height, style, std::move(text), false};
}

/// The texts of bands are numbered, so that each occurs once: "1.0", "1.1", "2.0". Headings are "again".
class Random_Report {
  public:
    explicit Random_Report(FuzzedDataProvider& bytes) : bytes_(bytes) {
        style_ = report.styles.indexOf(Text_Style());
        while (bytes_.remaining_bytes() > 0 && report.bands.size() < 500)
            report.bands.push_back(band());
    }

    Printed_Report report;
    std::vector<std::string> texts;

  private:
    Printed_Band band() {
        Printed_Band band;
        band.role =
            bytes_.PickValueInArray({Band_Role::Head, Band_Role::Row, Band_Role::Foot, Band_Role::Text});
        band.height = bytes_.ConsumeIntegralInRange(0, 20000);
        const int count = bytes_.ConsumeIntegralInRange(0, 3);
        for (int index = 0; index < count; ++index) {
            texts.push_back(std::to_string(report.bands.size()) + "." + std::to_string(index));
            band.texts.push_back(textAt(600.0 * index, 0, band.height, texts.back(), style_));
        }
        if (band.role == Band_Role::Head) remember(band);
        if (band.role == Band_Role::Row && bytes_.ConsumeBool()) band.again = again_;
        if (bytes_.ConsumeBool()) band.contentsTitle = "band " + std::to_string(report.bands.size());
        return band;
    }

    void remember(Printed_Band& band) {
        if (bytes_.ConsumeBool()) band.repeatFrom = 0;
        Printed_Band heading;
        heading.height = bytes_.ConsumeIntegralInRange(0, 3000);
        heading.texts.push_back(textAt(0, 0, heading.height, "again", style_));
        again_ = std::make_shared<const Printed_Band>(std::move(heading));
    }

    FuzzedDataProvider& bytes_;
    std::size_t style_ = 0;
    std::shared_ptr<const Printed_Band> again_;
};

Page_Settings randomPaper(FuzzedDataProvider& bytes) {
    Page_Settings paper;
    for (double Page_Settings::*margin : {&Page_Settings::LeftMargin, &Page_Settings::TopMargin,
                                          &Page_Settings::RightMargin, &Page_Settings::BottomMargin})
        if (bytes.ConsumeBool()) paper.*margin = bytes.ConsumeIntegralInRange(-2000, 20000);
    if (bytes.ConsumeBool()) paper.TopMargin = bytes.ConsumeFloatingPointInRange(-1e300, 1e300);
    if (bytes.ConsumeBool()) paper.PaperHeight = bytes.ConsumeIntegralInRange(1, 50000);
    return paper;
}

Page_Band pageBand(double height, const std::string& name) {
    return {height, [height, name](std::int32_t page, Style_Table& styles) {
                Printed_Band band;
                band.height = height;
                const std::size_t style = styles.indexOf(Text_Style());
                band.texts.push_back(textAt(0, 0, height, name + std::to_string(page), style));
                band.texts.push_back({0, 0, 500, height, style, {}, true});
                return band;
            }};
}

/// The texts of a page's bands, without what every page has.
std::vector<std::string> checkPage(const Page_Document& document, std::size_t index, double footerTop) {
    std::vector<std::string> texts;
    const std::string total = std::to_string(document.pages.size());
    std::vector<const Text_Item*> items;
    for (const Page_Item& item : document.pages[index].items)
        if (const auto* text = std::get_if<Text_Item>(&item)) items.push_back(text);
    require(items.size() >= 4, "a page has a header and a footer");
    const auto bodyEnd = items.size() - 4; // they come last: name and total of both
    require(items[bodyEnd]->text == "header" + std::to_string(index + 1) && items[bodyEnd + 1]->text == total,
            "the header knows its page and their number");
    require(items[bodyEnd + 2]->text == "footer" + std::to_string(index + 1) &&
                items[bodyEnd + 3]->text == total,
            "the footer knows its page and their number");
    const double first = bodyEnd > 0 ? items[0]->top : 0;
    for (std::size_t item = 0; item < bodyEnd; ++item) {
        const Text_Item& text = *items[item];
        const bool begins = text.top <= first || items[0]->text == "again";
        require(begins || text.top + text.height <= footerTop + 1e-6 * std::abs(footerTop) + 1,
                "what has no room goes to the next page");
        if (text.text != "again") texts.push_back(text.text);
    }
    return texts;
}

void checkLayout(FuzzedDataProvider& bytes) {
    const Page_Settings paper = randomPaper(bytes);
    const Random_Report made(bytes);
    const Page_Document document =
        layoutPages(made.report, paper, pageBand(headerHeight, "header"), pageBand(footerHeight, "footer"));
    require(document.pages.size() <= made.report.bands.size(), "each page has a band");
    require(document.pages.empty() == made.report.bands.empty() || made.texts.empty(), "bands make pages");
    const double footerTop = paper.PaperHeight - paper.BottomMargin - footerHeight;
    std::vector<std::string> found;
    for (std::size_t page = 0; page < document.pages.size(); ++page) {
        const std::vector<std::string> texts = checkPage(document, page, footerTop);
        found.insert(found.end(), texts.begin(), texts.end());
    }
    require(found == made.texts, "every text comes once and in its order");
    std::int32_t last = 1;
    for (const Contents_Entry& entry : document.contents) {
        require(entry.page >= last && entry.page <= static_cast<std::int32_t>(document.pages.size()),
                "the contents go from page to page");
        last = entry.page;
    }
}

/// The same bands for the formats without pages.
void checkContent(FuzzedDataProvider& bytes) {
    const Random_Report made(bytes);
    std::vector<std::string> found;
    for (const Content_Row& row : contentOf(made.report).rows)
        for (const Content_Cell& cell : row.cells)
            found.push_back(cell.text);
    require(found == made.texts, "every text is a cell");
}

void checkLines(FuzzedDataProvider& bytes) {
    const doubles::Even_Metrics metrics;
    const Report_Font font;
    const double width = bytes.ConsumeIntegralInRange(0, 5000);
    const std::string text = bytes.ConsumeRemainingBytesAsString();
    std::string joined;
    for (const std::string& line : wrappedLines(metrics, text, font, width)) {
        require(line.size() <= 1 || metrics.textWidth(line, font) <= width, "a line has room");
        joined += line;
    }
    std::string expected;
    for (std::size_t place = 0; place < text.size(); ++place) {
        const bool end = text[place] == '\n' ||
                         (text[place] == '\r' && (place + 1 == text.size() || text[place + 1] == '\n'));
        if (!end) expected += text[place];
    }
    // A blank at which a line is broken goes.
    std::erase(joined, ' ');
    std::erase(expected, ' ');
    fuzz::requireSame(joined, expected, "no character is lost");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider bytes(data, size);
    switch (bytes.ConsumeIntegralInRange(0, 2)) {
    case 0:
        checkLayout(bytes);
        break;
    case 1:
        checkContent(bytes);
        break;
    default:
        checkLines(bytes);
    }
    return 0;
}
