// SPDX-License-Identifier: MIT
#include "reports/qt/qt_page_painter.h"

#include "reports/bands/text_place.h"
#include "reports/qt/qt_report_fonts.h"
#include "values/twips.h"

#include <QColor>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <QPen>

namespace zorvane {

namespace {

QColor colourOf(Packed_Colour packed) {
    return QColor(static_cast<int>(packed & 0xFFU), static_cast<int>(packed >> 8 & 0xFFU),
                  static_cast<int>(packed >> 16 & 0xFFU));
}

class Item_Painter {
  public:
    Item_Painter(QPainter& painter, const Style_Table& styles) : painter_(painter), styles_(styles) {}

    void operator()(const Box_Item& box) const {
        painter_.fillRect(QRectF(box.left, box.top, box.width, box.height), colourOf(box.colour));
    }

    void operator()(const Line_Item& line) const {
        const Qt::PenStyle style = line.style == Border_Dot ? Qt::DotLine : Qt::SolidLine;
        painter_.setPen(QPen(colourOf(line.colour), ruleWidth, style, Qt::FlatCap));
        painter_.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
    }

    void operator()(const Text_Item& item) {
        const Text_Style& style = styles_[item.style];
        const auto& [name, font, metrics] = fonts_.of(style.Font);
        const QString text = paintedText(item.text);
        const Text_Place place = placeOf(item, style, extentOf(text, metrics));
        painter_.setFont(font);
        painter_.setPen(colourOf(style.ForeColor));
        if (place.clipped) {
            painter_.save();
            // Only the sides cut: below, a text may need more room than its control has.
            painter_.setClipRect(QRectF(item.left, item.top - item.height, item.width, 3 * item.height));
        }
        painter_.drawText(QPointF(place.left, place.baseLine), text);
        if (place.clipped) painter_.restore();
        if (place.cutLeft) mark(cutMark(item, Room_Side::Left), paperOf(style));
        if (place.cutRight) mark(cutMark(item, Room_Side::Right), paperOf(style));
    }

  private:
    static Text_Extent extentOf(const QString& text, const QFontMetricsF& metrics) {
        const double width = metrics.horizontalAdvance(text);
        Text_Extent extent{width, 0, width, metrics.height(), metrics.ascent()};
        if (text.startsWith(u' ') || text.endsWith(u' ')) {
            const QString ink = text.trimmed();
            extent.inkLeft = metrics.horizontalAdvance(text.left(text.indexOf(ink)));
            extent.inkRight = extent.inkLeft + metrics.horizontalAdvance(ink);
        }
        return extent;
    }

    void mark(const Cut_Mark& shape, Packed_Colour paper) const {
        const double inwards = shape.width + (shape.width > 0 ? shape.rim : -shape.rim);
        const QRectF ground(shape.side, shape.top, inwards, shape.bottom - shape.top);
        painter_.fillRect(ground.normalized(), colourOf(paper));
        QPainterPath triangle(QPointF(shape.side, shape.middle()));
        triangle.lineTo(shape.side + shape.width, shape.middle() - shape.height / 2);
        triangle.lineTo(shape.side + shape.width, shape.middle() + shape.height / 2);
        painter_.fillPath(triangle, colourOf(cutMarkColour));
    }

    QPainter& painter_;
    const Style_Table& styles_;
    Qt_Report_Fonts fonts_;
};

} // namespace

void paintPage(QPainter& painter, const Page_Document& document, std::size_t page) {
    Item_Painter paint(painter, document.styles);
    for (const Page_Item& item : document.pages.at(page).items)
        std::visit(paint, item);
}

bool paintPages(QPagedPaintDevice& device, const Page_Document& document, const Paint_Order& order) {
    QPainter painter;
    if (!painter.begin(&device)) return false;
    painter.scale(device.logicalDpiX() / twipsPerInch, device.logicalDpiY() / twipsPerInch);
    for (std::size_t page = order.first; page < document.pages.size() && page <= order.last; ++page) {
        if (order.keepsOn && !order.keepsOn()) return false;
        if (page > order.first && !device.newPage()) return false;
        paintPage(painter, document, page);
    }
    return painter.end();
}

} // namespace zorvane
