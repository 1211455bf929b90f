// SPDX-License-Identifier: MIT
// Printing a document of 100 fields of 10 columns: on pages, as the first page on the screen, and to each
// format; beside a QTextDocument that prints the same tables to PDF. The argument is the number of rows of
// each field.

#include "reports/documents/main_rep_kvrt.h"
#include "reports/export/export_format.h"
#include "reports/qt/qt_page_exporters.h"
#include "reports/qt/qt_page_painter.h"
#include "reports/qt/qt_report_fonts.h"
#include "template/model/declara_zorvane.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

namespace zorvane::bench {
namespace {

constexpr std::int16_t fieldCount = 100;
constexpr std::int16_t columnCount = 10;

std::string valueOf(std::int32_t field, std::int32_t row, std::int32_t column) {
    return std::to_string((field * 7919 + row * 31 + column * 131) % 65536);
}

std::unique_ptr<Declara_Zorvane> documentOf(std::int16_t rows) {
    auto document = std::make_unique<Declara_Zorvane>();
    PRO_Limpia_Modelo(*document);
    PRO_Prepara_Lectura(*document);
    document->Field_Count = fieldCount;
    document->File_Stem = "SITE7";
    document->File_Extension = "KVRT";
    document->File_Folder = "/home/";
    for (std::int16_t f = 1; f <= fieldCount; ++f) {
        Field_Rec& field = document->Fields(f);
        field.Description = "Field " + std::to_string(f);
        field.Rows = rows;
        field.Columns = columnCount;
        field.Cells.redim(rows, columnCount);
        for (std::int32_t c = 1; c <= columnCount; ++c) {
            Cell_Rec& definition = field.Cells(0, c);
            definition.Value = "Column " + std::to_string(c);
            definition.Width = 900;
            for (std::int32_t r = 1; r <= rows; ++r)
                field.Cells(r, c).Value = valueOf(f, r, c);
        }
    }
    return document;
}

/// A document and a report of all its fields.
struct Scene {
    explicit Scene(const benchmark::State& state)
        : document(documentOf(static_cast<std::int16_t>(state.range(0)))),
          report(
              {*document, metrics},
              [] {
                  return Report_Time{"21/11/2026", 15, 20};
              },
              host) {
        const Page_Settings& paper = report.PageSettings;
        report.PrintWidth = paper.PaperWidth - (paper.LeftMargin + paper.RightMargin);
        report.HaveGrid = true;
    }
    std::unique_ptr<Declara_Zorvane> document;
    Qt_Text_Metrics metrics;
    No_Report_Windows host;
    MainRepKVRT report;
};

void layOut(benchmark::State& state) {
    Scene scene(state);
    for (auto iteration : state)
        scene.report.Run();
    const double pages = scene.report.Pages.Count();
    state.counters["pages"] = pages;
    state.counters["pages/s"] =
        benchmark::Counter(pages * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void firstPageOnTheScreen(benchmark::State& state) {
    Scene scene(state);
    QImage screen(794, 1123, QImage::Format_RGB32);
    for (auto iteration : state) {
        scene.report.Run();
        screen.fill(Qt::white);
        QPainter painter(&screen);
        painter.scale(96.0 / 1440, 96.0 / 1440);
        paintPage(painter, scene.report.Pages.document, 0);
    }
}

void exportTo(benchmark::State& state, Export_Format format) {
    Scene scene(state);
    const Qt_Page_Exporters painted;
    std::size_t size = 0;
    for (auto iteration : state)
        size = exportReport(scene.report, format, painted).size();
    state.counters["MB"] = static_cast<double>(size) / 1e6;
}

/// The same headings and cells as tables of Qt's own text engine, rules included, printed to PDF in memory.
void pdfByTextDocument(benchmark::State& state) {
    const auto rows = static_cast<int>(state.range(0));
    double pages = 0;
    for (auto iteration : state) {
        QTextDocument document;
        document.setDefaultFont(QFont(QStringLiteral("DejaVu Sans"), 8));
        QTextCursor cursor(&document);
        QTextTableFormat look;
        look.setBorder(0.5);
        look.setCellSpacing(0);
        look.setHeaderRowCount(1);
        for (int f = 1; f <= fieldCount; ++f) {
            cursor.movePosition(QTextCursor::End);
            cursor.insertText(QStringLiteral("Field %1").arg(f));
            cursor.insertTable(rows + 1, columnCount, look);
            for (int c = 1; c <= columnCount; ++c, cursor.movePosition(QTextCursor::NextCell))
                cursor.insertText(QStringLiteral("Column %1").arg(c));
            for (int r = 1; r <= rows; ++r)
                for (int c = 1; c <= columnCount; ++c, cursor.movePosition(QTextCursor::NextCell))
                    cursor.insertText(QString::fromStdString(valueOf(f, r, c)));
        }
        QBuffer file;
        file.open(QIODevice::WriteOnly);
        QPdfWriter writer(&file);
        writer.setPageSize(QPageSize(QPageSize::A4));
        document.print(&writer);
        pages = document.pageCount();
    }
    state.counters["pages"] = pages;
}

constexpr auto sizes = [](benchmark::internal::Benchmark* subject) {
    subject->Arg(30)->Arg(100)->Arg(300)->Unit(benchmark::kMillisecond);
};

BENCHMARK(layOut)->Apply(sizes);
BENCHMARK(firstPageOnTheScreen)->Apply(sizes);
BENCHMARK_CAPTURE(exportTo, txt, Export_Format::Text)->Apply(sizes);
BENCHMARK_CAPTURE(exportTo, html, Export_Format::Html)->Apply(sizes);
BENCHMARK_CAPTURE(exportTo, rtf, Export_Format::Rtf)->Apply(sizes);
BENCHMARK_CAPTURE(exportTo, xls, Export_Format::Excel)->Apply(sizes);
BENCHMARK_CAPTURE(exportTo, pdf, Export_Format::Pdf)->Apply(sizes);
BENCHMARK(pdfByTextDocument)->Apply(sizes);
BENCHMARK_CAPTURE(exportTo, tif, Export_Format::Tiff)->Arg(30)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace zorvane::bench

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const QGuiApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
