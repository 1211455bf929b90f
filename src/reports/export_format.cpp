#include "reports/export_format.h"

#include "reports/export_html.h"
#include "reports/export_rtf.h"
#include "reports/export_txt.h"
#include "reports/export_xls.h"
#include "reports/ole_container.h"

#include <array>

namespace zorvane {

std::optional<Export_Format> formatOfFilter(int filterIndex) {
    if (filterIndex < static_cast<int>(Export_Format::Excel) ||
        filterIndex > static_cast<int>(Export_Format::Html))
        return std::nullopt;
    return static_cast<Export_Format>(filterIndex);
}

std::optional<Export_Format> formatOfName(const std::string& name) {
    const std::array<const char*, 6> names = {"xls", "pdf", "rtf", "txt", "tif", "html"};
    for (std::size_t index = 0; index < names.size(); ++index)
        if (name == names[index]) return formatOfFilter(static_cast<int>(index) + 1);
    return std::nullopt;
}

std::string exportReport(ActiveReport& report, Export_Format format, const Page_Exporters& painted) {
    report.Run();
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
