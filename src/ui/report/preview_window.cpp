// SPDX-License-Identifier: MIT
#include "ui/report/preview_window.h"

#include "reports/bands/page_document.h"
#include "ui/base/icons.h"
#include "ui/base/text.h"

#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <array>

namespace zorvane::ui {

namespace {

constexpr std::array zoomPercents = {25, 50, 75, 100, 150, 200, 400};
constexpr double contentsShare = 0.3;
constexpr int contentsWidth = 180; ///< pixels, if the window has them

QString wholePage() { return QStringLiteral("Whole page"); }
QString pageWidth() { return QStringLiteral("Page width"); }
QString percentText(int percent) { return QString::number(percent) + QStringLiteral(" %"); }

} // namespace

Preview_Window::Preview_Window(const QString& caption, const std::vector<Preview_Tool>& tools)
    : splitter_(new QSplitter(this)) {
    giveName(*this, QStringLiteral("Preview"));
    setWindowTitle(caption);
    setContextMenuPolicy(Qt::NoContextMenu); // no menu that could hide the tools
    addContents();
    view_ = new Page_View(splitter_);
    splitter_->addWidget(view_);
    splitter_->setStretchFactor(1, 1);
    splitter_->setChildrenCollapsible(false);
    setCentralWidget(splitter_);
    addReportTools(tools);
    addToolBarBreak();
    addPageTools();
    auto* escape = new QAction(this);
    escape->setShortcut(Qt::Key_Escape);
    connect(escape, &QAction::triggered, this, &QWidget::close);
    addAction(escape);
    // The button of a tool bar for which the window is too narrow.
    for (QToolBar* bar : {reportBar_, pageBar_})
        for (QToolButton* more : bar->findChildren<QToolButton*>(QStringLiteral("qt_toolbar_ext_button")))
            more->setAccessibleName(QStringLiteral("More tools"));
    view_->pageChanged = [this] { showPage(); };
    view_->zoomChanged = [this] { showZoom(); };
    showPage();
    showZoom();
    view_->setFocus();
}

void Preview_Window::addContents() {
    contents_ = new QListWidget(splitter_);
    giveName(*contents_, QStringLiteral("TOC"));
    contents_->setAccessibleName(QStringLiteral("Table of contents"));
    contents_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    contents_->setTextElideMode(Qt::ElideRight);
    contents_->setMinimumWidth(60);
    contents_->hide();
    splitter_->addWidget(contents_);
    connect(contents_, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        if (item != nullptr) view_->setPage(item->data(Qt::UserRole).toInt());
    });
}

/// The captions keep their underlined letters: the buttons answer to Alt and the letter.
void Preview_Window::addReportTools(const std::vector<Preview_Tool>& tools) {
    reportBar_ = addToolBar(QStringLiteral("Report"));
    giveName(*reportBar_, QStringLiteral("Toolbar"));
    reportBar_->setMovable(false);
    reportBar_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    int index = 0;
    for (const Preview_Tool& tool : tools) {
        auto* button = new QToolButton(reportBar_);
        giveName(*button, QStringLiteral("Tool%1").arg(index + 1));
        button->setText(tool.caption);
        button->setToolTip(tool.tip);
        button->setIcon(tool.picture);
        button->setToolButtonStyle(tool.picture.isNull() ? Qt::ToolButtonTextOnly
                                                         : Qt::ToolButtonTextBesideIcon);
        button->setFocusPolicy(Qt::TabFocus);
        button->setEnabled(tool.enabled);
        connect(button, &QToolButton::clicked, this, [this, index] {
            const auto clicked = events.toolClicked; // the handler may take the events away
            if (clicked) clicked(index);
        });
        reportBar_->addWidget(button)->setVisible(tool.visible);
        ++index;
    }
    reportBar_->addSeparator();
    printTool_ = &addTool(*reportBar_, QStringLiteral("Print"), QStringLiteral("Print..."),
                          QStringLiteral("print"), {QKeySequence(Qt::CTRL | Qt::Key_P)}, [this] {
                              const auto print = events.print;
                              if (print) print();
                          });
}

QAction& Preview_Window::addTool(QToolBar& bar, const QString& name, const QString& words,
                                 const QString& picture, const QList<QKeySequence>& keys,
                                 const std::function<void()>& handler) {
    QAction& tool = *bar.addAction(icon(picture), words);
    tool.setObjectName(name);
    tool.setShortcuts(keys);
    QString tip = words;
    tip.remove(QStringLiteral("..."));
    if (!keys.isEmpty())
        tip += QStringLiteral(" (") + keys.constFirst().toString(QKeySequence::NativeText) + u')';
    tool.setToolTip(tip);
    connect(&tool, &QAction::triggered, this, handler);
    if (QWidget* button = bar.widgetForAction(&tool)) {
        giveName(*button, name);
        button->setFocusPolicy(Qt::TabFocus);
    }
    return tool;
}

void Preview_Window::addPageTools() {
    pageBar_ = addToolBar(QStringLiteral("Pages"));
    giveName(*pageBar_, QStringLiteral("PageBar"));
    pageBar_->setMovable(false);
    pageBar_->setIconSize({16, 16});
    addContentsTool();
    pageBar_->addSeparator();
    addTurningTools();
    pageBar_->addSeparator();
    addZoomTools();
}

void Preview_Window::addContentsTool() {
    contentsTool_ = &addTool(*pageBar_, QStringLiteral("Contents"), QStringLiteral("Contents"),
                             QStringLiteral("contents"), {QKeySequence(Qt::Key_F4)}, [this] {
                                 contentsShown_ = contentsTool_->isChecked();
                                 contents_->setVisible(contentsShown_);
                             });
    contentsTool_->setCheckable(true);
}

void Preview_Window::addTurningTools() {
    const auto go = [this](int step) { view_->setPage(view_->page() + step); };
    first_ = &addTool(*pageBar_, QStringLiteral("FirstPage"), QStringLiteral("First page"),
                      QStringLiteral("first"), {QKeySequence(Qt::CTRL | Qt::Key_Home)},
                      [this] { view_->setPage(1); });
    previous_ = &addTool(*pageBar_, QStringLiteral("PreviousPage"), QStringLiteral("Previous page"),
                         QStringLiteral("previous"), {QKeySequence(Qt::Key_PageUp)}, [go] { go(-1); });
    page_ = new QSpinBox(pageBar_);
    giveName(*page_, QStringLiteral("Page"));
    page_->setAccessibleName(QStringLiteral("Page"));
    page_->setKeyboardTracking(false);
    page_->setButtonSymbols(QAbstractSpinBox::NoButtons);
    page_->setAlignment(Qt::AlignRight);
    connect(page_, &QSpinBox::valueChanged, this, [this](int page) { view_->setPage(page); });
    pageBar_->addWidget(page_);
    pages_ = new QLabel(pageBar_);
    giveName(*pages_, QStringLiteral("PageCount"));
    pages_->setContentsMargins(4, 0, 4, 0);
    pageBar_->addWidget(pages_);
    next_ = &addTool(*pageBar_, QStringLiteral("NextPage"), QStringLiteral("Next page"),
                     QStringLiteral("next"), {QKeySequence(Qt::Key_PageDown)}, [go] { go(1); });
    last_ =
        &addTool(*pageBar_, QStringLiteral("LastPage"), QStringLiteral("Last page"), QStringLiteral("last"),
                 {QKeySequence(Qt::CTRL | Qt::Key_End)}, [this] { view_->setPage(view_->pageCount()); });
}

void Preview_Window::addZoomTools() {
    addTool(*pageBar_, QStringLiteral("ZoomOut"), QStringLiteral("Zoom out"), QStringLiteral("zoom_out"),
            {QKeySequence(Qt::CTRL | Qt::Key_Minus)},
            [this] { view_->setZoom(previousZoom(view_->percent())); });
    zoom_ = new QComboBox(pageBar_);
    giveName(*zoom_, QStringLiteral("Zoom"));
    zoom_->setAccessibleName(QStringLiteral("Zoom"));
    zoom_->setEditable(true);
    zoom_->lineEdit()->setAccessibleName(zoom_->accessibleName());
    zoom_->setInsertPolicy(QComboBox::NoInsert);
    zoom_->addItems({wholePage(), pageWidth()});
    for (const int percent : zoomPercents)
        zoom_->addItem(percentText(percent));
    zoom_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    connect(zoom_, &QComboBox::textActivated, this, [this](const QString& entry) { takeZoom(entry); });
    connect(zoom_->lineEdit(), &QLineEdit::returnPressed, this, [this] { takeZoom(zoom_->currentText()); });
    pageBar_->addWidget(zoom_);
    addTool(*pageBar_, QStringLiteral("ZoomIn"), QStringLiteral("Zoom in"), QStringLiteral("zoom_in"),
            {QKeySequence(Qt::CTRL | Qt::Key_Plus), QKeySequence(Qt::CTRL | Qt::Key_Equal)},
            [this] { view_->setZoom(nextZoom(view_->percent())); });
}

void Preview_Window::setPages(const Page_Document* document) {
    view_->setPages(document);
    fillContents(document);
    showPage();
}

/// A list of one entry tells nothing that the page doesn't.
void Preview_Window::fillContents(const Page_Document* document) {
    const QSignalBlocker blocked(contents_);
    const bool first = contents_->count() == 0;
    contents_->clear();
    if (document != nullptr)
        for (const Contents_Entry& entry : document->contents) {
            auto* item = new QListWidgetItem(fromCore(entry.title), contents_);
            item->setData(Qt::UserRole, entry.page);
            item->setToolTip(
                literalTip(fromCore(entry.title) + QStringLiteral(", page ") + QString::number(entry.page)));
        }
    if (!first || contents_->count() < 2) return;
    contentsTool_->setChecked(true);
    contents_->show();
    const int side = std::min(contentsWidth, static_cast<int>(splitter_->width() * contentsShare));
    splitter_->setSizes({side, splitter_->width() - side});
}

/// The first entry that begins on the page, else the one that goes on over it.
int Preview_Window::contentsRowOf(int page) const {
    const auto pageOf = [this](int row) { return contents_->item(row)->data(Qt::UserRole).toInt(); };
    int row = -1;
    while (row + 1 < contents_->count() && pageOf(row + 1) < page)
        ++row;
    return row + 1 < contents_->count() && pageOf(row + 1) == page ? row + 1 : row;
}

void Preview_Window::showPage() {
    const int page = view_->page();
    const int count = view_->pageCount();
    {
        const QSignalBlocker blocked(page_);
        page_->setRange(std::min(1, count), count);
        page_->setValue(page);
    }
    page_->setEnabled(count > 0);
    pages_->setText(QStringLiteral("of ") + QString::number(count));
    first_->setEnabled(page > 1);
    previous_->setEnabled(page > 1);
    next_->setEnabled(page < count);
    last_->setEnabled(page < count);
    printTool_->setEnabled(count > 0);
    const QSignalBlocker blocked(contents_);
    const QListWidgetItem* current = contents_->currentItem();
    if (current != nullptr && current->data(Qt::UserRole).toInt() == page) return;
    contents_->setCurrentRow(contentsRowOf(page));
}

void Preview_Window::showZoom() {
    const QSignalBlocker blocked(zoom_);
    const int zoom = view_->zoom();
    zoom_->setCurrentIndex(-1);
    if (zoom == zoomWholePage)
        zoom_->setEditText(wholePage());
    else
        zoom_->setEditText(zoom == zoomPageWidth ? pageWidth() : percentText(zoom));
}

/// What isn't a zoom puts the present one back.
void Preview_Window::takeZoom(const QString& entry) {
    QString digits = entry.trimmed();
    if (digits.endsWith(u'%')) digits.chop(1);
    bool ok = false;
    const int percent = digits.trimmed().toInt(&ok);
    if (entry == wholePage())
        view_->setZoom(zoomWholePage);
    else if (entry == pageWidth())
        view_->setZoom(zoomPageWidth);
    else if (ok && percent > 0)
        view_->setZoom(percent);
    showZoom();
    view_->setFocus();
}

Twips_Rect Preview_Window::place() const {
    const Twips_Scale scale = scaleOf(*this);
    const bool spread = isMaximized() || isFullScreen();
    const QRect inner = spread ? normalGeometry() : geometry();
    const QPoint corner = spread ? inner.topLeft() : pos();
    return {scale.twipsX(corner.x()), scale.twipsY(corner.y()), scale.twipsX(inner.width()),
            scale.twipsY(inner.height())};
}

void Preview_Window::setPlace(const Twips_Rect& place) {
    const QRect pixels = scaleOf(*this).rect(place);
    resize(pixels.size());
    move(pixels.topLeft());
}

void Preview_Window::tellPlace() {
    if (isVisible() && !isMinimized() && events.placed) events.placed(place());
}

void Preview_Window::moveEvent(QMoveEvent* event) {
    QMainWindow::moveEvent(event);
    tellPlace();
}

void Preview_Window::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    tellPlace();
}

void Preview_Window::closeEvent(QCloseEvent* event) {
    const auto closing = events.closing; // the handler takes the events away
    event->setAccepted(!closing || closing());
}

} // namespace zorvane::ui
