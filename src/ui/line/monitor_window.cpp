// SPDX-License-Identifier: MIT
#include "ui/line/monitor_window.h"

#include "template/services/asker.h"
#include "ui/base/beside.h"
#include "ui/base/roles.h"
#include "ui/base/text.h"
#include "ui/line/traffic_file_window.h"

#include <QAction>
#include <QApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSaveFile>
#include <QScreen>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace zorvane::ui {

namespace {

constexpr int startWidth = 980;
constexpr int startHeight = 480;
const QString trafficFilter = QStringLiteral("Traffic, a line of JSON a row (*.jsonl)|*.jsonl|");

} // namespace

Monitor_Window::Monitor_Window(Link_Clock& clock, Micros midnight, Ask_User ask, QWidget* owner,
                               Monitor_Line line)
    : QWidget(owner, Qt::Window), clock_(clock), ask_(std::move(ask)), line_(std::move(line)),
      model_(midnight),
      sinceEpoch_(QDate::currentDate().startOfDay().toMSecsSinceEpoch() * microsPerMs - midnight),
      feed_([this](std::vector<Traffic_Entry> entries) { showNew(std::move(entries)); }) {
    giveRole(*this, QAccessible::Window);
    giveName(*this, QStringLiteral("ModbusMonitor"));
    setWindowTitle(QStringLiteral("Modbus Monitor"));
    feed_.entrySeen = [this](const Traffic_Entry& entry) { take(entry); };
    auto* whole = new QVBoxLayout(this);
    whole->addWidget(makeButtons());
    view_ = new Traffic_View(model_);
    whole->addWidget(view_, 1);
    whole->addWidget(makeTimes());
    resize(withinScreen(*this, {startWidth, startHeight}));
    auto* escape = new QAction(this);
    escape->setShortcut(Qt::Key_Escape);
    connect(escape, &QAction::triggered, this, &QWidget::close);
    addAction(escape);
    view_->table().setFocus(); // not a button, which a key would press at once
    showCount();
    showTimes();
}

void Monitor_Window::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    feed_.setWatched(true);
}

void Monitor_Window::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    feed_.setWatched(false);
}

QWidget* Monitor_Window::makeButtons() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    addSwitch(*row, "BOT_Pause", QStringLiteral("&Pause"), [this](bool held) {
        feed_.setHeld(held);
        showCount();
    });
    addButton(*row, "BOT_Clear", QStringLiteral("C&lear"), [this] { clear(); });
    addButton(*row, "BOT_Copy", QStringLiteral("&Copy"), [this] { view_->copy(); });
    addButton(*row, "BOT_Save", QStringLiteral("&Save..."), [this] { saveAs(); });
    toFile_ =
        &addSwitch(*row, "BOT_To_File", QStringLiteral("To &File..."), [this](bool on) { setFileOn(on); });
    toFile_->setToolTip(QStringLiteral("Writes all traffic to a file as it comes"));
    addButton(*row, "BOT_Open", QStringLiteral("&Open..."), [this] { openFile(); });
    count_ = new QLabel;
    giveName(*count_, QStringLiteral("LBL_Count"));
    count_->setWordWrap(true); // a small screen has no room for the file's name beside the buttons
    count_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout->addWidget(count_, 1);
    return row;
}

QWidget* Monitor_Window::makeTimes() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    timesText_ = new QLabel;
    giveName(*timesText_, QStringLiteral("LBL_Times"));
    timesText_->setTextFormat(Qt::PlainText);
    timesText_->setWordWrap(true);
    layout->addWidget(timesText_, 1);
    timeOut_ = &addButton(*row, "BOT_TimeOut", QStringLiteral("&Take Time-out"), [this] { takeTimeOut(); });
    return row;
}

QPushButton& Monitor_Window::addButton(QWidget& row, const char* name, const QString& text,
                                       std::function<void()> chosen) {
    auto* button = new QPushButton(text);
    giveName(*button, QString::fromLatin1(name));
    if (chosen) connect(button, &QPushButton::clicked, this, std::move(chosen));
    row.layout()->addWidget(button);
    return *button;
}

/// Not clicked: a screen reader toggles without a click.
QPushButton& Monitor_Window::addSwitch(QWidget& row, const char* name, const QString& text,
                                       std::function<void(bool)> toggled) {
    QPushButton& button = addButton(row, name, text, nullptr);
    button.setCheckable(true);
    connect(&button, &QPushButton::toggled, this, std::move(toggled));
    return button;
}

/// The link is at work when it tells this.
void Monitor_Window::take(const Traffic_Entry& entry) {
    if (const auto* exchange = std::get_if<Exchange_Record>(&entry); exchange != nullptr && line_.settings)
        times_.add(*exchange, line_.settings());
    if (!file_) return;
    file_->write(entry);
    if (file_->good()) return;
    fileFailed_ = true;
    QMetaObject::invokeMethod(
        this, [this] { toFile_->setChecked(false); }, Qt::QueuedConnection);
}

void Monitor_Window::showNew(std::vector<Traffic_Entry> entries) {
    view_->add(std::move(entries));
    showCount();
    showTimes();
}

void Monitor_Window::showCount() {
    QString text = QStringLiteral("%1 rows").arg(model_.rowCount());
    if (feed_.held()) text += QStringLiteral(", paused");
    if (file_)
        text += QStringLiteral(", to ") + QFileInfo(QString::fromStdString(file_->present())).fileName();
    if (fileFailed_) text += QStringLiteral(", the file can't be written any more");
    count_->setText(text);
}

void Monitor_Window::showTimes() {
    timesText_->setText(QString::fromStdString(times_.text()));
    const std::int32_t proposed = times_.proposedTimeOutMs();
    const bool counts = line_.takeTimeOut && !line_.timeOutOfTemplate();
    const bool other = proposed > 0 && line_.takeTimeOut && line_.settings().timeOutMs != proposed;
    timeOut_->setText(proposed > 0 ? QStringLiteral("&Take a Time-out of %1 ms").arg(proposed)
                                   : QStringLiteral("&Take Time-out"));
    timeOut_->setToolTip(!counts ? QStringLiteral("The template's time-out is in force")
                         : proposed > 0
                             ? QStringLiteral("What the answer times suggest")
                             : QStringLiteral("Proposed after %1 reads").arg(survey::readsForProposal));
    timeOut_->setEnabled(counts && other);
}

void Monitor_Window::takeTimeOut() {
    line_.takeTimeOut(times_.proposedTimeOutMs());
    showTimes();
}

void Monitor_Window::clear() {
    feed_.clear();
    model_.clear();
    showCount();
}

QString Monitor_Window::text() const { return view_->text(); }

bool Monitor_Window::askForFile(bool save, const QString& title, const QString& filter,
                                const QString& ending) {
    OpenFile.FileName.clear();
    OpenFile.DialogTitle = title;
    OpenFile.Filter = filter;
    OpenFile.DefaultExt = ending;
    OpenFile.Flags = save ? File_Dialog::OverwritePrompt : File_Dialog::HideReadOnly;
    return save ? OpenFile.ShowSave(this) : OpenFile.ShowOpen(this);
}

void Monitor_Window::saveAs() {
    if (!askForFile(true, QStringLiteral("Save the monitor as..."),
                    QStringLiteral("Text with tabs (*.txt)|*.txt|"), QStringLiteral("txt")) ||
        save(OpenFile.FileName))
        return;
    ask_(QStringLiteral("The file can't be written:\n%1\n\nChoose another folder or name.")
             .arg(OpenFile.FileName),
         Msgb_Critical, QStringLiteral("Zorvane"));
}

bool Monitor_Window::startFile(const QString& path) {
    fileFailed_ = false;
    file_.emplace(files_, clock_, path.toStdString(), sinceEpoch_);
    if (!file_->good()) file_.reset();
    showCount();
    return file_.has_value();
}

void Monitor_Window::setFileOn(bool on) {
    if (!on) {
        file_.reset();
        files_.end();
        return showCount();
    }
    const bool chosen =
        askForFile(true, QStringLiteral("Write all traffic to..."), trafficFilter, QStringLiteral("jsonl"));
    if (chosen && startFile(OpenFile.FileName)) return;
    toFile_->setChecked(false);
    if (!chosen) return;
    ask_(QStringLiteral("The file can't be written:\n%1\n\nChoose another folder or name.")
             .arg(OpenFile.FileName),
         Msgb_Critical, QStringLiteral("Zorvane"));
}

/// A window of its own: what this one has collected stays.
void Monitor_Window::openFile() {
    if (!askForFile(false, QStringLiteral("Open traffic..."), trafficFilter, QStringLiteral("jsonl"))) return;
    auto* window = new Traffic_File_Window(OpenFile.FileName, parentWidget());
    window->setAttribute(Qt::WA_DeleteOnClose);
    if (window->opened()) return window->show();
    delete window;
    ask_(QStringLiteral("The file can't be read:\n%1\n\nChoose another one.").arg(OpenFile.FileName),
         Msgb_Critical, QStringLiteral("Zorvane"));
}

bool Monitor_Window::save(const QString& path) const {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Text) && file.write(text().toUtf8()) >= 0 &&
           file.commit();
}

Window_Place Monitor_Window::place() const {
    const Twips_Scale scale = scaleOf(*this);
    return {static_cast<std::int32_t>(scale.twipsX(x())), static_cast<std::int32_t>(scale.twipsY(y())),
            static_cast<std::int32_t>(scale.twipsX(width())),
            static_cast<std::int32_t>(scale.twipsY(height()))};
}

void Monitor_Window::setPlace(const Window_Place& place) {
    const Twips_Scale scale = scaleOf(*this);
    const QRect wanted(scale.pixelsX(place.left), scale.pixelsY(place.top), scale.pixelsX(place.width),
                       scale.pixelsY(place.height));
    if (wanted.isEmpty()) return;
    resize(wanted.size().boundedTo(screen()->virtualSize())); // stored numbers know no bounds
    const QList<QScreen*> screens = QApplication::screens();
    const bool seen = std::any_of(screens.begin(), screens.end(), [&wanted](const QScreen* screen) {
        return screen->availableGeometry().intersects(wanted);
    });
    if (seen) move(wanted.topLeft());
}

} // namespace zorvane::ui
