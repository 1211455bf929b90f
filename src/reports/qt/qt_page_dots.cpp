// SPDX-License-Identifier: MIT
#include "reports/qt/qt_page_dots.h"

#include "reports/qt/qt_page_painter.h"
#include "values/twips.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace zorvane {

Qt_Letters::Qt_Letters(const Report_Font& name, double scale)
    : font_(fontInTwips(name)), metrics_(font_), scale_(scale) {}

const Letter_Dots& Qt_Letters::of(char letter) {
    auto& dots = letters_.at(static_cast<unsigned char>(letter));
    if (!dots) dots = std::make_unique<Letter_Dots>(painted(paintedText(std::string(1, letter))));
    return *dots;
}

Letter_Dots Qt_Letters::painted(const QString& letter) const {
    constexpr int margin = 2; // the edges of letters reach beyond their measures
    const QRectF room = metrics_.boundingRect(letter);
    const auto left = static_cast<int>(std::floor(room.left() * scale_)) - margin;
    const auto top = static_cast<int>(std::floor(room.top() * scale_)) - margin;
    QImage picture(static_cast<int>(std::ceil(room.right() * scale_)) - left + margin,
                   static_cast<int>(std::ceil(room.bottom() * scale_)) - top + margin,
                   QImage::Format_Grayscale8);
    picture.fill(Qt::white);
    {
        QPainter painter(&picture);
        painter.setRenderHints(QPainter::TextAntialiasing);
        painter.translate(-left, -top);
        painter.scale(scale_, scale_);
        painter.setFont(font_);
        painter.drawText(QPointF(0, 0), letter);
    }
    Letter_Dots dots{metrics_.horizontalAdvance(letter), left, top, picture.width(), {}};
    for (int row = 0; row < picture.height(); ++row)
        for (const uchar light :
             std::span(picture.constScanLine(row), static_cast<std::size_t>(picture.width())))
            dots.ink.push_back(static_cast<std::uint8_t>(((255U - light) * inkSteps + 127U) / 255U));
    return dots;
}

Text_Extent Qt_Letters::extentOf(const std::string& text) {
    Text_Extent extent{0, 0, 0, metrics_.height(), metrics_.ascent()};
    bool blanksOnly = true;
    for (const char letter : text) {
        if (letter != ' ' && blanksOnly) extent.inkLeft = extent.width;
        extent.width += of(letter).advance;
        if (letter != ' ') extent.inkRight = extent.width;
        blanksOnly = blanksOnly && letter == ' ';
    }
    return extent;
}

Qt_Page_Dots::Qt_Page_Dots(const Page_Document& document, int dotsPerInch)
    : document_(document), scale_(dotsPerInch / twipsPerInch), width_(dot(document.paperWidth)),
      height_(dot(document.paperHeight)), colours_(document.styles),
      dots_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

int Qt_Page_Dots::dot(double twips) const { return static_cast<int>(std::lround(twips * scale_)); }

std::span<const std::uint8_t> Qt_Page_Dots::of(std::size_t page) {
    std::fill(dots_.begin(), dots_.end(), std::uint8_t{0});
    for (const Page_Item& item : document_.pages.at(page).items)
        std::visit([this](const auto& each) { put(each); }, item);
    return dots_;
}

void Qt_Page_Dots::fill(Dots_Rect area, std::uint8_t colour) {
    area.left = std::max(area.left, 0);
    area.right = std::min(area.right, width_);
    if (area.left >= area.right) return;
    for (int row = std::max(area.top, 0); row < std::min(area.bottom, height_); ++row) {
        std::uint8_t* const dots = dots_.data() + static_cast<std::ptrdiff_t>(row) * width_;
        std::fill(dots + area.left, dots + area.right, colour);
    }
}

void Qt_Page_Dots::put(const Box_Item& box) {
    fill({dot(box.left), dot(box.top), dot(box.left + box.width), dot(box.top + box.height)},
         colours_.nearest(box.colour));
}

/// A rule is a dot wide; a dotted one has every fourth dot of the paper, so
/// that rules fit together.
void Qt_Page_Dots::put(const Line_Item& line) {
    constexpr int period = 4;
    const double across = (line.x2 - line.x1) * scale_;
    const double down = (line.y2 - line.y1) * scale_;
    const int steps = static_cast<int>(std::lround(std::max(std::abs(across), std::abs(down))));
    const std::uint8_t colour = colours_.nearest(line.colour);
    for (int step = 0; step < steps; ++step) {
        const auto x = static_cast<int>(std::floor(line.x1 * scale_ + across * step / steps));
        const auto y = static_cast<int>(std::floor(line.y1 * scale_ + down * step / steps));
        if (line.style == Border_Dot && (std::abs(across) > std::abs(down) ? x : y) % period != 0) continue;
        fill({x, y, x + 1, y + 1}, colour);
    }
}

void Qt_Page_Dots::put(const Text_Item& item) {
    const Text_Style& style = document_.styles[item.style];
    Qt_Letters& letters = lettersOf(style, item.style);
    const Text_Place place = placeOf(item, style, letters.extentOf(item.text));
    const Dots_Rect clip{std::max(dot(item.left), 0), 0, std::min(dot(item.left + item.width), width_),
                         height_};
    const Ink_Steps steps = stepsOf(style);
    double x = place.left;
    for (const char each : item.text) {
        const Letter_Dots& letter = letters.of(each);
        putLetter(letter, dot(x), dot(place.baseLine), clip, steps);
        x += letter.advance;
    }
    if (place.cutLeft) putMark(cutMark(item, Room_Side::Left), paperOf(style));
    if (place.cutRight) putMark(cutMark(item, Room_Side::Right), paperOf(style));
}

void Qt_Page_Dots::putLetter(const Letter_Dots& letter, int x, int y, const Dots_Rect& clip,
                             const Ink_Steps& steps) {
    const int first = std::max(clip.left - x - letter.left, 0);
    const int last = std::min(clip.right - x - letter.left, letter.width);
    const int rows = letter.width == 0 ? 0 : static_cast<int>(letter.ink.size()) / letter.width;
    for (int row = 0; row < rows; ++row) {
        const int at = y + letter.top + row;
        if (at < 0 || at >= height_) continue;
        const std::uint8_t* const ink = letter.ink.data() + static_cast<std::ptrdiff_t>(row) * letter.width;
        std::uint8_t* const dots = dots_.data() + static_cast<std::ptrdiff_t>(at) * width_ + x + letter.left;
        for (int column = first; column < last; ++column)
            if (ink[column] > 0) dots[column] = steps[ink[column]];
    }
}

void Qt_Page_Dots::putMark(const Cut_Mark& mark, Packed_Colour paper) {
    const int side = dot(mark.side);
    const int inwards = mark.width > 0 ? 1 : -1;
    const int width = std::abs(dot(mark.width));
    const int half = dot(mark.height / 2);
    const int middle = dot(mark.middle());
    const auto paint = [&](int from, int to, int top, int bottom, Packed_Colour colour) {
        const int one = side + inwards * from;
        const int other = side + inwards * to;
        fill({std::min(one, other), top, std::max(one, other), bottom}, colours_.nearest(colour));
    };
    paint(0, width + dot(mark.rim), dot(mark.top), dot(mark.bottom), paper);
    for (int step = 0; step < width; ++step) {
        const int reach = half * (step + 1) / width;
        paint(step, step + 1, middle - reach, middle + reach + 1, cutMarkColour);
    }
}

Qt_Page_Dots::Ink_Steps Qt_Page_Dots::stepsOf(const Text_Style& style) const {
    Ink_Steps steps{};
    for (unsigned step = 0; step <= inkSteps; ++step)
        steps[step] = colours_.nearest(mixedColour(style.ForeColor, paperOf(style), step));
    return steps;
}

Qt_Letters& Qt_Page_Dots::lettersOf(const Text_Style& style, std::size_t index) {
    auto& letters = letters_[index];
    for (const auto& [other, theirs] : letters_)
        if (!letters && theirs && document_.styles[other].Font == style.Font) letters = theirs;
    if (!letters) letters = std::make_shared<Qt_Letters>(style.Font, scale_);
    return *letters;
}

} // namespace zorvane
