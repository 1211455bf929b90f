// SPDX-License-Identifier: MIT
#include "app/sending/send_window.h"

#include "app/sending/send_table.h"
#include "commission/desk/desk_words.h"
#include "ui/base/text.h"
#include "ui/base/twips_scale.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace zorvane::app {

using commission::Desk_Stage;
using commission::Desk_State;
using commission::Desk_Task;

namespace {

constexpr double windowWidth = 13500; // twips
constexpr double windowHeight = 8400;
constexpr int evidenceLines = 3;

QString shown(const std::string& utf8) { return QString::fromStdString(utf8); }

/// A screen reader is told of it at once.
void tellAlert(QLabel& label) {
    QAccessibleEvent told(&label, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}

QLabel& addLabel(QVBoxLayout& layout, QWidget& parent, const char* name) {
    auto* label = new QLabel(&parent);
    ui::giveName(*label, QString::fromLatin1(name));
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    layout.addWidget(label);
    return *label;
}

} // namespace

Send_Window::Send_Window(commission::Send_Desk& desk, Send_Window_Hooks hooks, QWidget* parent)
    : QDialog(parent), desk_(desk), hooks_(std::move(hooks)) {
    ui::giveName(*this, QStringLiteral("FrmSend"));
    setWindowTitle(QStringLiteral("Send Changes"));
    new QVBoxLayout(this);
    addWords();
    addQuestion();
    addTable();
    addButtons();
    resize(ui::scaleOf(*this).size(windowWidth, windowHeight));
    refresh();
}

// Its parts.

void Send_Window::addWords() {
    auto& column = static_cast<QVBoxLayout&>(*layout());
    headline_ = &addLabel(column, *this, "LBL_Headline");
    QFont strong = headline_->font();
    strong.setBold(true);
    headline_->setFont(strong);
    identity_ = &addLabel(column, *this, "LBL_Identity");
    evidence_ = new QListWidget(this);
    ui::giveName(*evidence_, QStringLiteral("LST_Evidence"));
    evidence_->setAccessibleName(QStringLiteral("What speaks for and against it"));
    evidence_->setWordWrap(true);
    column.addWidget(evidence_);
    notice_ = &addLabel(column, *this, "LBL_Notice");
}

void Send_Window::addQuestion() {
    auto* line = new QHBoxLayout;
    modelWords_ = new QLabel(QStringLiteral("&Model:"), this);
    ui::giveName(*modelWords_, QStringLiteral("LBL_Model"));
    model_ = new QLineEdit(this);
    ui::giveName(*model_, QStringLiteral("TXT_Model"));
    model_->setAccessibleName(QStringLiteral("Model"));
    modelWords_->setBuddy(model_);
    goOn_ = new QPushButton(QStringLiteral("&Go on"), this);
    ui::giveName(*goOn_, QStringLiteral("BOT_GoOn"));
    goOn_->setAutoDefault(false);
    line->addWidget(modelWords_);
    line->addWidget(model_, 1);
    line->addWidget(goOn_);
    line->addStretch(1);
    static_cast<QVBoxLayout*>(layout())->addLayout(line);
    connect(model_, &QLineEdit::textChanged, this, [this] { showQuestion(); });
    connect(goOn_, &QPushButton::clicked, this, [this] { goOn(); });
    model_->installEventFilter(this);
}

void Send_Window::addTable() {
    table_ = new Send_Table(this);
    table_->ticked = [this](std::size_t row, bool on) { press([this, row, on] { desk_.tick(row, on); }); };
    auto& column = static_cast<QVBoxLayout&>(*layout());
    column.addWidget(table_, 1);
    sum_ = &addLabel(column, *this, "LBL_Sum");
    progress_ = new QProgressBar(this);
    ui::giveName(*progress_, QStringLiteral("PGB_Progress"));
    progress_->setAccessibleName(QStringLiteral("Progress"));
    column.addWidget(progress_);
}

void Send_Window::addButtons() {
    auto* row = new QHBoxLayout;
    const auto add = [&](const char* name, const char* text, std::function<void()> handler) {
        auto* button = new QPushButton(QString::fromLatin1(text), this);
        ui::giveName(*button, QString::fromLatin1(name));
        button->setAutoDefault(false);
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this,
                [this, handler = std::move(handler)] { press(handler); });
        return button;
    };
    all_ = add("BOT_All", "Tick &all", [this] { desk_.tickAll(true); });
    none_ = add("BOT_None", "Tick &none", [this] { desk_.tickAll(false); });
    row->addStretch(1);
    retry_ = add("BOT_Retry", "Retry &failed", [this] { desk_.retryFailed(); });
    resume_ = add("BOT_Resume", "Res&ume", [this] { desk_.resumeInterrupted(); });
    restore_ = add("BOT_Restore", "Res&tore...", [this] { desk_.restoreLast(); });
    record_ = add("BOT_Record", "Re&cord...", [this] { hooks_.record(); });
    row->addStretch(1);
    act_ = add("BOT_Send", "&Send", [this] { desk_.act(); });
    close_ = add("BOT_Close", "C&lose", [this] { reject(); });
    static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

// What it shows.

void Send_Window::refresh() {
    showWords();
    showQuestion();
    showRows();
    showProgress();
    showButtons();
    settleFocus();
    if (closesAfter_ && !desk_.atWork()) QDialog::reject();
}

void Send_Window::showWords() {
    const Desk_State& state = desk_.state();
    const QString headline = shown(commission::headline(state));
    if (headline != headline_->text()) {
        headline_->setText(headline);
        if (state.stage != Desk_Stage::Sending) tellAlert(*headline_);
    }
    const QString notice = shown(commission::notice(state));
    const bool otherNotice = notice != notice_->text();
    notice_->setText(notice);
    notice_->setVisible(!notice.isEmpty());
    if (otherNotice && !notice.isEmpty()) tellAlert(*notice_);
    identity_->setVisible(state.identity.has_value());
    QStringList evidence;
    if (state.identity) {
        identity_->setText(shown(commission::identityText(*state.identity)));
        for (const std::string& text : commission::evidenceTexts(*state.identity))
            evidence << shown(text);
    }
    evidence_->setVisible(!evidence.isEmpty());
    QStringList there;
    for (int i = 0; i < evidence_->count(); ++i)
        there << evidence_->item(i)->text();
    if (there == evidence) return;
    evidence_->clear();
    evidence_->addItems(evidence);
    const int lines = std::clamp(static_cast<int>(evidence.size()), 1, evidenceLines);
    evidence_->setFixedHeight(evidence_->sizeHintForRow(0) * lines + 2 * evidence_->frameWidth());
}

void Send_Window::showQuestion() {
    const Desk_Stage stage = desk_.state().stage;
    const bool asksModel = stage == Desk_Stage::Model_Asked;
    modelWords_->setVisible(asksModel);
    model_->setVisible(asksModel);
    goOn_->setVisible(asksModel || stage == Desk_Stage::Serial_Asked);
    goOn_->setEnabled(!asksModel || !model_->text().trimmed().isEmpty());
}

void Send_Window::showRows() {
    const Desk_State& state = desk_.state();
    const bool other =
        table_->rowCount() != static_cast<int>(state.rows.size()) || shownStage_ != state.stage;
    table_->showRows(state, other);
    sum_->setText(shown(commission::sumLine(state)));
}

void Send_Window::showProgress() {
    const Desk_State& state = desk_.state();
    const bool sends = state.stage == Desk_Stage::Sending;
    progress_->setVisible(sends || state.stage == Desk_Stage::Looking);
    progress_->setRange(0, sends ? std::max(1, static_cast<int>(state.writes)) : 0);
    if (sends) progress_->setValue(static_cast<int>(state.done));
    progress_->setFormat(QStringLiteral("%v of %m writes"));
}

void Send_Window::showButtons() {
    const Desk_State& state = desk_.state();
    const bool ready = state.stage == Desk_Stage::Ready;
    const bool sends = ready && state.task == Desk_Task::Send;
    const bool ended = state.stage == Desk_Stage::Ended || state.stage == Desk_Stage::Stopped;
    const bool interrupted = !state.interrupted.empty() && (sends || ended);
    all_->setVisible(state.task == Desk_Task::Send && !ended);
    none_->setVisible(all_->isVisibleTo(this));
    all_->setEnabled(sends);
    none_->setEnabled(sends);
    retry_->setVisible(ended);
    retry_->setEnabled(desk_.canRetry());
    resume_->setVisible(interrupted);
    restore_->setVisible(interrupted || ended);
    restore_->setEnabled(interrupted || !state.restorable.empty());
    record_->setVisible(ended);
    record_->setEnabled(!state.run.empty());
    act_->setText(QStringLiteral("&") + QString::fromLatin1(commission::actCaption(state.task).data()));
    act_->setVisible(!ended);
    act_->setEnabled(commission::canAct(state));
    const bool working = state.stage == Desk_Stage::Looking || state.stage == Desk_Stage::Sending;
    close_->setText(working ? QStringLiteral("Cance&l") : QStringLiteral("C&lose"));
    close_->setEnabled(!state.stopping);
}

/// Where the keyboard is when something new is shown.
void Send_Window::settleFocus() {
    const Desk_Stage stage = desk_.state().stage;
    if (shownStage_ == stage) return;
    shownStage_ = stage;
    switch (stage) {
    case Desk_Stage::Model_Asked:
        model_->clear();
        return model_->setFocus();
    case Desk_Stage::Ready:
    case Desk_Stage::Ended:
        return desk_.state().rows.empty() ? close_->setFocus() : table_->setFocus();
    case Desk_Stage::Looking:
    case Desk_Stage::Stopped:
    case Desk_Stage::Serial_Asked:
    case Desk_Stage::Sending:
        break;
    }
    close_->setFocus();
}

// What is pressed.

void Send_Window::press(const std::function<void()>& handler) { hooks_.run(handler); }

void Send_Window::goOn() {
    if (desk_.state().stage == Desk_Stage::Serial_Asked) return press([this] { desk_.agreeToSerial(); });
    press([this] {
        if (!desk_.agreeToModel(ui::toCore(model_->text()))) model_->selectAll();
    });
}

void Send_Window::reject() {
    if (!desk_.atWork()) return QDialog::reject();
    closesAfter_ = desk_.state().stage != Desk_Stage::Sending;
    desk_.stop();
}

bool Send_Window::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (watched == model_ && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        if (goOn_->isEnabled()) goOn();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

} // namespace zorvane::app
