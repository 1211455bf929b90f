#include "reports/qt_page_exporters.h"

#include "reports/qt_page_painter.h"
#include "reports/tiff_file.h"
#include "values/code_page.h"
#include "values/twips.h"

#include <QBuffer>
#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>

#include <cmath>

namespace zorvane {

namespace {

constexpr int dotsPerInch = 200;

QImage picture(const Page_Document& pages, std::size_t page) {
    const double scale = dotsPerInch / twipsPerInch;
    QImage image(static_cast<int>(std::lround(pages.paperWidth * scale)),
                 static_cast<int>(std::lround(pages.paperHeight * scale)), QImage::Format_RGB888);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    painter.scale(scale, scale);
    paintPage(painter, pages, page);
    return image;
}

} // namespace

std::string Qt_Page_Exporters::pdf(const Page_Document& pages, const std::string& title) const {
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&file);
        writer.setResolution(static_cast<int>(twipsPerInch));
        writer.setPageLayout(QPageLayout(
            QPageSize(QSizeF(pages.paperWidth, pages.paperHeight) / twipsPerPoint, QPageSize::Point),
            QPageLayout::Portrait, QMarginsF()));
        writer.setTitle(QString::fromStdString(toUtf8(title)));
        writer.setCreator("Zorvane");
        if (!paintPages(writer, pages, {.keepsOn = keepsOn_}))
            throw Run_Time_Failure(Failure::PathFileAccess);
    }
    return file.data().toStdString();
}

std::string Qt_Page_Exporters::tiff(const Page_Document& pages) const {
    Tiff_File file(dotsPerInch);
    for (std::size_t page = 0; page < pages.pages.size(); ++page) {
        if (keepsOn_ && !keepsOn_()) throw Run_Time_Failure(Failure::PathFileAccess);
        const QImage image = picture(pages, page);
        const auto rows = [&image](std::uint32_t row) { return image.constScanLine(static_cast<int>(row)); };
        file.addPage(static_cast<std::uint32_t>(image.width()), static_cast<std::uint32_t>(image.height()),
                     rows);
    }
    return file.take();
}

} // namespace zorvane
