// SPDX-License-Identifier: MIT
#include "reports/qt/qt_page_exporters.h"

#include "reports/export/tiff_file.h"
#include "reports/qt/qt_page_dots.h"
#include "reports/qt/qt_page_painter.h"
#include "values/code_page.h"
#include "values/twips.h"

#include <QBuffer>
#include <QPageLayout>
#include <QPdfWriter>

namespace zorvane {

namespace {

constexpr int dotsPerInch = 200;

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
        if (!paintPages(writer, pages, {.keepsOn = watch(pages.pages.size())}))
            throw Run_Time_Failure(Failure::PathFileAccess);
    }
    return file.data().toStdString();
}

std::string Qt_Page_Exporters::tiff(const Page_Document& pages) const {
    const auto goesOn = watch(pages.pages.size());
    Qt_Page_Dots dots(pages, dotsPerInch);
    Tiff_File file(dotsPerInch, dots.colours().table());
    for (std::size_t page = 0; page < pages.pages.size(); ++page) {
        if (!goesOn()) throw Run_Time_Failure(Failure::PathFileAccess);
        file.addPage(dots.width(), dots.of(page));
        if (page == 0) file.expect(pages.pages.size() - 1);
    }
    return file.take();
}

/// Asked before each page.
std::function<bool()> Qt_Page_Exporters::watch(std::size_t total) const {
    return [this, total, done = std::size_t{0}]() mutable {
        if (progress_) progress_(done++, total);
        return !keepsOn_ || keepsOn_();
    };
}

} // namespace zorvane
