// SPDX-License-Identifier: MIT
#include "app/sending/record_dialog.h"

#include "commission/folder/state_folder.h"
#include "template/services/asker.h"
#include "ui/base/text.h"
#include "ui/base/twips_scale.h"
#include "values/run_time_failure.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardPaths>

namespace zorvane::app {

using commission::Record_Head;

namespace {

constexpr double dialogWidth = 7800; // twips

struct Head_Part {
    const char* name;
    const char* caption;
    std::string Record_Head::*member;
};

constexpr std::array<Head_Part, 5> headParts = {
    Head_Part{"TXT_Site", "&Site", &Record_Head::site}, Head_Part{"TXT_Panel", "&Panel", &Record_Head::panel},
    Head_Part{"TXT_Order", "O&rder", &Record_Head::order},
    Head_Part{"TXT_TestedBy", "&Tested by", &Record_Head::testedBy},
    Head_Part{"TXT_WitnessedBy", "&Witnessed by", &Record_Head::witnessedBy}};

constexpr const char* recordFilter = "PDF with its JSON (*.pdf);;JSON (*.json);;Excel (*.xls);;Rich text "
                                     "(*.rtf);;Text (*.txt);;TIFF (*.tif);;HTML (*.html)";

QLineEdit* newLine(QWidget& parent, const char* name, const char* caption) {
    auto* line = new QLineEdit(&parent);
    ui::giveName(*line, QString::fromLatin1(name));
    line->setAccessibleName(QString::fromLatin1(caption).remove(QLatin1Char('&')));
    return line;
}

QPushButton* newButton(QWidget& parent, const char* name, const char* caption) {
    auto* button = new QPushButton(QString::fromLatin1(caption), &parent);
    ui::giveName(*button, QString::fromLatin1(name));
    return button;
}

} // namespace

Record_Dialog::Record_Dialog(const Record_Head& head, const QString& file, QWidget* parent)
    : QDialog(parent) {
    ui::giveName(*this, QStringLiteral("FrmRecord"));
    setWindowTitle(QStringLiteral("Record"));
    auto* form = new QFormLayout(this);
    addHead(*form, head);
    addPlace(*form, file);
    addButtons(*form);
    setMinimumWidth(ui::scaleOf(*this).pixelsX(dialogWidth));
}

void Record_Dialog::addHead(QFormLayout& form, const Record_Head& head) {
    for (std::size_t i = 0; i < headParts.size(); ++i) {
        parts_[i] = newLine(*this, headParts[i].name, headParts[i].caption);
        parts_[i]->setText(ui::fromCore(head.*headParts[i].member));
        form.addRow(QString::fromLatin1(headParts[i].caption), parts_[i]);
    }
}

void Record_Dialog::addPlace(QFormLayout& form, const QString& file) {
    auto* place = new QHBoxLayout;
    file_ = newLine(*this, "TXT_File", "&File");
    file_->setText(file);
    auto* browse = newButton(*this, "BOT_Browse", "&Browse...");
    browse->setAutoDefault(false);
    place->addWidget(file_, 1);
    place->addWidget(browse);
    form.addRow(QStringLiteral("&File"), place);
    static_cast<QLabel*>(form.labelForField(place))->setBuddy(file_);
    connect(browse, &QPushButton::clicked, this, [this] { this->browse(); });
}

void Record_Dialog::addButtons(QFormLayout& form) {
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    auto* write = newButton(*this, "BOT_Write", "Wr&ite");
    write->setDefault(true);
    buttons->addWidget(write);
    auto* cancel = newButton(*this, "BOT_Cancel", "Cancel");
    cancel->setAutoDefault(false);
    buttons->addWidget(cancel);
    form.addRow(buttons);
    connect(write, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
}

Record_Head Record_Dialog::head() const {
    Record_Head head;
    for (std::size_t i = 0; i < headParts.size(); ++i)
        head.*headParts[i].member = ui::toCore(parts_[i]->text().trimmed());
    return head;
}

QString Record_Dialog::file() const { return QDir::fromNativeSeparators(file_->text().trimmed()); }

void Record_Dialog::browse() {
    const QString chosen = QFileDialog::getSaveFileName(this, QStringLiteral("Record"), file(),
                                                        QString::fromLatin1(recordFilter), nullptr,
                                                        QFileDialog::DontConfirmOverwrite);
    if (!chosen.isEmpty()) file_->setText(chosen);
}

namespace {

using Say = std::function<int(const QString& text, int style)>;

/// The format that the file's ending tells, once it may be written; nothing when the user chooses again.
std::optional<commission::Record_Format> agreedFormat(const QString& file, const Say& say) {
    const auto format = commission::recordFormatOf(QFile::encodeName(file).toStdString());
    if (!format)
        say(QStringLiteral(
                "The file's ending tells the format: .pdf, .json, .xls, .rtf, .txt, .tif or .html."),
            Msgb_Exclamation);
    else if (QFileInfo::exists(file) &&
             say(QStringLiteral("%1 is there already. Do you want to write over it?").arg(file),
                 Msgb_Question + Msgb_YesNo) != Msgb_Code_Yes)
        return std::nullopt;
    return format;
}

/// Writes the record and says so, or why it can't be; whether it was written.
bool written(const commission::Record& record, const QString& file, commission::Record_Format format,
             bool headKept, const Say& say) {
    try {
        const std::string hash =
            commission::writeRecord(record, QFile::encodeName(file).toStdString(), format);
        say(QStringLiteral("Written: %1, record %2.%3")
                .arg(file, QString::fromStdString(hash),
                     headKept ? QString() : QStringLiteral(" The head can't be kept for the next one.")),
            Msgb_Information);
        return true;
    } catch (const Run_Time_Failure& failure) {
        say(QStringLiteral("%1 could not be written: %2. Choose another file.")
                .arg(file, QString::fromUtf8(failure.what())),
            Msgb_Exclamation);
        return false;
    }
}

} // namespace

void askForRecord(const commission::Record_Place& place, const std::string& stateFolder,
                  const std::string& run, const ui::Ask_User& ask, QWidget* parent) {
    const Say say = [&](const QString& text, int style) {
        return ask(text, style, ui::fromCore(applicationTitle));
    };
    auto record = commission::recordFrom(place, run);
    if (!record) {
        say(QStringLiteral("The run %1 can't be read.").arg(QString::fromStdString(run)), Msgb_Exclamation);
        return;
    }
    const std::string sites = commission::sitesFile(stateFolder);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    Record_Dialog dialog(commission::headFor(place, run, sites, {}),
                         folder + QLatin1Char('/') + QString::fromStdString(run) + QStringLiteral(".pdf"),
                         parent);
    while (dialog.exec() == QDialog::Accepted) {
        const auto format = agreedFormat(dialog.file(), say);
        if (!format) continue;
        record->head = dialog.head();
        const bool kept = commission::keepHead(place, run, sites, record->head);
        if (written(*record, dialog.file(), *format, kept, say)) return;
    }
}

} // namespace zorvane::app
