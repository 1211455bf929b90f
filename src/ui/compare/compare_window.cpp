// SPDX-License-Identifier: MIT
#include "ui/compare/compare_window.h"

#include "compare/comparison_words.h"
#include "ui/base/text.h"
#include "ui/base/twips_scale.h"
#include "ui/compare/comparison_table.h"
#include "ui/compare/side_bar.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include <utility>

namespace zorvane::ui {

namespace {

constexpr double compareWidth = 14400; // twips
constexpr double compareHeight = 8400;
constexpr double widestPart = 0.95; // of the screen
constexpr int rowLines = 2;         // of text for the whole row

QLabel* namedLabel(const char* name, QWidget* parent) {
    auto* label = new QLabel(parent);
    giveName(*label, QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace

Compare_Window::Compare_Window(QWidget* parent) : QDialog(parent) {
    giveName(*this, QStringLiteral("FrmCompare"));
    setWindowTitle(QStringLiteral("Compare"));
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeSides());
    layout->addWidget(makeMiddle());
    layout->addWidget(makeFilterLine());
    makeTable();
    layout->addWidget(table_, 1);
    makeRowLine();
    layout->addWidget(row_);
    layout->addWidget(makeStateLine());
    note_ = namedLabel("LBL_Note", this);
    note_->setWordWrap(true);
    note_->hide();
    layout->addWidget(note_);
    layout->addWidget(makeButtons());
    const QSize room = screen()->availableSize();
    resize(scaleOf(*this).size(compareWidth, compareHeight).boundedTo(room * widestPart));
    model_.ticksChanged = [this] { showAbilities(); };
    setNothing(QString());
    table_->setFocus();
}

QWidget* Compare_Window::makeSides() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    sides_[0] =
        new Side_Bar(QStringLiteral("Left"), QStringLiteral("&Left"), QStringLiteral("File &1..."), row);
    sides_[1] =
        new Side_Bar(QStringLiteral("Right"), QStringLiteral("Ri&ght"), QStringLiteral("File &2..."), row);
    for (int side = 0; side < 2; ++side) {
        Side_Bar& bar = *sides_[static_cast<std::size_t>(side)];
        layout->addWidget(&bar, 1);
        bar.chosen = [this, side](int entry) {
            if (events.sideChosen) events.sideChosen(side, entry);
        };
        bar.fileWanted = [this, side] {
            if (events.fileWanted) events.fileWanted(side);
        };
    }
    return row;
}

QWidget* Compare_Window::makeMiddle() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    middle_ = new QCheckBox(QStringLiteral("Three sides, with the docu&ment in the middle"), row);
    giveName(*middle_, QStringLiteral("CHK_Middle"));
    connect(middle_, &QCheckBox::toggled, this, [this](bool on) {
        if (events.middleChosen) events.middleChosen(on);
    });
    layout->addWidget(middle_);
    layout->addStretch(1);
    read_ = &addButton(*row, "BOT_Read", QStringLiteral("&Read controller"), &Compare_Events::readController);
    return row;
}

QWidget* Compare_Window::makeFilterLine() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* label = new QLabel(QStringLiteral("&Filter"), row);
    giveName(*label, QStringLiteral("LBL_Filter"));
    filter_ = new QLineEdit(row);
    giveName(*filter_, QStringLiteral("EDT_Filter"));
    filter_->setAccessibleName(QStringLiteral("Filter"));
    filter_->setClearButtonEnabled(true);
    filter_->setPlaceholderText(
        QStringLiteral("is:differs is:missing is:readonly reg:100-120 page:name text"));
    label->setBuddy(filter_);
    filterFault_ = namedLabel("LBL_Filter_Fault", row);
    filterFault_->setWordWrap(true);
    filterFault_->hide();
    all_ = new QCheckBox(QStringLiteral("&Also what is equal"), row);
    giveName(*all_, QStringLiteral("CHK_All"));
    layout->addWidget(label);
    layout->addWidget(filter_, 1);
    layout->addWidget(all_);
    auto* whole = new QWidget(this);
    auto* lines = new QVBoxLayout(whole);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->addWidget(row);
    lines->addWidget(filterFault_);
    connect(filter_, &QLineEdit::textChanged, this, [this] { applyFilter(); });
    connect(all_, &QCheckBox::toggled, this, [this] { applyFilter(); });
    return whole;
}

void Compare_Window::makeTable() {
    table_ = new Comparison_Table(model_, this);
    connect(table_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { showState(); });
    connect(&model_, &QAbstractItemModel::modelReset, this, [this] { showState(); });
}

/// The whole of the row that has the keyboard, since a cell may be too narrow for its text.
void Compare_Window::makeRowLine() {
    row_ = namedLabel("LBL_Row", this);
    row_->setWordWrap(true);
    row_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    row_->setMinimumHeight(rowLines * row_->fontMetrics().lineSpacing());
}

QWidget* Compare_Window::makeStateLine() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    counts_ = namedLabel("LBL_Counts", row);
    counts_->setWordWrap(true);
    position_ = namedLabel("LBL_Position", row);
    progress_ = new QProgressBar(row);
    giveName(*progress_, QStringLiteral("PRB_Reading"));
    progress_->setAccessibleName(QStringLiteral("Reading the controller"));
    progress_->hide();
    layout->addWidget(counts_, 1);
    layout->addWidget(progress_, 1);
    layout->addWidget(position_);
    previous_ = &addButton(*row, "BOT_Previous", QStringLiteral("Pre&vious"), nullptr);
    next_ = &addButton(*row, "BOT_Next", QStringLiteral("&Next"), nullptr);
    tick_ = &addButton(*row, "BOT_Tick", QStringLiteral("Tic&k differences"), nullptr);
    connect(previous_, &QPushButton::clicked, this, [this] { table_->previous(); });
    connect(next_, &QPushButton::clicked, this, [this] { table_->next(); });
    connect(tick_, &QPushButton::clicked, this, [this] {
        if (model_.rows().tickedRows().empty())
            model_.tickDifferences();
        else
            model_.tickNothing();
    });
    return row;
}

QPushButton& Compare_Window::addButton(QWidget& row, const char* name, const QString& text,
                                       std::function<void()> Compare_Events::*event) {
    auto* button = new QPushButton(text, &row);
    giveName(*button, QString::fromLatin1(name));
    button->setAutoDefault(false);
    if (event != nullptr)
        connect(button, &QPushButton::clicked, this, [this, event] {
            if (events.*event) (events.*event)();
        });
    row.layout()->addWidget(button);
    return *button;
}

QWidget* Compare_Window::makeButtons() {
    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch(1);
    takeLeft_ =
        &addButton(*row, "BOT_Take_Left", QStringLiteral("Take left si&de"), &Compare_Events::takeLeft);
    takeLeft_->hide();
    take_ = &addButton(*row, "BOT_Take", QStringLiteral("&Take into document"), &Compare_Events::take);
    send_ = &addButton(*row, "BOT_Send", QStringLiteral("&Send ticked..."), &Compare_Events::send);
    print_ = &addButton(*row, "BOT_Print", QStringLiteral("&Print..."), &Compare_Events::print);
    export_ = &addButton(*row, "BOT_Export", QStringLiteral("&Export..."), &Compare_Events::exportTo);
    close_ = &addButton(*row, "BOT_Close", QStringLiteral("&Close"), nullptr);
    connect(close_, &QPushButton::clicked, this, [this] {
        if (!reading_)
            reject();
        else if (events.cancelReading)
            events.cancelReading();
    });
    return row;
}

void Compare_Window::setSideEntries(int side, const QStringList& entries, int current) {
    sides_[static_cast<std::size_t>(side)]->setEntries(entries, current);
}

void Compare_Window::tellSide(int side, bool needsFile, const QString& name) {
    sides_[static_cast<std::size_t>(side)]->tell(needsFile, name);
}

void Compare_Window::setMiddle(bool on) {
    const QSignalBlocker quiet(middle_);
    middle_->setChecked(on);
    takeLeft_->setVisible(on);
    take_->setText(on ? QStringLiteral("&Take right side") : QStringLiteral("&Take into document"));
}

void Compare_Window::setControllerWanted(bool wanted) {
    controllerWanted_ = wanted;
    showAbilities();
}

void Compare_Window::setRows(compare::Row_List rows) {
    compared_ = true;
    const bool others = rows.threeSides() != model_.rows().threeSides();
    model_.setRows(std::move(rows), compare::Filter(toCore(filterInForce_)), all_->isChecked());
    if (others) table_->fitColumns();
    const QString counts = fromCore(compare::countsText(model_.rows().comparison().counts));
    const QString left = fromCore(compare::countsText(model_.rows().leftComparison().counts));
    countsText_ =
        model_.rows().threeSides() ? QStringLiteral("Left: %1.\nRight: %2.").arg(left, counts) : counts;
    showState();
}

void Compare_Window::setNothing(const QString& why) {
    compared_ = false;
    const bool others = model_.rows().threeSides();
    model_.setRows({}, {}, false);
    if (others) table_->fitColumns();
    countsText_ = why;
    showState();
}

void Compare_Window::setNote(const QString& text) {
    note_->setText(text);
    note_->setVisible(!text.isEmpty());
}

void Compare_Window::setTake(const QString& whyNot) {
    whyNotTake_ = whyNot;
    showAbilities();
}

void Compare_Window::setSend(const QString& whyNot) {
    whyNotSend_ = whyNot;
    showAbilities();
}

void Compare_Window::setReading(std::optional<std::pair<int, int>> progress) {
    const bool begins = progress.has_value() && !reading_;
    const bool ends = !progress.has_value() && reading_;
    reading_ = progress.has_value();
    if (progress) {
        progress_->setRange(0, progress->second);
        progress_->setValue(progress->first);
    }
    if (!begins && !ends) return;
    progress_->setVisible(reading_);
    counts_->setVisible(!reading_);
    for (QWidget* part :
         {static_cast<QWidget*>(sides_[0]), static_cast<QWidget*>(sides_[1]), static_cast<QWidget*>(filter_),
          static_cast<QWidget*>(all_), static_cast<QWidget*>(middle_), static_cast<QWidget*>(table_)})
        part->setEnabled(!reading_);
    close_->setText(reading_ ? QStringLiteral("Can&cel") : QStringLiteral("&Close"));
    showState();
    if (begins) close_->setFocus();
    if (ends) table_->setFocus();
}

/// A text that is no filter leaves the last one in force, and says what is wrong with it.
void Compare_Window::applyFilter() {
    const QString text = filter_->text();
    const std::string words = toCore(text);
    const std::string fault = compare::Filter::fault(words);
    filterFault_->setText(fromCore(fault));
    filterFault_->setVisible(!fault.empty());
    if (!fault.empty()) return;
    filterInForce_ = text;
    if (compared_) model_.list(compare::Filter(words), all_->isChecked());
}

void Compare_Window::showState() {
    if (position_ == nullptr || export_ == nullptr) return; // still being made
    const auto row = table_->current();
    const bool whole = row && !reading_;
    row_->setText(whole ? model_.rowText(static_cast<int>(*row)) : QString());
    row_->setVisible(whole);
    position_->setText(compared_ && !reading_ ? fromCore(model_.rows().differenceText(row)) : QString());
    showAbilities();
}

void Compare_Window::showAbilities() {
    if (export_ == nullptr) return;
    // A tick outside what the filter lists counts all the same, so it is told.
    const QString ticks = fromCore(model_.rows().ticksText());
    const QString end = countsText_.endsWith(u'.') ? QString() : QStringLiteral(".");
    counts_->setText(ticks.isEmpty() ? countsText_ : countsText_ + end + u' ' + ticks + u'.');
    const bool usable = compared_ && !reading_;
    const bool ticked = usable && !model_.rows().tickedRows().empty();
    const bool differs = usable && model_.rows().nextDifference(std::nullopt).has_value();
    for (QPushButton* button : {next_, previous_})
        button->setEnabled(differs);
    tick_->setEnabled(ticked || differs);
    tick_->setText(ticked ? QStringLiteral("No tic&ks") : QStringLiteral("Tic&k differences"));
    for (QPushButton* button : {print_, export_})
        button->setEnabled(usable);
    const auto show = [ticked](QPushButton& button, const QString& whyNot) {
        button.setEnabled(ticked && whyNot.isEmpty());
        button.setToolTip(plainTip(!whyNot.isEmpty() ? whyNot
                                   : ticked          ? QString()
                                                     : QStringLiteral("Tick rows first.")));
    };
    show(*takeLeft_, whyNotTake_);
    show(*take_, whyNotTake_);
    show(*send_, whyNotSend_);
    read_->setEnabled(controllerWanted_ && !reading_);
}

void Compare_Window::reject() {
    if (reading_ && events.cancelReading) events.cancelReading();
    QDialog::reject();
}

/// Escape ends a reading first, then the window.
void Compare_Window::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && reading_) {
        if (events.cancelReading) events.cancelReading();
        return;
    }
    QDialog::keyPressEvent(event);
}

} // namespace zorvane::ui
