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

QString plainCaption(const char* caption) { return QString::fromLatin1(caption).remove(QLatin1Char('&')); }

} // namespace

Record_Dialog::Record_Dialog(const Record_Head& head, const QString& file, QWidget* parent)
    : QDialog(parent) {
    ui::giveName(*this, QStringLiteral("FrmRecord"));
    setWindowTitle(QStringLiteral("Record"));
    auto* form = new QFormLayout(this);
    const auto addLine = [&](const char* name, const char* caption) {
        auto* line = new QLineEdit(this);
        ui::giveName(*line, QString::fromLatin1(name));
        line->setAccessibleName(plainCaption(caption));
        return line;
    };
    for (std::size_t i = 0; i < headParts.size(); ++i) {
        parts_[i] = addLine(headParts[i].name, headParts[i].caption);
        parts_[i]->setText(ui::fromCore(head.*headParts[i].member));
        form->addRow(QString::fromLatin1(headParts[i].caption), parts_[i]);
    }
    auto* place = new QHBoxLayout;
    file_ = addLine("TXT_File", "&File");
    file_->setText(file);
    auto* browse = new QPushButton(QStringLiteral("&Browse..."), this);
    ui::giveName(*browse, QStringLiteral("BOT_Browse"));
    browse->setAutoDefault(false);
    place->addWidget(file_, 1);
    place->addWidget(browse);
    form->addRow(QStringLiteral("&File"), place);
    static_cast<QLabel*>(form->labelForField(place))->setBuddy(file_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    const auto addButton = [&](const char* name, const char* caption) {
        auto* button = new QPushButton(QString::fromLatin1(caption), this);
        ui::giveName(*button, QString::fromLatin1(name));
        buttons->addWidget(button);
        return button;
    };
    QPushButton* write = addButton("BOT_Write", "Wr&ite");
    write->setDefault(true);
    QPushButton* cancel = addButton("BOT_Cancel", "Cancel");
    cancel->setAutoDefault(false);
    form->addRow(buttons);
    connect(browse, &QPushButton::clicked, this, [this] { this->browse(); });
    connect(write, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
    setMinimumWidth(ui::scaleOf(*this).pixelsX(dialogWidth));
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

void askForRecord(const commission::Record_Place& place, const std::string& stateFolder,
                  const std::string& run, const ui::Ask_User& ask, QWidget* parent) {
    const QString title = ui::fromCore(applicationTitle);
    const auto tell = [&](const QString& text, int style) { (void)ask(text, style, title); };
    auto record = commission::recordFrom(place, run);
    if (!record)
        return tell(QStringLiteral("The run %1 can't be read.").arg(QString::fromStdString(run)),
                    Msgb_Exclamation);
    const std::string sites = commission::sitesFile(stateFolder);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    Record_Dialog dialog(commission::headFor(place, run, sites, {}),
                         folder + QLatin1Char('/') + QString::fromStdString(run) + QStringLiteral(".pdf"),
                         parent);
    for (;;) {
        if (dialog.exec() != QDialog::Accepted) return;
        const std::string file = QFile::encodeName(dialog.file()).toStdString();
        const auto format = commission::recordFormatOf(file);
        if (!format) {
            tell(QStringLiteral(
                     "The file's ending tells the format: .pdf, .json, .xls, .rtf, .txt, .tif or .html."),
                 Msgb_Exclamation);
            continue;
        }
        const bool there = QFileInfo::exists(dialog.file());
        if (there &&
            ask(QStringLiteral("%1 is there already. Do you want to write over it?").arg(dialog.file()),
                Msgb_Question + Msgb_YesNo, title) != Msgb_Code_Yes)
            continue;
        record->head = dialog.head();
        const bool kept = commission::keepHead(place, run, sites, record->head);
        try {
            const std::string hash = commission::writeRecord(*record, file, *format);
            return tell(
                QStringLiteral("Written: %1, record %2.%3")
                    .arg(dialog.file(), QString::fromStdString(hash),
                         kept ? QString() : QStringLiteral(" The head can't be kept for the next one.")),
                Msgb_Information);
        } catch (const Run_Time_Failure& failure) {
            tell(QStringLiteral("%1 could not be written: %2. Choose another file.")
                     .arg(dialog.file(), QString::fromUtf8(failure.what())),
                 Msgb_Exclamation);
        }
    }
}

} // namespace zorvane::app
