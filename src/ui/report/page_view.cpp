// SPDX-License-Identifier: MIT
#include "ui/report/page_view.h"

#include "reports/qt/qt_page_painter.h"
#include "ui/base/roles.h"
#include "ui/base/text.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace zorvane::ui {

namespace {

constexpr std::int64_t largestPicture = 16'000'000; ///< dots; a larger page is painted where it is seen
constexpr int lineStep = 40;                        ///< pixels

void paintSheet(QPainter& painter, const Page_Document& document, int index, const QSize& size) {
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(size.width() / document.paperWidth, size.height() / document.paperHeight);
    paintPage(painter, document, static_cast<std::size_t>(index));
}

} // namespace

Page_View::Page_View(QWidget* parent) : QAbstractScrollArea(parent) {
    giveRole(*this, QAccessible::Document);
    giveName(*this, QStringLiteral("Pages"));
    setAccessibleName(QStringLiteral("Pages"));
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setBackgroundRole(QPalette::Mid);
    viewport()->setAutoFillBackground(true);
    // A bar that came and went with the size of a page would change the room that the page is fitted to.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void Page_View::setPages(const Page_Document* document) {
    document_ = document;
    pictures_.clear();
    const int before = stack_.pages;
    stack_.pages = document == nullptr ? 0 : static_cast<int>(document->pages.size());
    if (stack_.pages > 0) paper_ = {document->paperWidth, document->paperHeight};
    layOut(before > 0);
    if (pageChanged) pageChanged();
}

void Page_View::layOut(bool keepsPlace) {
    const int offset = keepsPlace ? verticalScrollBar()->value() - stack_.topOf(page_) : 0;
    const int heightBefore = stack_.page.height();
    const int percentBefore = percent_;
    if (stack_.pages > 0) {
        percent_ = percentOf(zoom_, paper_, viewport()->size(), logicalDpiY());
        stack_.page = pagePixels(percent_, paper_, logicalDpiY());
    }
    if (stack_.page.height() != heightBefore) pictures_.clear();
    page_ = std::clamp(page_, 0, std::max(0, stack_.pages - 1));
    const QScopedValueRollback<bool> placing(placing_, true);
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(lineStep);
    verticalScrollBar()->setRange(0, lowestScroll());
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(lineStep);
    horizontalScrollBar()->setRange(0, stack_.pages == 0 ? 0
                                                         : std::max(0, stack_.width() - viewport()->width()));
    const bool begins = offset <= 0 || heightBefore <= 0;
    scrollTo(page_, begins ? offset : offset * stack_.page.height() / heightBefore);
    viewport()->update();
    if (percent_ != percentBefore && zoomChanged) zoomChanged();
}

/// A whole page stands alone in the view, the last one too.
int Page_View::lowestScroll() const {
    if (stack_.pages == 0) return 0;
    const int lowest = stack_.height() - viewport()->height();
    const int lastPage = stack_.topOf(stack_.pages - 1) - Page_Stack::gap;
    return std::max({0, lowest, zoom_ == zoomWholePage ? lastPage : 0});
}

void Page_View::scrollTo(int page, int offset) {
    if (stack_.pages > 0)
        verticalScrollBar()->setValue(stack_.topOf(page) + std::max(-Page_Stack::gap, offset));
}

void Page_View::setPage(int number) {
    if (stack_.pages == 0) return;
    const int before = page_;
    page_ = std::clamp(number, 1, stack_.pages) - 1;
    {
        const QScopedValueRollback<bool> placing(placing_, true);
        scrollTo(page_, -Page_Stack::gap);
    }
    if (page_ != before && pageChanged) pageChanged();
}

void Page_View::setZoom(int zoom) {
    const bool named = zoom == zoomWholePage || zoom == zoomPageWidth;
    zoom_ = named ? zoom : std::clamp(zoom, smallestZoom, largestZoom);
    layOut(stack_.pages > 0);
    if (zoom_ == zoomWholePage) setPage(page());
    if (zoomChanged) zoomChanged();
}

/// While the user scrolls, the page shown is the one a third down the view.
void Page_View::followScroll() {
    if (placing_ || stack_.pages == 0) return;
    const int shown = stack_.pageAt(verticalScrollBar()->value() + viewport()->height() / 3);
    if (shown == page_) return;
    page_ = shown;
    if (pageChanged) pageChanged();
}

void Page_View::scrollContentsBy(int /*dx*/, int /*dy*/) {
    followScroll();
    viewport()->update();
}

void Page_View::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    layOut(stack_.pages > 0);
    if (zoom_ == zoomWholePage) setPage(page());
}

void Page_View::wheelEvent(QWheelEvent* event) {
    if ((event->modifiers() & Qt::ControlModifier) == 0) return QAbstractScrollArea::wheelEvent(event);
    const int turn = event->angleDelta().y();
    if (turn != 0) setZoom(turn > 0 ? nextZoom(percent_) : previousZoom(percent_));
    event->accept();
}

void Page_View::keyPressEvent(QKeyEvent* event) {
    QScrollBar& bar = *verticalScrollBar();
    const bool back = (event->modifiers() & Qt::ShiftModifier) != 0;
    switch (event->key()) {
    case Qt::Key_Home:
        return setPage(1);
    case Qt::Key_End:
        return setPage(stack_.pages);
    case Qt::Key_Space:
        return bar.triggerAction(back ? QScrollBar::SliderPageStepSub : QScrollBar::SliderPageStepAdd);
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

QRect Page_View::placeOf(int index) const {
    const int room = viewport()->width() - stack_.page.width();
    const int left =
        horizontalScrollBar()->maximum() > 0 ? Page_Stack::gap - horizontalScrollBar()->value() : room / 2;
    return {QPoint(left, stack_.topOf(index) - verticalScrollBar()->value()), stack_.page};
}

QPixmap Page_View::picture(int index) {
    const auto found = pictures_.find(index);
    if (found != pictures_.end()) return found->second;
    const double ratio = devicePixelRatioF();
    QPixmap made((QSizeF(stack_.page) * ratio).toSize());
    made.setDevicePixelRatio(ratio);
    made.fill(Qt::white);
    QPainter painter(&made);
    paintSheet(painter, *document_, index, stack_.page);
    painter.end();
    return pictures_.emplace(index, made).first->second;
}

/// A report that runs again has no pages for a moment: the pictures of the old ones stay until it has.
void Page_View::paintOne(QPainter& painter, int index, const QRect& place) {
    const double ratio = devicePixelRatioF();
    const double dots = ratio * ratio * place.width() * place.height();
    const bool there = static_cast<std::size_t>(index) < document_->pages.size();
    if (pictures_.count(index) != 0 || (there && dots <= static_cast<double>(largestPicture))) {
        painter.drawPixmap(place.topLeft(), picture(index));
        return;
    }
    painter.fillRect(place, Qt::white);
    if (!there) return;
    painter.save();
    painter.setClipRect(place);
    painter.translate(place.topLeft());
    paintSheet(painter, *document_, index, place.size());
    painter.restore();
}

void Page_View::paintEvent(QPaintEvent* event) {
    if (document_ == nullptr || stack_.pages == 0) return;
    QPainter painter(viewport());
    const int top = verticalScrollBar()->value();
    const int first = stack_.pageAt(top);
    const int last = stack_.pageAt(top + viewport()->height());
    for (int index = first; index <= last; ++index) {
        const QRect place = placeOf(index);
        if (!place.intersects(event->rect())) continue;
        paintOne(painter, index, place);
        painter.setPen(palette().color(QPalette::Shadow));
        painter.drawRect(place.adjusted(-1, -1, 0, 0));
    }
    std::erase_if(pictures_,
                  [&](const auto& each) { return each.first < first - 1 || each.first > last + 1; });
}

} // namespace zorvane::ui
