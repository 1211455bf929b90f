// SPDX-License-Identifier: MIT
#include "reports/qt/qt_archive_pdf.h"

#include "reports/qt/qt_page_painter.h"
#include "values/run_time_failure.h"
#include "values/twips.h"

#include <QBuffer>
#include <QHashFunctions>
#include <QPageLayout>
#include <QPdfWriter>

namespace zorvane {

namespace {

/// The order in which Qt writes the fonts of a PDF goes by its hashes, whose seed is another one in each
/// process.
class Fixed_Hash_Seed {
  public:
    Fixed_Hash_Seed() { QHashSeed::setDeterministicGlobalSeed(); }
    ~Fixed_Hash_Seed() { QHashSeed::resetRandomGlobalSeed(); }
    Fixed_Hash_Seed(const Fixed_Hash_Seed&) = delete;
    Fixed_Hash_Seed& operator=(const Fixed_Hash_Seed&) = delete;
};

} // namespace

std::string archivePdf(const Page_Document& pages, const Archive_Stamp& stamp) {
    const Fixed_Hash_Seed seed;
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&file);
        writer.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
        writer.setResolution(static_cast<int>(twipsPerInch));
        writer.setPageLayout(QPageLayout(
            QPageSize(QSizeF(pages.paperWidth, pages.paperHeight) / twipsPerPoint, QPageSize::Point),
            QPageLayout::Portrait, QMarginsF()));
        writer.setTitle(QString::fromStdString(stamp.title));
        writer.setCreator(QString::fromStdString(stamp.creator));
        const std::string producer = std::string("Qt ") + qVersion();
        writer.setDocumentXmpMetadata(QByteArray::fromStdString(archiveMetadata(stamp, producer)));
        if (!paintPages(writer, pages)) throw Run_Time_Failure(Failure::PathFileAccess);
    }
    return stampedPdf(file.data().toStdString(), stamp);
}

} // namespace zorvane
