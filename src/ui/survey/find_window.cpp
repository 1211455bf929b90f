// SPDX-License-Identifier: MIT
#include "ui/survey/find_window.h"

#include "ui/base/beside.h"
#include "ui/base/text.h"
#include "ui/survey/port_choice.h"
#include "ui/survey/rows_table.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace zorvane::ui {

namespace {

constexpr int findWidth = 720;
constexpr int findHeight = 520;
constexpr int noteLines = 4;

QStringList foundHeadings() {
    QStringList headings;
    for (const char* heading : survey::foundHeadings)
        headings += QString::fromLatin1(heading);
    return headings;
}

QLineEdit& addField(QFormLayout& form, const QString& words, const char* given, const QString& text) {
    auto* field = new QLineEdit(text);
    giveName(*field, QString::fromLatin1(given));
    field->setAccessibleName(QString(words).remove(u'&').remove(u':'));
    form.addRow(words, field);
    giveName(*form.labelForField(field), QStringLiteral("LBL_") + QLatin1String(given));
    return *field;
}

} // namespace

Find_Window::Find_Window(Find_Services services, const Port_Settings& present, QWidget* owner)
    : QDialog(owner), services_(std::move(services)), present_(present) {
    giveName(*this, QStringLiteral("FindControllers"));
    setWindowTitle(QStringLiteral("Find Controllers"));
    auto* whole = new QVBoxLayout(this);
    auto* form = new QFormLayout;
    whole->addLayout(form);
    addFields(*form);
    addProgress();
    addTable();
    addButtons();
    resize(withinScreen(*this, {findWidth, findHeight}));
    showState();
    port_->setFocus();
}

Find_Window::~Find_Window() = default;

void Find_Window::addFields(QFormLayout& form) {
    port_ = new Port_Choice(services_.finder, present_.port);
    form.addRow(QStringLiteral("&Port:"), port_);
    giveName(*form.labelForField(port_), QStringLiteral("LBL_CMB_Port"));
    units_ = &addField(form, QStringLiteral("U&nits:"), "EDT_Units", QStringLiteral("1-247"));
    settings_ = &addField(form, QStringLiteral("&Settings:"), "EDT_Settings", QString());
    settings_->setPlaceholderText(QStringLiteral("The likely ones; or some, such as 9600,n,8,1 19200,e,8,1"));
}

void Find_Window::addProgress() {
    tried_ = new QLabel(QStringLiteral("Only reads are sent. It listens first."));
    giveName(*tried_, QStringLiteral("LBL_Tried"));
    tried_->setTextFormat(Qt::PlainText);
    progress_ = new QProgressBar;
    giveName(*progress_, QStringLiteral("BAR_Progress"));
    progress_->setAccessibleName(QStringLiteral("Progress"));
    progress_->setRange(0, 1);
    progress_->setValue(0);
    layout()->addWidget(tried_);
    layout()->addWidget(progress_);
}

void Find_Window::addTable() {
    table_ = new Rows_Table(QStringLiteral("TBL_Found"), QStringLiteral("Controllers found"), foundHeadings(),
                            {6, 14, 16, 14, 14, 10});
    notes_ = new QPlainTextEdit;
    giveName(*notes_, QStringLiteral("TXT_Notes"));
    notes_->setAccessibleName(QStringLiteral("Notes"));
    notes_->setReadOnly(true);
    notes_->setTabChangesFocus(true);
    notes_->setFixedHeight(notes_->fontMetrics().lineSpacing() * noteLines + 12);
    auto* whole = static_cast<QBoxLayout*>(layout());
    whole->addWidget(table_, 1);
    whole->addWidget(notes_);
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { showState(); });
    connect(table_, &QTableView::doubleClicked, this, [this] {
        if (use_->isEnabled()) accept();
    });
}

void Find_Window::addButtons() {
    auto* row = new QHBoxLayout;
    const auto add = [&](const char* given, const QString& text) {
        auto* button = new QPushButton(text);
        giveName(*button, QString::fromLatin1(given));
        button->setAutoDefault(false);
        row->addWidget(button);
        return button;
    };
    find_ = add("BOT_Find", QStringLiteral("&Find"));
    row->addStretch();
    use_ = add("BOT_Use", QStringLiteral("&Use This One"));
    use_->setToolTip(QStringLiteral("Takes its port, settings and number into the port settings"));
    QPushButton* close = add("BOT_Close", QStringLiteral("&Close"));
    static_cast<QBoxLayout*>(layout())->addLayout(row);
    find_->setDefault(true);
    connect(find_, &QPushButton::clicked, this, [this] { startOrStop(); });
    connect(use_, &QPushButton::clicked, this, &QDialog::accept);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
}

survey::Find_Fields Find_Window::fields() const {
    return {port_->port(), units_->text().trimmed().toStdString(), settings_->text().toStdString()};
}

void Find_Window::startOrStop() {
    if (!running()) return start();
    stopping_ = true;
    if (search_) search_->stop();
    showState();
}

void Find_Window::start() {
    if (const std::string wrong = survey::fieldsFault(fields()); !wrong.empty())
        return notes_->setPlainText(QString::fromStdString(wrong));
    survey::Find_Wishes wishes = survey::wishesOf(fields(), present_);
    wishes.lastGood = services_.lastGood;
    searched_ = wishes.port.port;
    report_ = {};
    identities_.clear();
    stopping_ = false;
    notes_->clear();
    showFound();
    search_ = std::make_unique<survey::Line_Search>(
        services_.port, services_.clock, survey::searchPlan(wishes, services_.templates),
        [this](const survey::Search_Progress& progress) { showProgress(progress); });
    search_->start([this](const survey::Search_Report& report) {
        // The search is still at work when it tells this.
        QMetaObject::invokeMethod(
            this, [this, report] { searchEnded(report); }, Qt::QueuedConnection);
    });
    showState();
}

void Find_Window::showProgress(const survey::Search_Progress& progress) {
    tried_->setText(QString::fromStdString(survey::progressText(progress)));
    progress_->setRange(0, static_cast<int>(std::max<std::size_t>(progress.tried + progress.left, 1)));
    progress_->setValue(static_cast<int>(progress.tried));
    if (progress.found == report_.found.size()) return;
    report_.found = search_->foundSoFar();
    report_.linesCount = progress.linesCount;
    identities_.assign(report_.found.size(), {});
    showFound();
}

void Find_Window::searchEnded(const survey::Search_Report& report) {
    search_.reset();
    report_ = report;
    if (services_.keepLastGood) services_.keepLastGood(report_);
    identities_.assign(report_.found.size(), {});
    showFound();
    identifyAll();
    stopping_ = false;
    showNotes();
    showState();
    if (ending_) QDialog::done(*ending_);
}

/// Asks each controller whose it is, unless somebody wants the end or the line isn't ours alone.
void Find_Window::identifyAll() {
    if (!services_.identify || services_.templates.empty() || report_.end != survey::Search_End::Searched)
        return;
    identifying_ = true;
    showState();
    for (std::size_t i = 0; i < report_.found.size() && !stopping_; ++i) {
        const survey::Found_Unit& found = report_.found[i];
        Port_Settings settings = survey::settingsOfFound(present_, searched_, found, report_.linesCount);
        settings.timeOutMs = std::max(settings.timeOutMs, survey::proposedTimeOutMs(found.times));
        tried_->setText(QStringLiteral("Asking unit %1 whose it is").arg(found.unit));
        identities_[i] = services_.identify(settings, [this] { return stopping_; });
        showFound();
    }
    identifying_ = false;
}

void Find_Window::showFound() {
    std::vector<QStringList> rows;
    for (std::size_t i = 0; i < report_.found.size(); ++i) {
        QStringList row;
        for (const std::string& cell : survey::foundRow(report_.found[i], identities_[i], report_.linesCount))
            row += fromCore(cell);
        rows.push_back(row);
    }
    const bool first = table_->rows().rowCount() == 0 && !rows.empty();
    table_->rows().setRows(std::move(rows));
    if (first) table_->selectRow(0);
    showState();
}

void Find_Window::showNotes() {
    QStringList lines;
    for (const std::string& note : survey::findNotes(report_, searched_))
        lines += QString::fromStdString(note);
    notes_->setPlainText(lines.join(u'\n'));
    tried_->setText(QStringLiteral("%1 found by %2 requests in %3 s")
                        .arg(report_.found.size())
                        .arg(report_.requests)
                        .arg(report_.duration / microsPerSecond));
    if (report_.end == survey::Search_End::Searched) progress_->setValue(progress_->maximum());
}

int Find_Window::chosenRow() const {
    const int row = table_->chosen();
    return row < static_cast<int>(report_.found.size()) ? row : -1;
}

void Find_Window::showState() {
    if (find_ == nullptr) return;
    const bool idle = !running();
    find_->setText(idle ? QStringLiteral("&Find") : QStringLiteral("S&top"));
    find_->setEnabled(idle || !stopping_);
    use_->setEnabled(!stopping_ &&
                     chosenRow() >= 0); // whoever knows his controller needn't wait for the others
    for (QWidget* field :
         {static_cast<QWidget*>(port_), static_cast<QWidget*>(units_), static_cast<QWidget*>(settings_)})
        field->setEnabled(idle);
}

Port_Settings Find_Window::chosen() const {
    const int row = chosenRow();
    if (row < 0) return present_;
    return survey::settingsOfFound(present_, searched_, report_.found[static_cast<std::size_t>(row)],
                                   report_.linesCount);
}

/// What runs is stopped first; its end closes the window.
void Find_Window::done(int result) {
    if (!running()) return QDialog::done(result);
    ending_ = result;
    if (!stopping_) startOrStop();
}

} // namespace zorvane::ui
