// SPDX-License-Identifier: MIT
#pragma once

#include "ui/report/page_stack.h"

#include <QAbstractScrollArea>
#include <QPixmap>
#include <QSizeF>

#include <functional>
#include <map>

namespace zorvane {
struct Page_Document;
} // namespace zorvane

namespace zorvane::ui {

/// The pages of a report below each other. Only what is visible is painted, so it doesn't matter how many
/// pages there are.
class Page_View final : public QAbstractScrollArea {
  public:
    explicit Page_View(QWidget* parent);

    std::function<void()> pageChanged; ///< another page is the one shown, or the number of pages changed
    std::function<void()> zoomChanged;

    /// The pages to show, none for a null pointer. The document stays where it is, and must, until another
    /// one is given; its contents may change, and then it is given again. The page shown stays the one shown.
    void setPages(const Page_Document* document);
    [[nodiscard]] int pageCount() const { return stack_.pages; }

    /// The page shown, from 1; 0 when there is none. A number beyond the last page is the last page.
    [[nodiscard]] int page() const { return stack_.pages == 0 ? 0 : page_ + 1; }
    void setPage(int number);

    /// A percent, or one of the two zooms that follow the size of the view.
    void setZoom(int zoom);
    [[nodiscard]] int zoom() const { return zoom_; }
    [[nodiscard]] int percent() const { return percent_; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    /// Of a page that was already shown, the same part stays at the top of the view.
    void layOut(bool keepsPlace);
    [[nodiscard]] int lowestScroll() const;
    void scrollTo(int page, int offset);
    void followScroll();
    void paintOne(QPainter& painter, int index, const QRect& place);
    [[nodiscard]] QRect placeOf(int index) const;
    [[nodiscard]] QPixmap picture(int index);

    const Page_Document* document_ = nullptr;
    QSizeF paper_; ///< twips; like the number of pages, as they were given last
    Page_Stack stack_;
    int page_ = 0; ///< from 0
    int zoom_ = zoomWholePage;
    int percent_ = 100;
    bool placing_ = false;
    std::map<int, QPixmap> pictures_; ///< of the pages painted last
};

} // namespace zorvane::ui
