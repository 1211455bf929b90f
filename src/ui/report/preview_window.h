// SPDX-License-Identifier: MIT
#pragma once

#include "ui/base/twips_scale.h"
#include "ui/report/page_view.h"

#include <QIcon>
#include <QMainWindow>

#include <functional>
#include <vector>

class QAction;
class QComboBox;
class QLabel;
class QListWidget;
class QSpinBox;
class QSplitter;
class QToolBar;

namespace zorvane::ui {

/// A tool that the report puts into the window's tool bar.
struct Preview_Tool {
    QString caption;
    QString tip;
    QIcon picture{};
    bool visible = true;
    bool enabled = true;
};

/// What the window tells its owner. No handler lets an exception out; any may delete the window later.
struct Preview_Events {
    std::function<void(int index)> toolClicked; ///< the report's tools, from 0
    std::function<void()> print;
    /// The user closes the window; false keeps it open. After true it stays away.
    std::function<bool()> closing;
    std::function<void(const Twips_Rect& place)> placed;
};

/// A report on the screen: the report's own tools, printing, the pages with zoom, the table of contents.
class Preview_Window final : public QMainWindow {
  public:
    Preview_Window(const QString& caption, const std::vector<Preview_Tool>& tools);

    Preview_Events events;

    /// Shows the pages and the table of contents as they are now. See `Page_View::setPages`.
    void setPages(const Page_Document* document);
    [[nodiscard]] Page_View& view() { return *view_; }

    /// The corner of the window's frame and its size without the frame, in twips. Of a maximized window it is
    /// the place that it goes back to.
    [[nodiscard]] Twips_Rect place() const;
    void setPlace(const Twips_Rect& place);

  protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void addReportTools(const std::vector<Preview_Tool>& tools);
    void addPageTools();
    void addContentsTool();
    void addTurningTools();
    void addZoomTools();
    void addContents();
    QAction& addTool(QToolBar& bar, const QString& name, const QString& words, const QString& picture,
                     const QList<QKeySequence>& keys, const std::function<void()>& handler);
    void fillContents(const Page_Document* document);
    [[nodiscard]] int contentsRowOf(int page) const;
    void showPage();
    void showZoom();
    void takeZoom(const QString& entry);
    void tellPlace();

    Page_View* view_;
    QSplitter* splitter_;
    QListWidget* contents_;
    QToolBar* reportBar_ = nullptr;
    QToolBar* pageBar_ = nullptr;
    QAction* contentsTool_ = nullptr;
    QAction* printTool_ = nullptr;
    QAction* first_ = nullptr;
    QAction* previous_ = nullptr;
    QAction* next_ = nullptr;
    QAction* last_ = nullptr;
    QSpinBox* page_ = nullptr;
    QLabel* pages_ = nullptr;
    QComboBox* zoom_ = nullptr;
    bool contentsShown_ = false;
};

} // namespace zorvane::ui
