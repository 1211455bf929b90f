// SPDX-License-Identifier: MIT
#include "reports/export/export_format.h"

#include "reports/export/export_html.h"
#include "reports/export/export_rtf.h"
#include "reports/export/export_txt.h"
#include "reports/export/xls/export_xls.h"
#include "reports/export/xls/ole_container.h"

#include <array>

namespace zorvane {

namespace {

/// In the order of `Export_Format`, which counts from 1.
constexpr std::array extensions = {"xls", "pdf", "rtf", "txt", "tif", "html"};

} // namespace

std::optional<Export_Format> formatOfFilter(int filterIndex) {
    if (filterIndex < 1 || filterIndex > static_cast<int>(extensions.size())) return std::nullopt;
    return static_cast<Export_Format>(filterIndex);
}

std::optional<Export_Format> formatOfName(const std::string& name) {
    for (std::size_t index = 0; index < extensions.size(); ++index)
        if (name == extensions[index]) return formatOfFilter(static_cast<int>(index) + 1);
    return std::nullopt;
}

std::vector<std::string> formatNames() { return {extensions.begin(), extensions.end()}; }

std::string extensionOf(Export_Format format) { return extensions.at(static_cast<std::size_t>(format) - 1); }

std::string exportReport(ActiveReport& report, Export_Format format, const Page_Exporters& painted) {
    report.Run();
    if (report.Canceled()) return "";
    switch (format) {
    case Export_Format::Excel:
        return oleFile("Workbook", biffWorkbook(contentOf(report)));
    case Export_Format::Pdf:
        return painted.pdf(report.Pages.document, report.Caption);
    case Export_Format::Rtf:
        return exportRtf(contentOf(report));
    case Export_Format::Text:
        return exportTxt(contentOf(report));
    case Export_Format::Tiff:
        return painted.tiff(report.Pages.document);
    case Export_Format::Html:
        return exportHtml(contentOf(report));
    }
    return "";
}

} // namespace zorvane
