// SPDX-License-Identifier: MIT
#include "ui/survey/listen_window.h"

#include "comm/modbus_control/line/network_port.h"
#include "comm/modbus_control/line/simulated_port.h"
#include "template/services/asker.h"
#include "ui/base/beside.h"
#include "ui/base/text.h"
#include "ui/survey/port_choice.h"
#include "ui/survey/rows_table.h"

#include <QDir>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace zorvane::ui {

namespace {

constexpr int listenWidth = 860;
constexpr int listenHeight = 520;
constexpr int listenNoteLines = 3;
constexpr int showPauseMs = 500;
constexpr qint64 copyPieceSize = 1024 * 1024;

QStringList askedHeadings() {
    QStringList headings;
    for (const char* heading : survey::askedHeadings)
        headings += QString::fromLatin1(heading);
    return headings;
}

} // namespace

Listen_Window::Listen_Window(Listen_Services services, const Port_Settings& present, QWidget* owner)
    : QDialog(owner), services_(std::move(services)) {
    giveName(*this, QStringLiteral("Listen"));
    setWindowTitle(QStringLiteral("Listen"));
    auto* whole = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    whole->addLayout(form);
    addFields(*form, present);
    addTable();
    addButtons();
    showTimer_.setSingleShot(true);
    showTimer_.setInterval(showPauseMs);
    connect(&showTimer_, &QTimer::timeout, this, [this] {
        if (listener_) showReport(listener_->reportSoFar());
    });
    connect(&copyTimer_, &QTimer::timeout, this, [this] { copyPiece(); });
    resize(withinScreen(*this, {listenWidth, listenHeight}));
    showState();
    port_->setFocus();
}

Listen_Window::~Listen_Window() = default;

void Listen_Window::addFields(QFormLayout& form, const Port_Settings& present) {
    port_ = new Port_Choice(services_.finder, present.port);
    form.addRow(QStringLiteral("&Port:"), port_);
    giveName(*form.labelForField(port_), QStringLiteral("LBL_CMB_Port"));
    const bool said = std::any_of(services_.templates.begin(), services_.templates.end(),
                                  [](const survey::Known_Template& known) { return known.line.has_value(); });
    const Line_Settings line = said ? survey::lineToListenTo("", services_.templates) : present.line;
    settings_ = new QLineEdit(QString::fromStdString(formatLineSettings(line)));
    giveName(*settings_, QStringLiteral("EDT_Settings"));
    settings_->setAccessibleName(QStringLiteral("Settings"));
    form.addRow(QStringLiteral("S&ettings:"), settings_);
    giveName(*form.labelForField(settings_), QStringLiteral("LBL_EDT_Settings"));
}

void Listen_Window::addTable() {
    sums_ = new QLabel(QStringLiteral("The port is opened for reading only: no byte is sent."));
    giveName(*sums_, QStringLiteral("LBL_Sums"));
    sums_->setTextFormat(Qt::PlainText);
    table_ = new Rows_Table(QStringLiteral("TBL_Asked"), QStringLiteral("Who is asked what"), askedHeadings(),
                            {5, 9, 14, 7, 11, 9, 8, 10, 11, 30});
    notes_ = new QPlainTextEdit;
    giveName(*notes_, QStringLiteral("TXT_Notes"));
    notes_->setAccessibleName(QStringLiteral("Notes"));
    notes_->setReadOnly(true);
    notes_->setTabChangesFocus(true);
    notes_->setFixedHeight(notes_->fontMetrics().lineSpacing() * listenNoteLines + 12);
    auto* whole = static_cast<QBoxLayout*>(layout());
    whole->addWidget(sums_);
    whole->addWidget(table_, 1);
    whole->addWidget(notes_);
}

void Listen_Window::addButtons() {
    auto* row = new QHBoxLayout;
    const auto add = [&](const char* given, const QString& text) {
        auto* button = new QPushButton(text);
        giveName(*button, QString::fromLatin1(given));
        button->setAutoDefault(false);
        row->addWidget(button);
        return button;
    };
    listen_ = add("BOT_Listen", QStringLiteral("&Listen"));
    saveAs_ = add("BOT_Save", QStringLiteral("&Save As..."));
    saveAs_->setToolTip(QStringLiteral("A file for Wireshark and tshark (pcapng)"));
    row->addStretch();
    QPushButton* close = add("BOT_Close", QStringLiteral("&Close"));
    static_cast<QBoxLayout*>(layout())->addLayout(row);
    listen_->setDefault(true);
    connect(listen_, &QPushButton::clicked, this, [this] { startOrStop(); });
    connect(saveAs_, &QPushButton::clicked, this, [this] { saveAs(); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

std::string Listen_Window::fault() const {
    const std::string port = port_->port();
    if (port.empty()) return "Choose a port, or type its name or path.";
    if (onNetwork(port) || port == simulatedPortName)
        return "Only a serial port can be listened to: other ports bring the answers to their own requests "
               "alone. Choose a serial port.";
    const std::string text = settings_->text().trimmed().toStdString();
    Port_Settings settings;
    const auto line = parseLineSettings(text);
    if (!line) return "\"" + text + "\" is not baud,parity,data bits,stop bits, as in 9600,n,8,1.";
    settings.line = *line;
    return settingsFault(settings);
}

void Listen_Window::startOrStop() {
    if (running()) return listener_->stop();
    start();
}

void Listen_Window::start() {
    if (const std::string wrong = fault(); !wrong.empty())
        return notes_->setPlainText(QString::fromStdString(wrong));
    plan_ = {port_->port(),
             parseLineSettings(settings_->text().trimmed().toStdString()).value_or(Line_Settings{}),
             {},
             {}};
    held_ = std::make_unique<QTemporaryFile>(QDir::tempPath() + QStringLiteral("/zorvane-XXXXXX.pcapng"));
    capture_.reset();
    if (held_->open()) capture_.emplace(held_->fileName().toStdString(), plan_.port, services_.sinceEpoch);
    notes_->clear();
    listener_ = std::make_unique<survey::Line_Listener>(
        services_.port, services_.clock, plan_, [this](const survey::Heard_Frame& frame) { heard(frame); });
    listener_->start([this](const survey::Listening_Report& report) {
        // The listener is still at work when it tells this.
        QMetaObject::invokeMethod(
            this, [this, report] { ended(report); }, Qt::QueuedConnection);
    });
    showReport({});
    showState();
}

void Listen_Window::heard(const survey::Heard_Frame& frame) {
    if (capture_) capture_->add(frame);
    if (!showTimer_.isActive()) showTimer_.start();
}

void Listen_Window::ended(const survey::Listening_Report& report) {
    listener_.reset();
    showTimer_.stop();
    showReport(report);
    showNotes(report);
    showState();
    if (closing_) QDialog::done(QDialog::Rejected);
}

void Listen_Window::showReport(const survey::Listening_Report& report) {
    sums_->setText(QString::fromStdString(survey::heardText(report, plan_.line)));
    std::vector<QStringList> rows;
    for (const auto& [asked, asking] : report.table.askings()) {
        QStringList row;
        for (const std::string& cell : survey::askedRow(asked, asking, services_.templates))
            row += fromCore(cell);
        rows.push_back(row);
    }
    table_->rows().setRows(std::move(rows));
    showState();
}

void Listen_Window::showNotes(const survey::Listening_Report& report) {
    QStringList lines;
    for (const std::string& note : survey::listenNotes(report, plan_.port, plan_.line, "Try others."))
        lines += QString::fromStdString(note);
    if (capture_ && !capture_->good())
        lines += QStringLiteral("What was heard couldn't be kept for saving: is the disk of %1 full?")
                     .arg(QDir::tempPath());
    notes_->setPlainText(lines.join(u'\n'));
}

void Listen_Window::showState() {
    if (listen_ == nullptr) return;
    listen_->setText(running() ? QStringLiteral("S&top") : QStringLiteral("&Listen"));
    saveAs_->setEnabled(capture_ && capture_->good() && !saving());
    port_->setEnabled(!running());
    settings_->setEnabled(!running());
}

void Listen_Window::saveAs() {
    SaveFile.FileName.clear();
    SaveFile.DialogTitle = QStringLiteral("Save what was heard as...");
    SaveFile.Filter = QStringLiteral("Capture for Wireshark (*.pcapng)|*.pcapng|");
    SaveFile.DefaultExt = QStringLiteral("pcapng");
    SaveFile.Flags = File_Dialog::OverwritePrompt;
    if (!SaveFile.ShowSave(this) || save(SaveFile.FileName)) return;
    services_.ask(QStringLiteral("The file can't be written:\n%1\n\nChoose another folder or name.")
                      .arg(SaveFile.FileName),
                  Msgb_Critical, QStringLiteral("Zorvane"));
}

bool Listen_Window::save(const QString& path) {
    if (!capture_ || !capture_->end()) return false;
    auto from = std::make_unique<QFile>(held_->fileName());
    auto to = std::make_unique<QFile>(path);
    if (!from->open(QIODevice::ReadOnly) || !to->open(QIODevice::WriteOnly)) return false;
    copyFrom_ = std::move(from);
    copyTo_ = std::move(to);
    copyTimer_.start(0);
    showState();
    return true;
}

void Listen_Window::copyPiece() {
    const QByteArray piece = copyFrom_->read(copyPieceSize);
    const bool written = copyTo_->write(piece) == piece.size() && copyTo_->flush();
    if (written && !copyFrom_->atEnd()) return;
    copyTimer_.stop();
    const QString path = copyTo_->fileName();
    copyFrom_.reset();
    copyTo_.reset();
    notes_->setPlainText(written ? QStringLiteral("Saved: %1").arg(path)
                                 : QStringLiteral("The file can't be written to its end: %1").arg(path));
    showState();
    if (closing_ && !running()) QDialog::done(QDialog::Rejected);
}

/// What runs is stopped first; its end closes the window.
void Listen_Window::done(int result) {
    if (!running() && !saving()) return QDialog::done(result);
    closing_ = true;
    if (running()) listener_->stop();
}

} // namespace zorvane::ui
