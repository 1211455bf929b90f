// SPDX-License-Identifier: MIT
#include "ui/main/main_window.h"

#include "ui/base/caption_box.h"
#include "ui/base/icons.h"
#include "ui/base/text.h"
#include "ui/grid/column_tip.h"
#include "ui/main/bar_place.h"
#include "ui/main/message_bar_view.h"
#include "ui/main/split_bar.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFrame>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QShortcut>
#include <QWindowStateChangeEvent>

#include <algorithm>

namespace zorvane::ui {

namespace {

/// The one file on this computer that a drag carries, or "".
QString draggedFile(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    return urls.size() == 1 && urls.first().isLocalFile() ? urls.first().toLocalFile() : QString();
}

QRect rounded(const Twips_Rect& pixels) { return Twips_Scale{1, 1}.rect(pixels); }

} // namespace

Main_Window::Main_Window() {
    giveName(*this, QStringLiteral("KVRT_Principal"));
    setWindowTitle(QStringLiteral("Zorvane"));
    setWindowIcon(icon(QStringLiteral("application")));
    setAcceptDrops(true);
    menuBar()->setNativeMenuBar(false);
    menu_ = std::make_unique<Main_Menu>(*menuBar());
    menu_->beforeAny([this] { finishEdit(); });
    statusBar_ = new Status_Bar(this);
    setStatusBar(statusBar_);
    client_ = new QWidget(this);
    setCentralWidget(client_);
    line1_ = new QFrame(client_);
    static_cast<QFrame*>(line1_)->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    giveName(*line1_, QStringLiteral("Line1"));
    splitter_ = new Split_Bar(client_);
    splitter_->onDrag = [this](int mouseY) { dragSplitter(mouseY); };
    splitter_->onDrop = [this] { dropSplitter(); };
    splitter_->onLeave = [this] { leaveSplitter(); };
    connect(new QShortcut(Qt::Key_F8, this), &QShortcut::activated, this, [this] { enterSplitter(); });
    frame2_ = new Caption_Box(QStringLiteral("Frame2"), QStringLiteral(" Configuration "), client_);
    frame3_ = new Caption_Box(QStringLiteral("Frame3"), QStringLiteral(" Settings "), client_);
    configuration_ = std::make_unique<Flex_Grid>(
        addGrid(*frame2_, QStringLiteral("FLX_Configuration"), QStringLiteral("Configuration")));
    configuration_->view().setSelectsRows(true);
    settings_ = std::make_unique<Flex_Grid>(
        addGrid(*frame3_, QStringLiteral("FLX_Settings"), QStringLiteral("Settings")));
    settings_->view().setEditable(true);
    settings_->view().setFitsColumns();
    tip_ = new Column_Tip(settings_->view(), client_);
    addMessageBar();
    setDesignSize();
}

Main_Window::~Main_Window() = default;

QWidget& Main_Window::Frame2() { return *frame2_; }

QWidget& Main_Window::Frame3() { return *frame3_; }

QWidget& Main_Window::PicLineHoriz() { return *splitter_; }

Flex_Grid_View& Main_Window::addGrid(QWidget& box, const QString& name, const QString& words) {
    auto* view = new Flex_Grid_View(&box);
    giveName(*view, name);
    view->setAccessibleName(words);
    return *view;
}

void Main_Window::addMessageBar() {
    messageBar_ = new Message_Bar_View(client_);
    messageBar_->setStopBefore(statusBar_->BOT_Log());
    messageBar_->onLeave = [this] { focusGrids(); };
    messageBar_->beforeButton = [this] { finishEdit(); };
    messageBar_->contentChanged = [this] { placeMessageBar(); };
    settings_->view().viewport()->installEventFilter(this);
    frame3_->installEventFilter(this);
}

/// Over the cells of the lower grid, so that its scroll bars stay free, and the grid scrolls that much
/// further. A grid that isn't seen has no viewport that fits; then the bar stands where the grid would be.
void Main_Window::placeMessageBar() {
    if (placingBar_) return;
    placingBar_ = true;
    Flex_Grid_View& grid = settings_->view();
    const bool seen = frame3_->isVisibleTo(client_) && !grid.isHidden();
    const QWidget& cells = seen ? *grid.viewport() : static_cast<QWidget&>(grid);
    const QPoint corner = frame3_->pos() + grid.pos() + (seen ? cells.pos() : QPoint());
    const int gridTop = frame3_->y() + grid.y();
    const Bar_Room room{QRect(corner, cells.size()), std::min(grid.height(), client_->height() - gridTop),
                        frame3_->geometry().bottom() + 1, client_->height(), messageBar_->lineHeight()};
    messageBar_->setCut(holdsOneLineOnly(room));
    const QRect place = barPlace(room, messageBar_->neededHeight(room.cells.width()));
    messageBar_->setGeometry(place);
    grid.setCoveredBelow(seen && !messageBar_->isEmpty() ? coveredCells(room, place) : 0);
    placingBar_ = false;
}

void Main_Window::focusGrids() {
    QWidget& lower = settings_->view();
    QWidget& grid = lower.isVisibleTo(this) ? lower : configuration_->view();
    grid.setFocus(Qt::OtherFocusReason);
}

/// Whatever had the keyboard may be gone since, as the button for the log of an earlier transfer is.
void Main_Window::giveFocusBack(QWidget& widget) {
    if (widget.isVisibleTo(this) && widget.isEnabled())
        widget.setFocus();
    else
        focusGrids();
}

/// The room of the cells changes with the grid's scroll bars, too.
bool Main_Window::eventFilter(QObject* watched, QEvent* event) {
    const bool cells = watched == settings_->view().viewport();
    const QEvent::Type type = event->type();
    const bool otherRoom =
        cells ? type == QEvent::Resize || type == QEvent::Move : type == QEvent::Show || type == QEvent::Hide;
    if (otherRoom)
        QMetaObject::invokeMethod(
            this, [this] { placeMessageBar(); }, Qt::QueuedConnection);
    return QMainWindow::eventFilter(watched, event);
}

/// Only somebody who presses Tab gets into the message bar: no part that is hidden or disabled sends the
/// keyboard there, nor does the key while the lower grid is no stop of it.
bool Main_Window::focusNextPrevChild(bool next) {
    const QWidget* from = focusWidget();
    const bool byKey = from != nullptr && from->isVisible() && from->isEnabled();
    const bool gridIsStop = (settings_->view().focusPolicy() & Qt::TabFocus) != 0;
    messageBar_->setTabStops(byKey && (gridIsStop || messageBar_->holdsFocus()));
    const bool moved = QMainWindow::focusNextPrevChild(next);
    messageBar_->setTabStops(true);
    return moved;
}

/// The inner area gets the design size, and the form stands in the middle of its screen.
void Main_Window::setDesignSize() {
    const Twips_Scale scale = scaleOf(*this);
    const QSize inner = scale.size(designWidth, designHeight);
    resize(inner.width(), inner.height() + menuBar()->heightForWidth(inner.width()));
    layout_ = designLayout(scale, scale.twipsX(width()), scale.twipsY(height()));
    move(screen()->availableGeometry().center() - rect().center());
    applyLayout();
}

void Main_Window::applyLayout() {
    frame2_->setGeometry(rounded(layout_.Frame2));
    frame3_->setGeometry(rounded(layout_.Frame3));
    splitter_->setGeometry(rounded(layout_.PicLineHoriz));
    line1_->setGeometry(0, 0, qRound(layout_.line1Right), 2);
    placeAt(configuration_->view(), layout_.FLX_Configuration);
    placeAt(settings_->view(), layout_.FLX_Settings);
    statusBar_->setPanelWidths(layout_.panelWidths);
    placeMessageBar();
}

void Main_Window::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    if (events.resizing) events.resizing(true);
    if (!isMinimized()) {
        layout_ = resized(layout_, scale().twipsX(width()), scale().twipsY(height()));
        applyLayout();
    }
    if (events.resizing) events.resizing(false);
}

void Main_Window::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // Whoever is told may hide the window, which Qt is about to show as minimized.
    if (event->type() == QEvent::WindowStateChange && isMinimized())
        QMetaObject::invokeMethod(
            this, [this] { tellMinimized(); }, Qt::QueuedConnection);
}

void Main_Window::tellMinimized() {
    if (isMinimized() && events.minimized) events.minimized();
}

void Main_Window::dragSplitter(int mouseY) {
    const QPoint statusTop = client_->mapFrom(this, statusBar_->geometry().topLeft());
    layout_.PicLineHoriz.top = splitterTop(layout_, mouseY, statusTop.y());
    splitter_->setGeometry(rounded(layout_.PicLineHoriz));
}

void Main_Window::dropSplitter() {
    layout_ = splitterReleased(layout_);
    applyLayout();
}

/// No stop of Tab: the key that goes to it is its own.
void Main_Window::enterSplitter() {
    if (!splitter_->isVisible() || splitter_->hasFocus()) return;
    focusBeforeSplitter_ = focusWidget();
    splitter_->setFocus();
}

void Main_Window::leaveSplitter() {
    QWidget* before = focusBeforeSplitter_ != nullptr ? focusBeforeSplitter_.data() : &settings_->view();
    before->setFocus();
}

Twips_Rect Main_Window::formRect() const {
    const bool filled = windowState().testFlag(Qt::WindowMaximized) && normalGeometry().isValid();
    const QSize size = filled ? normalGeometry().size() : this->size();
    const QPoint corner =
        filled ? normalGeometry().topLeft() - (geometry().topLeft() - frameGeometry().topLeft()) : pos();
    return {scale().twipsX(corner.x()), scale().twipsY(corner.y()), scale().twipsX(size.width()),
            scale().twipsY(size.height())};
}

void Main_Window::setFormRect(const Twips_Rect& place) {
    move(scale().pixelsX(place.left), scale().pixelsY(place.top));
    resize(scale().size(place.width, place.height));
}

/// The window itself stays enabled: a disabled one would disable the dialogs that it owns as well.
void Main_Window::setFormEnabled(bool enabled) {
    if (enabled == formEnabled_) return;
    formEnabled_ = enabled;
    if (!enabled) focusBeforeDisabling_ = focusWidget();
    menuBar()->setEnabled(enabled);
    client_->setEnabled(enabled);
    if (events.formEnabledSet) events.formEnabledSet(enabled);
    if (enabled && focusBeforeDisabling_ != nullptr) giveFocusBack(*focusBeforeDisabling_);
}

void Main_Window::finishEdit() {
    configuration_->view().finishEdit();
    settings_->view().finishEdit();
}

void Main_Window::closeEvent(QCloseEvent* event) {
    if (formEnabled_) finishEdit();
    const bool closes = formEnabled_ && (!events.queryClose || events.queryClose());
    event->setAccepted(closes);
}

void Main_Window::dragEnterEvent(QDragEnterEvent* event) {
    if (formEnabled_ && events.fileDropped && !draggedFile(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void Main_Window::dropEvent(QDropEvent* event) {
    const QString path = draggedFile(*event->mimeData());
    if (!formEnabled_ || path.isEmpty()) return;
    event->acceptProposedAction();
    finishEdit();
    // Whatever opens the file may ask questions; the program that the file came from doesn't wait for them.
    QMetaObject::invokeMethod(
        this,
        [this, path] {
            if (formEnabled_) events.fileDropped(path);
        },
        Qt::QueuedConnection);
}

} // namespace zorvane::ui
