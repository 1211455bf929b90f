// SPDX-License-Identifier: MIT
#include "ui/line/port_test_box.h"

#include "comm/modbus_control/line/simulated_port.h"
#include "ui/base/text.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>

#include <utility>

namespace zorvane::ui {

namespace {

// At least, on a small screen; more where there is room.
constexpr int verdictLines = 5;
constexpr int diagnosisLines = 3;

QString fromReport(const std::string& text) { return QString::fromStdString(text); }

/// Whether one read can't tell what is wrong.
bool needsVisit(const Trial_Request& request, Verdict_Kind kind) {
    if (request.settings.port == simulatedPortName) return false;
    return kind == Verdict_Kind::Silence || kind == Verdict_Kind::Damaged || kind == Verdict_Kind::Echo ||
           kind == Verdict_Kind::Stranger;
}

} // namespace

Port_Test_Box::Port_Test_Box(Port_Test_Services services) : services_(std::move(services)) {
    auto* whole = new QHBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    auto* column = new QWidget;
    auto* buttons = new QVBoxLayout(column);
    buttons->setContentsMargins(0, 0, 0, 0);
    testButton_ =
        &addButton(*column, "BOT_Test", QStringLiteral("&Test"),
                   QStringLiteral("Reads one register with what is entered"), [this] { startOrStop(); });
    timesButton_ =
        &addButton(*column, "BOT_Times", QStringLiteral("Ans&wer Times"),
                   QStringLiteral("Reads one register fifty times and proposes a time-out"), [this] {
                       verdict_->clear(); // it may be of other settings
                       startVisit();
                   });
    timeOutButton_ = &addButton(*column, "BOT_TimeOut", QStringLiteral("Ta&ke Time-out"),
                                QStringLiteral("Enters the time-out that the answer times suggest"),
                                [this] { takeTimeOut(); });
    copyButton_ =
        &addButton(*column, "BOT_Copy", QStringLiteral("&Copy Report"),
                   QStringLiteral("Copies what was tried and what came of it"), [this] { copyReport(); });
    buttons->addStretch();
    whole->addWidget(column);
    auto* texts = new QVBoxLayout;
    whole->addLayout(texts, 1);
    verdict_ = &addText("TXT_Verdict", QStringLiteral("Result of the test"), verdictLines);
    diagnosis_ = &addText("TXT_Diagnosis", QStringLiteral("What further reads showed"), diagnosisLines);
    texts->addWidget(verdict_, 1);
    texts->addWidget(diagnosis_, 1);
    showState();
}

Port_Test_Box::~Port_Test_Box() {
    if (running()) stop();
}

QPushButton& Port_Test_Box::addButton(QWidget& column, const char* name, const QString& text,
                                      const QString& tip, std::function<void()> chosen) {
    auto* button = new QPushButton(text);
    giveName(*button, QString::fromLatin1(name));
    button->setToolTip(tip);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, std::move(chosen));
    column.layout()->addWidget(button);
    return *button;
}

QPlainTextEdit& Port_Test_Box::addText(const char* name, const QString& words, int lines) {
    auto* text = new QPlainTextEdit;
    giveName(*text, QString::fromLatin1(name));
    text->setAccessibleName(words);
    text->setReadOnly(true);
    text->setTabChangesFocus(true);
    text->setMinimumHeight(text->fontMetrics().lineSpacing() * lines);
    return *text;
}

void Port_Test_Box::say(const std::string& text) { verdict_->setPlainText(fromReport(text)); }

void Port_Test_Box::startOrStop() {
    if (!running()) return startTest();
    const bool further = visit_ != nullptr;
    stop();
    if (further)
        diagnosis_->setPlainText(QStringLiteral("The further reads were stopped."));
    else
        say("The test was stopped.");
}

/// Whether what is entered can be tried.
bool Port_Test_Box::begins() {
    report_.clear();
    proposedTimeOutMs_ = 0;
    diagnosis_->clear();
    const std::string wrong = services_.fault();
    if (!wrong.empty()) say(wrong);
    showState();
    return wrong.empty();
}

void Port_Test_Box::startTest() {
    if (!begins()) return;
    const Trial_Request request = services_.request();
    say("Testing...");
    if (services_.lendPort) services_.lendPort();
    test_.reset(); // whoever is made last hears the port
    test_ = std::make_unique<Trial_Exchange>(services_.port, services_.clock);
    test_->start(request, [this, request](const Trial_Report& report) { tested(request, report); });
    showState();
}

void Port_Test_Box::tested(const Trial_Request& request, const Trial_Report& report) {
    stop();
    const Trial_Verdict verdict = trialVerdict(request, report);
    say(verdictText(verdict));
    if (needsVisit(request, verdict.kind)) startVisit();
}

void Port_Test_Box::startVisit() {
    if (!begins()) return;
    const Trial_Request request = services_.request();
    asked_ = request.settings;
    asked_.timeOutMs = request.timeOutMs;
    diagnosis_->setPlainText(QStringLiteral("Looking further..."));
    if (services_.lendPort) services_.lendPort();
    visit_ = std::make_unique<survey::Doctor_Visit>(
        services_.port, services_.clock, asked_, request.wireAddress, [this](const std::string& tried) {
            diagnosis_->setPlainText(QStringLiteral("Looking further: ") + fromReport(tried));
        });
    visit_->start([this](const survey::Diagnosis& diagnosis) {
        // The visit is still at work when it tells this.
        QMetaObject::invokeMethod(
            this, [this, diagnosis] { visited(diagnosis); }, Qt::QueuedConnection);
    });
    showState();
}

void Port_Test_Box::visited(const survey::Diagnosis& diagnosis) {
    if (!visit_) return; // stopped meanwhile
    stop();
    report_ = survey::reportText(asked_, diagnosis);
    proposedTimeOutMs_ = diagnosis.proposedTimeOutMs;
    QString text = fromReport(diagnosis.sentence);
    if (proposedTimeOutMs_ > 0 && services_.templateTimeOutMs > 0)
        text +=
            QStringLiteral(" The template's time-out of %1 ms is in force.").arg(services_.templateTimeOutMs);
    diagnosis_->setPlainText(text + QStringLiteral("\n\n") + fromReport(report_));
    showState();
}

void Port_Test_Box::stop() {
    if (test_) test_->cancel();
    if (visit_) visit_->cancel();
    visit_.reset();
    if (services_.takePortBack) services_.takePortBack();
    showState();
}

void Port_Test_Box::takeTimeOut() { services_.takeTimeOut(proposedTimeOutMs_); }

void Port_Test_Box::copyReport() const {
    const QString verdict = verdict_->toPlainText();
    QApplication::clipboard()->setText((verdict.isEmpty() ? QString() : verdict + QStringLiteral("\n\n")) +
                                       fromReport(report_));
}

void Port_Test_Box::showState() {
    testButton_->setText(running() ? QStringLiteral("S&top") : QStringLiteral("&Test"));
    timesButton_->setEnabled(!running());
    copyButton_->setEnabled(!report_.empty());
    timeOutButton_->setEnabled(proposedTimeOutMs_ > 0 && services_.templateTimeOutMs <= 0);
    timeOutButton_->setText(proposedTimeOutMs_ > 0 ? QStringLiteral("Ta&ke %1 ms").arg(proposedTimeOutMs_)
                                                   : QStringLiteral("Ta&ke Time-out"));
}

} // namespace zorvane::ui
