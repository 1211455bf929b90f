// SPDX-License-Identifier: MIT
#include "ui/report/report_printing.h"

#include "reports/qt/qt_page_painter.h"
#include "ui/base/text.h"
#include "values/twips.h"

#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinterInfo>

#include <algorithm>

namespace zorvane::ui {

namespace {

Paint_Order orderOf(const QPrinter& printer, const Page_Document& pages, int shown) {
    Paint_Order order;
    if (pages.pages.empty()) return order;
    order.last = pages.pages.size() - 1;
    if (printer.printRange() == QPrinter::CurrentPage && shown > 0) {
        order.first = order.last = static_cast<std::size_t>(shown) - 1;
    } else if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0) {
        order.first = static_cast<std::size_t>(printer.fromPage()) - 1;
        order.last = std::min(order.last,
                              static_cast<std::size_t>(std::max(printer.fromPage(), printer.toPage())) - 1);
    }
    return order;
}

} // namespace

void prepare(QPrinter& printer, const Page_Document& pages, const Report_Printer& chosen,
             const QString& title) {
    const QString name = fromCore(chosen.DeviceName);
    if (!name.isEmpty() && QPrinterInfo::availablePrinterNames().contains(name)) printer.setPrinterName(name);
    const bool across = pages.paperWidth > pages.paperHeight;
    const QSizeF upright(std::min(pages.paperWidth, pages.paperHeight),
                         std::max(pages.paperWidth, pages.paperHeight));
    printer.setFullPage(true);
    printer.setPageSize(
        QPageSize(upright / twipsPerPoint, QPageSize::Point, QString(), QPageSize::FuzzyMatch));
    printer.setPageOrientation(across ? QPageLayout::Landscape : QPageLayout::Portrait);
    printer.setCopyCount(std::max(1, chosen.Copies));
    printer.setDocName(title);
    printer.setCreator(QStringLiteral("Zorvane"));
}

void prepare(QPrintDialog& dialog, const Page_Document& pages, int shown) {
    giveName(dialog, QStringLiteral("PrintDialog"));
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage, shown > 0);
    dialog.setOption(QAbstractPrintDialog::PrintCollateCopies);
    dialog.setMinMax(1, std::max(1, static_cast<int>(pages.pages.size())));
}

Print_Outcome print(QPrinter& printer, const Page_Document& pages, int shown,
                    const std::function<bool()>& keepsOn) {
    Paint_Order order = orderOf(printer, pages, shown);
    bool stopped = false;
    order.keepsOn = [&] {
        stopped = keepsOn && !keepsOn();
        if (stopped) printer.abort();
        return !stopped;
    };
    if (paintPages(printer, pages, order)) return Print_Outcome::Printed;
    return stopped ? Print_Outcome::Stopped : Print_Outcome::Failed;
}

} // namespace zorvane::ui
